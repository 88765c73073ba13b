#pragma once

#include <string>

namespace qor {

/// The fields of the calculator between dBm, milliwatts and millivolts, as they stand in the window.
struct CalculatorFields {
    std::string dBm;
    std::string mW;
    std::string mV;
    std::string zo = "50"; ///< Ohm, 0 to 10000, whole
};

enum class CalculatorField { Dbm, Mw, Mv, Zo };

/// Works the other fields out from the one just changed, with six decimals:
/// mW = 10^(dBm / 10), P = U^2 / Zo, so mV = sqrt(Zo mW) sqrt(1000).
/// Nothing changes from a power or voltage of 0 (within 0.005), with a Zo of 0 that it would be divided by,
/// or where there is no result, as for a negative power. False when the changed field holds no number, or
/// Zo none that it takes; an empty field is no fault.
bool Calculate(CalculatorFields& fields, CalculatorField changed);

} // namespace qor
