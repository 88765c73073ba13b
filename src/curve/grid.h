#pragma once

#include "bands/band.h"

#include <cstddef>
#include <span>

namespace qor {

class Curve;

/// A frequency within 0.05 MHz counts as the same grid frequency (strictly).
inline constexpr double GridTolerance = 0.05;

/// Count of leading grid entries that are not below 0.1.
[[nodiscard]] std::size_t GridLength(std::span<const float> grid);
/// Index of the entry of an ascending grid within tolerance of a frequency, or -1.
[[nodiscard]] int FindInGrid(std::span<const float> grid, float frequency);
/// Puts `frequency` at its ascending place among the first `length` entries unless one within tolerance is
/// there already or the grid is full. Returns the new length.
std::size_t InsertIntoGrid(std::span<float> grid, std::size_t length, float frequency);

/// IM frequencies of a sweep: the ascending union of the rising and the falling list. They become the grid of
/// the curve. Both lists end at its capacity.
void BuildSweepGrid(Curve& curve, int band, ImCoefficients c, const FrequencyPlan& plan);
/// IM frequencies of the rising half alone, always IM3. The grid is made of the frequencies that the steps
/// ask for, in ascending order.
void BuildSpectrumGrid(Curve& curve, int band, const FrequencyPlan& plan);

} // namespace qor
