#include "display/curve_store.h"

#include "bands/catalogue.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace qor {

namespace {

/// A level may stand this far above the limit and still pass.
constexpr double LimitMargin = 0.01;
/// A maximum gives way only to a level that is higher by more than this.
constexpr double MaximumMargin = 0.05;
/// Floats of decimal levels lie up to this far beside them; the margins mean the decimals.
constexpr double DecimalSlack = 0.0005;
constexpr double EmptyGrid = 0.1;

bool Exceeds(float level, double limit) {
    return level < 0.0f && static_cast<double>(level) - limit > LimitMargin + DecimalSlack;
}

bool IsHigher(float level, float than) {
    return static_cast<double>(level) - static_cast<double>(than) > MaximumMargin + DecimalSlack;
}

double LimitInDbm(const CurveState& curve) {
    return static_cast<double>(curve.g_alarmLevel) +
           (curve.g_UnitDbc ? static_cast<double>(curve.g_CarrierDbm) : 0.0);
}

void JudgeRow(CurveState& curve, std::span<const float> levels) {
    // An instrument error outranks the limit.
    if (curve.g_alarmOff || IsInstrumentError(curve.g_MeasVerdict))
        return;
    const double limit = LimitInDbm(curve);
    if (std::any_of(levels.begin(), levels.end(), [limit](float level) { return Exceeds(level, limit); }))
        curve.g_MeasVerdict = VerdictOverLimit;
}

void SearchRow(std::span<const float> row, std::size_t last, std::optional<CurveMaximum>& best) {
    for (std::size_t i = 0; i < row.size() && i <= last; ++i) {
        if (IsPresent(row[i]) && (!best || IsHigher(row[i], best->level)))
            best = CurveMaximum{row[i], static_cast<int>(i)};
    }
}

/// Row of the only run in view; nothing when all are.
std::optional<std::size_t> SingleRow(const CurveState& curve) {
    if (curve.g_shownRun < 1 || curve.g_shownRun > static_cast<int>(CurveRuns))
        return std::nullopt;
    return static_cast<std::size_t>(curve.g_shownRun) - 1;
}

std::optional<CurveMaximum> SearchRuns(const CurveState& curve, const RunMatrix& matrix,
                                       FinishedMaximum& known) {
    const std::size_t last = LastPoint(curve);
    std::optional<CurveMaximum> best;
    if (const auto single = SingleRow(curve)) {
        SearchRow(matrix.Row(*single), last, best);
        return best;
    }
    const std::size_t run = CurrentRow(curve);
    std::size_t row = 0;
    if (known.revision == curve.m_RowsRevision && known.last == last && known.rows <= run && known.rows > 0) {
        best = CurveMaximum{known.level, known.index};
        row = known.rows;
    }
    for (; row < run; ++row) {
        SearchRow(matrix.Row(row), last, best);
        if (!best)
            return best; // without a first run there is nothing to compare with
    }
    known =
        best ? FinishedMaximum{run, last, curve.m_RowsRevision, best->level, best->index} : FinishedMaximum{};
    SearchRow(matrix.Row(run), last, best);
    return best;
}

/// Index of the first entry that is not below a frequency by the tolerance or more.
std::size_t PlaceInGrid(std::span<const float> grid, float frequency) {
    const auto below = [](float g, float f) { return static_cast<double>(g - f) <= -GridTolerance; };
    return static_cast<std::size_t>(std::lower_bound(grid.begin(), grid.end(), frequency, below) -
                                    grid.begin());
}

bool IsAt(std::span<const float> grid, std::size_t at, float frequency) {
    return at < grid.size() && std::abs(static_cast<double>(grid[at] - frequency)) < GridTolerance;
}

void CopyRow(std::span<const float> from, std::span<float> to) {
    std::copy_n(from.begin(), to.size(), to.begin());
}

} // namespace

std::size_t CurrentRow(const CurveState& curve) {
    return static_cast<std::size_t>(std::clamp(curve.g_runIndex, 0, static_cast<int>(CurveRuns) - 1));
}

std::size_t LastPoint(const CurveState& curve) {
    constexpr int Last = static_cast<int>(CurvePoints) - 1;
    if (IsSweepCurve(curve))
        return CurvePoints - 1;
    return static_cast<std::size_t>(
        std::clamp(RunLength(curve) / std::max(curve.tone2SetTimes, 1) + 1, 0, Last));
}

bool ExceedsLimit(const CurveState& curve, float level) {
    return Exceeds(level, LimitInDbm(curve));
}

