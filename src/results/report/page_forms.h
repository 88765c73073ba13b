#pragma once

#include "curve/plot_scene.h"
#include "results/report/picture.h"
#include "results/report/report_page.h"

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace qor {

class Curve;
struct SeriesSummary;

/// A plot that is to be painted for paper: a picture of 956 x 606, whatever the window's size.
struct PlotSubject {
    const Curve& curve;
    PlotFacts facts; ///< look and marks are set by who paints
    /// The markers on a plot of that geometry; none: no markers.
    std::function<std::vector<MarkerMark>(const PlotGeometry&)> marks;
};

/// A text as it stands on the page, for those who search, copy or hear it: in pixels of the page.
struct LayerText {
    double x = 0;        ///< where it begins
    double baseline = 0; ///< the line on which its letters stand
    double width = 0;
    double size = 0; ///< of its letters
    std::string text;
};

/// A page as every file and the paper get it.
struct PaintedPage {
    Picture16 picture;
    std::vector<LayerText> texts;
};

/// What makes pictures and their files. It lives above the engine, for it needs fonts; a program that makes
/// no pictures has none.
class PageForms {
public:
    PageForms() = default;
    PageForms(const PageForms&) = delete;
    PageForms& operator=(const PageForms&) = delete;
    virtual ~PageForms() = default;

    /// The page with its plot, whose texts are in the language of the page, and the company's picture.
    [[nodiscard]] virtual PaintedPage PaintPage(const ReportPage& page, const PlotSubject& plot,
                                                const PictureRgb* logo) const = 0;
    /// The plot alone, in the language of the screen.
    [[nodiscard]] virtual Picture16 PaintPlot(const PlotSubject& plot) const = 0;

    /// The bytes of a .jpg of full quality, colours as sharp as the rest.
    [[nodiscard]] virtual std::string Jpeg(const Picture16& picture) const = 0;
    /// The bytes of a PDF of one sheet with the page as a .jpg and its texts unseen over it.
    [[nodiscard]] virtual std::string Pdf(std::string_view jpeg, std::span<const LayerText> texts) const = 0;
    /// The bytes of a PDF with the statistics of a series; empty without a run.
    [[nodiscard]] virtual std::string SeriesPdf(const SeriesSummary& summary,
                                                ReportLanguage language) const = 0;
    /// A company's picture in any of its forms; nothing when it cannot be read.
    [[nodiscard]] virtual std::optional<PictureRgb> ReadPicture(std::string_view bytes) const = 0;
};

} // namespace qor
