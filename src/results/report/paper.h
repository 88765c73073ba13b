#pragma once

#include "platform/printer.h"

namespace qor {

/// Sizes of the page on paper and in the preview: so many times smaller than on a screen of 96 dots an inch.
inline constexpr double PrintDivisor = 1.25;
inline constexpr double PreviewDivisor = 1.5;

/// Where a picture of that size is put on a sheet. What does not go on the sheet's width is cut off.
[[nodiscard]] PaperPlace PlaceOnPaper(const PaperFacts& paper, int width, int height, double divisor);

} // namespace qor
