#include "receivers/level_source.h"

#include "base/text_format.h"
#include "link/command_queue.h"
#include "receivers/receiver_access.h"

namespace qor {

namespace {

constexpr int SensorTriesInStep = 99;
constexpr double NoResult = -80.0; // dBm
constexpr std::string_view MeasureAnew = "INIT;*WAI";
constexpr std::string_view MarkerOn[] = {"CALC:MARK1 ON", MeasureAnew, "CALC:MARK:STAT ON",
                                         "CALC:MARK:TRAC 1", "CALC:MARK:MAX:AUTO ON"};

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

void ExternalSource::HoldForTones() {
    m_Access.VisaIO("INIT:CONT OFF");
}

void ExternalSource::ListenAt(double hertz) {
    Tune(hertz);
    SwitchMarkerOn();
}

void ExternalSource::PrepareForSteps() {
    HoldForTones();
    SwitchMarkerOn();
}

void ExternalSource::SwitchMarkerOn() {
    for (const std::string_view text : MarkerOn)
        m_Access.VisaIO(text);
}

void ExternalSource::Tune(double hertz) {
    m_Access.VisaIO("FREQUENCY:CENTER " + Fixed(hertz, 0) + "Hz");
}

void ExternalSource::Release() {
    m_Access.VisaIO("INIT:CONT ON");
}

std::optional<Reading> AnalyserSource::ReadInTick() {
    const Reading reading = Reading::In(m_Access.Query("CALC:MARK1:Y?"));
    m_Access.VisaIO(MeasureAnew);
    return reading;
}

std::optional<Reading> AnalyserSource::ReadInStep() {
    m_Access.VisaIO(MeasureAnew);
    return Reading::In(m_Access.Query("CALC:MARK1:Y?"));
}

std::optional<Reading> MeterSource::ReadInTick() {
    return Reading::In(m_Access.Query(m_Question));
}

std::optional<Reading> SensorSource::ReadInTick() {
    return m_Access.ReadSensor().value_or(Reading::Of(NoResult));
}

std::optional<Reading> SensorSource::ReadInStep() {
    auto reading = m_Access.ReadSensor();
    for (int tries = 1; tries < SensorTriesInStep && !reading; ++tries)
        reading = m_Access.ReadSensor();
    return reading.value_or(Reading::Of(NoResult));
}

LevelSources::LevelSources(const ReceiverState& state, ReceiverAccess& access)
    : m_State(state), m_Analyser(access), m_Nrv(access, "SENS:DATA:AMPL?"), m_OtherMeter(access, "MEAS?"),
      m_Sensor(access) {}

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
