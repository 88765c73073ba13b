#include "apps/measure/job.h"

#include "bands/catalogue.h"
#include "base/atomic_write.h"
#include "base/text_format.h"
#include "desk/panel.h"
#include "desk/shown_page.h"
#include "platform/serial_control.h"
#include "tools/comment.h"

#include <algorithm>

namespace qor::app {

namespace {

constexpr int LookPeriodMs = 50;
/// An instrument that is there says who it is well before this.
constexpr int IdentityLimitMs = 12000;
/// The last commands of a run are answered well before this.
constexpr int DrainLimitMs = 3000;

const char* ErrorWords(const RunFacts& facts) {
    switch (facts.error) {
    case 2:
        return "ERR0 - SYNTAX ERROR";
    case 3:
        return "ERR1 - Parameter out of limits.";
    default:
        return "ERR2 - PLL not locket.";
    }
}

std::string PortsOf(const Options& options) {
    std::string text;
    for (const std::string& port : options.ports)
        text += (text.empty() ? "" : " or ") + port;
    return text;
}

std::string PointsOf(const RunFacts& facts) {
    return std::to_string(facts.taken) + " of " + std::to_string(facts.asked) + " points";
}

} // namespace

Job::Job(Program& program, const Options& options, Console& console, const WireLog& wire,
         std::function<bool()> stopAsked, std::function<void()> finished)
    : m_Program(program), m_Commands(program, m_Dialogs), m_Options(options), m_Console(console),
      m_Wire(wire), m_StopAsked(std::move(stopAsked)), m_Finished(std::move(finished)) {
    QObject::connect(&m_Timer, &QTimer::timeout, [this] { Look(); });
    QObject::connect(&m_CallTimer, &QTimer::timeout, [this] {
        if (m_Program.IsInCall()) // which the other timer may have begun, and waits for
            Look();
    });
}

void Job::Start() {
    m_Since.start();
    m_InPhase.start();
    m_Program.Start(true);
    ApplySettings();
    if (!m_Options.logo.empty()) {
        if (const Outcome logo = m_Program.Reports().UseLogo(m_Options.logo); !logo)
            return Finish(BadRequest, logo.Text());
    }
    m_Program.SearchNow();
    m_Timer.start(LookPeriodMs);
    m_CallTimer.start(LookPeriodMs);
}

/// Settings of the call that need no instrument.
void Job::ApplySettings() {
    Session& session = m_Program.State();
    Curve& curve = session.curve;
    if (m_Options.seconds)
        curve.SetLength(*m_Options.seconds * 1000);
    curve.SetRuns(m_Options.runs);
    session.runs.SetInterval(m_Options.interval);
    if (m_Options.limitDbm) {
        curve.limit.Take(*m_Options.limitDbm - curve.scale.Reference());
    }
    if (m_Options.comment)
        session.results.device.CommentOfCall(StoredComment(*m_Options.comment));
    if (m_Options.deviceSerial)
        session.results.device.EnterSerial(*m_Options.deviceSerial);
    if (m_Options.reportLanguage)
        m_Program.Reports().UseLanguage(*m_Options.reportLanguage);
}

double Job::ExpectedSeconds() const {
    const Session& session = m_Program.State();
    double run = session.curve.Length() / 1000.0;
    if (m_Options.method != ModeTwoTone) {
        const auto plan = DefaultPlan(m_Options.band, m_Options.imIndex, 1);
        const double span =
            plan ? static_cast<double>(plan->f1Stop - plan->f1Start + plan->f2Start - plan->f2Stop) : 0;
        run = 5.0 + 0.15 * span / (plan ? static_cast<double>(plan->step) : 1.0);
        run = run * m_Options.runs + (m_Options.interval + 1.0) * (m_Options.runs - 1);
    }
    return run + m_Options.idleSeconds + 5.0;
}

bool Job::ContactWasLost() const {
    return m_Program.State().link.connection.Losses() != m_LossesAtStart;
}

double Job::TimeLimit() const {
    return m_Options.timeoutSeconds ? *m_Options.timeoutSeconds : 3.0 * ExpectedSeconds() + 60.0;
}

/// By a signal, or because its time is up.
bool Job::IsToEnd() const {
    return m_StopAsked() || static_cast<double>(m_Since.elapsed()) > TimeLimit() * 1000.0;
}

void Job::Look() {
    if (m_Program.IsInCall()) { // a receiver is waited for
        if (IsToEnd())
            m_Program.GiveCallUp(RunEnd::CutShort);
        return;
    }
    if (m_Phase != Phase::Exit && m_Phase != Phase::Drain && IsToEnd())
        return Finish(NoInstrument, m_StopAsked() ? "Interrupted before the measurement was complete."
                                                  : "The time of " + Fixed(TimeLimit(), 0) +
                                                        " s was up before the measurement was complete.");
    TellDamaged();
    TellNoPosition();
    switch (m_Phase) {
    case Phase::Search:
        return LookForInstrument();
    case Phase::Idle:
        return WaitIdle();
    case Phase::Select:
        return Choose();
    case Phase::Settle:
        return Settle();
    case Phase::Measure:
        return Watch();
    case Phase::Drain:
        return Drain();
    case Phase::Exit:
        return;
    }
}

/// A line for each store that counts as none, as soon as it is found so.
void Job::TellDamaged() {
    for (const std::string& name : m_Program.Stores().Damaged()) {
        if (m_ToldDamaged.insert(name).second)
            m_Console.Notice((m_Options.dataDirectory / name).string() + ": damaged, counts as none.");
    }
}

/// A measurement is made all the same: the device may be connected directly.
void Job::TellNoPosition() {
    const SwitchUnitState& unit = m_Program.State().link.unit;
    if (!unit.LacksPosition() || unit.Band() == m_ToldNoPosition)
        return;
    m_ToldNoPosition = unit.Band();
    m_Console.Notice("The band switch unit has no position for " + unit.Band() + ".");
}

/// Several ports, and nobody at a list of them: the one that is not the band switch unit's is the
/// instrument's.
void Job::ChoosePort() {
    ConnectionState& connection = m_Program.State().link.connection;
    const std::vector<PortEntry>& ports = connection.Ports();
    const auto isOther = [](const PortEntry& port) { return !port.isUnit; };
    if (!connection.AwaitsChoice() || m_Program.Parts().comm.GetPortOpen())
        return;
    if (std::count_if(ports.begin(), ports.end(), isOther) != 1)
        return Finish(NoInstrument, "No band switch unit answers on " + PortsOf(m_Options) + ".");
    connection.Choose(std::find_if(ports.begin(), ports.end(), isOther)->text);
    m_Program.Link().OnButton1();
}

void Job::LookForInstrument() {
    const LinkState& link = m_Program.State().link;
    ChoosePort();
    if (m_Phase == Phase::Exit)
        return;
    if (link.identity.Model().empty() && m_InPhase.elapsed() > IdentityLimitMs)
        return Finish(NoInstrument, "No instrument answers" +
                                        (m_Options.ports.empty() ? "" : " on " + PortsOf(m_Options)) +
                                        ". Is it switched on and is this its port?");
    if (!m_Program.IsReady())
        return;
    m_LossesAtStart = link.connection.Losses();
    m_InPhase.restart();
    m_Phase = Phase::Idle;
    if (m_Options.idleSeconds > 0)
        m_Program.ArmStatusPoll();
}

void Job::WaitIdle() {
    if (ContactWasLost())
        m_LossesAtStart =
            m_Program.State().link.connection.Losses(); // it is identified in full when it is found again
    const bool over = m_InPhase.elapsed() >= qint64{m_Options.idleSeconds} * 1000;
    if (over && m_Program.IsReady())
        m_Phase = Phase::Select;
}

void Job::Choose() {
    if (m_Options.external) {
        const Outcome ready = m_Program.Receiver().UseExternalNow(m_Options.receiverAddress);
        if (IsToEnd())
            return; // the next look ends it, with the reason
        if (!ready)
            return Finish(NoInstrument, ready.Text());
    }
    const Outcome selected = SelectAll();
    if (!selected)
        return Finish(BadRequest, selected.Text().empty() ? "This instrument does not carry the selection."
                                                          : selected.Text());
    m_Phase = Phase::Settle;
}

Outcome Job::SelectAll() {
    Session& session = m_Program.State();
    const std::string band(BandText(m_Options.band));
    if (session.working.Band() == m_Options.band && m_Program.Instrument().StandsElsewhere())
        static_cast<void>(m_Program.Instrument().SelectBand(m_Options.band));
    if (session.working.Band() != m_Options.band && !m_Commands.Try("band", m_Options.band)) {
        return Outcome::Refused("Band " + band + " is not carried by " + session.link.identity.ModelName() +
                                " with firmware " +
                                Fixed(static_cast<double>(session.link.identity.Firmware()), 1) + ".");
    }
    const bool fixedTones = m_Options.band == BandTdScdmaA;
    const bool hasOrder =
        fixedTones ? m_Options.imIndex == 1
                   : StartPlan(m_Options.band, m_Options.imIndex, session.working.Bridge()).has_value();
    if (!hasOrder || (fixedTones && m_Options.method != ModeTwoTone)) {
        return Outcome::Refused("Band " + band + " has no IM" + std::to_string(OrderOf(m_Options.imIndex)) +
                                " measurement by this method.");
    }
    if (session.working.ImIndex() != m_Options.imIndex) {
        if (Outcome order = m_Commands.Try("order", m_Options.imIndex); !order)
            return order;
    }
    if (Outcome path = m_Commands.Try("path", m_Options.path); !path)
        return path;
    if (session.curve.scale.InDbc() != m_Options.dbc) {
        if (Outcome unit = m_Commands.Try("unit"); !unit)
            return unit;
    }
    return m_Commands.Try("method", m_Options.method); // a spectrum begins with its choice
}

/// The choice has to be with the instrument before the run begins.
void Job::Settle() {
    Session& session = m_Program.State();
    if (ContactWasLost())
        return Finish(NoInstrument, "Contact with the instrument was lost.");
    if (session.run.IsOn() || session.run.IsWaiting()) {
        m_Phase = Phase::Measure;
        return;
    }
    if (!m_Program.LineIsIdle())
        return;
    if (const RunFacts facts = MeasuredFacts(session); facts.error != 0)
        return Finish(InstrumentError, ErrorWords(facts));
    if (const Outcome started = m_Commands.Try("start_stop"); !started)
        return Finish(m_Options.external && !session.receiver.IsThere() ? NoInstrument : BadRequest,
                      started.Text());
    m_Phase = Phase::Measure;
}

void Job::Watch() {
    const Session& session = m_Program.State();
    const RunFacts facts = MeasuredFacts(session);
    if (ContactWasLost())
        return Finish(NoInstrument, "Contact with the instrument was lost after " + PointsOf(facts) + ".");
    if (facts.error != 0)
        return Finish(InstrumentError, ErrorWords(facts));
    if (session.run.IsWaiting())
        return;
    if (session.run.StartFail() != StartDone)
        return Finish(BadRequest, "The start was refused.");
    if (session.run.IsOn() && session.working.Method() == ModeSpectrum && session.run.Passes() > 0)
        EndSpectrum();
    if (!session.run.IsOn()) {
        m_InPhase.restart();
        m_Phase = Phase::Drain;
        return;
    }
    const Panel panel = PanelOf(session);
    m_Console.ShowProgress("now " + panel.m_ReadingText + ", worst " + panel.m_WorstLevelText + " " +
                           panel.unit);
}

/// It would repeat until stopped: one pass is one measurement, if it has every level.
void Job::EndSpectrum() {
    if (MeasuredFacts(m_Program.State()).IsComplete())
        m_Program.StopMeas();
    else
        m_Program.CutRunShort();
}

void Job::Drain() {
    if (!m_Program.LineIsIdle() && !ContactWasLost() && m_InPhase.elapsed() < DrainLimitMs && !IsToEnd())
        return;
    const RunFacts facts = MeasuredFacts(m_Program.State());
    const Verdict verdict = Judge(facts);
    if (verdict == Verdict::Error)
        return Finish(InstrumentError, ErrorWords(facts));
    m_Console.EndProgress();
    if (facts.taken > 0 || verdict != Verdict::None) // without a level there is nothing to file
        SaveFiles();
    if (!m_Outcome.message.empty())
        return Finish(FileFailed, m_Outcome.message);
    if (verdict != Verdict::None)
        return Finish(verdict == Verdict::Passed ? Passed : LimitExceeded);
    Finish(NoInstrument, WhyNoVerdict(facts));
}

std::string Job::WhyNoVerdict(const RunFacts& facts) const {
    if (m_Options.external && !m_Program.State().receiver.IsThere())
        return "The receiver was lost before the measurement was complete.";
    if (facts.limit < static_cast<double>(facts.floor))
        return "No verdict: the receiver hears nothing below " + Fixed(static_cast<double>(facts.floor), 1) +
               " dBm, and the limit lies at " + Fixed(facts.limit, 1) + " dBm.";
    return "No verdict: " + PointsOf(facts) + " could be read.";
}

void Job::SaveFiles() {
    for (const std::filesystem::path& path : m_Options.out) {
        if (const Outcome saved = Save(path); saved)
            m_Outcome.files.push_back(path.string());
        else
            m_Outcome.message += (m_Outcome.message.empty() ? "" : "\n") + saved.Text();
    }
}

Outcome Job::Save(const std::filesystem::path& path) {
    if (ReportMaker::IsPageFile(path))
        return SaveShownPage(m_Program, path, WorkingFiles::None);
    return m_Program.Files().DataSave(path);
}

/// What was on the line when contact was lost, beside the stores.
void Job::KeepWire() {
    const std::filesystem::path path = m_Options.dataDirectory / "lost_contact.wire";
    if (WriteAtomically(path, m_Wire.Recent()).empty())
        m_Outcome.message += " The last transfers are in " + path.string() + ".";
}

void Job::Finish(ExitStatus status, std::string message) {
    m_Console.EndProgress();
    if (m_Program.State().run.IsOn())
        m_Program.CutRunShort();
    m_Outcome.status = status;
    m_Outcome.message = std::move(message);
    if (status == NoInstrument && m_Program.State().link.connection.Losses() > 0)
        KeepWire();
    // A level over the limit has been seen, whatever came afterwards.
    if (status == NoInstrument && Judge(MeasuredFacts(m_Program.State())) == Verdict::Failed)
        m_Outcome.status = LimitExceeded;
    if (!m_Outcome.message.empty())
        m_Console.Message(m_Outcome.message);
    m_Phase = Phase::Exit;
    m_Program.SetQuit([this](int) { OnLeft(); });
    m_Program.Leave();
}

void Job::OnLeft() {
    m_Timer.stop();
    m_CallTimer.stop();
    if (m_Program.State().link.carriers.MayBeOn()) {
        const std::string words =
            "The carriers may be on: the instrument has not confirmed that they are off.";
        m_Outcome.message += (m_Outcome.message.empty() ? "" : " ") + words;
        m_Console.Message(words);
        if (m_Outcome.status == Passed)
            m_Outcome.status = NoInstrument;
    }
    m_Finished();
}

} // namespace qor::app
