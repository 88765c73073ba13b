// qor-report: result files to reports, sheets and the statistics of a series.
#include "apps/common/answer.h"
#include "apps/common/pictures.h"
#include "apps/report/converter.h"
#include "apps/report/options.h"
#include "base/atomic_write.h"
#include "results/output_names.h"
#include "results/report/page_forms.h"
#include "results/series_forms.h"
#include "results/statistics.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <set>
#include <unistd.h>

namespace {

using namespace qor;

enum ExitStatus { AllDone = 0, NotAllRead = 1, BadArguments = 4, NotAllWritten = 5 };

/// The call: its files, and what becomes of them.
class Call {
public:
    Call(const app::ReportOptions& options, int& argc, char** argv)
        : m_Options(options), m_Argc(argc), m_Argv(argv), m_Terminal(isatty(STDERR_FILENO) == 1) {}

    int Run() {
        FindFiles();
        NameTargets();
        if (!CheckSummaries() || (!m_Options.logo.empty() && !CheckLogo()))
            return BadArguments;
        ConvertFiles();
        if (!m_Options.summaries.empty())
            WriteSummaries();
        EndProgress();
        if (m_Options.json)
            PrintJson();
        return m_Status;
    }

private:
    static std::filesystem::path RealPath(const std::filesystem::path& path) {
        std::error_code unknown;
        const std::filesystem::path real = std::filesystem::weakly_canonical(path, unknown);
        return unknown ? path : real;
    }

    void FindFiles() {
        std::set<std::filesystem::path> summaries;
        for (const auto& summary : m_Options.summaries)
            summaries.insert(RealPath(summary));
        const auto add = [&](const std::filesystem::path& file) {
            if (m_Inputs.insert(RealPath(file)).second)
                m_Files.push_back(file);
        };
        for (const std::filesystem::path& input : m_Options.inputs) {
            std::error_code failed;
            if (!std::filesystem::is_directory(input, failed)) {
                add(input);
                continue;
            }
            std::vector<std::filesystem::path> inside;
            for (std::filesystem::directory_iterator at(input, failed), end; !failed && at != end;
                 at.increment(failed)) {
                static const std::set<std::string> Read{".dat", ".txt", ".xls", ".csv"};
                if (!at->is_directory(failed) && Read.contains(app::EndingOf(at->path())) &&
                    !summaries.contains(RealPath(at->path())))
                    inside.push_back(at->path());
            }
            if (failed)
                Fail(NotAllRead, input.string() + ": " + failed.message() + ".");
            std::sort(inside.begin(), inside.end());
            std::for_each(inside.begin(), inside.end(), add);
        }
    }

    /// In the process of its own that paints: fonts are loaded once, and only there.
    app::Converter& Ready() {
        if (!m_Converter) {
            m_Application = app::MakeApplication(m_Argc, m_Argv);
            m_Pictures = app::MakePageForms();
            m_Converter = std::make_unique<app::Converter>(m_Options, m_Pictures.get());
            static_cast<void>(m_Converter->Prepare());
        }
        return *m_Converter;
    }

    void NameTargets() {
        for (const std::filesystem::path& file : m_Files)
            m_Jobs.push_back({file, {}});
        for (const std::string& ending : m_Options.to) {
            const auto names = OutputNames(m_Files, m_Options.outDir, ending);
            for (std::size_t i = 0; i < m_Jobs.size(); ++i)
                m_Jobs[i].targets.push_back(names[i]);
        }
    }

    /// A summary takes the place of an older one, never that of a result.
    bool CheckSummaries() {
        for (const std::filesystem::path& summary : m_Options.summaries) {
            const std::filesystem::path real = RealPath(summary);
            const bool isTarget =
                std::any_of(m_Jobs.begin(), m_Jobs.end(), [&real](const app::Conversion& job) {
                    return std::any_of(job.targets.begin(), job.targets.end(),
                                       [&real](const auto& target) { return RealPath(target) == real; });
                });
            ResultDocument document;
            if (isTarget || m_Inputs.contains(real) || LoadResult(real, document)) {
                Fail(BadArguments, "--summary " + summary.string() + ": there is a result of that name.");
                return false;
            }
        }
        return true;
    }

    bool CheckLogo() {
        const std::unique_ptr<PageForms> pictures = app::MakePageForms();
        const Outcome good = app::Converter(m_Options, pictures.get()).Prepare();
        if (!good)
            Fail(BadArguments, good.Text());
        return good.IsDone();
    }

