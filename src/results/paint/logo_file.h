#pragma once

#include "results/report/picture.h"

#include <optional>
#include <string_view>

namespace qor {

/// Reads a company's picture: .bmp, .png or .jpg, told by its first bytes. What shines through becomes white.
/// Any byte string is safe; nothing when it cannot be read or is larger than MostPixels.
[[nodiscard]] std::optional<PictureRgb> ReadLogo(std::string_view bytes);

} // namespace qor
