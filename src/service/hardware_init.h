#pragma once

#include "service/memory_talk.h"

#include <array>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace qor {

/// Boxes of the bands, in the order in which they stand on the page.
enum class BandBox { Lte, DigDiv, Amps, Egsm, TdA, Dcs, Pcs, TdC, Aws, TdB, Umts, Umts2, WiMax };

inline constexpr std::array<std::string_view, 13> BandBoxNames = {
    "LTE", "DIG-DIV", "AMPS", "EGSM", "TD-A", "DCS", "PCS", "TD-C", "AWS", "TD-B", "UMTS", "UMTS2", "WiMax"};
/// Kinds of instruments, in the order of their list.
inline constexpr std::array<std::string_view, 6> EquipmentTypes = {
    "RT-DA10 (RT-E010)", "RT-DB22", "RT-K022", "RT-L027", "RT-P000 (RT-N026, RT-M027)", "RT-T000 (RT-S036)"};

/// What is typed into the page "Hardware Initialization".
struct HardInitFields {
    int type = -1; ///< of EquipmentTypes; -1: none chosen
    std::set<BandBox> bands;
    bool levelDetector = false;
    bool switchMatrix = false;
    bool paErrorCheck = false;
    int lowerDbm = 20;      ///< 20 to 47
    int upperDbm = 46;      ///< 20 to 47
    int twoToneSeconds = 5; ///< 1 to 30
    int sweepDelay = 0;     ///< 0 to 127
    int gaugeDelay = 0;     ///< 0 to 1270
    int serial = 0;         ///< 0 to 65535
};

/// The fields that have a range.
enum class HardInitField { Lower, Upper, TwoToneTime, SweepDelay, GaugeDelay, Serial };

struct HardInitCheck {
    Outcome outcome = Outcome::Done();
    std::optional<HardInitField> wrong; ///< the field that was refused without words
};

/// Whether instruments of this type carry the band.
[[nodiscard]] bool TypeCarries(int type, BandBox box);
/// Refuses what cannot be written, the first fault alone. A serial number above 65535 becomes 65535.
[[nodiscard]] HardInitCheck CheckHardInit(HardInitFields& fields);

/// Everything that is written before the option byte, in order. `page` of the cells is the instrument's own.
[[nodiscard]] std::vector<MemoryWriteCommand> HardInitCommands(const HardInitFields& fields,
                                                               float firmVersion, bool bridge3dB);
inline constexpr int OptionAddress = 95;
/// The option byte with the three boxes in it; its other bits stay.
[[nodiscard]] int OptionByteOf(const HardInitFields& fields, int before);

/// A command as a text that can be read: "$KVTWE}d C8", bytes that are no characters as two hexadecimal
/// digits.
[[nodiscard]] std::string ReadableCommand(const MemoryWriteCommand& command);

} // namespace qor
