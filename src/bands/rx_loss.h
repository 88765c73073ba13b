#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace qor {

/// Characters of `loss.conf` that are read at most.
inline constexpr std::size_t LongestRxLoss = 200;

/// What the fields of the receive loss table are called, in their order.
inline constexpr std::array<std::string_view, 13> RxLossNames = {
    "LTE 700",   "DIG-DIV",    "AMPS 800", "EGSM 900", "DCS 1800",   "PCS 1900",  "TD-SCDMA-B",
    "UMTS 2100", "UMTS2 2600", "WiMax",    "AWS",      "TD-SCDMA-A", "TD-SCDMA-C"};

/// What a receive cable loss table says, and what was wrong with it.
struct RxLossFile {
    std::array<float, 13> losses{};      ///< dB
    bool isShort = false;                ///< it ends before the ninth field does: all losses are 0
    std::vector<std::size_t> noNumber{}; ///< fields whose loss is 0 because they hold none
    std::vector<std::size_t> outside{};  ///< above 9.9 or below -99.9: their loss is 0

    [[nodiscard]] bool IsDamaged() const { return isShort || !noNumber.empty(); }
};

/// A loss in dB as its field of five characters, "002.5" or "-01.5"; empty where it does not fit.
[[nodiscard]] std::string RxLossField(double loss);
/// Fields of five characters, the last four of which may be missing; line ends between them are passed over.
[[nodiscard]] RxLossFile ParseRxLoss(std::string_view text);

} // namespace qor
