#include "results/paint/qt_page_forms.h"

#include "curve/paint/plot_painter.h"
#include "curve/paint/scene_painter.h"
#include "curve/plot_geometry.h"
#include "results/paint/jpeg.h"
#include "results/paint/logo_file.h"
#include "results/paint/page_painter.h"
#include "results/paint/pdf.h"
#include "results/paint/series_report.h"

namespace qor {

namespace {

/// A subject laid out for its picture.
struct LaidPlot {
    PlotGeometry geometry;
    PlotFacts facts;

    explicit LaidPlot(const PlotSubject& plot)
        : geometry(ComputeLayout(plot.curve, PlotPictureWidth, PlotPictureHeight)), facts(plot.facts) {
        facts.look = PlotLook::Picture;
        facts.m_PrintMode = true;
        facts.marks = plot.marks ? plot.marks(geometry) : std::vector<MarkerMark>();
    }
};

/// Texts of the plot, of its place on the page.
void AddTexts(std::vector<LayerText>& texts, const std::vector<PlotItem>& items, const PagePlace& place) {
    for (const PlotItem& item : items) {
        const auto* text = std::get_if<PlotText>(&item);
        if (!text || text->text.empty())
            continue;
        const paint::TextLine line = paint::LineOf(*text);
        texts.push_back({place.x + line.left, place.y + line.baseline, line.width,
                         static_cast<double>(text->size), line.text});
    }
}

} // namespace

PaintedPage QtPageForms::PaintPage(const ReportPage& page, const PlotSubject& plot,
                                   const PictureRgb* logo) const {
    LaidPlot laid(plot);
    laid.facts.translate = [language = page.language](std::string_view text) {
        return InReportLanguage(language, text);
    };
    PaintedPage painted = qor::PaintPage(page, PaintPicture(plot.curve, laid.geometry, laid.facts), logo);
    const PlotScene scene = BuildScene(plot.curve, laid.geometry, laid.facts);
    AddTexts(painted.texts, scene.ground, page.plot);
    AddTexts(painted.texts, scene.front, page.plot);
    return painted;
}

Picture16 QtPageForms::PaintPlot(const PlotSubject& plot) const {
    LaidPlot laid(plot);
    laid.facts.translate = m_Screen;
    return InSixteenBits(PaintPicture(plot.curve, laid.geometry, laid.facts));
}

std::string QtPageForms::Jpeg(const Picture16& picture) const {
    return FormatJpeg(picture);
}

std::string QtPageForms::Pdf(std::string_view jpeg, std::span<const LayerText> texts) const {
    return FormatPdf(jpeg, texts);
}

std::string QtPageForms::SeriesPdf(const SeriesSummary& summary, ReportLanguage language) const {
    return FormatSeriesPdf(summary, language);
}

std::optional<PictureRgb> QtPageForms::ReadPicture(std::string_view bytes) const {
    return ReadLogo(bytes);
}

} // namespace qor
