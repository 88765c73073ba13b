#pragma once

#include "base/outcome.h"
#include "results/result_list.h"
#include "results/statistics.h"

#include <filesystem>
#include <string>
#include <vector>

namespace qor {

class Program;

/// The statistics of the files in the list panel; those that cannot be read are named.
struct ListStatistics {
    SeriesSummary summary;
    std::vector<std::string> problems;
};
[[nodiscard]] ListStatistics StatisticsOfList(const Program& program);

/// Writes them where the operator wants them: .pdf, .csv or .json by the ending.
Outcome SaveStatistics(Program& program, const SeriesSummary& summary);

/// The files of the list panel, without its empty entries.
[[nodiscard]] std::vector<std::filesystem::path> FilesOf(const ResultList& list);

} // namespace qor
