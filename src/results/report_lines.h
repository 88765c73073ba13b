#pragma once

#include <string>
#include <string_view>

namespace qor {

/// A report row of two values with one decimal, the second one from column 15 on.
[[nodiscard]] std::string TwoValues(double first, double second, std::string_view unit);

} // namespace qor
