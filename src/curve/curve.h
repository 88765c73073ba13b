#pragma once

#include "curve/calibration_display.h"
#include "curve/grid.h"
#include "curve/limit.h"
#include "curve/plot_scale.h"
#include "curve/run_matrix.h"
#include "curve/run_tally.h"

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace qor {

// shown to the operator, behind the name of the file a curve comes from
inline constexpr std::string_view NotFromData =
    "<The graph is invalid for official report as it's not loaded from DAT file>";

/// True for a level that is a point; 0.0 is none.
[[nodiscard]] inline bool IsPresent(float level) {
    return level != 0.0f;
}
/// A level as it is kept: one that would be written 0.00 is told from no point.
[[nodiscard]] float AsPoint(float dBm);

/// Highest level of a row or of several and its index, earliest first unless another is more than 0.05 dB
/// higher; 0 where there is none.
struct CurveMaximum {
    float level = 0;
    int index = 0;
    bool operator==(const CurveMaximum&) const = default;
};
[[nodiscard]] CurveMaximum HighestOf(std::span<const float> row);

/// The two curves of a sweep. A 2-tone run and a spectrum have the up curve only.
enum class CurveSide { Up, Down };

/// A curve that does not come from the instrument.
struct LoadedCurve {
    std::string name; ///< of its file, as it is told under the plot
    bool twoTone = true;
    std::vector<float> up; ///< dBm; 2-tone in time order, sweep by grid index
    std::vector<float> down;
    std::vector<float> grid; ///< MHz, ascending
    int length = 1000;       ///< 2-tone, ms
    int msPerPoint = 0;      ///< 2-tone; 0: by the rules of a run
    float imFrequency = 0;   ///< 2-tone, MHz
    RunFacts facts;          ///< of the whole file, whatever of it the plot has room for; without a limit
};

/// The memory of a measurement and of what is drawn of it. Levels are dBm whatever the unit shown; 0.0 is no
/// point.
///
/// The live layer is what a measurement writes and the files hold; the rows are what is drawn, one a run,
/// brought up to the live layer by Follow.
class Curve {
public:
    PlotScale scale;
    Limit limit;
    CalibrationDisplay powers;
    RunTally tally; ///< what has come of the levels that were asked for

    // The live layer. Up() holds one point more than the plot shows: the longest 2-tone run counts 2001.
    using UpLevels = std::array<float, CurvePoints + 1>;
    using DownLevels = std::array<float, CurvePoints>;
    using Frequencies = std::array<float, CurvePoints + 1>;
    [[nodiscard]] const UpLevels& Up() const { return g_levelUp; }
    [[nodiscard]] const DownLevels& Down() const { return g_levelDown; }
    [[nodiscard]] const Frequencies& Grid() const { return g_freqGrid; } ///< MHz, ascending; 0.0 ends it
    [[nodiscard]] std::size_t Steps() const { return GridLength(g_freqGrid); }
    /// Index of a frequency on the grid, or -1.
    [[nodiscard]] int Find(float frequency) const;
    [[nodiscard]] int NextPoint() const { return StoreDataPot; } ///< 2-tone: index of the next point
    [[nodiscard]] bool HoldsPoints() const;
    [[nodiscard]] bool IsSweep() const { return m_Sweep; } ///< over a grid of frequencies, not over time
    [[nodiscard]] float SweepStep() const { return g_SweepStep; } ///< MHz
    [[nodiscard]] bool IsFromFile() const { return g_fromFile != 0; }

    // Its verdict.
    /// What is known of the runs in view, and what the limit and the alarm are.
    [[nodiscard]] RunFacts Facts() const;
    /// What is known of the run in the live layer, whether the alarm is on or off: a file goes by that.
    [[nodiscard]] RunFacts LastRunFacts() const;
    /// The verdict of the runs in view as it is shown: none while the alarm is off.
    [[nodiscard]] Verdict ShownVerdict() const { return Judge(Facts()); }
    /// True for a level (dBm) that stands above the limit by more than 0.01 dB.
    [[nodiscard]] bool ExceedsLimit(float level) const { return IsAboveLimit(level, LimitInDbm()); }

    // Time of a 2-tone run, ms.
    /// Of the curve in the plot: that with which its run began, or a file's; of an empty plot the next run's.
    [[nodiscard]] int Length() const { return m_PictureLength > 0 ? m_PictureLength : OwnLength(); }
    [[nodiscard]] int OwnLength() const {
        return g_testTimeMs > 0 ? g_testTimeMs : 1000;
    } ///< of the next run
    [[nodiscard]] int TimePerPoint() const { return tone2SetTimes; }
    [[nodiscard]] int ReplyTime() const { return RealReceiveTime; } ///< of the receiver; 0 until it is known

    // Runs.
    [[nodiscard]] int Run() const { return g_runIndex; }      ///< in progress, counted from 0
    [[nodiscard]] int Runs() const { return g_runCount; }     ///< set up, 1 to 1000
    [[nodiscard]] int ShownRun() const { return g_shownRun; } ///< 0: all; n: only run n, counted from 1
    /// Row of the run in progress. Runs beyond the matrices share their last row.
    [[nodiscard]] std::size_t Row() const;
    /// Levels of a run in view; zeroes while it is not shown.
    [[nodiscard]] std::span<const float, CurvePoints> ShownUp(std::size_t row) const;
    [[nodiscard]] std::span<const float, CurvePoints> ShownDown(std::size_t row) const;
    /// Levels of a run of a sweep, in view or not.
    [[nodiscard]] std::span<const float, CurvePoints> KeptUp(std::size_t row) const;
    [[nodiscard]] std::span<const float, CurvePoints> KeptDown(std::size_t row) const;
    /// Index of the last point that a maximum may stand at. In a sweep it is the whole grid: where its two
    /// lists lie between each other it has more entries than the plot has steps, and the worst may be among
    /// the last.
    [[nodiscard]] std::size_t LastPoint() const;

    // Worst points, of the runs in view.
    [[nodiscard]] const CurveMaximum& MaxUp() const { return m_MaxUp; }
    [[nodiscard]] const CurveMaximum& MaxDown() const { return m_MaxDown; }
    [[nodiscard]] float WorstFrequency() const { return g_worstFreq; }             ///< MHz
    [[nodiscard]] std::optional<float> WorstLevel() const { return g_worstLevel; } ///< dBm
    /// Worst level shown during a continuous measurement, dBm.
    [[nodiscard]] std::optional<float> WorstShown() const { return m_WorstShown; }
    /// Of a loaded curve, as it is told under the plot.
    [[nodiscard]] const std::string& FileName() const { return m_FileName; }

    /// Counts the changes that the plot has to follow.
    [[nodiscard]] unsigned Revision() const { return m_Revision; }
    /// Counts the changes of the rows other than that of the run in progress.
    [[nodiscard]] unsigned RowsRevision() const { return m_RowsRevision; }

    // Before a run.
    void SetLength(int ms) { g_testTimeMs = ms; } ///< of the next run
    void SetRuns(int count) { g_runCount = count; }
    void NoteReplyTime(int ms) { RealReceiveTime = ms; }
    /// The points lie over these frequencies from now on, MHz; `grid` ascends, a 0.0 ends it.
    void SetGrid(std::span<const float> grid, float step);
    /// The points lie over time from now on.
    void SetTimeAxis();
    /// ms between 2-tone points from the run's length, the plot's width, the receiver's reply time
    /// (`internalReceiver`) and a loaded file's own time; at least 100 but for the last. Points taken keep
    /// the time they were taken at, however the window is resized.
    void UpdateTimePerPoint(bool internalReceiver);
    /// Points come no faster than the receiver answers, nor than each 100 ms.
    void HoldTimePerPoint(bool internalReceiver);

    // A run.
    /// An empty 2-tone run whose level is that of one frequency.
    void BeginTwoTone(float imFrequency);
    /// An empty run over the grid in place.
    void BeginSweep();
    /// Adds the next point of a 2-tone run; one beyond its end is dropped.
    void Add(float level);
    /// Puts a level at an index, which is one of the side's.
    void Put(std::size_t index, float level, CurveSide side = CurveSide::Up);
    /// A pass is over: the points of the next one replace its points one by one.
    void EndPass() { StoreDataPot = 0; }
    /// A run is over: the next one has a row of its own.
    void EndRun() { ++g_runIndex; }

    /// The worst level shown is kept from now on.
    void WatchWorst() { m_WatchesWorst = true; }
    void NoteShown(float dBm);

    /// An empty plot: no levels, no runs, no file, and nothing known of any. Its axis stays.
    void Clear();
    /// Replaces all by a curve from a file.
    void Load(const LoadedCurve& loaded);

    // What is seen of it.
    void ShowRun(int run) {
        g_shownRun = run;
        Touch();
    }
    /// The plot has something to follow.
    void Touch() { ++m_Revision; }
    /// Brings the rows up to the live layer when something has changed since the last time: false when not.
    bool Follow(bool internalReceiver);
    /// The same in any case.
    void Update(bool internalReceiver);
    /// Finds the highest present level of the shown runs, earliest first unless another is more than 0.05 dB
    /// higher, and with it the worst point of the curve.
    void SearchMaxima();

private:
    /// The highest level of the runs before the one in progress, kept so that each tick searches that one
    /// only.
    struct FinishedMaximum {
        std::size_t rows = 0; ///< searched; 0: nothing is known
        std::size_t last = 0; ///< index of the last point searched
        unsigned revision = 0;
        CurveMaximum best;
    };

    [[nodiscard]] double LimitInDbm() const;
    [[nodiscard]] RunFacts WithLimit(RunFacts facts) const;
    void ClearLevels();
    [[nodiscard]] bool FindMaximum(const RunMatrix& matrix, FinishedMaximum& known, CurveMaximum& best) const;

    // Live layer.
    UpLevels g_levelUp{};       ///< 2-tone in time order; sweep: up curve by grid index
    DownLevels g_levelDown{};   ///< sweep: down curve by grid index
    Frequencies g_freqGrid{};   ///< sweep: IM frequencies, MHz, ascending; 0.0 ends them
    int StoreDataPot = 0;       ///< 2-tone: index of the next point
    bool m_Sweep = false;       ///< over the grid, not over time
    int tone2SetTimes = 100;    ///< ms between 2-tone points, at least 100
    int g_testTimeMs = 5000;    ///< length of a 2-tone run as it was set
    int m_PictureLength = 0;    ///< of the run or the file whose curve is shown; 0: none is
    float g_SweepStep = 1;      ///< MHz
    int g_forcedMsPerPoint = 0; ///< from a loaded file; overrides every other rule when not 0
    int RealReceiveTime = 0;    ///< ms, measured once after initialisation
    int g_fromFile = 0;         ///< the curve came from a file

    // Rows.
    RunMatrix m_LevelUp; ///< in view
    RunMatrix m_LevelDown;
    RunMatrix m_RawUp; ///< of a sweep, in view or not
    RunMatrix m_RawDown;
    int g_runIndex = 0;  ///< row of the run in progress
    int g_runCount = 1;  ///< configured runs, 1 to 1000
    int g_shownRun = 0;  ///< 0: all; n: only run n
    int m_RowsUsed = 0;  ///< rows 0 to here less 1 may hold something
    int m_ViewedRun = 0; ///< g_shownRun when the shown rows were last filled
    unsigned m_Revision = 0;
    unsigned m_Followed = 0; ///< the revision that the rows have come up to
    unsigned m_RowsRevision = 0;

    // Worst points.
    CurveMaximum m_MaxUp; ///< of the up curves in view
    CurveMaximum m_MaxDown;
    FinishedMaximum m_FinishedUp;
    FinishedMaximum m_FinishedDown;
    float g_worstFreq = 0; ///< MHz
    std::optional<float> g_worstLevel;
    bool m_WatchesWorst = false;
    std::optional<float> m_WorstShown;
    std::string m_FileName;
};

} // namespace qor
