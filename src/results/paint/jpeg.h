#pragma once

#include "results/report/picture.h"

#include <string>

namespace qor {

/// The bytes of a .jpg of full quality, colours as sharp as the rest; empty when there is no memory for it.
[[nodiscard]] std::string FormatJpeg(const Picture16& picture);

} // namespace qor
