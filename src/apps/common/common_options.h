#pragma once

#include "sim/instrument.h"

#include <filesystem>
#include <optional>
#include <string>

namespace qor::app {

/// Directory of the stores when none is named: $XDG_DATA_HOME/qor or ~/.local/share/qor.
[[nodiscard]] std::filesystem::path DefaultDataDirectory();

/// MODEL[:FIRMWARE] of --simulate; otherwise nothing, and `problem` says what is wrong.
[[nodiscard]] std::optional<sim::InstrumentConfig> ParseSimulate(const std::string& text,
                                                                 std::string& problem);

/// --simulate-switch-unit without --simulate.
inline constexpr const char* SwitchUnitAlone =
    "--simulate-switch-unit stands beside a simulated instrument: it goes with --simulate only.";

} // namespace qor::app
