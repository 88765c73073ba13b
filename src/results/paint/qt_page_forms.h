#pragma once

#include "results/report/page_forms.h"

namespace qor {

/// Pages and their files with the toolkit's fonts. Needs a QGuiApplication while it paints.
class QtPageForms final : public PageForms {
public:
    /// `screen` puts a text of the plot into the language of the screen; none: German.
    explicit QtPageForms(std::function<std::string(std::string_view)> screen = {})
        : m_Screen(std::move(screen)) {}

    [[nodiscard]] PaintedPage PaintPage(const ReportPage& page, const PlotSubject& plot,
                                        const PictureRgb* logo) const override;
    [[nodiscard]] Picture16 PaintPlot(const PlotSubject& plot) const override;
    [[nodiscard]] std::string Jpeg(const Picture16& picture) const override;
    [[nodiscard]] std::string Pdf(std::string_view jpeg, std::span<const LayerText> texts) const override;
    [[nodiscard]] std::string SeriesPdf(const SeriesSummary& summary, ReportLanguage language) const override;
    [[nodiscard]] std::optional<PictureRgb> ReadPicture(std::string_view bytes) const override;

private:
    std::function<std::string(std::string_view)> m_Screen;
};

} // namespace qor
