#pragma once

#include "bands/band.h"
#include "display/curve_state.h"

#include <cmath>
#include <cstddef>
#include <span>

namespace qor {

/// A frequency within 0.05 MHz counts as the same grid frequency (strictly).
inline constexpr double GridTolerance = 0.05;

/// A sweep curve is told from a 2-tone curve by its pixels per step.
[[nodiscard]] inline bool IsSweepCurve(const CurveState& curve) {
    return curve.g_pxPerStep > 0.9f;
}

/// True for a level that counts as a point in the plot and the maximum search: not 0 once cut to an integer.
[[nodiscard]] inline bool IsPresent(float level) {
    return std::abs(level) >= 1.0f;
}

/// Length of a 2-tone run in ms; one that is not set counts as a second.
[[nodiscard]] inline int RunLength(const CurveState& curve) {
    return curve.g_testTimeMs > 0 ? curve.g_testTimeMs : 1000;
}

/// Row of the run in progress. Runs beyond the matrices share their last row.
[[nodiscard]] std::size_t CurrentRow(const CurveState& curve);
/// Index of the last point that a maximum may stand at. In a sweep it is the whole grid: where its two lists
/// lie between each other it has more entries than the plot has steps, and the worst may be among the last.
[[nodiscard]] std::size_t LastPoint(const CurveState& curve);
/// True for a level (dBm, below 0.0) that stands above the limit by more than 0.01 dB.
[[nodiscard]] bool ExceedsLimit(const CurveState& curve, float level);

/// Clears everything a start and the clear command clear: run index, maxima, forced time per point,
/// g_fromFile, g_worstText and the rows in use.
void ResetCurve(CurveState& curve);
/// True when the live layer holds a point.
[[nodiscard]] bool HoldsPoints(const CurveState& curve);
/// Zeroes both live level arrays.
void ClearLevels(CurveState& curve);

/// ms between 2-tone points from the run's length, the plot's width, the receiver's reply time
/// (`internalReceiver`) and a loaded file's own time; at least 100 but for the last. Points taken keep the
/// time they were taken at, however the window is resized.
void UpdateTimePerPoint(CurveState& curve, bool internalReceiver);

/// Copies the live layer to the display layer and checks the row in view against the limit: a level below
/// 0.0 that exceeds it by more than 0.01 dB sets g_MeasVerdict to 1 unless the alarm is off.
void UpdateCurveArrays(CurveState& curve, bool internalReceiver);

/// Judges the curve in view anew, all its runs, after a change of the limit, the alarm or the runs shown.
/// Only a verdict about levels changes: none, and an error of the instrument, stay.
void JudgeAnew(CurveState& curve, bool internalReceiver);

/// Highest present level of a row and its column, earliest first unless another is more than 0.05 dB higher;
/// 0 for a row without one.
struct CurveMaximum {
    float level = 0;
    int index = 0;
};
[[nodiscard]] CurveMaximum HighestOf(std::span<const float> row);

/// Finds the highest present level of the shown runs, earliest first unless another is more than 0.05 dB
/// higher, and with it the worst point of the curve.
void SearchMaxima(CurveState& curve);

/// Turns the verdict at the end of a run: 1 or 101 into 101, 2 to 4 stay, anything else into 1001.
void SettleVerdict(CurveState& curve);

/// Count of leading grid entries that are not below 0.1.
[[nodiscard]] std::size_t GridLength(std::span<const float> grid);
/// Index of the entry of an ascending grid within tolerance of a frequency, or -1.
[[nodiscard]] int FindInGrid(std::span<const float> grid, float frequency);
/// The same in the grid of the curve.
[[nodiscard]] int FindOnGrid(const CurveState& curve, float frequency);
/// Puts `frequency` at its ascending place among the first `length` entries unless one within tolerance is
/// there already or the grid is full. Returns the new length.
std::size_t InsertIntoGrid(std::span<float> grid, std::size_t length, float frequency);

/// IM frequencies of a sweep: the ascending union of the rising and the falling list. Sets g_freqGrid and
/// g_pxPerStep. Both lists end at the capacity of the grid.
void BuildSweepGrid(CurveState& curve, int band, ImCoefficients c, const FrequencyPlan& plan);
/// IM frequencies of the rising half alone, always IM3. The grid is made of the frequencies that the steps
/// ask for, in ascending order. Sets g_freqGrid and g_pxPerStep.
void BuildSpectrumGrid(CurveState& curve, int band, const FrequencyPlan& plan);
/// Pixels per sweep step from the grid in place and g_SweepStep, at least 1.0.
void UpdatePixelsPerStep(CurveState& curve);

} // namespace qor
