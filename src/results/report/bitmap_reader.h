#pragma once

#include "results/report/picture.h"

#include <optional>
#include <string_view>

namespace qor {

/// A picture of more pixels is not read, in any form: it takes 48 MB.
inline constexpr long long MostPixels = 12'000'000;

/// Reads the bytes of a .bmp: 1, 4, 8, 16, 24 or 32 bits a pixel, masks of its own, run lengths, either order
/// of rows, and the short header of the oldest. Any byte string is safe; nothing when it is no such picture
/// or is cut short. What a run-length picture leaves out stays white.
[[nodiscard]] std::optional<PictureRgb> ReadBitmap(std::string_view bytes);

} // namespace qor
