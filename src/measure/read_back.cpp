#include "measure/read_back.h"

#include "base/atomic_write.h"
#include "base/text_format.h"
#include "curve/curve.h"
#include "curve/readout.h"
#include "link/commands.h"
#include "link/firmware.h"
#include "link/link_state.h"
#include "link/working_set.h"
#include "measure/protocol_name.h"
#include "measure/run.h"
#include "measure/timer_ids.h"
#include "receivers/level_source.h"

#include <algorithm>
#include <cmath>

namespace qor {

namespace {

constexpr int ReadBackPeriod = 603;
/// Ticks in which the sensor has to give a first reading.
constexpr int MostSensorTicks = 10;

} // namespace

ReadBack::ReadBack(const RunParts& parts, std::filesystem::path folder, const WallClock& clock)
    : SteppedShape(parts, readbacktimer, readbackwaittimer), m_Folder(std::move(folder)), m_Clock(clock) {}

void ReadBack::SetPlan(const CalibrationPlan& plan) {
    const Identity& identity = m_Parts.link.identity;
    const TableOwner owner{m_Parts.link.position.Band(), identity.Model(), identity.Firmware()};
    m_Plan = plan;
    m_F1 = plan.useF1 ? FrequenciesOf(plan, 1, owner) : std::vector<int>{};
    m_F2 = plan.useF2 ? FrequenciesOf(plan, 2, owner) : std::vector<int>{};
    m_Levels = LevelsOf(plan);
}

FrequencyPlan ReadBack::Tones() const {
    const auto f1 = static_cast<float>(m_F1.empty() ? m_Plan.f1.start : m_F1.front());
    const auto f2 = static_cast<float>(m_F2.empty() ? m_Plan.f2.start : m_F2.front());
    FrequencyPlan plan;
    plan.f1 = plan.f1Start = plan.f1Fix = f1;
    plan.f2 = plan.f2Start = plan.f2Fix = f2;
    plan.f1Stop = static_cast<float>(m_Plan.f1.stop);
    plan.f2Stop = static_cast<float>(m_Plan.f2.stop);
    plan.step = static_cast<float>(m_F1.empty()   ? m_Plan.f2.delta
                                   : m_F2.empty() ? m_Plan.f1.delta
                                                  : std::min(m_Plan.f1.delta, m_Plan.f2.delta));
    return plan;
}

int ReadBack::Level() const {
    return m_Levels[static_cast<std::size_t>(m_Parts.curve.Run())];
}

bool ReadBack::HasFurtherLevel() const {
    return static_cast<std::size_t>(m_Parts.curve.Run()) + 1 < m_Levels.size();
}

/// The frequencies of both tones, evenly from the lowest to the highest; what lies beside that joins it.
void ReadBack::Begin() {
    m_Powers.clear();
    m_Path.clear();
    std::vector<int> all = m_F1;
    all.insert(all.end(), m_F2.begin(), m_F2.end());
    const auto [lowest, highest] = std::ranges::minmax(all);
    const FrequencyPlan tones = Tones();
    std::vector<float> grid;
    for (int mhz = lowest; mhz <= highest; mhz += static_cast<int>(tones.step))
        grid.push_back(static_cast<float>(mhz));
    m_Parts.curve.SetGrid(grid, tones.step);
    std::vector<Step> steps;
    for (const int tone : {1, 2})
        for (const int mhz : Frequencies(tone))
            steps.push_back({static_cast<float>(mhz), tone != FirstTone()});
    Expect(steps);

    StartCommands commands;
    if (HasRecut(m_Parts.link.identity.Firmware()))
        commands.push_back({std::string(command::SettingsLoaded)});
    commands.push_back({m_Parts.link.position.Command()});
    commands.push_back({std::string(FirstTone() == 1 ? command::Tone1On : command::Tone2On)});
    BeginLevel(std::move(commands));
}

void ReadBack::NextLevel() {
    const bool first = FirstTone() == 1;
    BeginLevel({{std::string(first ? command::Tone1On : command::Tone2On)},
                {std::string(first ? command::Tone2Off : command::Tone1Off)}});
}

void ReadBack::BeginLevel(StartCommands commands) {
    const FrequencyPlan& tones = m_Parts.run.Record().plan;
    m_Parts.readout.ShowTones(static_cast<double>(tones.f1Start), static_cast<double>(tones.f2Start));
    m_Parts.curve.BeginSweep();
    AddPoint(commands, FirstTone(), Frequencies(FirstTone()).front(), TagStepUp);
    BeginSteps(commands, ReadBackPeriod);
    WaitForSensor();
}

/// A frequency, and the power at which it is read.
void ReadBack::AddPoint(StartCommands& commands, int tone, int mhz, int tag) const {
    commands.push_back({WithTenths(tone == 1 ? command::Frequency1 : command::Frequency2, mhz)});
    commands.push_back(
        {WithTenths(tone == 1 ? command::Power1 : command::Power2, Level()), tag, static_cast<float>(mhz)});
}

void ReadBack::QueuePoint(int tone, int mhz, int tag) {
    StartCommands commands;
    AddPoint(commands, tone, mhz, tag);
    for (const StartCommand& point : commands)
        m_Parts.link.queue.Append(point.text, point.tag, point.param);
}

void ReadBack::NextStep() {
    if (SensorSettles())
        return;
    const bool second = m_Stage == Stage::Down;
    const int tone = second ? 2 : FirstTone();
    const std::vector<int>& frequencies = Frequencies(tone);
    const auto step = static_cast<std::size_t>(m_Step);
    if (step < frequencies.size()) {
        ++m_Step;
        QueuePoint(tone, frequencies[step], second ? TagStepDown : TagStepUp);
        return;
    }
    if (second || tone == 2 || m_F2.empty()) {
        StopStepping();
        return;
    }
    m_Stage = Stage::Down;
    m_Step = 1;
    CommandQueue& queue = m_Parts.link.queue;
    queue.Append(WithTenths(command::Frequency1, m_F1.front()));
    queue.Append(WithTenths(command::Frequency2, m_F2.front()));
    queue.Append(command::Tone1Off);
    queue.Append(command::Tone2On);
    queue.Append(WithTenths(command::Power2, Level()), TagStepDown, static_cast<float>(m_F2.front()));
    WaitForSensor();
}

// ----- the power sensor settles

void ReadBack::WaitForSensor() {
    g_SensorWait = m_Parts.sources.Current().HasToSettle() ? 1 : 0;
}

/// A tick of the wait: it is over with the first reading that is one.
bool ReadBack::SensorSettles() {
    if (g_SensorWait == 0)
        return false;
    if (g_SensorWait > MostSensorTicks) {
        g_SensorWait = 0;
        m_Parts.host.EndWithFault(Outcome::Refused("Receiver Error! \r\nCheck power meter sensor."));
        return true;
    }
    ++g_SensorWait;
    const auto reading = m_Parts.sources.Current().ReadPoint();
    if (g_SensorWait > 0 && reading && reading->IsLevel())
        g_SensorWait = 0;
    return true;
}

bool ReadBack::HoldsLine() const {
    return g_SensorWait > 0 && m_Parts.link.transaction.Param() > 0;
}

// ----- levels

float ReadBack::Kept(const Reading& reading) const {
    return Corrected(reading) - (CalibrationDisplay::Shift - m_Plan.attenuation);
}

void ReadBack::ShowKept(float dBm) {
    Show(dBm + CalibrationDisplay::Shift);
}

void ReadBack::TonesMoved(float mhz, bool down) {
    if (down || FirstTone() == 2)
        m_Parts.readout.ShowF2(static_cast<double>(mhz));
    else
        m_Parts.readout.ShowF1(static_cast<double>(mhz));
}

void ReadBack::Stored(float mhz, float dBm, bool down) {
    m_Powers.push_back({down ? 2 : FirstTone(), mhz, Level(), dBm + CalibrationDisplay::Shift});
}

// ----- the end

void ReadBack::QueueCarriersOff() {
    CommandQueue& queue = m_Parts.link.queue;
    switch (m_Parts.run.Record().method) {
    case ModeTwoTone:
        queue.Append(command::TwoToneOff);
        break;
    case ModeSweep:
        for (const std::string_view text : {command::SweepOff, command::Tone1Off, command::Tone2Off})
            queue.Append(text);
        break;
    default:
        break;
    }
    queue.Append(command::Tone1Off);
    queue.Append(command::Tone2Off);
}

void ReadBack::Finish() {
    g_SensorWait = 0;
    SteppedShape::Finish();
    SaveProtocol();
}

void ReadBack::Stop() {
    g_SensorWait = 0;
    SteppedShape::Stop();
    SaveProtocol();
}

/// The powers of the run, where a service man finds them beside the calibration's.
void ReadBack::SaveProtocol() {
    if (m_Powers.empty())
        return;
    const Identity& identity = m_Parts.link.identity;
    const LocalTime now = m_Clock.Now();
    std::string text = "tone,frequency_mhz,target_dbm,level_dbm,difference_db\n";
    for (const Power& power : m_Powers)
        text += std::to_string(power.tone) + "," + Fixed(static_cast<double>(power.mhz), 1) + "," +
                Fixed(power.target, 1) + "," + Fixed(static_cast<double>(power.level), 3) + "," +
                Fixed(static_cast<double>(power.level) - power.target, 3) + "\n";
    m_Path = m_Folder /
             ProtocolName("readback", identity.Model(), identity.Serial(), m_Parts.run.Record().band, now);
    if (!WriteAtomically(m_Path, text).empty())
        m_Path.clear();
}

} // namespace qor
