#include "results/report/paper.h"

#include <algorithm>

namespace qor {

namespace {
constexpr double ScreenDpi = 96;
constexpr double MmPerInch = 25.4;
} // namespace

PaperPlace PlaceOnPaper(const PaperFacts& paper, int width, int height, double divisor) {
    const int sheetWide = static_cast<int>(paper.widthMm * paper.dpiX / MmPerInch);
    const double scaleX = paper.dpiX / ScreenDpi / divisor;
    const double scaleY = paper.dpiY / ScreenDpi / divisor;
    PaperPlace place;
    place.dotsWide = std::min(sheetWide, static_cast<int>(width * scaleX));
    place.pixelsWide = place.dotsWide / scaleX;
    place.dotsHigh = static_cast<int>(height * scaleY);
    place.pixelsHigh = height;
    return place;
}

} // namespace qor
