#include "curve/run_tally.h"

#include <algorithm>

namespace qor {

void RunTally::Levels::Add(const Levels& other) {
    asked += other.asked;
    taken += other.taken;
    inWhole += other.inWhole;
    passes += other.passes;
    rest.asked += other.rest.asked;
    rest.taken += other.rest.taken;
    if (other.highest)
        highest = std::max(highest.value_or(*other.highest), *other.highest);
}

RunTally::Levels& RunTally::Current() {
    if (m_Runs.empty())
        m_Runs.emplace_back();
    return m_Runs.back();
}

void RunTally::Begin(std::size_t row) {
    m_End = RunEnd::None;
    if (row < m_Runs.size()) {
        m_Gone.Add(m_Runs[row]);
        m_Runs[row] = {};
    } else {
        m_Runs.resize(row + 1);
    }
}

void RunTally::Take(float dBm) {
    Levels& levels = Current();
    levels.highest = std::max(levels.highest.value_or(dBm), dBm);
}

void RunTally::Count(const PassTally& pass) {
    Levels& levels = Current();
    ++levels.passes;
    levels.asked += pass.asked;
    levels.taken += std::min(pass.taken, pass.asked);
    if (pass.taken >= pass.asked)
        levels.inWhole += pass.asked;
}

void RunTally::EndWithin(RunEnd how, const PassTally& pass, int runsLeft, bool repeats) {
    m_End = how;
    m_RunsLeft = runsLeft;
    m_Repeats = repeats;
    Current().rest = {pass.asked, std::min(pass.taken, pass.asked)};
}

void RunTally::Load(const RunFacts& facts) {
    *this = {};
    m_Loaded = facts;
}

RunFacts RunTally::FactsOf(const Levels& levels, RunEnd end) const {
    const bool wholeIsEnough = m_Repeats && end == RunEnd::Stopped && levels.inWhole > 0;
    RunFacts facts;
    facts.asked = wholeIsEnough ? levels.inWhole : levels.asked + levels.rest.asked;
    facts.taken = wholeIsEnough ? levels.inWhole : levels.taken + levels.rest.taken;
    facts.highest = levels.highest;
    facts.end = end;
    facts.error = m_Error;
    facts.floor = m_Floor;
    return facts;
}

RunFacts RunTally::OfAll() const {
    if (m_Loaded) {
        RunFacts facts = *m_Loaded;
        facts.error = m_Error != 0 ? m_Error : facts.error;
        return facts;
    }
    Levels all = m_Gone;
    for (const Levels& run : m_Runs)
        all.Add(run);
    if (!m_Runs.empty()) // the runs that were not begun would have asked for as much
        all.rest.asked += m_RunsLeft * m_Runs.back().rest.asked;
    return FactsOf(all, m_End);
}

RunFacts RunTally::OfRow(std::size_t row) const {
    if (row == 0 && m_Runs.size() < 2)
        return OfAll();
    if (row >= m_Runs.size())
        return FactsOf({}, RunEnd::None);
    const bool isLast = row + 1 == m_Runs.size();
    return FactsOf(m_Runs[row], isLast || m_End == RunEnd::None ? m_End : RunEnd::ByItself);
}

RunFacts RunTally::OfLast() const {
    if (m_Loaded || m_Runs.empty())
        return OfAll();
    const Levels& last = m_Runs.back();
    return FactsOf(last, m_End == RunEnd::None && last.passes > 0 ? RunEnd::ByItself : m_End);
}

} // namespace qor
