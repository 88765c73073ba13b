#pragma once

#include "curve/paint/trace_raster.h"
#include "curve/plot_scene.h"

class QPainter;

namespace qor::paint {

/// Paints an item of the scene with a painter that is scaled to the window's pixels.
void PaintItem(QPainter& painter, const PlotItem& item);

/// Pixels of the image that an item may touch, `ratio` of them for one of the window.
[[nodiscard]] PixelRect BoundsOf(const PlotItem& item, double ratio);

/// Where a text of the scene comes to stand, in pixels of the window.
struct TextLine {
    double left = 0;
    double baseline = 0;
    double width = 0;
    std::string text; ///< as it is painted
};
[[nodiscard]] TextLine LineOf(const PlotText& item);

} // namespace qor::paint
