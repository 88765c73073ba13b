#pragma once

#include "results/report/report_page.h"
#include "results/statistics.h"

#include <string>

namespace qor {

/// The statistics of a series as a table, UTF-8 with one head line: a row for each run, and behind the runs
/// of a kind one for all of them.
[[nodiscard]] std::string FormatSeriesCsv(const SeriesSummary& summary);
/// The same as one JSON object, with histogram, trend and the spread of the curves.
[[nodiscard]] std::string FormatSeriesJson(const SeriesSummary& summary);

/// "EGSM 900, IM3, sweep".
[[nodiscard]] std::string TitleOf(const SeriesKind& kind, ReportLanguage language);
/// "2tone", "sweep" or "spectrum".
[[nodiscard]] std::string_view MethodWord(ResultMethod method);

} // namespace qor
