#include "apps/report/options.h"

#include <QCommandLineParser>

#include <algorithm>

namespace qor::app {

namespace {

constexpr int MostJobs = 64;
const QStringList Forms{"pdf", "jpg", "bmp", "xls", "xlsx", "csv", "txt"};
const QStringList SummaryForms{"pdf", "csv", "json"};

bool IsPainted(const std::string& ending) {
    return ending == ".pdf" || ending == ".jpg" || ending == ".bmp";
}

void AddOptions(QCommandLineParser& parser) {
    parser.setApplicationDescription(
        "Turns result files into reports, sheets and the statistics of a series. Exit status: 0 all done,\n"
        "1 a file could not be read, 4 bad arguments, 5 a file could not be written.");
    parser.addPositionalArgument("FILE|FOLDER...", "Results: .dat, .txt, .xls, .csv, and folders of them.");
    parser.addOptions({
        {{"h", "help"}, "Show this help."},
        {{"v", "version"}, "Show the version."},
        {"to", "Form to write: " + Forms.join(", ") + "; may be given several times.", "FORM"},
        {"out-dir", "Folder of what is written (beside each file).", "DIR"},
        {"limit", "Judge all by this limit, 0 to -200 dBm (that of each file).", "DBM"},
        {"summary", "Statistics of all: .pdf, .csv or .json by the ending; may be given several times.",
         "FILE"},
        {"report-language", "Language of the reports: en or de (the stored one, else de).", "LANGUAGE"},
        {"logo", "Company's picture on the reports: .bmp, .png or .jpg (the stored one).", "FILE"},
        {"sheet", "Form of an .xls of a sweep: sweep, detail or both (sweep).", "FORM"},
        {"data-dir", "Directory of the stores to take picture, language and limit from (none).", "DIR"},
        {"jobs", "Files that are worked on at once (1).", "N"},
        {"json", "Print one JSON object on standard output."},
    });
}

class Reader {
public:
    explicit Reader(const QCommandLineParser& parser) : m_Parser(parser) {}

    [[nodiscard]] bool Has(const char* name) const { return m_Parser.isSet(name); }
    [[nodiscard]] QString Value(const char* name) const { return m_Parser.value(name); }
    [[nodiscard]] QStringList Values(const char* name) const { return m_Parser.values(name); }
    [[nodiscard]] std::filesystem::path Path(const char* name) const {
        return m_Parser.value(name).toStdString();
    }
    void Fail(const QString& problem) {
        if (m_Problem.isEmpty())
            m_Problem = problem;
    }
    [[nodiscard]] const QString& Problem() const { return m_Problem; }

private:
    const QCommandLineParser& m_Parser;
    QString m_Problem;
};

void ReadForms(Reader& reader, ReportOptions& options) {
    for (const QString& given : reader.Values("to")) {
        const QString form = given.toLower();
        if (!Forms.contains(form))
            reader.Fail("--to takes one of " + Forms.join(", ") + ", not \"" + given + "\".");
        const std::string ending = "." + form.toStdString();
        if (std::find(options.to.begin(), options.to.end(), ending) == options.to.end())
            options.to.push_back(ending);
    }
    for (const QString& file : reader.Values("summary")) {
        if (!SummaryForms.contains(file.section('.', -1).toLower()) || !file.contains('.'))
            reader.Fail("--summary " + file + ": statistics are written as .pdf, .csv or .json.");
        options.summaries.emplace_back(file.toStdString());
    }
    if (options.to.empty() && options.summaries.empty())
        reader.Fail("Nothing to do: name a form by --to or a file by --summary.");
    const QString sheet = reader.Has("sheet") ? reader.Value("sheet") : QStringLiteral("sweep");
    if (sheet != "sweep" && sheet != "detail" && sheet != "both")
        reader.Fail("--sheet takes one of sweep, detail, both, not \"" + sheet + "\".");
    options.templates = {sheet != "detail", sheet != "sweep"};
}

void ReadLimits(Reader& reader, ReportOptions& options) {
    bool good = true;
    if (reader.Has("limit")) {
        const float limit = reader.Value("limit").toFloat(&good);
        if (!good || !(limit <= 0.0f && limit >= -200.0f))
            reader.Fail("--limit takes a level from 0 to -200 dBm, not \"" + reader.Value("limit") + "\".");
        options.limit = limit;
    }
    if (reader.Has("jobs")) {
        options.jobs = reader.Value("jobs").toInt(&good);
        if (!good || options.jobs < 1 || options.jobs > MostJobs)
            reader.Fail(QStringLiteral("--jobs takes a number from 1 to %1, not \"%2\".")
                            .arg(MostJobs)
                            .arg(reader.Value("jobs")));
    }
    if (reader.Has("report-language")) {
        const QString language = reader.Value("report-language");
        if (language != "en" && language != "de")
            reader.Fail("--report-language takes one of en, de, not \"" + language + "\".");
        options.language = language == "en" ? ReportLanguage::English : ReportLanguage::German;
    }
}

void ReadPlaces(Reader& reader, const QCommandLineParser& parser, ReportOptions& options) {
    for (const QString& input : parser.positionalArguments())
        options.inputs.emplace_back(input.toStdString());
    if (options.inputs.empty())
        reader.Fail("Name the result files, or a folder of them.");
    options.outDir = reader.Path("out-dir");
    options.logo = reader.Path("logo");
    options.dataDirectory = reader.Path("data-dir");
    std::error_code ignored;
    if (reader.Has("data-dir") && !std::filesystem::is_directory(options.dataDirectory, ignored))
        reader.Fail("--data-dir " + reader.Value("data-dir") + ": there is no such directory.");
}

} // namespace

std::string EndingOf(const std::filesystem::path& path) {
    return QString::fromStdString(path.extension().string()).toLower().toStdString();
}

bool ReportOptions::WantsPictures() const {
    return !logo.empty() || std::any_of(to.begin(), to.end(), IsPainted) ||
           std::any_of(summaries.begin(), summaries.end(),
                       [](const std::filesystem::path& file) { return IsPainted(EndingOf(file)); });
}

ParsedReportOptions ParseReportOptions(const QStringList& arguments) {
    QCommandLineParser parser;
    AddOptions(parser);
    const bool parsed = parser.parse(arguments);
    ParsedReportOptions result;
    if (parser.isSet("help") || parser.isSet("version")) {
        result.isAnswer = true;
        result.text = parser.isSet("help")
                          ? parser.helpText().replace("<executable_name>", "qor-report").toStdString()
                          : "qor-report " QOR_VERSION "\n";
        return result;
    }
    Reader reader(parser);
    if (!parsed)
        reader.Fail(parser.errorText());
    ReportOptions options;
    ReadForms(reader, options);
    ReadLimits(reader, options);
    ReadPlaces(reader, parser, options);
    options.json = parser.isSet("json");
    if (reader.Problem().isEmpty())
        result.options = std::move(options);
    else
        result.text = reader.Problem().toStdString();
    return result;
}

} // namespace qor::app
