#pragma once

#include "apps/common/receivers.h"
#include "results/report/report_page.h"
#include "sim/instrument.h"

#include <QStringList>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace qor::app {

/// What the command line of qor-measure asks for, checked.
struct Options {
    /// Serial devices: the instrument's, and one that may be a band switch unit's. None with `simulate`.
    std::vector<std::string> ports;
    std::optional<sim::InstrumentConfig> simulate; ///< an instrument in this process
    bool simulateSwitchUnit = false;               ///< a band switch unit beside it
    std::optional<SimulatedReceiver> simulateReceiver;
    bool external = false;       ///< levels are read with an external receiver
    std::string receiverAddress; ///< the stored one otherwise
    int band = 0;
    int imIndex = 1;
    int method = 1; ///< TestMode
    int path = 1;
    std::optional<int> seconds; ///< of a 2-tone run; the stored time otherwise
    int runs = 1;
    int interval = 0;
    std::optional<float> limitDbm; ///< the stored limit otherwise
    bool dbc = false;
    std::vector<std::filesystem::path> out;
    std::optional<ReportLanguage> reportLanguage; ///< the stored one otherwise
    std::filesystem::path logo;                   ///< empty: the stored one
    std::optional<std::string> comment;           ///< the stored one otherwise
    std::optional<std::string> deviceSerial;
    std::filesystem::path dataDirectory;
    int idleSeconds = 0;
    std::string wireFile;
    bool json = false;
    std::optional<int> timeoutSeconds; ///< three times the expected length and a minute otherwise

    /// Some of the files can be written by a program with graphics only.
    [[nodiscard]] bool WantsPictures() const;
};

struct ParsedOptions {
    std::optional<Options> options;
    std::string text;      ///< help or version to print, or what is wrong
    bool isAnswer = false; ///< `text` is what was asked for
    bool json = false;
};

[[nodiscard]] ParsedOptions ParseOptions(const QStringList& arguments);

} // namespace qor::app
