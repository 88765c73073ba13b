#pragma once

#include "results/report/page_forms.h"

class QImage;

namespace qor {

/// Paints a page. `plot` is a picture of the plot of the size that the page has for it; `logo` the company's
/// picture, if the page has a place for one. Needs a QGuiApplication, for its fonts.
[[nodiscard]] PaintedPage PaintPage(const ReportPage& page, const QImage& plot, const PictureRgb* logo);

/// A picture in 16 bits: of each colour the five upper bits.
[[nodiscard]] Picture16 InSixteenBits(const QImage& image);

} // namespace qor
