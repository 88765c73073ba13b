// The road from the start button to the first command, from top to bottom.
#include "bands/catalogue.h"
#include "bands/records.h"
#include "base/setup_store.h"
#include "base/tenths.h"
#include "curve/curve.h"
#include "curve/readout.h"
#include "link/channel.h"
#include "link/commands.h"
#include "link/firmware.h"
#include "link/instrument_selection.h"
#include "link/inter_band_mode.h"
#include "link/link_state.h"
#include "link/working_set.h"
#include "measure/measurement.h"
#include "measure/timer_ids.h"
#include "platform/platform.h"
#include "platform/serial_control.h"
#include "receivers/level_source.h"

namespace qor {

namespace {

/// An instrument that does not take what is in force is not asked without end.
constexpr int MostTells = 2;

} // namespace

StartAnswer Measurement::Start() {
    if (m_Rooms.run.IsWaiting())
        DropStart(); // the start button pressed twice: one run begins
    if (Curve& curve = m_Rooms.curve; curve.powers.IsOn())
        curve.SetRuns(curve.powers.End(curve.limit, curve.scale));
    m_Rooms.run.Press(m_Rooms.settings);
    if (m_Platform.comm.GetPortOpen())
        return Begin();
    m_Rooms.run.Ask();
    return {Outcome::Refused({}), StartAnswer::Needs::Connection};
}

void Measurement::StartOnceConnected() {
    m_Rooms.run.WaitFor(Run::Wait::Contact);
}

void Measurement::GiveUpStart() {
    m_Rooms.run.Refuse();
}

void Measurement::InstrumentIsReady() {
    if (!m_Rooms.run.WaitsForContact())
        return;
    m_Rooms.run.DropWait();
    if (const StartAnswer answer = Begin(); !answer.outcome)
        m_Events.Tell(answer.outcome);
}

/// The port is open. Firmware that takes no start behind what is queued waits for it.
StartAnswer Measurement::Begin() {
    LinkState& link = m_Rooms.link;
    if (!IsInitialised(link))
        return {Outcome::Refused(link.chain.WaitsForChoice() ? "Auswaehlen Breite"
                                                             : "Initialisieren, bitte warten!")};
    if (Outcome ready = m_Rooms.sources.BeReady(); !ready) {
        m_Rooms.run.Refuse();
        return {std::move(ready)};
    }
    m_Channel.ForgetError(); // that of an earlier run does not condemn this one
    m_Channel.PauseStatusPoll();
    m_Events.RunIsAskedFor();
    m_Tells = 0;
    if (InstrumentDiffers()) {
        if (StartAnswer answer = BringToInstrument(); !answer.outcome)
            return GoBackToIdle(std::move(answer));
    } else if (link.queue.Empty() || StartsBehindQueue(link.identity.Firmware())) {
        return BeginFirstRun();
    }
    m_Rooms.run.WaitFor(Run::Wait::Queue);
    m_RestartTimer.Start(RestartPeriod);
    return {};
}

bool Measurement::InstrumentDiffers() const {
    const int band = m_Rooms.working.Band();
    const bool elsewhere = m_Rooms.link.position.Band() != band && !m_Instrument.Carries(band);
    return elsewhere || m_Instrument.DiffersFromInstrument();
}

/// A file that was shown has changed what is in force, and the instrument was not told: it is now, as if the
/// operator had chosen it by hand. Nothing is touched where it could not be measured anyway.
StartAnswer Measurement::BringToInstrument() {
    ++m_Tells;
    RunRecord record;
    StartAnswer answer = TakeRecord(record);
    if (answer.outcome) {
        answer.outcome = m_Instrument.BringToInstrument();
        if (!answer.outcome)
            m_Rooms.run.Refuse();
    }
    return answer;
}

/// The instrument may have refused what it was told, and another file may be shown meanwhile: it is told
/// again.
void Measurement::OnRestartTimer() {
    if (m_Tells > 0 ? !LineIsIdle(m_Rooms.link) : !m_Rooms.link.queue.Empty())
        return;
    StartAnswer answer;
    if (!InstrumentDiffers()) {
        answer = BeginFirstRun();
    } else {
        answer = m_Tells < MostTells
                     ? BringToInstrument()
                     : StartAnswer{Refuse("Das Geraet hat die Einstellungen nicht angenommen.")};
        if (answer.outcome)
            return;
        m_Rooms.run.DropWait();
        answer = GoBackToIdle(std::move(answer));
    }
    m_RestartTimer.Stop();
    if (!answer.outcome)
        m_Events.Tell(answer.outcome);
}

StartAnswer Measurement::BeginFirstRun() {
    m_Rooms.run.DropWait();
    StartAnswer answer = BeginRun();
    return m_Rooms.run.IsOn() ? answer : GoBackToIdle(std::move(answer));
}

/// The start was refused: the idle link is watched as before.
StartAnswer Measurement::GoBackToIdle(StartAnswer answer) {
    m_Events.RunIsOver();
    m_Channel.ArmStatusPoll();
    return answer;
}

/// Every run of a press: what is in force now is what it measures.
StartAnswer Measurement::BeginRun() {
    RunRecord record;
    StartAnswer answer = TakeRecord(record);
    if (!answer.outcome)
        return answer;
    if (m_Rooms.run.IsFirst())
        ClearForPress();
    TakeCorrections(record);
    if (m_Rooms.run.IsFirst() && CannotJudge(record))
        m_Events.Tell(
            Outcome::DoneWith("Der Leistungssensor hoert nichts unter -73 dBm: Bei diesem Grenzwert hat "
                              "die Messung kein Ergebnis."));
    m_Rooms.curve.tally.SetFloor(record.receiverFloor);
    m_Shape = ShapeOf(record.method);
    m_Rooms.run.Begin(std::move(record));
    m_Channel.ExpectLevels(true);
    m_Shape->Begin();
    return answer;
}

Outcome Measurement::StartReadBack(const CalibrationPlan& plan) {
    if (m_Rooms.run.IsWaiting())
        DropStart();
    if (Outcome ready = m_Rooms.sources.BeReady(); !ready)
        return ready;
    const WorkingSet& working = m_Rooms.working;
    const LinkState& link = m_Rooms.link;
    m_ReadBack.SetPlan(plan);
    m_Rooms.run.Press(m_Rooms.settings);
    m_Channel.ForgetError();
    m_Channel.PauseStatusPoll();
    RunRecord record = m_Rooms.run.Record();
    record.method = working.Method();
    record.path = working.Path();
    record.band = working.Band();
    record.imIndex = working.ImIndex();
    record.interBand.clear();
    record.plan = m_ReadBack.Tones();
    record.model = link.identity.ModelName();
    record.firmware = link.identity.Firmware();
    record.serial = link.identity.Serial();
    record.receiver = m_Rooms.sources.Identity();
    m_Rooms.working.SetBandOfRun(record.band);
    Curve& curve = m_Rooms.curve;
    curve.powers.Begin(curve.limit, curve.scale, curve.Runs(), plan.powStart, plan.powStop);
    ClearForPress();
    curve.SetRuns(static_cast<int>(m_ReadBack.Levels()));
    TakeCorrections(record);
    m_Shape = &m_ReadBack;
    m_Rooms.run.Begin(std::move(record));
    m_Shape->Begin();
    return Outcome::Done();
}

/// The receiver hears nothing where the limit lies.
bool Measurement::CannotJudge(const RunRecord& record) const {
    const Curve& curve = m_Rooms.curve;
    return curve.limit.Level() + curve.scale.Reference() < record.receiverFloor;
}

/// The one place that clears a curve for a run.
void Measurement::ClearForPress() {
    m_Events.RunBegins();
    m_Rooms.curve.Clear();
    m_Rooms.curve.ShowRun(0);
    m_Rooms.readout.ClearLevel();
    if (m_Rooms.settings.IsContinuous())
        m_Rooms.curve.WatchWorst();
}

RunShape* Measurement::ShapeOf(int method) {
    switch (method) {
    case ModeTwoTone:
        return &m_TwoTone;
    case ModeSweep:
        return &m_Sweep;
    case ModeSpectrum:
        return &m_Spectrum;
    default:
        return nullptr;
    }
}

Outcome Measurement::Refuse(const char* words) {
    m_Rooms.run.Refuse();
    return Outcome::Refused(words);
}

/// Path, band, plan, powers and method in force, or the first of them with which nothing can be measured.
StartAnswer Measurement::TakeRecord(RunRecord& record) {
    WorkingSet& working = m_Rooms.working;
    const InterBandMode& interBand = m_Rooms.interBand;
    record = m_Rooms.run.Record(); // a band without a receive loss of its own keeps that of the last run
    record.method = working.Method();
    record.path = working.Path();
    if (record.path != 1 && record.path != 2)
        return {Refuse("Auswaehlen Uebergeben modell oder reflex modell.")};

    record.band = working.Band();
    working.SetBandOfRun(record.band);
    const BandInfo* band = FindBand(record.band);
    if (!band || band->reportText.empty() || (interBand.IsOn() && !InterBandChoiceOf(record.band)))
        return {Refuse("Auswaehlen Breite")};
    if (interBand.IsOn()) {
        if (!InterBandFits(interBand.Plan(), record.band)) {
            m_Rooms.run.Refuse();
            return {Outcome::Refused("Falsch, dichtesortierung."), StartAnswer::Needs::InterBandPlan};
        }
        // A result shown since, or a band that knows one order only, has put another order there.
        working.SelectOrder(InterBandIndex);
        working.SetPlan(interBand.Plan());
        working.SetCoefficients(InterBandCoefficients(interBand.Order()));
        record.order = interBand.Order();
    } else if (Outcome taken = TakePlan(*band, record); !taken) {
        return {std::move(taken)};
    }
    record.interBand = interBand.IsOn() ? interBand.RxBand() : std::string();
    record.imIndex = working.ImIndex();
    record.plan = working.Plan();
    record.product = working.Coefficients();
    if (record.method == ModeSpectrum) { // always IM3, whatever order is chosen for the other methods
        record.order = 3;
        record.product = {2, 1};
    }

    record.power = ReadPowerStore(m_Store, band->prefix);
    working.SetPower(record.power);
    if (Outcome fits = m_Instrument.PowersFit(); !fits && !interBand.IsOn()) { // between bands none is added
        m_Rooms.run.Refuse();
        return {std::move(fits)};
    }
    record.model = m_Rooms.link.identity.ModelName();
    record.firmware = m_Rooms.link.identity.Firmware();
    record.serial = m_Rooms.link.identity.Serial();
    record.receiver = m_Rooms.sources.Identity();
    if (!ShapeOf(record.method) || (interBand.IsOn() && record.method == ModeSpectrum))
        return {Refuse("Auswaehlen Messung modell")};
    return {};
}

/// The losses in force, once a file that was shown has gone.
void Measurement::TakeCorrections(RunRecord& record) const {
    const WorkingSet& working = m_Rooms.working;
    record.rxLoss = working.Port2Loss();
    if (const BandInfo* band = FindBand(record.band); band && band->lossField >= 0)
        record.bandRxLoss = working.RxLosses()[static_cast<std::size_t>(band->lossField)];
    const auto floor = m_Rooms.sources.Current().Floor();
    record.receiverFloor = floor ? *floor + record.rxLoss + record.bandRxLoss : RunRecord().receiverFloor;
    record.powerOffset = working.PowerOffset();
    record.carrier = m_Rooms.curve.scale.Carrier();
}

/// The plan of an ordinary order: the operator's where he has one, else the built-in one of a start.
Outcome Measurement::TakePlan(const BandInfo& band, RunRecord& record) {
    WorkingSet& working = m_Rooms.working;
    const int imIndex = working.ImIndex();
    working.SetStep(1.0f);
    const auto builtIn = StartPlan(band.number, imIndex, working.Bridge());
    const bool fewOrders = band.number == BandTetra390 || band.number == BandTetra392 ||
                           band.number == BandLte700L || band.number == BandLte700U;
    if (!builtIn && fewOrders)
        return Outcome::Refused("Does not support the current selection!");
    if (imIndex < 1 || imIndex > 5)
        return Refuse("Auswaehlen IM");
    if (builtIn)
        working.SetPlan(*builtIn);
    const auto wanted = OperatorsPlan(working, m_Store, band.number, imIndex);
    if (band.number == BandTdScdmaA)
        working.SetTones(wanted->f1, wanted->f2);
    else if (wanted)
        working.SetPlan(*wanted);
    working.SetCoefficients(CoefficientsOf(imIndex));
    record.order = OrderOf(imIndex);
    return Outcome::Done();
}

/// Selects the band again at a press, unless the installation is marked as having one port only and the
/// firmware keeps the band.
std::string_view Measurement::BandCommand() const {
    const std::string info = m_Store.Read("Install_info.ccz", 7).value_or("");
    const bool onePort = info.size() > 2 && WholeNumberIn(std::string_view(info).substr(2)) == 0;
    if (!m_Rooms.run.IsFirst() || (onePort && KeepsBand(m_Rooms.link.identity.Firmware())))
        return {};
    return m_Rooms.link.position.Command();
}

StartSituation Measurement::Situation() const {
    const RunRecord& record = m_Rooms.run.Record();
    const LinkState& link = m_Rooms.link;
    StartSituation at;
    at.firmware = link.identity.Firmware();
    at.internal = m_Rooms.sources.Current().AnswersOverTheLine();
    at.handsOver = !at.internal && link.given.Receiver() != command::ExternalReceiver;
    at.prepared = link.chain.IsPrepared();
    at.transmission = record.path == 2;
    at.firstRun = m_Rooms.run.IsFirst();
    at.bandCommand = BandCommand();
    at.runIndex = m_Rooms.curve.Run();
    at.rested = m_Rooms.settings.Interval() > 0;
    at.saEnclosed = m_Rooms.settings.IsSaEnclosed();
    if (!record.interBand.empty())
        at.interBandPower = record.power;
    at.band = record.band;
    at.plan = record.plan;
    at.product = record.product;
    return at;
}

} // namespace qor
