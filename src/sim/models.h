#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace qor::sim {

/// A frequency band as the hardware knows it: what its carrier filter passes and on which side of the
/// carriers its receiver listens.
struct BandHardware {
    std::string_view name;
    double txLow;  ///< MHz
    double txHigh; ///< MHz
    bool upper;    ///< the receiver is tuned to the product above the carriers
};

/// Firmware version in tenths: "6.2" is 62. An "ev" build counts 10 more than it says: "ev2.0" is 120.
struct Firmware {
    int tenths = 0;
    [[nodiscard]] bool AtLeast(int version) const { return tenths >= version; }
};

/// "1.8" to "6.9", or "ev1.0" to "ev9.9"; nothing for any other text.
[[nodiscard]] std::optional<Firmware> ParseFirmware(std::string_view text);

/// Page byte of the instrument's own memory.
[[nodiscard]] std::uint8_t MemoryPage(Firmware firmware);

/// What differs from model to model.
struct ModelHardware {
    std::string_view name;
    int typeCode;  ///< bits 0 to 2 of the option byte; 7 where no code was ever given to the model
    int positions; ///< number of positions of its band switch
};

inline constexpr int NoTypeCode = 7;

inline constexpr std::array<ModelHardware, 11> Models{{
    {"RT-E010", NoTypeCode, 4},
    {"RT-DA10", 0, 6},
    {"RT-DB22", 4, 12},
    {"RT-C010", NoTypeCode, 11},
    {"RT-K022", 1, 5},
    {"RT-L027", NoTypeCode, 2},
    {"RT-P000", NoTypeCode, 2},
    {"RT-N026", 2, 3},
    {"RT-M027", NoTypeCode, 2},
    {"RT-T000", NoTypeCode, 1},
    {"RT-S036", 3, 1},
}};

/// Row of a model name, or null.
[[nodiscard]] const ModelHardware* FindModel(std::string_view name);

/// Band behind a switch position, or null where this firmware has nothing behind it.
[[nodiscard]] const BandHardware* BandAt(std::string_view model, Firmware firmware, int position);

/// Type code that "#KVTPDn" puts into the option byte; nothing for an unknown n.
[[nodiscard]] std::optional<int> TypeCodeOfEquipment(int n);

} // namespace qor::sim
