#pragma once

#include "display/paint/trace_raster.h"
#include "display/plot_scene.h"

class QPainter;

namespace qor::paint {

/// Paints an item of the scene with a painter that is scaled to the window's pixels.
void PaintItem(QPainter& painter, const PlotItem& item);

/// Pixels of the image that an item may touch, `ratio` of them for one of the window.
[[nodiscard]] PixelRect BoundsOf(const PlotItem& item, double ratio);

} // namespace qor::paint
