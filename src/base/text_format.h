#pragma once

#include <string>

namespace qor {

/// "%.<decimals>f" of value, 0 to 6 decimals, the same bytes as printf in the C locale.
void AppendFixed(std::string& out, double value, int decimals);
[[nodiscard]] std::string Fixed(double value, int decimals);
/// `value` rounded as Fixed(value, 1) shows it: what the operator sees of levels and frequencies. Whatever
/// has to agree with what is seen is decided by this.
[[nodiscard]] double AsShown(double value);
/// Whole number with "0" added in front up to `digits` characters.
[[nodiscard]] std::string ZeroPadded(int value, int digits);

} // namespace qor
