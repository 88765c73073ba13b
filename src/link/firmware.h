#pragma once

#include "base/firmware.h"

#include <optional>
#include <string>
#include <string_view>

namespace qor {

/// Firmware of a port that has not been identified yet.
inline constexpr float UnidentifiedFirmware = 1.7f;

// What a firmware can do, each told by the first version that can.

/// Takes #RECUT1.
[[nodiscard]] inline bool HasRecut(float firmVersion) {
    return FirmwareFrom(firmVersion, 35);
}
/// Keeps the selected band by itself where the installation has one port.
[[nodiscard]] inline bool KeepsBand(float firmVersion) {
    return FirmwareFrom(firmVersion, 35);
}
/// Takes the commands of a start behind others that still wait.
[[nodiscard]] inline bool StartsBehindQueue(float firmVersion) {
    return FirmwareFrom(firmVersion, 43);
}
/// Wants both halves of a sweep named at each turn, #MDNL and #MUPL.
[[nodiscard]] inline bool SelectsHalvesInPairs(float firmVersion) {
    return !FirmwareFrom(firmVersion, 18);
}
/// Wants the half of a sweep named for its own receiver, #MDNL.
[[nodiscard]] inline bool SelectsHalves(float firmVersion) {
    return !FirmwareFrom(firmVersion, 37);
}
/// Rests with the carriers off before each half of a sweep, and is told the half meanwhile.
[[nodiscard]] inline bool RestsBetweenHalves(float firmVersion) {
    return FirmwareFrom(firmVersion, 53);
}
/// Says a version that an instrument has.
[[nodiscard]] inline bool IsInstrument(float firmVersion) {
    return FirmwareFrom(firmVersion, 11);
}
/// Its memory can be read, byte-coded or as text.
[[nodiscard]] inline bool HasMemory(float firmVersion) {
    return FirmwareFrom(firmVersion, 41);
}
/// Keeps its own memory page apart from that of the calibration tables.
[[nodiscard]] inline bool HasPageN(float firmVersion) {
    return FirmwareFrom(firmVersion, 50);
}
/// Keeps it on page 125.
[[nodiscard]] inline bool HasPage125(float firmVersion) {
    return FirmwareFrom(firmVersion, 57);
}
/// Drops what waits when a band is chosen.
[[nodiscard]] inline bool ChoosesBandAtOnce(float firmVersion) {
    return FirmwareFrom(firmVersion, 60);
}
/// Memory is read as text, and the type code in it decides the model.
[[nodiscard]] inline bool ReadsMemoryAsText(float firmVersion) {
    return FirmwareFrom(firmVersion, 61);
}
/// Has the model's name in memory.
[[nodiscard]] inline bool HasModelText(float firmVersion) {
    return FirmwareFrom(firmVersion, 62);
}

/// The version in a banner: the first of 1.0, 1.1, ... below 20.0 that stands behind a "v"; 10 more where
/// "ev" stands there.
[[nodiscard]] std::optional<float> VersionInBanner(std::string_view banner);

/// The model in a banner: from "RT-" up to the next blank, comma or line end; empty when there is none.
[[nodiscard]] std::string ModelInBanner(std::string_view banner);

} // namespace qor