bool HoldsPoints(const CurveState& curve) {
    const auto isPoint = [](float level) { return level != 0.0f; };
    return std::any_of(curve.g_levelUp.begin(), curve.g_levelUp.end(), isPoint) ||
           std::any_of(curve.g_levelDown.begin(), curve.g_levelDown.end(), isPoint);
}

void ResetCurve(CurveState& curve) {
    curve.g_runIndex = 0;
    curve.g_maxUpLevel = curve.g_maxDownLevel = 0;
    curve.g_maxUpIndex = curve.g_maxDownIndex = 0;
    curve.g_forcedMsPerPoint = 0;
    curve.g_fromFile = 0;
    curve.g_worstText.clear();
    for (int run = 0; run < curve.m_RowsUsed; ++run) {
        const auto row = static_cast<std::size_t>(run);
        for (RunMatrix* matrix : {&curve.m_LevelUp, &curve.m_LevelDown, &curve.m_RawUp, &curve.m_RawDown})
            std::ranges::fill(matrix->Row(row), 0.0f);
    }
    curve.m_RowsUsed = 0;
    curve.m_ViewedRun = 0;
    ++curve.m_RowsRevision;
}

void ClearLevels(CurveState& curve) {
    curve.g_levelUp.fill(0);
    curve.g_levelDown.fill(0);
}

void UpdateTimePerPoint(CurveState& curve, bool internalReceiver) {
    if (curve.StoreDataPot > 0 && !IsSweepCurve(curve) && curve.g_forcedMsPerPoint == 0)
        return;
    const int width = std::clamp(curve.g_plotWidth, 1, static_cast<int>(CurvePoints));
    int time = RunLength(curve) / width + 1;
    if (internalReceiver && curve.RealReceiveTime != 0)
        time = std::max(time, curve.RealReceiveTime);
    time = std::max(time, 100);
    curve.tone2SetTimes = curve.g_forcedMsPerPoint != 0 ? curve.g_forcedMsPerPoint : time;
}

void UpdateCurveArrays(CurveState& curve, bool internalReceiver) {
    UpdateTimePerPoint(curve, internalReceiver);
    const std::size_t run = CurrentRow(curve);
    curve.m_RowsUsed = std::max(curve.m_RowsUsed, static_cast<int>(run) + 1);
    if (!IsSweepCurve(curve)) {
        CopyRow(curve.g_levelUp, curve.m_LevelUp.Row(run));
        JudgeRow(curve, curve.m_LevelUp.Row(run));
        return;
    }
    CopyRow(curve.g_levelUp, curve.m_RawUp.Row(run));
    CopyRow(curve.g_levelDown, curve.m_RawDown.Row(run));
    std::size_t checked = run;
    if (curve.m_ViewedRun != curve.g_shownRun)
        ++curve.m_RowsRevision;
    if (const auto single = SingleRow(curve)) {
        checked = *single;
        for (std::size_t row = 0; row <= run; ++row) {
            std::ranges::fill(curve.m_LevelUp.Row(row), 0.0f);
            std::ranges::fill(curve.m_LevelDown.Row(row), 0.0f);
        }
        CopyRow(curve.m_RawUp.Row(checked), curve.m_LevelUp.Row(checked));
        CopyRow(curve.m_RawDown.Row(checked), curve.m_LevelDown.Row(checked));
    } else {
        // Rows of finished runs are in view already unless a single run was before.
        for (std::size_t row = curve.m_ViewedRun == 0 ? run : 0; row <= run; ++row) {
            CopyRow(curve.m_RawUp.Row(row), curve.m_LevelUp.Row(row));
            CopyRow(curve.m_RawDown.Row(row), curve.m_LevelDown.Row(row));
        }
    }
    curve.m_ViewedRun = curve.g_shownRun;
    JudgeRow(curve, curve.m_LevelUp.Row(checked));
    JudgeRow(curve, curve.m_LevelDown.Row(checked));
}

void JudgeAnew(CurveState& curve, bool internalReceiver) {
    int& verdict = curve.g_MeasVerdict;
    if (verdict == VerdictOverLimit || verdict >= VerdictFailed)
        verdict = VerdictPassed;
    UpdateCurveArrays(curve, internalReceiver);
    if (verdict != VerdictPassed)
        return;
    for (std::size_t row = 0; row <= CurrentRow(curve); ++row) {
        JudgeRow(curve, curve.m_LevelUp.Row(row));
        JudgeRow(curve, curve.m_LevelDown.Row(row));
    }
}

