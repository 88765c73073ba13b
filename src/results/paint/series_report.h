#pragma once

#include "results/report/report_page.h"
#include "results/statistics.h"

#include <QSizeF>

#include <string>

class QPainter;

namespace qor {

/// Size of a sheet of the series report in the units it is painted in: points of A4.
inline constexpr QSizeF SeriesSheet(595, 842);

/// Paints the statistics of one kind onto a sheet: its figures, the histogram, the trend and the curves over
/// one another. Needs a QGuiApplication, for its fonts.
void PaintSeries(QPainter& painter, const SeriesSummary& summary, const SeriesStatistics& kind,
                 ReportLanguage language);

/// The bytes of a PDF: for each kind a sheet of statistics, and behind it the list of its runs.
[[nodiscard]] std::string FormatSeriesPdf(const SeriesSummary& summary, ReportLanguage language);

/// Words of the series report; the German ones are the key.
[[nodiscard]] std::string_view SeriesWord(ReportLanguage language, std::string_view german);

} // namespace qor
