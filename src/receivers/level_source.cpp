#include "receivers/level_source.h"

#include "base/text_format.h"
#include "link/command_queue.h"
#include "receivers/analyser_setup.h"
#include "receivers/receiver_access.h"
#include "receivers/receiver_search.h"

#include <utility>

namespace qor {

namespace {

constexpr float SensorSilence = -80; // dBm that it shows for nothing
constexpr int SensorTriesInStep = 99;
constexpr std::string_view MeasureAnew = "INIT;*WAI";
constexpr std::string_view MarkerLevel = "CALC:MARK1:Y?";

} // namespace

void InstrumentSource::Ask(CommandQueue& queue, int tag, float product) {
    queue.Append("#IMP?", tag, product);
}

void InstrumentSource::AskAgain(CommandQueue& queue, int tag, float product) {
    queue.AppendFirst("#IMP?", tag, product);
}

int InstrumentSource::StepPeriod() const {
    return 103;
}

int ExternalSource::SettleMs() const {
    return 1600;
}

int ExternalSource::StepPeriod() const {
    return 100;
}

bool ExternalSource::IsLost() const {
    return m_Access.IsLost();
}

bool ExternalSource::IsBrokenOff() const {
    return m_Access.IsBrokenOff();
}

void ExternalSource::HoldForTones() {
    m_Held = true;
    m_Access.VisaIO("INIT:CONT OFF");
}

void ExternalSource::ListenAt(double hertz) {
    Tune(hertz);
    if (!m_Access.HasFailed())
        SwitchMarkerOn();
    NoteSetUp();
}

void ExternalSource::PrepareForSteps() {
    HoldForTones();
    if (!m_Access.HasFailed())
        SwitchMarkerOn();
    NoteSetUp();
}

/// A receiver that is gone when it is made ready for a run is lost, before its first reading.
void ExternalSource::NoteSetUp() {
    if (m_Access.HasFailed() && !m_Access.UsesSensor())
        m_Access.Disown();
}

void ExternalSource::SwitchMarkerOn() {
    m_Access.Write(MarkerTail());
}

void ExternalSource::Tune(double hertz) {
    m_Hertz = hertz;
    m_Tuned = Restore() && TuneAnew();
}

bool ExternalSource::TuneAnew() {
    m_Access.VisaIO("FREQUENCY:CENTER " + Fixed(m_Hertz, 0) + "Hz");
    return m_Access.Went();
}

/// Nothing to do as long as the line has held.
bool ExternalSource::Restore() {
    if (!m_Access.WasReopened())
        return true;
    if (!m_Search.Restore())
        return false;
    HoldForTones();
    SwitchMarkerOn();
    if (m_Access.HasFailed() || !TuneAnew())
        return false;
    m_Access.Accept();
    return true;
}

void ExternalSource::Release() {
    if (std::exchange(m_Held, false) && !IsLost())
        m_Access.VisaIO("INIT:CONT ON");
}

bool ExternalSource::ListensInTick() {
    return Restore();
}

/// A step whose frequency could not be told has no reading, even where the line is well again.
bool ExternalSource::ListensInStep() {
    return Restore() && m_Tuned;
}

Reading ExternalSource::NoLevel() {
    m_Access.CountReading(false);
    return Reading::Missing();
}

Reading ExternalSource::Level(std::string_view question) {
    const auto answer = m_Access.Query(question);
    if (!answer)
        return NoLevel();
    m_Access.CountReading(true);
    return Reading::In(*answer);
}

std::optional<Reading> AnalyserSource::ReadInTick() {
    if (!ListensInTick())
        return NoLevel();
    const Reading reading = Level(MarkerLevel);
    if (!m_Access.HasFailed())
        m_Access.VisaIO(MeasureAnew);
    return reading;
}

std::optional<Reading> AnalyserSource::ReadInStep() {
    if (!ListensInStep())
        return NoLevel();
    m_Access.VisaIO(MeasureAnew);
    return m_Access.Went() ? Level(MarkerLevel) : NoLevel();
}

void AnalyserSource::BeginPoints() {
    m_Access.VisaIO(MeasureAnew);
}

void AnalyserSource::TuneToPoint(double hertz) {
    Tune(hertz);
}

std::optional<Reading> AnalyserSource::ReadPoint() {
    return ListensInStep() ? Level(MarkerLevel) : NoLevel();
}

std::optional<Reading> MeterSource::ReadInTick() {
    return ListensInTick() ? Level(m_Question) : NoLevel();
}

std::optional<Reading> MeterSource::ReadInStep() {
    return ListensInStep() ? Level(m_Question) : NoLevel();
}

std::optional<Reading> SensorSource::ReadInTick() {
    const Reading reading = m_Access.ReadSensor();
    m_Access.CountReading(!reading.IsMissing());
    return reading;
}

std::optional<Reading> SensorSource::ReadInStep() {
    const Reading reading = m_Access.ReadSensor(SensorTriesInStep);
    m_Access.CountReading(!reading.IsMissing());
    return reading;
}

std::optional<Reading> SensorSource::ReadPoint() {
    const Reading reading = m_Access.ReadSensor();
    return reading.IsLevel() && reading.Dbm() <= SensorSilence ? Reading::Missing() : reading;
}

std::optional<float> SensorSource::Floor() const {
    return -73.0f;
}

LevelSources::LevelSources(const ReceiverState& state, ReceiverAccess& access, ReceiverSearch& search)
    : m_State(state), m_Search(search), m_Analyser(access, search), m_Nrv(access, search, "SENS:DATA:AMPL?"),
      m_OtherMeter(access, search, "MEAS?"), m_Sensor(access, search) {}

Outcome LevelSources::BeReady() {
    return m_State.InstrumentListens() ? Outcome::Done() : m_Search.BeReady();
}

std::string LevelSources::Identity() const {
    return m_State.InstrumentListens() ? std::string() : m_State.Identity();
}

LevelSource& LevelSources::Current() {
    if (m_State.InstrumentListens())
        return m_Instrument;
    switch (m_State.ExternalKind()) {
    case ReceiverAnalyser:
        return m_Analyser;
    case ReceiverNrv:
        return m_Nrv;
    case ReceiverSensor:
        return m_Sensor;
    default:
        return m_OtherMeter;
    }
}

} // namespace qor