CurveMaximum HighestOf(std::span<const float> row) {
    std::optional<CurveMaximum> best;
    SearchRow(row, row.size(), best);
    return best.value_or(CurveMaximum{});
}

void SearchMaxima(CurveState& curve) {
    const bool sweep = IsSweepCurve(curve);
    const auto up = SearchRuns(curve, curve.m_LevelUp, curve.m_FinishedUp);
    const auto down = sweep ? SearchRuns(curve, curve.m_LevelDown, curve.m_FinishedDown) : std::nullopt;
    curve.g_maxUpLevel = up ? up->level : 0;
    curve.g_maxUpIndex = up ? up->index : 0;
    curve.g_maxDownLevel = down ? down->level : 0;
    curve.g_maxDownIndex = down ? down->index : 0;

    const auto counts = [](const std::optional<CurveMaximum>& m) { return m && m->level < -0.1f; };
    const bool downWins = counts(down) && (!counts(up) || IsHigher(down->level, up->level));
    if (!downWins && !counts(up))
        return;
    const CurveMaximum& worst = downWins ? *down : *up;
    curve.g_worstLevel = curve.g_UnitDbc ? worst.level - curve.g_CarrierDbm : worst.level;
    if (sweep)
        curve.g_worstFreq = curve.g_freqGrid[static_cast<std::size_t>(worst.index)];
}

void SettleVerdict(CurveState& curve) {
    int& verdict = curve.g_MeasVerdict;
    if (verdict == VerdictOverLimit || verdict == VerdictFailed)
        verdict = VerdictFailed;
    else if (!IsInstrumentError(verdict))
        verdict = VerdictPassed;
}

std::size_t GridLength(std::span<const float> grid) {
    const auto end =
        std::find_if(grid.begin(), grid.end(), [](float f) { return static_cast<double>(f) < EmptyGrid; });
    return static_cast<std::size_t>(end - grid.begin());
}

int FindInGrid(std::span<const float> grid, float frequency) {
    const std::size_t at = PlaceInGrid(grid, frequency);
    return IsAt(grid, at, frequency) ? static_cast<int>(at) : -1;
}

int FindOnGrid(const CurveState& curve, float frequency) {
    const std::span<const float> grid(curve.g_freqGrid);
    return FindInGrid(grid.first(GridLength(grid)), frequency);
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

void BuildSweepGrid(CurveState& curve, int band, ImCoefficients c, const FrequencyPlan& plan) {
    const bool upper = UsesUpperProduct(band);
    // The tone that is multiplied high moves up in one list, the other moves down in the second.
    const float upFrom = upper ? plan.f2Stop : plan.f1Start;
    const float upTo = upper ? plan.f2Start : plan.f1Stop;
    const float downFrom = upper ? plan.f1Stop : plan.f2Start;
    const float downTo = upper ? plan.f1Start : plan.f2Stop;
    const auto high = static_cast<float>(c.high);
    const auto low = static_cast<float>(c.low);
    std::span<float> grid(curve.g_freqGrid.data(), CurvePoints);
    std::ranges::fill(curve.g_freqGrid, 0.0f);
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
    UpdatePixelsPerStep(curve);
}

void BuildSpectrumGrid(CurveState& curve, int band, const FrequencyPlan& plan) {
    std::span<float> grid(curve.g_freqGrid.data(), CurvePoints);
    std::ranges::fill(curve.g_freqGrid, 0.0f);
    std::size_t length = 0;
    for (std::size_t k = 0; k < CurvePoints; ++k) {
        const float f1 = plan.f1Start + static_cast<float>(k) * plan.step;
        if (!(static_cast<double>(f1 - plan.f1Stop) < GridTolerance))
            break;
        length = InsertIntoGrid(grid, length, ImFrequency(band, {2, 1}, f1, plan.f2Fix));
    }
    UpdatePixelsPerStep(curve);
}

void UpdatePixelsPerStep(CurveState& curve) {
    const std::size_t length = GridLength(std::span<const float>(curve.g_freqGrid));
    float perStep = 0;
    if (length > 0) {
        const float span = curve.g_freqGrid[length - 1] - curve.g_freqGrid[0];
        perStep = span > 0.0f ? static_cast<float>(curve.g_plotWidth) / (span / curve.g_SweepStep) : 0.0f;
    }
    curve.g_pxPerStep = std::max(perStep, 1.0f);
}

} // namespace qor
