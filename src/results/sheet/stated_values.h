#pragma once

#include "results/result_document.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace qor {

constexpr double LeastFrequency = 1.0; ///< MHz; what stands below as a product's frequency is damaged

/// Level in the unit of the result as it is stated in hundredths: what would stand as 0.00 is stated as 0.01,
/// because 0.00 means that there is none.
[[nodiscard]] inline float StatedLevel(const ResultDocument& document, float level) {
    const float value = InUnit(document, level);
    return level != 0.0f && std::abs(value) < 0.005f ? 0.01f : value;
}

/// True when the times of a 2-tone run go on by a millisecond at least, which is what the forms state.
[[nodiscard]] inline bool TimesGoOn(const std::vector<ResultPoint>& points) {
    const auto stands = [](const ResultPoint& a, const ResultPoint& b) {
        return std::llround(b.x * 1000) <= std::llround(a.x * 1000);
    };
    return std::adjacent_find(points.begin(), points.end(), stands) == points.end();
}

} // namespace qor