    void ConvertFiles() {
        if (m_Options.to.empty())
            return;
        if (!m_Options.outDir.empty()) {
            std::error_code ignored; // the first write tells
            std::filesystem::create_directories(m_Options.outDir, ignored);
        }
        ConvertAll(
            m_Jobs, m_Options.jobs,
            [this]() -> std::function<app::Converted(const app::Conversion&)> {
                return [&converter = Ready()](const app::Conversion& job) { return converter.Convert(job); };
            },
            [&](std::size_t index, const app::Converted& converted) {
                ShowProgress(m_Jobs[index].source, m_Jobs.size());
                if (converted.what == app::Converted::What::Done) {
                    for (const auto& target : m_Jobs[index].targets)
                        m_Written.push_back(target.string());
                    return;
                }
                m_Bad.insert(m_Jobs[index].source);
                Fail(converted.what == app::Converted::What::NotRead ? NotAllRead : NotAllWritten,
                     converted.problem);
            });
    }

    void WriteSummaries() {
        app::Converter plain(m_Options, nullptr);
        m_Done = 0;
        const auto load = [&](const std::filesystem::path& file, ResultDocument& document) {
            ShowProgress(file, m_Files.size());
            return plain.Load(file, document);
        };
        auto runs = LoadRuns(m_Files, load, [this](const std::filesystem::path& file, const Outcome& read) {
            if (!m_Bad.contains(file))
                Fail(NotAllRead, read.Text());
        });
        const SeriesSummary summary = Summarise(std::move(runs));
        for (const std::filesystem::path& path : m_Options.summaries) {
            const std::string ending = app::EndingOf(path);
            const std::string bytes = ending == ".csv"    ? FormatSeriesCsv(summary)
                                      : ending == ".json" ? FormatSeriesJson(summary)
                                                          : SummaryPdf(summary);
            if (bytes.empty()) {
                Fail(NotAllRead, path.string() + ": there is no result to speak of.");
                continue;
            }
            if (const std::string problem = WriteAtomically(path, bytes); !problem.empty())
                Fail(NotAllWritten, problem);
            else
                m_Written.push_back(path.string());
        }
    }

    std::string SummaryPdf(const SeriesSummary& summary) {
        const ReportLanguage language = Ready().Language();
        return m_Pictures ? m_Pictures->SeriesPdf(summary, language) : std::string();
    }

    /// What cannot be written goes before what cannot be read.
    void Fail(int status, const std::string& problem) {
        EndProgress();
        std::fprintf(stderr, "qor-report: %s\n", problem.c_str());
        m_Problems.push_back(problem);
        m_Status = std::max(m_Status, status);
    }

    void ShowProgress(const std::filesystem::path& file, std::size_t total) {
        ++m_Done;
        if (!m_Terminal)
            return;
        std::fprintf(stderr, "\r%zu / %zu  %s\x1b[K", m_Done, total, file.filename().c_str());
        m_LineShown = true;
    }
    void EndProgress() {
        if (std::exchange(m_LineShown, false))
            std::fputs("\r\x1b[K", stderr);
    }

    void PrintJson() {
        const auto array = [](const std::vector<std::string>& texts) {
            QJsonArray list;
            for (const std::string& text : texts)
                list.append(QString::fromStdString(text));
            return list;
        };
        const QJsonObject object{{"files", static_cast<qint64>(m_Files.size())},
                                 {"written", array(m_Written)},
                                 {"problems", array(m_Problems)}};
        if (!app::PrintAnswer(QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString() + "\n"))
            Fail(NotAllWritten, "the answer could not be written to the standard output.");
    }

    const app::ReportOptions& m_Options;
    int& m_Argc;
    char** m_Argv;
    bool m_Terminal;
    bool m_LineShown = false;
    std::size_t m_Done = 0;
    int m_Status = AllDone;
    std::vector<std::filesystem::path> m_Files;
    std::set<std::filesystem::path> m_Inputs; ///< the same, by the ways that lead to them
    std::vector<app::Conversion> m_Jobs;      ///< one for each file
    std::set<std::filesystem::path> m_Bad;    ///< sources that were named already
    std::vector<std::string> m_Written;
    std::vector<std::string> m_Problems;
    std::unique_ptr<QCoreApplication> m_Application;
    std::unique_ptr<PageForms> m_Pictures;
    std::unique_ptr<app::Converter> m_Converter;
};

} // namespace

int main(int argc, char* argv[]) {
    std::signal(SIGPIPE, SIG_IGN); // a reader that is gone costs the answer, not the files
    QStringList arguments;
    for (int n = 0; n < argc; ++n)
        arguments << QString::fromLocal8Bit(argv[n]);
    const app::ParsedReportOptions parsed = app::ParseReportOptions(arguments);
    if (parsed.isAnswer) {
        std::fputs(parsed.text.c_str(), stdout);
        return AllDone;
    }
    if (!parsed.options) {
        std::fprintf(stderr, "qor-report: %s\n", parsed.text.c_str());
        return BadArguments;
    }
    if (parsed.options->WantsPictures() && !app::CanPaint()) {
        app::TakeOver("qor-report", argv);
        std::fputs("qor-report: qor-report-pictures is missing beside it: no .pdf, .bmp and .jpg.\n", stderr);
        return NotAllWritten;
    }
    return Call(*parsed.options, argc, argv).Run();
}
