#include "service/power_calibration.h"

#include "base/firmware.h"
#include "base/text_format.h"
#include "link/commands.h"
#include "link/link_state.h"
#include "link/working_set.h"
#include "measure/protocol_name.h"
#include "platform/clock.h"
#include "platform/platform.h"
#include "platform/serial_control.h"
#include "receivers/level_source.h"
#include "receivers/receiver_state.h"
#include "service/factory_mode.h"
#include "service/memory_talk.h"

#include <cmath>
#include <map>
#include <set>
#include <tuple>
#include <utility>

namespace qor {

namespace {

/// A point ends no further off its target, dB, unless its bounds had no room for it.
constexpr float FarOff = 0.1f;
/// A reading that does not come is asked for again so many times, a step apart.
constexpr int MostTries = 9;
/// A pair of bytes that a stop finds under way has so long to be confirmed; nor does anything else hold up
/// what switches the carriers off.
constexpr int PairMs = 2000;
constexpr int CloseAgainPeriod = 100;
/// What a point's time counts in the mean.
constexpr double NewShare = 0.1;
/// Steps that a first point takes, by the line's usual speed.
constexpr double FirstGuessMs = 1500;

constexpr std::string_view PowerOf(int tone) {
    return tone == 1 ? command::Power1 : command::Power2;
}

std::string LogLine(int mhz, int dBm, float drive) {
    return std::to_string(mhz) + ", " + Fixed(dBm, 1) + ", " + Fixed(static_cast<double>(drive), 3);
}

} // namespace

PowerCalibration::PowerCalibration(const CalibrationRooms& rooms, const Platform& platform,
                                   std::filesystem::path folder, std::function<void(const Outcome&)> tell)
    : m_Rooms(rooms), m_Platform(platform), m_Folder(std::move(folder)), m_Tell(std::move(tell)),
      m_StepTimer(platform.timers, CalibrationStepTimer, [this] { OnStep(); }),
      m_CloseTimer(platform.timers, calclosetimer, [this] { OnClose(); }) {}

TableOwner PowerCalibration::Owner() const {
    return {m_Rooms.working.Band(), m_Rooms.link.identity.Model(), m_Rooms.link.identity.Firmware()};
}

Outcome PowerCalibration::Check(const CalibrationPlan& plan, const Outcome& noTone) const {
    if (m_Rooms.receiver.InstrumentListens())
        return Outcome::Refused(
            "Please select external receiver by menu \"Setup->Receiver Ports->External\"");
    if (plan.attenuation < 0.1f)
        return Outcome::Refused("Please input \"Attenuation Cell\"");
    if (!plan.useF1 && !plan.useF2)
        return noTone;
    if (Outcome fits = FitsCoarseTable(plan, m_Rooms.link.identity.Model()); !fits)
        return fits;
    if (!m_Platform.comm.GetPortOpen())
        return Outcome::Refused("Please check if your equipment is connected with your PC.");
    if (!IsInitialised(m_Rooms.link))
        return Outcome::Refused("Initialisieren, bitte warten!");
    if (!FitsTables(plan, m_Rooms.link.identity.Firmware()))
        return Outcome::Refused("Falsch, dichtesortierung.");
    if (!HasPowerTable(m_Rooms.working.Band()))
        return Outcome::Refused("Auswaehlen Breite");
    if (m_Rooms.link.position.Band() != m_Rooms.working.Band())
        return Outcome::Refused("Please re-select the band or re-connect the device!");
    if (m_Rooms.factory.IsBusy())
        return Outcome::Refused("\nHalten Messung erst!");
    return m_Rooms.sources.BeReady();
}

std::optional<CalibrationProtocol> PowerCalibration::Unfinished() const {
    const Identity& identity = m_Rooms.link.identity;
    auto found = CalibrationProtocol::FindUnfinished(m_Folder, identity.Model(), identity.Serial(),
                                                     m_Rooms.working.Band());
    if (found && AsShown(static_cast<double>(found->Head().firmware)) !=
                     AsShown(static_cast<double>(identity.Firmware())))
        found.reset(); // its tables lie elsewhere now
    return found;
}

void PowerCalibration::Begin(const CalibrationPlan& plan) {
    const Identity& identity = m_Rooms.link.identity;
    CalibrationHead head{plan,
                         std::string(identity.Model()),
                         identity.Serial(),
                         identity.Firmware(),
                         m_Rooms.working.Band(),
                         m_Rooms.sources.Identity()};
    const std::filesystem::path path =
        m_Folder /
        ProtocolName(CalibrationProtocol::Kind, head.model, head.serial, head.band, m_Platform.clock.Now());
    Start({std::move(head), path});
}

void PowerCalibration::Continue(CalibrationProtocol protocol) {
    Start(std::move(protocol));
}

void PowerCalibration::Start(CalibrationProtocol protocol) {
    if (!m_Rooms.factory.Begin(ServiceWork::PowerCalibration))
        return;
    m_Protocol = std::move(protocol);
    m_Levels = LevelsOf(m_Protocol.Head().plan);
    m_PairIsOut = false;
    m_Begun = false;
    m_MsPerPoint = FirstGuessMs;
    Plan();
    m_Progress.isOn = true;
    m_Progress.isStopping = false;
    m_Progress.log.clear();
    m_WriteFailed = !m_Protocol.Save();
    if (m_WriteFailed)
        m_Tell(Outcome::Refused("Speichern file misserfolg"));
    if (m_Tasks.empty()) {
        End(Outcome::DoneWith("Calibration finished!"), CalibrationProtocol::Finished);
        return;
    }
    m_Rooms.factory.KeepCarriers(true);
    BeginTone();
    m_StepTimer.Start(CalibrationStepPeriod);
}

/// What is still to do, in order. A point that is written again takes every later one in its place with it:
/// the last of them has to stand there in the end.
void PowerCalibration::Plan() {
    using Key = std::tuple<int, int, int>; // tone, frequency, level
    std::map<Key, bool> written;
    for (const CalibrationPoint& point : m_Protocol.Points())
        written[{point.tone, point.mhz, point.dBm}] = point.state != PointState::Unconfirmed;
    const CalibrationPlan& plan = m_Protocol.Head().plan;
    const TableOwner owner = Owner();
    std::set<std::pair<int, int>> rewritten; // page, address
    m_Tasks.clear();
    m_Task = 0;
    m_Progress.total = 0;
    for (const int tone : {1, 2}) {
        if (!plan.Uses(tone))
            continue;
        for (const int mhz : FrequenciesOf(plan, tone, owner))
            for (std::size_t level = 0; level < m_Levels.size(); ++level) {
                ++m_Progress.total;
                const TablePlace place = PlaceOf(plan, owner, tone, mhz, m_Levels[level]);
                const auto found = written.find({tone, mhz, m_Levels[level]});
                const std::pair<int, int> at{place.pageHigh, place.address};
                if (found != written.end() && found->second && !rewritten.contains(at))
                    continue;
                rewritten.insert(at);
                m_Tasks.push_back({tone, mhz, level});
            }
    }
    m_Progress.done = m_Progress.total - static_cast<int>(m_Tasks.size());
}

// ----- from point to point

void PowerCalibration::BeginTone() {
    const Task& now = Now();
    CommandQueue& queue = m_Rooms.link.queue;
    if (m_Task > 0)
        queue.Append(command::Tone1Off);
    queue.Append(now.tone == 1 ? command::Tone1On : command::Tone2On);
    const CalibrationPlan& plan = m_Protocol.Head().plan;
    m_UpperRange = false;
    if (plan.powStart < UpperRange || FirmwareFrom(m_Rooms.link.identity.Firmware(), 50))
        QueuePower(plan.powStart);
    m_FirstRow = DriveRow(m_Levels);
    const int first = FrequenciesOf(plan, now.tone, Owner()).front();
    for (std::size_t level = 0; level < m_Levels.size(); ++level)
        if (const CalibrationPoint* known = m_Protocol.Find(now.tone, first, m_Levels[level]))
            m_FirstRow.Know(level, known->drive);
    m_RowIsFirst = now.mhz == first;
    QueueFrequency(true);
    BeginRow();
}

void PowerCalibration::BeginRow() {
    m_Row = m_RowIsFirst ? m_FirstRow : m_FirstRow.Neighbour();
    FirstDrive();
}

/// The search of a point begins; the level may lie in the instrument's upper range.
void PowerCalibration::FirstDrive() {
    const Task& now = Now();
    const int dBm = m_Levels[now.level];
    if (!m_UpperRange && CrossesRanges(m_Protocol.Head().plan) && dBm >= UpperRange) {
        m_UpperRange = true;
        QueuePower(UpperRange);
    }
    m_Repeated = false;
    m_Tries = 0;
    m_PointSinceMs = m_Platform.clock.TickMs();
    m_Progress.tone = now.tone;
    m_Progress.mhz = now.mhz;
    m_Progress.dBm = dBm;
    QueueDrive();
}

void PowerCalibration::QueuePower(int dBm) {
    m_Rooms.link.queue.Append(WithTenths(PowerOf(Now().tone), dBm));
}

void PowerCalibration::QueueFrequency(bool first) {
    const Task& now = Now();
    m_Rooms.link.queue.Append(WithTenths(now.tone == 1 ? command::Frequency1 : command::Frequency2, now.mhz));
    LevelSource& source = m_Rooms.sources.Current();
    if (first)
        source.BeginPoints();
    source.TuneToPoint(now.mhz * 1e6);
}

void PowerCalibration::QueueDrive() {
    g_calDrive = m_Row.Middle(Now().level);
    const std::string digits = Fixed(static_cast<double>(g_calDrive) * 1000, 0);
    m_Millivolts = std::stoi(digits);
    m_Rooms.link.queue.Append(std::string(command::Drive) + ZeroPadded(m_Millivolts, 5));
    m_Progress.drive = g_calDrive;
    if (m_Begun)
        m_StepTimer.Start(CalibrationStepPeriod); // the level settles for a whole step
}

/// End of the entries that a reading says something about: below the upper range it says nothing of that.
std::size_t PowerCalibration::LearnsTo() const {
    if (!CrossesRanges(m_Protocol.Head().plan) || m_UpperRange)
        return m_Levels.size();
    std::size_t end = 0;
    while (end < m_Levels.size() && m_Levels[end] < UpperRange)
        ++end;
    return end;
}

void PowerCalibration::OnStep() {
    if (!LineIsIdle(m_Rooms.link) || m_PairIsOut)
        return;
    if (!m_Begun) {
        m_Begun = true;
        return;
    }
    const auto reading = Read();
    if (!m_Progress.isOn || m_Progress.isStopping)
        return; // stopped while the receiver was waited for
    m_Progress.reading = reading;
    if (reading) {
        m_Tries = 0;
        TakeReading(*reading);
    } else if (++m_Tries > MostTries || m_Rooms.sources.Current().IsLost()) {
        End(Outcome::Refused("Receiver Error! \r\nCheck and do calibration again."), "receiver lost");
    }
}

std::optional<float> PowerCalibration::Read() {
    const auto reading = m_Rooms.sources.Current().ReadPoint();
    return reading && reading->IsLevel() ? std::optional(reading->Dbm()) : std::nullopt;
}

void PowerCalibration::TakeReading(float reading) {
    const Task& now = Now();
    const float level = reading + m_Protocol.Head().plan.attenuation;
    m_Row.Learn(now.level, LearnsTo(), g_calDrive, level);
    if (!m_Row.IsFound(now.level)) {
        QueueDrive();
        return;
    }
    const int target = m_Levels[now.level];
    if (!m_Row.IsAtFirstBound(now.level) || std::abs(level - static_cast<float>(target)) <= FarOff) {
        PointIsFound();
        return;
    }
    if (std::exchange(m_Repeated, true)) {
        const std::string point = std::to_string(now.mhz) + " MHz, " + std::to_string(target) + " dBm";
        End(Outcome::Refused("Der Pegel wird nicht erreicht: " + point), "level not reached");
        return;
    }
    m_Row.BeginAgain(now.level);
    QueueDrive();
}

void PowerCalibration::PointIsFound() {
    const Task& now = Now();
    const int dBm = m_Levels[now.level];
    m_Progress.log.push_back(LogLine(now.mhz, dBm, g_calDrive));
    CalibrationPoint point;
    point.tone = now.tone;
    point.mhz = now.mhz;
    point.dBm = dBm;
    point.drive = g_calDrive;
    point.reading = m_Progress.reading.value_or(0);
    point.place = PlaceOf(m_Protocol.Head().plan, Owner(), now.tone, now.mhz, dBm);
    point.value = m_Millivolts;
    WritePair(point);
}

/// High byte, then low byte; each has to be confirmed.
void PowerCalibration::WritePair(const CalibrationPoint& point) {
    m_Pair = point;
    m_PairIsOut = true;
    CommandQueue& queue = m_Rooms.link.queue;
    const auto write = [&](int page, int value, int tag) {
        const MemoryWriteCommand bytes = WriteTableByte({page, point.place.address, value}, tag);
        queue.AskEcho(bytes.text, bytes.tag, *this, bytes.payload);
    };
    queue.Append(command::InputBinary);
    queue.Append(command::Pause);
    write(point.place.pageHigh, point.value >> 8, TagTableHigh);
    queue.Append(command::Pause);
    write(point.place.pageLow, point.value & 0xff, TagTableLow);
    queue.Append(command::InputText);
    queue.Append(command::Pause);
    queue.Append(command::Pause);
}

void PowerCalibration::Answered(int tag, std::string_view reply) {
    if (!m_PairIsOut)
        return;
    if (reply.empty()) {
        m_Rooms.link.queue.Clear(); // nothing more is written
        const int page = tag == TagTableHigh ? m_Pair.place.pageHigh : m_Pair.place.pageLow;
        PairIsOver(false, PlaceText(page, m_Pair.place.address));
    } else if (tag == TagTableLow) {
        PairIsOver(true, {});
    }
}

void PowerCalibration::PairIsOver(bool confirmed, const std::string& place) {
    m_PairIsOut = false;
    m_Pair.state = confirmed ? PointState::Written : PointState::Unconfirmed;
    if (!m_Protocol.Add(m_Pair) && !std::exchange(m_WriteFailed, true))
        m_Tell(Outcome::Refused("Speichern file misserfolg"));
    if (!confirmed) {
        m_Rooms.link.queue.Append(command::InputText);
        End(Outcome::Refused("Nicht bestaetigt, Seite/Adresse: " + place), "not confirmed");
        return;
    }
    ++m_Progress.done;
    CountTime();
    if (!m_Progress.isStopping)
        NextPoint();
}

void PowerCalibration::CountTime() {
    const auto took = static_cast<double>(m_Platform.clock.TickMs() - m_PointSinceMs);
    m_MsPerPoint = (1 - NewShare) * m_MsPerPoint + NewShare * took;
    m_Progress.secondsLeft =
        static_cast<int>(std::lround(m_MsPerPoint * (m_Progress.total - m_Progress.done) / 1000));
}

void PowerCalibration::NextPoint() {
    const Task before = Now();
    if (m_RowIsFirst)
        m_FirstRow = m_Row;
    if (++m_Task == m_Tasks.size()) {
        --m_Task;
        End(Outcome::DoneWith("Calibration finished!"), CalibrationProtocol::Finished);
        return;
    }
    const Task& now = Now();
    if (now.tone != before.tone) {
        BeginTone();
    } else if (now.mhz != before.mhz) {
        m_RowIsFirst = false;
        if (CrossesRanges(m_Protocol.Head().plan)) {
            m_UpperRange = false;
            QueuePower(m_Protocol.Head().plan.powStart);
        }
        QueueFrequency(false);
        BeginRow();
    } else {
        FirstDrive();
    }
}

// ----- the end

void PowerCalibration::PressStop() {
    if (m_Progress.isOn && !m_Progress.isStopping)
        End(Outcome::Done(), "stopped");
}

void PowerCalibration::InstrumentRefuses() {
    if (m_Progress.isOn && !m_Progress.isStopping && !m_PairIsOut)
        End(Outcome::Refused("Das Geraet hat einen Befehl abgelehnt: Die Kalibrierung ist zu Ende."),
            "refused");
}

/// No further step; the carriers go off once the line is free.
void PowerCalibration::End(Outcome outcome, std::string_view how) {
    m_Ending = std::move(outcome);
    m_How = how;
    m_StepTimer.Stop();
    if (std::exchange(m_Progress.isStopping, true))
        return;
    m_ClosingSinceMs = m_Platform.clock.TickMs();
    m_CloseTimer.Start(CalibrationClosePeriod);
}

void PowerCalibration::OnClose() {
    const bool late = m_Platform.clock.TickMs() - m_ClosingSinceMs >= PairMs - CloseAgainPeriod;
    if ((m_PairIsOut || !LineIsIdle(m_Rooms.link)) && !late) {
        m_CloseTimer.Start(CloseAgainPeriod);
        return;
    }
    if (late)
        m_Rooms.link.queue.Clear();
    for (const std::string_view off : {command::Tone2Off, command::Tone1Off})
        m_Rooms.link.queue.Append(off);
    SaveEnd(m_How);
    GoIdle();
    m_Tell(m_Ending);
}

/// What was under way when the run ended is not known to be written.
void PowerCalibration::SaveEnd(std::string_view how) {
    if (std::exchange(m_PairIsOut, false)) {
        m_Pair.state = PointState::Unconfirmed;
        static_cast<void>(m_Protocol.Add(m_Pair));
    }
    if (!m_Protocol.End(how) && !std::exchange(m_WriteFailed, true))
        m_Tell(Outcome::Refused("Speichern file misserfolg"));
}

void PowerCalibration::GoIdle() {
    m_StepTimer.Stop();
    m_CloseTimer.Stop();
    m_Progress.isOn = m_Progress.isStopping = false;
    m_Progress.secondsLeft = 0;
    m_Rooms.factory.End(ServiceWork::PowerCalibration);
}

void PowerCalibration::Stop() {
    if (!m_Progress.isOn)
        return;
    SaveEnd(m_Progress.isStopping ? m_How : "stopped");
    GoIdle();
}

void PowerCalibration::ContactIsLost() {
    if (!m_Progress.isOn)
        return;
    SaveEnd("contact lost");
    GoIdle();
    m_Tell(Outcome::Refused("Der Kontakt ist verloren: Die Kalibrierung ist zu Ende."));
}

} // namespace qor
