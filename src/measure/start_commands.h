#pragma once

#include "bands/band.h"
#include "bands/records.h"
#include "link/command_queue.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qor {

/// Everything that the commands at the beginning of a run, or of a further pass over its curve, depend on.
struct StartSituation {
    float firmware = 0;
    bool internal = true;   ///< the instrument's own receiver listens
    bool handsOver = false; ///< an external one does, and the instrument was not told yet
    bool prepared = false;  ///< the instrument says so: a sweep needs less
    bool transmission = false;

    bool firstRun = true;              ///< of a press of the start button
    std::string_view bandCommand = {}; ///< selects the band again; empty: the instrument keeps it
    int runIndex = 0;                  ///< of a series, from 0
    bool rested = false;               ///< the carriers have been off since the run before
    bool saEnclosed = false;           ///< the first run of the series goes with the carriers off
    /// Product in another band: the first run sends the powers along, and every run begins alike.
    std::optional<PowerSetting> interBandPower = {};

    int band = BandNone;
    FrequencyPlan plan = {};
    ImCoefficients product = {}; ///< of the steps
};

/// A command as it joins the queue.
struct StartCommand {
    std::string text;
    int tag = TagPlain;
    float param = 0; ///< MHz, the product of a sweep's first step

    bool operator==(const StartCommand&) const = default;
};
using StartCommands = std::vector<StartCommand>;

// The commands of a start, in order. The last one is the reading of the first step where the instrument
// itself listens; in 2-tone its level only primes the receiver.
[[nodiscard]] StartCommands StartOfTwoTone(const StartSituation& at);
[[nodiscard]] StartCommands StartOfSweep(const StartSituation& at);
[[nodiscard]] StartCommands StartOfSpectrum(const StartSituation& at);

// The same of a further pass, whose points replace those in the plot.
[[nodiscard]] StartCommands RepeatOfTwoTone(const StartSituation& at);
[[nodiscard]] StartCommands RepeatOfSweep(const StartSituation& at);
[[nodiscard]] StartCommands RepeatOfSpectrum(const StartSituation& at);

/// Product of the first step of a sweep or spectrum, MHz.
[[nodiscard]] float FirstProduct(const StartSituation& at);

} // namespace qor
