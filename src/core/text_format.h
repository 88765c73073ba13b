#pragma once

#include <string>

namespace qor {

/// "%.<decimals>f" of value, 0 to 6 decimals, the same bytes as printf in the C locale.
void AppendFixed(std::string& out, double value, int decimals);
[[nodiscard]] std::string Fixed(double value, int decimals);
/// Whole number with "0" added in front up to `digits` characters.
[[nodiscard]] std::string ZeroPadded(int value, int digits);

} // namespace qor
