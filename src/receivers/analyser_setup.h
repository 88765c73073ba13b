#pragma once

#include "base/outcome.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace qor {

class SetupStore;

/// How the analyser is set up before it measures. The texts stand as the operator has typed them.
struct AnalyserSetup {
    std::string centre = "915";    ///< MHz, whole
    std::string span = "0";        ///< kHz, whole
    std::string reference = "-60"; ///< dBm
    std::string scale = "100";     ///< dB over the whole height
    int attenuation = 0;           ///< of AttenuationTexts
    int preamplifier = 0;          ///< of PreamplifierTexts
    int resolution = 1;            ///< of BandwidthTexts
    int video = 2;                 ///< of BandwidthTexts

    bool operator==(const AnalyserSetup&) const = default;
};

[[nodiscard]] std::span<const std::string_view> AttenuationTexts();  ///< "0" to "30", dB
[[nodiscard]] std::span<const std::string_view> PreamplifierTexts(); ///< "ON", "OFF"
[[nodiscard]] std::span<const std::string_view> BandwidthTexts();    ///< "10Hz" to "10MHz"

/// What `rs_ANALYZER_setup.ccz` holds: the file may be missing, or be there without fields.
struct StoredAnalyserSetup {
    bool isThere = false;
    std::optional<AnalyserSetup> fields;
};
[[nodiscard]] StoredAnalyserSetup ReadAnalyserSetup(const SetupStore& store);
[[nodiscard]] bool WriteAnalyserSetup(SetupStore& store, const AnalyserSetup& setup);
/// The text of the file; what is no number reads as the default. Nothing for a text without fields.
[[nodiscard]] std::optional<AnalyserSetup> ParseAnalyserSetup(std::string_view text);
[[nodiscard]] std::string FormatAnalyserSetup(const AnalyserSetup& setup);

/// Begins the marker's set-up: what is repeated before each run.
[[nodiscard]] std::span<const std::string_view> MarkerTail();
/// All commands of a set-up, in order; without one those of the defaults, and no centre. A place beyond its
/// list leaves its command without a value.
[[nodiscard]] std::vector<std::string> SetupCommands(const std::optional<AnalyserSetup>& setup);
/// Caption of the first field whose place is beyond its list; empty when there is none.
[[nodiscard]] std::string_view FieldBeyondItsList(const AnalyserSetup& setup);

/// Refused when a field is empty, no number, or none that the analyser takes.
[[nodiscard]] Outcome CheckAnalyserSetup(const AnalyserSetup& setup);
/// What "Standard" puts into the dialog, with the centre of the band.
[[nodiscard]] AnalyserSetup StandardAnalyserSetup(int band);

// What the analyser answers becomes the text of a field; a value below one unit of the field changes nothing.
void TakeCentre(AnalyserSetup& setup, std::string_view answer);    ///< Hz
void TakeSpan(AnalyserSetup& setup, std::string_view answer);      ///< Hz
void TakeReference(AnalyserSetup& setup, std::string_view answer); ///< dBm

} // namespace qor
