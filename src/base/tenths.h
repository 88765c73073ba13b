#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace qor {

/// The one encoding of frequencies (MHz) and powers (dBm) in stores and commands: the value times ten, cut
/// to an integer and raised by one when the part cut off is 0.5 or more.
///
/// The product is taken in double and a value within 2e-3 of the rounding edge counts as on it, because a
/// float of 43.1 or 1990.05 lies a hair beside the decimal the operator entered.
/// 0 for what fits no int.
[[nodiscard]] int ToTenths(double value);
/// "%.5d" of ToTenths: at least five digits.
[[nodiscard]] std::string TenthsText(double value);

/// The value times ten cut to an integer, for records that are not rounded; 0 for what fits no int. A value
/// within 1e-6 of the next tenth counts as that tenth.
[[nodiscard]] int CutTenths(double value);

/// Number at the start of a text the way an ordinary text-to-number call reads it: leading blanks skipped,
/// 0 when there is none. Never depends on the locale.
[[nodiscard]] double NumberIn(std::string_view text);
/// Number that an operator typed: the whole text but for blanks around it, with a decimal point. Nothing when
/// it is no number or none that a quantity can be.
[[nodiscard]] std::optional<double> EnteredNumber(std::string_view text);
/// NumberIn cut to int; 0 when out of range.
[[nodiscard]] int WholeNumberIn(std::string_view text);

} // namespace qor
