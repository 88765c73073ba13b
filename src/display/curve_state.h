#pragma once

#include <array>
#include <cstddef>
#include <cstdlib>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace qor {

inline constexpr std::size_t CurvePoints = 2000;
inline constexpr std::size_t CurveRuns = 1000;
// shown to the operator, behind the name of the file a curve comes from
inline constexpr std::string_view NotFromData =
    "<The graph is invalid for official report as it's not loaded from DAT file>";

/// A matrix of runs (rows) by points (columns) whose memory is taken as rows are first written.
class RunMatrix {
public:
    RunMatrix() : m_Cells(static_cast<float*>(std::calloc(CurveRuns * CurvePoints, sizeof(float)))) {
        if (!m_Cells)
            throw std::bad_alloc();
    }

    [[nodiscard]] std::span<float, CurvePoints> Row(std::size_t run) {
        return std::span<float, CurvePoints>(m_Cells.get() + run * CurvePoints, CurvePoints);
    }
    [[nodiscard]] std::span<const float, CurvePoints> Row(std::size_t run) const {
        return std::span<const float, CurvePoints>(m_Cells.get() + run * CurvePoints, CurvePoints);
    }

private:
    struct Free {
        void operator()(float* cells) const { std::free(cells); }
    };
    std::unique_ptr<float[], Free> m_Cells;
};

/// The highest level of the runs before the one in progress, kept so that each tick searches that one only.
struct FinishedMaximum {
    std::size_t rows = 0; ///< searched; 0: nothing is known
    std::size_t last = 0; ///< index of the last point searched
    unsigned revision = 0;
    float level = 0;
    int index = 0;
};

/// The memory of a measurement. Levels are dBm whatever the unit shown; 0.0 is no point.
///
/// The live layer is what the measurement cycle writes and the files hold; the matrices are what is drawn,
/// one row a run, refreshed from the live layer by UpdateCurveArrays.
struct CurveState {
    // Live layer. g_levelUp holds one point more than the plot shows: the longest 2-tone run counts 2001.
    std::array<float, CurvePoints + 1> g_levelUp{};  ///< 2-tone in time order; sweep: up curve by grid index
    std::array<float, CurvePoints> g_levelDown{};    ///< sweep: down curve by grid index
    std::array<float, CurvePoints + 1> g_freqGrid{}; ///< sweep: IM frequencies, MHz, ascending; 0.0 ends them
    int StoreDataPot = 0;                            ///< 2-tone: index of the next point
    int g_curveDirty = 0;                            ///< a point was stored since the last update

    // Display layer.
    RunMatrix m_LevelUp;
    RunMatrix m_LevelDown;
    RunMatrix m_RawUp;
    RunMatrix m_RawDown;
    int m_RowsUsed = 0;          ///< rows 0 to here less 1 may hold something
    int m_ViewedRun = 0;         ///< g_shownRun when the shown rows were last filled
    unsigned m_RowsRevision = 0; ///< counts the changes of shown rows other than that of the run in progress

    // Scale.
    float g_plotTop = -60.0f;
    float g_plotBottom = -150.0f;
    float g_CarrierDbm = 43.0f; ///< reference of dBc
    int g_UnitDbc = 0;          ///< 1: levels are shown in dBc
    int g_plotWidth = 800;      ///< pixels, at most 2000
    int tone2SetTimes = 100;    ///< ms between 2-tone points, at least 100
    int g_testTimeMs = 5000;    ///< length of a 2-tone run
    float g_pxPerStep = 0;      ///< pixels per sweep step; above 0.9 marks a sweep
    float g_SweepStep = 1;      ///< MHz
    int g_histogramOn = 0;      ///< 1: the level bar stands at the left of the plot
    int g_forcedMsPerPoint = 0; ///< from a loaded file; overrides every other rule when not 0
    int RealReceiveTime = 0;    ///< ms, measured once after initialisation

    // Limit and verdict.
    float g_alarmLevel = -90.0f; ///< in the display unit
    float g_alarmKept = -90.0f;
    int g_alarmOff = 0;
    int g_stampOff = 0;
    int g_MeasVerdict = 0; ///< 0 none, 1 over the limit, 2 to 4 instrument errors, 101 failed, 1001 passed

    // Runs.
    int g_runIndex = 0; ///< row of the run in progress
    int g_runCount = 1; ///< configured runs, 1 to 1000
    int g_shownRun = 0; ///< 0: all; n: only run n

    // Worst points.
    float g_maxUpLevel = 0;
    int g_maxUpIndex = 0;
    float g_maxDownLevel = 0;
    int g_maxDownIndex = 0;
    FinishedMaximum m_FinishedUp;
    FinishedMaximum m_FinishedDown;
    float g_worstFreq = 0;   ///< MHz
    float g_worstLevel = 0;  ///< in the display unit
    std::string g_worstText; ///< worst level of a continuous run as shown, or a loaded file's name
    int g_fromFile = 0;      ///< the curve came from a file
};

enum Verdict : int {
    VerdictNone = 0,
    VerdictOverLimit = 1,
    VerdictSyntaxError = 2,
    VerdictOutOfRange = 3,
    VerdictPllNotLocked = 4,
    VerdictFailed = 101,
    VerdictPassed = 1001,
};

/// True for a verdict that an error reply of the instrument has set.
[[nodiscard]] constexpr bool IsInstrumentError(int verdict) {
    return verdict >= VerdictSyntaxError && verdict <= VerdictPllNotLocked;
}

} // namespace qor
