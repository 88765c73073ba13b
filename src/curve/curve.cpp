#include "curve/curve.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace qor {

namespace {

/// A maximum gives way only to a level that is higher by more than this.
constexpr double MaximumMargin = 0.05;
/// Floats of decimal levels lie up to this far beside them; the margin means the decimals.
constexpr double DecimalSlack = 0.0005;
constexpr float LeastLevel = 0.01f;
constexpr int ShortestTimePerPoint = 100;

bool IsHigher(float level, float than) {
    return static_cast<double>(level) - static_cast<double>(than) > MaximumMargin + DecimalSlack;
}

void SearchRow(std::span<const float> row, std::size_t last, std::optional<CurveMaximum>& best) {
    for (std::size_t i = 0; i < row.size() && i <= last; ++i) {
        if (IsPresent(row[i]) && (!best || IsHigher(row[i], best->level)))
            best = CurveMaximum{row[i], static_cast<int>(i)};
    }
}

/// Row of the only run in view; nothing when all are.
std::optional<std::size_t> SingleRow(int shownRun) {
    if (shownRun < 1 || shownRun > static_cast<int>(CurveRuns))
        return std::nullopt;
    return static_cast<std::size_t>(shownRun) - 1;
}

void CopyRow(std::span<const float> from, std::span<float> to) {
    std::copy_n(from.begin(), to.size(), to.begin());
}

template <std::size_t Size> void Fill(std::array<float, Size>& to, const std::vector<float>& from) {
    const std::size_t count = std::min(from.size(), Size);
    const auto end = std::copy_n(from.begin(), count, to.begin());
    std::fill(end, to.end(), 0.0f);
}

} // namespace

float AsPoint(float dBm) {
    return std::abs(dBm) < LeastLevel / 2 ? LeastLevel : dBm;
}

CurveMaximum HighestOf(std::span<const float> row) {
    std::optional<CurveMaximum> best;
    SearchRow(row, row.size(), best);
    return best.value_or(CurveMaximum{});
}

int Curve::Find(float frequency) const {
    return FindInGrid(std::span<const float>(g_freqGrid).first(Steps()), frequency);
}

bool Curve::HoldsPoints() const {
    return std::any_of(g_levelUp.begin(), g_levelUp.end(), IsPresent) ||
           std::any_of(g_levelDown.begin(), g_levelDown.end(), IsPresent);
}

RunFacts Curve::Facts() const {
    const auto single = SingleRow(g_shownRun);
    RunFacts facts = WithLimit(single ? tally.OfRow(*single) : tally.OfAll());
    facts.watched = limit.AlarmOn();
    return facts;
}

RunFacts Curve::LastRunFacts() const {
    return WithLimit(tally.OfLast());
}

RunFacts Curve::WithLimit(RunFacts facts) const {
    facts.limit = LimitInDbm();
    return facts;
}

std::size_t Curve::Row() const {
    return static_cast<std::size_t>(std::clamp(g_runIndex, 0, static_cast<int>(CurveRuns) - 1));
}

std::span<const float, CurvePoints> Curve::ShownUp(std::size_t row) const {
    return m_LevelUp.Row(row);
}

std::span<const float, CurvePoints> Curve::ShownDown(std::size_t row) const {
    return m_LevelDown.Row(row);
}

std::span<const float, CurvePoints> Curve::KeptUp(std::size_t row) const {
    return m_RawUp.Row(row);
}

std::span<const float, CurvePoints> Curve::KeptDown(std::size_t row) const {
    return m_RawDown.Row(row);
}

std::size_t Curve::LastPoint() const {
    constexpr int Last = static_cast<int>(CurvePoints) - 1;
    if (m_Sweep)
        return CurvePoints - 1;
    return static_cast<std::size_t>(std::clamp(Length() / std::max(tone2SetTimes, 1) + 1, 0, Last));
}

