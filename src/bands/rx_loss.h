#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace qor {

/// Characters of `loss.conf` that are read at most.
inline constexpr std::size_t LongestRxLoss = 200;

/// The receive cable loss table, dB: fields of five characters. All 0 when the text ends before the ninth
/// field does; 0 for a field that is missing, no number, above 9.9 or below -99.9.
[[nodiscard]] std::array<float, 13> ParseRxLoss(std::string_view text);

} // namespace qor
