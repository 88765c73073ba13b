#include "apps/measure/options.h"

#include "apps/common/common_options.h"
#include "bands/catalogue.h"
#include "curve/curve.h"
#include "link/working_set.h"
#include "results/report/report_maker.h"

#include <QCommandLineParser>

#include <algorithm>
#include <cmath>

namespace qor::app {

namespace {

constexpr int LongestSeconds = 2147483;

void AddOptions(QCommandLineParser& parser) {
    parser.setApplicationDescription(
        "Makes one PIM measurement and tells its verdict by the exit status:\n"
        "0 passed, 1 limit exceeded, 2 the instrument answered with an error, 3 no verdict: no instrument "
        "or\n"
        "receiver, contact lost, time up or levels missing, 4 bad arguments or not carried by this\n"
        "instrument, 5 a file could not be written.");
    parser.addOptions({
        {{"h", "help"}, "Show this help."},
        {{"v", "version"}, "Show the version."},
        {"port",
         "Serial device of the instrument; given twice, in any order, the other one is the band switch "
         "unit's.",
         "DEVICE"},
        {"simulate", "Measure on a simulated instrument, for example RT-DB22:6.2.", "MODEL[:FIRMWARE]"},
        {"receiver", "intern: the instrument's own, extern: one over VISA, or a power sensor (intern).",
         "WHICH"},
        {"receiver-address", "Of the external receiver, as TCPIP0::host::5025::SOCKET (the stored one).",
         "ADDRESS"},
        {"simulate-receiver",
         "Beside --simulate, an external receiver: analyser, nrv, nrp or sensor; \"sensor:50\" at the port "
         "behind 50 dB.",
         "KIND"},
        {"simulate-switch-unit", "Beside --simulate, a band switch unit on a port of its own."},
        {"band", "Band as the panel names it: EGSM, LTE700U, TD-SCDMA-F, ...", "TEXT"},
        {"order", "IM3, IM5, IM7, IM9 or IM11 (IM3).", "ORDER"},
        {"method", "2tone, sweep or spectrum (2tone).", "METHOD"},
        {"path", "reflection or transmission (reflection).", "PATH"},
        {"seconds", "Length of a 2-tone run (the stored length).", "N"},
        {"runs", "Runs of a sweep, 1 to 1000 (1).", "N"},
        {"interval", "Pause between the runs of a sweep (0).", "SECONDS"},
        {"limit", "Limit in dBm, 0 to -200 (the stored limit).", "DBM"},
        {"unit", "Unit of the files: dbm or dbc (dbm).", "UNIT"},
        {"out",
         "Result file, .dat, .txt, .xls, .xlsx, .csv, or report, .pdf, .bmp, .jpg, by its ending; may be "
         "given "
         "several times.",
         "FILE"},
        {"report-language", "Language of the report: en or de (the stored one).", "LANGUAGE"},
        {"logo", "Company's picture on the report: .bmp, .png or .jpg (the stored one).", "FILE"},
        {"comment", "Comment of the result (the stored one).", "TEXT"},
        {"dut", "Serial number of the device under test.", "TEXT"},
        {"data-dir", "Directory of the stores ($XDG_DATA_HOME/qor or ~/.local/share/qor).", "DIR"},
        {"idle", "Stay ready for so long before the run.", "SECONDS"},
        {"wire", "Log every transfer to a file.", "FILE"},
        {"json", "Print one JSON object on standard output."},
        {"timeout", "Longest time of the whole call.", "SECONDS"},
    });
}

/// Collects the first thing that is wrong while options are read.
class Reader {
public:
    explicit Reader(const QCommandLineParser& parser) : m_Parser(parser) {}

    [[nodiscard]] std::string Text(const char* name) const { return m_Parser.value(name).toStdString(); }
    [[nodiscard]] bool Has(const char* name) const { return m_Parser.isSet(name); }