void Curve::SetGrid(std::span<const float> grid, float step) {
    g_SweepStep = step;
    const std::size_t length = std::min(GridLength(grid), CurvePoints);
    g_freqGrid.fill(0);
    std::copy_n(grid.begin(), length, g_freqGrid.begin());
    m_Sweep = true;
}

void Curve::SetTimeAxis() {
    g_freqGrid.fill(0);
    StoreDataPot = 0;
    m_Sweep = false;
}

void Curve::UpdateTimePerPoint(bool internalReceiver) {
    if (StoreDataPot > 0 && !m_Sweep && g_forcedMsPerPoint == 0)
        return;
    const int width = std::clamp(scale.Width(), 1, static_cast<int>(CurvePoints));
    int time = Length() / width + 1;
    if (internalReceiver && RealReceiveTime != 0)
        time = std::max(time, RealReceiveTime);
    time = std::max(time, ShortestTimePerPoint);
    tone2SetTimes = g_forcedMsPerPoint != 0 ? g_forcedMsPerPoint : time;
}

void Curve::HoldTimePerPoint(bool internalReceiver) {
    if (internalReceiver && RealReceiveTime != 0)
        tone2SetTimes = std::max(tone2SetTimes, RealReceiveTime);
    tone2SetTimes = std::max(tone2SetTimes, ShortestTimePerPoint);
}

void Curve::BeginTwoTone(float imFrequency) {
    SetTimeAxis();
    m_PictureLength = OwnLength();
    ClearLevels();
    tally.Begin(Row());
    g_worstFreq = imFrequency;
    g_worstLevel.reset();
}

void Curve::BeginSweep() {
    ClearLevels();
    tally.Begin(Row());
    g_worstFreq = 0;
    g_worstLevel.reset();
}

void Curve::Add(float level) {
    if (static_cast<std::size_t>(StoreDataPot) >= g_levelUp.size()) {
        tally.Take(level); // it was measured, though the plot has no room for it
        return;
    }
    Put(static_cast<std::size_t>(StoreDataPot), level);
    ++StoreDataPot;
}

void Curve::Put(std::size_t index, float level, CurveSide side) {
    (side == CurveSide::Up ? g_levelUp.at(index) : g_levelDown.at(index)) = level;
    if (IsPresent(level))
        tally.Take(level);
    Touch();
}

void Curve::NoteShown(float dBm) {
    if (m_WatchesWorst)
        m_WorstShown = std::max(m_WorstShown.value_or(dBm), dBm);
}

void Curve::ClearLevels() {
    g_levelUp.fill(0);
    g_levelDown.fill(0);
}

void Curve::Clear() {
    ClearLevels();
    tally = {};
    StoreDataPot = 0;
    g_runIndex = 0;
    m_MaxUp = m_MaxDown = {};
    g_worstFreq = 0;
    g_worstLevel.reset();
    g_forcedMsPerPoint = 0;
    m_PictureLength = 0;
    g_fromFile = 0;
    m_WatchesWorst = false;
    m_WorstShown.reset();
    m_FileName.clear();
    for (int run = 0; run < m_RowsUsed; ++run) {
        const auto row = static_cast<std::size_t>(run);
        for (RunMatrix* matrix : {&m_LevelUp, &m_LevelDown, &m_RawUp, &m_RawDown})
            std::ranges::fill(matrix->Row(row), 0.0f);
    }
    m_RowsUsed = 0;
    m_ViewedRun = 0;
    ++m_RowsRevision;
    Touch();
}

void Curve::Load(const LoadedCurve& loaded) {
    Clear();
    SetTimeAxis();
    g_fromFile = 1;
    m_FileName = loaded.name;
    tally.Load(loaded.facts);
    g_shownRun = 0; // a file holds one run
    g_worstFreq = loaded.imFrequency;
    Fill(g_levelUp, loaded.up);
    Fill(g_levelDown, loaded.down);
    if (loaded.twoTone) {
        StoreDataPot = static_cast<int>(std::min(loaded.up.size(), g_levelUp.size()));
        m_PictureLength = loaded.length > 0 ? loaded.length : 1000;
        g_forcedMsPerPoint = loaded.msPerPoint;
    } else {
        const std::vector<float>& grid = loaded.grid;
        SetGrid(grid, grid.size() > 1 ? grid[1] - grid[0] : g_SweepStep);
    }
    Touch();
}

