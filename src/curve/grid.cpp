#include "curve/grid.h"

#include "bands/catalogue.h"
#include "curve/curve.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace qor {

namespace {

constexpr double EmptyGrid = 0.1;

/// Index of the first entry that is not below a frequency by the tolerance or more.
std::size_t PlaceInGrid(std::span<const float> grid, float frequency) {
    const auto below = [](float g, float f) { return static_cast<double>(g - f) <= -GridTolerance; };
    return static_cast<std::size_t>(std::lower_bound(grid.begin(), grid.end(), frequency, below) -
                                    grid.begin());
}

bool IsAt(std::span<const float> grid, std::size_t at, float frequency) {
    return at < grid.size() && std::abs(static_cast<double>(grid[at] - frequency)) < GridTolerance;
}

} // namespace

std::size_t GridLength(std::span<const float> grid) {
    const auto end =
        std::find_if(grid.begin(), grid.end(), [](float f) { return static_cast<double>(f) < EmptyGrid; });
    return static_cast<std::size_t>(end - grid.begin());
}

int FindInGrid(std::span<const float> grid, float frequency) {
    const std::size_t at = PlaceInGrid(grid, frequency);
    return IsAt(grid, at, frequency) ? static_cast<int>(at) : -1;
}

std::size_t InsertIntoGrid(std::span<float> grid, std::size_t length, float frequency) {
    const std::span<const float> filled = grid.first(length);
    const std::size_t at = PlaceInGrid(filled, frequency);
    if (length >= grid.size() || IsAt(filled, at, frequency))
        return length;
    std::copy_backward(filled.begin() + static_cast<std::ptrdiff_t>(at), filled.end(),
                       grid.begin() + static_cast<std::ptrdiff_t>(length) + 1);
    grid[at] = frequency;
    return length + 1;
}

void BuildSweepGrid(Curve& curve, int band, ImCoefficients c, const FrequencyPlan& plan) {
    const bool upper = UsesUpperProduct(band);
    // The tone that is multiplied high moves up in one list, the other moves down in the second.
    const float upFrom = upper ? plan.f2Stop : plan.f1Start;
    const float upTo = upper ? plan.f2Start : plan.f1Stop;
    const float downFrom = upper ? plan.f1Stop : plan.f2Start;
    const float downTo = upper ? plan.f1Start : plan.f2Stop;
    const auto high = static_cast<float>(c.high);
    const auto low = static_cast<float>(c.low);
    std::vector<float> grid(CurvePoints);
    std::size_t length = 0;
    for (std::size_t k = 0; length < grid.size(); ++k) {
        const float y = downFrom - static_cast<float>(k) * plan.step;
        if (!(static_cast<double>(y - downTo) > -GridTolerance))
            break;
        const float held = upper ? plan.f2Fix : plan.f1Fix;
        grid[length++] = high * held - low * y;
    }
    for (std::size_t k = 0; k < CurvePoints; ++k) {
        const float x = upFrom + static_cast<float>(k) * plan.step;
        if (!(static_cast<double>(x - upTo) < GridTolerance))
            break;
        const float held = upper ? plan.f1Fix : plan.f2Fix;
        length = InsertIntoGrid(grid, length, high * x - low * held);
    }
    curve.SetGrid(grid, plan.step);
}

void BuildSpectrumGrid(Curve& curve, int band, const FrequencyPlan& plan) {
    std::vector<float> grid(CurvePoints);
    std::size_t length = 0;
    for (std::size_t k = 0; k < CurvePoints; ++k) {
        const float f1 = plan.f1Start + static_cast<float>(k) * plan.step;
        if (!(static_cast<double>(f1 - plan.f1Stop) < GridTolerance))
            break;
        length = InsertIntoGrid(grid, length, ImFrequency(band, {2, 1}, f1, plan.f2Fix));
    }
    curve.SetGrid(grid, plan.step);
}

} // namespace qor
