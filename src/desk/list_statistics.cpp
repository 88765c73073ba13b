#include "desk/list_statistics.h"

#include "base/atomic_write.h"
#include "desk/program.h"
#include "desk/replace.h"
#include "desk/shown_page.h"
#include "platform/operator.h"
#include "results/read_document.h"
#include "results/result_forms.h"
#include "results/series_forms.h"

#include <algorithm>
#include <cctype>

namespace qor {

std::vector<std::filesystem::path> FilesOf(const ResultList& list) {
    std::vector<std::filesystem::path> files;
    for (int entry = 0; entry <= list.LastEntry(); ++entry) {
        if (!list.Name(entry).empty())
            files.push_back(list.Folder() / list.Name(entry));
    }
    return files;
}

ListStatistics StatisticsOfList(const Program& program) {
    ListStatistics statistics;
    const auto limit = ViewOf(program).limit;
    const auto load = [limit](const std::filesystem::path& file, ResultDocument& document) {
        Outcome read = LoadResult(file, document);
        if (read && !document.limit) { // judged by the one in force, as when it is shown
            document.limit = limit;
            JudgeRows(document);
        }
        return read;
    };
    auto runs = LoadRuns(FilesOf(program.State().results.list), load,
                         [&](const std::filesystem::path&, const Outcome& read) {
                             statistics.problems.push_back(read.Text());
                         });
    statistics.summary = Summarise(std::move(runs));
    return statistics;
}

Outcome SaveStatistics(Program& program, const SeriesSummary& summary) {
    Operator& user = program.Parts().user;
    const std::filesystem::path path = user.FileToSave(
        "Statistik", program.State().results.list.Folder() / "Statistik.pdf", "*.pdf *.csv *.json");
    if (path.empty() || !MayReplace(user, path))
        return Outcome::Refused({});
    std::string ending = path.extension().string();
    std::transform(ending.begin(), ending.end(), ending.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    const PageForms* pictures = program.Parts().pictures;
    const std::string bytes = ending == ".csv"    ? FormatSeriesCsv(summary)
                              : ending == ".json" ? FormatSeriesJson(summary)
                              : pictures          ? pictures->SeriesPdf(summary, program.Reports().Language())
                                                  : std::string();
    const std::string problem = bytes.empty() ? path.string() : WriteAtomically(path, bytes);
    return problem.empty() ? Outcome::Done() : Outcome::Refused("Speichern file misserfolg\n" + problem);
}

} // namespace qor