bool Curve::Follow(bool internalReceiver) {
    if (m_Followed == m_Revision)
        return false;
    m_Followed = m_Revision;
    Update(internalReceiver);
    return true;
}

void Curve::Update(bool internalReceiver) {
    UpdateTimePerPoint(internalReceiver);
    const std::size_t run = Row();
    m_RowsUsed = std::max(m_RowsUsed, static_cast<int>(run) + 1);
    if (!m_Sweep) {
        CopyRow(g_levelUp, m_LevelUp.Row(run));
        return;
    }
    CopyRow(g_levelUp, m_RawUp.Row(run));
    CopyRow(g_levelDown, m_RawDown.Row(run));
    if (m_ViewedRun != g_shownRun)
        ++m_RowsRevision;
    if (const auto single = SingleRow(g_shownRun)) {
        for (std::size_t row = 0; row <= run; ++row) {
            std::ranges::fill(m_LevelUp.Row(row), 0.0f);
            std::ranges::fill(m_LevelDown.Row(row), 0.0f);
        }
        CopyRow(m_RawUp.Row(*single), m_LevelUp.Row(*single));
        CopyRow(m_RawDown.Row(*single), m_LevelDown.Row(*single));
    } else {
        // Rows of finished runs are in view already unless a single run was before.
        for (std::size_t row = m_ViewedRun == 0 ? run : 0; row <= run; ++row) {
            CopyRow(m_RawUp.Row(row), m_LevelUp.Row(row));
            CopyRow(m_RawDown.Row(row), m_LevelDown.Row(row));
        }
    }
    m_ViewedRun = g_shownRun;
}

void Curve::SearchMaxima() {
    const bool up = FindMaximum(m_LevelUp, m_FinishedUp, m_MaxUp);
    const bool down = m_Sweep && FindMaximum(m_LevelDown, m_FinishedDown, m_MaxDown);
    if (!down)
        m_MaxDown = {};

    g_worstLevel.reset();
    if (!up && !down)
        return;
    const bool downWins = down && (!up || IsHigher(m_MaxDown.level, m_MaxUp.level));
    const CurveMaximum& worst = downWins ? m_MaxDown : m_MaxUp;
    g_worstLevel = worst.level;
    if (m_Sweep)
        g_worstFreq = g_freqGrid[static_cast<std::size_t>(worst.index)];
}

double Curve::LimitInDbm() const {
    return static_cast<double>(limit.Level()) + static_cast<double>(scale.Reference());
}

/// False, and the best is none, when the runs in view hold no point.
bool Curve::FindMaximum(const RunMatrix& matrix, FinishedMaximum& known, CurveMaximum& best) const {
    const std::size_t last = LastPoint();
    std::optional<CurveMaximum> found;
    if (const auto single = SingleRow(g_shownRun)) {
        SearchRow(matrix.Row(*single), last, found);
    } else {
        const std::size_t run = Row();
        std::size_t row = 0;
        if (known.revision == m_RowsRevision && known.last == last && known.rows <= run && known.rows > 0) {
            found = known.best;
            row = known.rows;
        }
        for (; row < run; ++row) {
            SearchRow(matrix.Row(row), last, found);
            if (!found)
                break; // without a first run there is nothing to compare with
        }
        if (row == run) {
            known = found ? FinishedMaximum{run, last, m_RowsRevision, *found} : FinishedMaximum{};
            SearchRow(matrix.Row(run), last, found);
        }
    }
    best = found.value_or(CurveMaximum{});
    return found.has_value();
}

} // namespace qor
