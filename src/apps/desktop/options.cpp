#include "apps/desktop/options.h"

#include "apps/common/common_options.h"

#include <QCommandLineParser>

namespace qor::app {

ParsedDesktopOptions ParseDesktopOptions(QStringList arguments) {
    DesktopOptions options;
    options.configStart = arguments.removeAll(QStringLiteral("-ConfigStart")) > 0;
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Control program of a two-tone passive intermodulation analyser.\n"
                       "-ConfigStart keeps the choices of the last session."));
    parser.addOptions({
        {{"h", "help"}, "Show this help."},
        {{"v", "version"}, "Show the version."},
        {"data-dir", "Directory of the stores ($XDG_DATA_HOME/qor or ~/.local/share/qor).", "DIR"},
        {"port", "Serial device to offer ahead of those the system lists; may be given several times.",
         "DEVICE"},
        {"all-ports", "Offer the machine's own serial ports, too, not only USB ones."},
        {"simulate", "Work on a simulated instrument, for example RT-DB22:6.2.", "MODEL[:FIRMWARE]"},
        {"simulate-receiver",
         "Beside --simulate, an external receiver: analyser, nrv, nrp or sensor; \"sensor:50\" at the port "
         "behind 50 dB.",
         "KIND"},
        {"simulate-switch-unit", "Beside --simulate, a band switch unit on a port of its own."},
        {"wire", "Log every transfer to a file.", "FILE"},
    });
    const bool parsed = parser.parse(arguments);
    if (parser.isSet("help")) {
        // There is no application yet that the parser could ask for its name.
        return {{},
                parser.helpText()
                    .replace(QStringLiteral("<executable_name>"), QStringLiteral("qor"))
                    .toStdString(),
                true};
    }
    if (parser.isSet("version"))
        return {{}, "qor " QOR_VERSION "\n", true};
    if (!parsed)
        return {{}, parser.errorText().toStdString(), false};
    if (const QStringList loose = parser.positionalArguments(); !loose.isEmpty())
        return {{},
                "What is \"" + loose.first().toStdString() + "\"? All settings are options; see --help.",
                false};
    options.dataDirectory = parser.isSet("data-dir")
                                ? std::filesystem::path(parser.value("data-dir").toStdString())
                                : DefaultDataDirectory();
    for (const QString& port : parser.values("port"))
        options.ports.push_back(port.toStdString());
    options.allPorts = parser.isSet("all-ports");
    options.wireFile = parser.value("wire").toStdString();
    if (parser.isSet("simulate")) {
        std::string problem;
        options.simulate = ParseSimulate(parser.value("simulate").toStdString(), problem);
        if (!options.simulate)
            return {{}, problem, false};
        if (!options.ports.empty())
            return {{}, "--port and --simulate exclude each other.", false};
    }
    options.simulateSwitchUnit = parser.isSet("simulate-switch-unit");
    if (options.simulateSwitchUnit && !options.simulate)
        return {{}, SwitchUnitAlone, false};
    if (parser.isSet("simulate-receiver")) {
        std::string problem;
        options.simulateReceiver = ParseSimulatedReceiver(parser.value("simulate-receiver").toStdString(),
                                                          options.simulate.has_value(), problem);
        if (!problem.empty())
            return {{}, problem, false};
    }
    return {std::move(options), {}, false};
}

} // namespace qor::app
