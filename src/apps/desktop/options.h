#pragma once

#include "apps/common/receivers.h"
#include "sim/instrument.h"

#include <QStringList>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace qor::app {

/// What the command line of qor asks for, checked.
struct DesktopOptions {
    bool configStart = false; ///< -ConfigStart: the choices of the last session stay in force
    std::filesystem::path dataDirectory;
    std::vector<std::string> ports;
    bool allPorts = false; ///< the machine's own serial ports are offered, too
    std::optional<sim::InstrumentConfig> simulate;
    bool simulateSwitchUnit = false; ///< a band switch unit beside it
    std::optional<SimulatedReceiver> simulateReceiver;
    std::string wireFile;
};

struct ParsedDesktopOptions {
    std::optional<DesktopOptions> options;
    std::string text;      ///< help or version to print, or what is wrong
    bool isAnswer = false; ///< `text` is what was asked for
};

[[nodiscard]] ParsedDesktopOptions ParseDesktopOptions(QStringList arguments);

} // namespace qor::app