    std::optional<int> Whole(const char* name, int low, int high) {
        if (!Has(name))
            return std::nullopt;
        bool good = false;
        const int value = m_Parser.value(name).toInt(&good);
        if (!good || value < low || value > high)
            Fail("--" + std::string(name) + " takes a whole number from " + std::to_string(low) + " to " +
                 std::to_string(high) + ", not \"" + Text(name) + "\".");
        return value;
    }
    /// Index of the option's text among `choices`; 0 when it is not given.
    int Choice(const char* name, const std::vector<std::string>& choices) {
        if (!Has(name))
            return 0;
        const QString given = m_Parser.value(name);
        std::string all;
        for (std::size_t i = 0; i < choices.size(); ++i) {
            if (given.compare(QString::fromStdString(choices[i]), Qt::CaseInsensitive) == 0)
                return static_cast<int>(i);
            all += (i == 0 ? "" : ", ") + choices[i];
        }
        Fail("--" + std::string(name) + " takes one of " + all + ", not \"" + Text(name) + "\".");
        return 0;
    }
    void Fail(std::string problem) {
        if (m_Problem.empty())
            m_Problem = std::move(problem);
    }
    [[nodiscard]] const std::string& Problem() const { return m_Problem; }

private:
    const QCommandLineParser& m_Parser;
    std::string m_Problem;
};

void ReadInstrument(Reader& reader, const QCommandLineParser& parser, Options& options) {
    if (reader.Has("port") == reader.Has("simulate"))
        return reader.Fail("Name the instrument by one of --port DEVICE and --simulate MODEL[:FIRMWARE].");
    for (const QString& port : parser.values("port"))
        options.ports.push_back(port.toStdString());
    if (options.ports.size() > 2)
        reader.Fail("--port is given at most twice: the instrument's and the band switch unit's.");
    options.simulateSwitchUnit = reader.Has("simulate-switch-unit");
    if (options.simulateSwitchUnit && !reader.Has("simulate"))
        reader.Fail(SwitchUnitAlone);
    if (!reader.Has("simulate"))
        return;
    std::string problem;
    options.simulate = ParseSimulate(reader.Text("simulate"), problem);
    if (!problem.empty())
        reader.Fail(problem);
}

void ReadReceiver(Reader& reader, Options& options) {
    std::string problem;
    if (reader.Has("simulate-receiver"))
        options.simulateReceiver =
            ParseSimulatedReceiver(reader.Text("simulate-receiver"), reader.Has("simulate"), problem);
    if (!problem.empty())
        reader.Fail(problem);
    options.external = reader.Choice("receiver", {"intern", "extern"}) == 1;
    options.receiverAddress = reader.Text("receiver-address");
    if (!options.external && (reader.Has("receiver-address") || reader.Has("simulate-receiver")))
        reader.Fail("--receiver-address and --simulate-receiver belong to --receiver extern.");
    if (reader.Has("receiver-address") && options.receiverAddress.empty())
        reader.Fail("--receiver-address takes a VISA address.");
}

void ReadSelection(Reader& reader, Options& options) {
    const auto band = BandByText(reader.Text("band"));
    if (!reader.Has("band"))
        reader.Fail("--band is missing: name the band, for example --band EGSM.");
    else if (!band)
        reader.Fail("There is no band \"" + reader.Text("band") + "\".");
    options.band = band.value_or(0);
    options.imIndex = reader.Choice("order", {"IM3", "IM5", "IM7", "IM9", "IM11"}) + 1;
    options.method = reader.Choice("method", {"2tone", "sweep", "spectrum"}) + 1;
    if (options.method == ModeSpectrum && options.imIndex != 1)
        reader.Fail("--method spectrum measures IM3, not " + reader.Text("order") + ".");
    options.path = reader.Choice("path", {"reflection", "transmission"}) + 1;
    options.dbc = reader.Choice("unit", {"dbm", "dbc"}) == 1;
    options.seconds = reader.Whole("seconds", 1, LongestSeconds);
    options.runs = reader.Whole("runs", 1, static_cast<int>(CurveRuns)).value_or(1);
    options.interval = reader.Whole("interval", 0, 9999999).value_or(0);
    if ((reader.Has("runs") || reader.Has("interval")) && options.method != ModeSweep)
        reader.Fail("--runs and --interval belong to --method sweep.");
}

void ReadOutputs(Reader& reader, const QCommandLineParser& parser, Options& options) {
    for (const QString& file : parser.values("out")) {
        static const QStringList Endings = {"dat", "txt", "xls", "xlsx", "csv", "pdf", "bmp", "jpg"};
        if (!file.contains('.') || !Endings.contains(file.section('.', -1).toLower()))
            reader.Fail("--out " + file.toStdString() +
                        ": results are saved as .dat, .txt, .xls, .xlsx, .csv, .pdf, .bmp or .jpg.");
        options.out.emplace_back(file.toStdString());
    }
    if (reader.Has("report-language"))
        options.reportLanguage = static_cast<ReportLanguage>(reader.Choice("report-language", {"de", "en"}));
    options.logo = reader.Text("logo");
    if (reader.Has("comment"))
        options.comment = reader.Text("comment");
    if (reader.Has("dut"))
        options.deviceSerial = reader.Text("dut");
}

} // namespace

bool Options::WantsPictures() const {
    return !logo.empty() || std::any_of(out.begin(), out.end(), ReportMaker::IsPageFile);
}

ParsedOptions ParseOptions(const QStringList& arguments) {
    QCommandLineParser parser;
    AddOptions(parser);
    const bool parsed = parser.parse(arguments);
    ParsedOptions result;
    result.json = parser.isSet("json");
    if (parser.isSet("help") || parser.isSet("version")) {
        result.isAnswer = true;
        result.text =
            parser.isSet("help") ? parser.helpText().toStdString() : "qor-measure " QOR_VERSION "\n";
        return result;
    }
    Reader reader(parser);
    if (!parsed)
        reader.Fail(parser.errorText().toStdString());
    if (const QStringList loose = parser.positionalArguments(); !loose.isEmpty())
        reader.Fail("What is \"" + loose.first().toStdString() + "\"? All settings are options; see --help.");

    Options options;
    ReadInstrument(reader, parser, options);
    ReadReceiver(reader, options);
    ReadSelection(reader, options);
    ReadOutputs(reader, parser, options);
    if (reader.Has("limit")) {
        bool good = false;
        const float limit = parser.value("limit").toFloat(&good);
        if (!good || !(limit <= 0.0f && limit >= -200.0f))
            reader.Fail("--limit takes a level from 0 to -200 dBm, not \"" + reader.Text("limit") + "\".");
        options.limitDbm = limit;
    }
    options.dataDirectory =
        reader.Has("data-dir") ? std::filesystem::path(reader.Text("data-dir")) : DefaultDataDirectory();
    options.idleSeconds = reader.Whole("idle", 0, 9999999).value_or(0);
    options.timeoutSeconds = reader.Whole("timeout", 1, 99999999);
    options.wireFile = reader.Text("wire");
    options.json = result.json;
    if (reader.Problem().empty())
        result.options = std::move(options);
    else
        result.text = reader.Problem();
    return result;
}

} // namespace qor::app
