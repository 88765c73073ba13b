#include "service/fatigue_test.h"

#include "bands/catalogue.h"
#include "base/atomic_write.h"
#include "base/text_format.h"
#include "curve/curve.h"
#include "link/link_state.h"
#include "link/working_set.h"
#include "measure/protocol_name.h"
#include "measure/run.h"
#include "service/factory_mode.h"

#include <fstream>

namespace qor {

namespace {

constexpr int MsPerSecond = 1000;

std::string_view NameOf(Verdict verdict) {
    switch (verdict) {
    case Verdict::Passed:
        return "passed";
    case Verdict::Failed:
        return "failed";
    case Verdict::Error:
        return "error";
    case Verdict::None:
        break;
    }
    return "none";
}

std::string Stamp(const LocalTime& t) {
    return ZeroPadded(t.year, 4) + "-" + ZeroPadded(t.month, 2) + "-" + ZeroPadded(t.day, 2) + " " +
           ZeroPadded(t.hour, 2) + ":" + ZeroPadded(t.minute, 2) + ":" + ZeroPadded(t.second, 2);
}

std::string LineOf(const FatigueCycle& cycle) {
    const RunFacts& facts = cycle.facts;
    const std::string worst = facts.highest ? Fixed(static_cast<double>(*facts.highest), 1) : std::string();
    return std::to_string(cycle.number) + "," + Stamp(cycle.begun) + "," + std::to_string(cycle.seconds) +
           "," + std::string(NameOf(Judge(facts))) + "," + std::to_string(facts.taken) + "," +
           std::to_string(facts.asked) + "," + worst + "\n";
}

} // namespace

FatigueTest::FatigueTest(const Rooms& rooms, WindowTimers& timers, WallClock& clock,
                         std::filesystem::path folder, FatigueButton button)
    : m_Rooms(rooms), m_Clock(clock), m_Folder(std::move(folder)), m_Button(std::move(button)),
      m_CycleTimer(timers, fatiguecycletimer, [this] { OnCycle(); }),
      m_DelayTimer(timers, fatiguedelaytimer, [this] { OnDelay(); }),
      m_CheckTimer(timers, fatiguechecktimer, [this] { OnCheck(); }) {}

Outcome FatigueTest::Start() {
    if (!m_Entered.IsInRange() || m_Rooms.factory.IsBusy())
        return Outcome::Refused({});
    m_Settings = m_Entered;
    const Identity& identity = m_Rooms.link.identity;
    m_Path = m_Folder / ProtocolName("fatigue", identity.ModelName(), identity.Serial(),
                                     m_Rooms.working.Band(), m_Clock.Now());
    if (!WriteAtomically(m_Path, Head()).empty())
        return Outcome::Refused("Ohne sein Protokoll beginnt der Test nicht: " + m_Path.string());
    m_Rooms.factory.Begin(ServiceWork::Fatigue);
    m_Rooms.working.SelectMethod(ModeTwoTone);
    m_IsOn = true;
    m_FatigueDone = m_FinishedRuns = 0;
    m_Pressed = m_Refused = m_RunIsOwn = m_ProtocolIsShort = false;
    m_Last.reset();
    m_Worst.reset();
    m_StartMs = m_Clock.TickMs();
    m_CycleTimer.Start((m_Settings.on + m_Settings.off) * MsPerSecond);
    m_DelayTimer.Start(m_Settings.on * MsPerSecond);
    return Outcome::Done();
}

void FatigueTest::Stop() {
    if (!m_IsOn)
        return;
    End();
    if (m_Rooms.run.IsOn())
        Press();
    else
        m_Button.drop();
}

void FatigueTest::End() {
    m_CycleTimer.Stop();
    m_DelayTimer.Stop();
    m_CheckTimer.Stop();
    m_IsOn = false;
    m_Rooms.factory.End(ServiceWork::Fatigue);
}

/// The last press, or the start that it asked for and that had to wait.
bool FatigueTest::WasRefused() const {
    return m_Refused || (m_Pressed && m_Rooms.run.StartFail() == StartRefused);
}

void FatigueTest::OnCycle() {
    if (!WasRefused()) {
        ++m_FatigueDone;
        Press();
    }
    if (WasRefused())
        Stop();
}

void FatigueTest::OnDelay() {
    m_DelayTimer.Stop();
    m_CheckTimer.Start((m_Settings.on + m_Settings.off) * MsPerSecond);
}

void FatigueTest::OnCheck() {
    if (m_FatigueDone > m_Settings.times || WasRefused())
        return Stop();
    PressAfterSaving();
}

void FatigueTest::PressAfterSaving() {
    Press();
    if (WasRefused())
        Stop();
}

/// What the press is refused with is told when the test has come to its end: nobody may be there to read it.
void FatigueTest::Press() {
    const bool starts = !m_Rooms.run.IsOn();
    if (starts) {
        m_PressMs = m_Clock.TickMs();
        m_PressTime = m_Clock.Now();
        m_RunIsOwn = true;
    }
    m_Pressed = true;
    const Outcome outcome = m_Button.press();
    if (!starts || outcome)
        return;
    m_Refused = true;
    m_RunIsOwn = false;
    if (m_IsOn)
        End();
    m_Button.tell(outcome);
}

void FatigueTest::RunIsOver() {
    if (!m_RunIsOwn)
        return;
    m_RunIsOwn = false;
    FatigueCycle cycle;
    cycle.number = ++m_FinishedRuns;
    cycle.begun = m_PressTime;
    cycle.seconds = static_cast<int>((m_Clock.TickMs() - m_PressMs) / MsPerSecond);
    cycle.facts = m_Rooms.curve.LastRunFacts();
    if (cycle.facts.highest && (!m_Worst || *cycle.facts.highest > *m_Worst))
        m_Worst = cycle.facts.highest;
    Write(cycle);
    m_Last = cycle;
}

int FatigueTest::SecondsLeft() const {
    if (!m_IsOn)
        return 0;
    const std::int64_t period = m_Settings.on + m_Settings.off;
    const std::int64_t length =
        (m_Settings.times + 1) * period + m_Settings.on; // one more cycle than asked for
    const std::int64_t left = length - (m_Clock.TickMs() - m_StartMs) / MsPerSecond;
    return static_cast<int>(std::max<std::int64_t>(left, 0));
}

std::string FatigueTest::Head() const {
    const Identity& identity = m_Rooms.link.identity;
    const WorkingSet& working = m_Rooms.working;
    return "model," + identity.ModelName() + "\nserial," + identity.Serial() + "\nband," +
           std::string(BandText(working.Band())) + "\norder,IM" + std::to_string(OrderOf(working.ImIndex())) +
           "\non_s," + std::to_string(m_Settings.on) + "\noff_s," + std::to_string(m_Settings.off) +
           "\ntimes," + std::to_string(m_Settings.times) + "\nlimit_dbm," +
           Fixed(m_Rooms.curve.Facts().limit, 1) +
           "\ncycle,begun,seconds,verdict,points,points_asked,worst_dbm\n";
}

/// Each line is on the disk before the next cycle begins.
void FatigueTest::Write(const FatigueCycle& cycle) {
    std::ofstream file(m_Path, std::ios::binary | std::ios::app);
    file << LineOf(cycle) << std::flush;
    m_ProtocolIsShort = m_ProtocolIsShort || !file.good();
}

} // namespace qor
