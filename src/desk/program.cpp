#include "desk/program.h"

#include "base/text_format.h"
#include "curve/curve.h"
#include "desk/band_plot.h"
#include "desk/dbc_reference.h"
#include "desk/guards.h"
#include "desk/replace.h"
#include "desk/restore.h"
#include "desk/setup/path_loss.h"
#include "desk/startup.h"
#include "desk/tell.h"
#include "link/commands.h"
#include "platform/launcher.h"
#include "platform/operator.h"
#include "platform/serial_control.h"
#include "platform/timers.h"
#include "platform/visa.h"
#include "tools/side_tool.h"

namespace qor {

namespace {

constexpr int QuitCode = 16;
/// Ticks of the closing timer after which what waits is dropped: an instrument that is gone must not keep the
/// program from ending.
constexpr int LongestClose = 7;

} // namespace

Program::Program(const Platform& platform, std::filesystem::path dataDirectory)
    : m_Platform(platform), m_RestoreWasBroken(TakeBackBrokenRestore(dataDirectory)),
      m_Store(std::move(dataDirectory)), m_Receiver(m_Store, platform.clock, platform.visa, platform.sensor),
      m_ReceiverSearch(m_Session.receiver, m_Receiver, m_Store),
      m_Files({m_Session.run, m_Session.curve, m_Session.working, m_Session.results}, m_Platform.clock,
              m_Store),
      m_Reports(platform.pictures, m_Store),
      m_Series(m_Platform.timers, m_Platform.user, m_Reports), m_Line{m_Platform.comm, m_Platform.ports,
                                                                      m_Platform.timers, m_Platform.clock},
      m_RunMark(m_Store.Directory()), m_SwitchUnit(m_Session.link, m_Line, *this),
      m_Channel(m_Session.link, m_Line, m_SwitchUnit, m_RunMark, *this, *this),
      m_Activation(m_Session.working, m_Session.link.queue, m_Store),
      m_Init(m_Session.link, m_Session.working, m_Channel, m_Activation, m_Line, *this, *this),
      m_Connection(m_Session.link, m_Session.working, m_Line, m_Channel, m_Init, *this, *this),
      m_Instrument(m_Session.link, m_Session.working, m_Platform.comm, m_Channel, m_Init, *this),
      m_FileSettings(m_Session, m_Platform, m_Store, m_Instrument),
      m_Show(m_Session, m_Store, m_FileSettings), m_List(m_Session, m_Platform, m_Store, m_Files, m_Show),
      m_Sources(m_Session.receiver, m_Receiver, m_ReceiverSearch),
      m_Measurement({m_Session.run, m_Session.runs, m_Session.working, m_Session.interBand, m_Session.link,
                     m_Session.curve, m_Session.readout, m_Sources},
                    m_Platform, m_Store, m_Channel, m_Instrument, *this),
      m_StartButton(m_Session, m_Platform, m_Measurement, m_Connection),
      m_Fatigue({m_Session.factory, m_Session.working, m_Session.run, m_Session.curve, m_Session.link},
                m_Platform.timers, m_Platform.clock, m_Store.Directory(),
                {[this] { return PressForTest(); }, [this] { DropStart(); },
                 [this](const Outcome& outcome) { Tell(outcome); }}),
      m_Selection(m_Session, m_Platform, m_Store, m_Instrument, m_Connection),
      m_AutoSaver(*this, m_Channel,
                  [this] { m_Fatigue.IsOn() ? m_Fatigue.PressAfterSaving() : OnMeasButton(); }),
      m_ReceiverDesk(m_Session, m_Platform, m_Store, m_Receiver, m_ReceiverSearch, m_Instrument),
      m_ServiceDesk(m_Session, m_Platform, m_Store, m_Channel, m_Connection, m_Measurement),
      m_Calibrations(m_Session, m_Platform, m_Store, m_Sources, m_Measurement, m_ServiceDesk,
                     [this](const Outcome& outcome) { Tell(outcome); }),
      m_CloseTimer(m_Platform.timers, CloseQOR, [this] { OnCloseTimer(); }),
      m_CallTimer(m_Platform.timers, AfterCallTimer, [this] { AfterCall(); }) {
    m_ServiceDesk.Join(m_Fatigue);
    WindowTimers& timers = m_Platform.timers;
    timers.OnTick(MarkerTimer, [this] { m_Session.markers.OnMarkerTimer(m_Session.run.IsOn()); });
    for (const int timer : BeepTimers)
        timers.OnTick(timer, [this, timer] { m_Session.alarm.OnTimer(timer, m_Platform); });
    m_Platform.comm.SetHandler([this] { m_Channel.OnComm(); });
    if (m_Platform.visa)
        m_Platform.visa->SetWhileWaiting([this] { WhileCallWaits(); });
    if (m_Platform.sensor)
        m_Platform.sensor->SetWhileWaiting([this] { WhileCallWaits(); });
}

Program::~Program() {
    m_Platform.timers.OnTick(MarkerTimer, {});
    for (const int timer : BeepTimers)
        m_Platform.timers.OnTick(timer, {});
    m_Platform.comm.SetHandler({});
    if (m_Platform.visa)
        m_Platform.visa->SetWhileWaiting({});
    if (m_Platform.sensor)
        m_Platform.sensor->SetWhileWaiting({});
}

void Program::Start(bool keepLastSession) {
    if (!keepLastSession)
        ForgetLastSession(m_Store);
    LoadStores(m_Session, m_Store);
    m_Channel.LookForOldMark();
    m_Connection.Begin();
    m_Platform.timers.SetTimer(MarkerTimer, MarkerPeriod);
    if (m_RestoreWasBroken)
        m_Platform.user.Message("Eine unterbrochene Wiederherstellung wurde zurueckgenommen.");
}

void Program::WhileCallWaits() {
    if (m_Leaving)
        m_Receiver.BreakOff(); // what is said on the way out is heard at once or not at all
    if (m_InCall || m_Leaving)
        return;
    m_InCall = true;
    m_Platform.timers.Hold(true);
    m_Platform.comm.Hold(true);
    m_CallTimer.Start(AfterCallPeriod);
    m_Platform.user.LetLive();
    m_Platform.timers.Hold(false);
    m_InCall = false;
}

void Program::GiveCallUp(RunEnd how) {
    m_Measurement.EndCallAs(how);
    m_Channel.SwitchOffNow();
    m_Receiver.BreakOff();
}

/// A tick: the handler that waited has come back.
void Program::AfterCall() {
    m_CallTimer.Stop();
    m_Receiver.Resume();
    m_Platform.comm.Hold(false);
    if (std::exchange(m_LeaveHeld, false))
        Leave();
}

void Program::SearchNow() {
    m_Connection.OnSearchTimer();
}

void Program::BeforeSend() {
    m_ServiceDesk.BeforeSend();
    m_Measurement.BeforeSend();
}

void Program::AbandonRun() {
    m_ServiceDesk.ContactIsLost();
    m_Measurement.Abandon();
}

Outcome Program::PressStart() {
    if (m_Session.run.IsOn() && m_Fatigue.IsOn()) {
        m_Fatigue.Stop(); // its next press would start again
        return Outcome::Done();
    }
    if (m_Session.factory.IsBusy() && !m_Session.run.IsOn())
        return Outcome::Refused("\nHalten Messung erst!");
    return PressForTest();
}

Outcome Program::PressForTest() {
    if (m_InCall) {
        if (m_Session.run.IsOn())
            GiveCallUp(RunEnd::Stopped);
        return Outcome::Refused({});
    }
    if (m_AutoSaver.IsBusy() && !m_Session.run.IsOn()) {
        m_AutoSaver.StartAfterwards();
        return Outcome::Done();
    }
    if (Outcome free = NothingIsSaved(*this); !free)
        return free;
    return MayWriteSeries() ? m_StartButton.Press() : Outcome::Refused({});
}

bool Program::LineIsIdle() const {
    return qor::LineIsIdle(m_Session.link);
}

bool Program::IsReady() const {
    const LinkState& link = m_Session.link;
    return m_Platform.comm.GetPortOpen() && link.chain.IsPastBand() && link.chain.IsReady() && LineIsIdle();
}

void Program::ErrorReply(InstrumentError error) {
    constexpr int First = 2; // of the numbers under which they are known
    m_Session.curve.tally.NoteError(First + static_cast<int>(error));
    m_Calibrations.InstrumentRefuses();
}

void Program::ReplyTime(int ms) {
    if (m_Session.curve.ReplyTime() == 0)
        m_Session.curve.NoteReplyTime(ms);
}

void Program::BandActivated(bool byOperator) {
    m_Calibrations.FillFields();
    // A run that a lost line cut short can still be saved.
    if (byOperator || !m_Session.curve.HoldsPoints())
        ShowWorkingSet(m_Session);
    if (!m_Session.curve.IsFromFile()) // a file has a reference of its own
        FollowBandPower(m_Session, m_Platform, m_Store);
}

void Program::Initialised() {
    // The grid of the band stays, the empty plot has its axis from it; and so does a run cut short by a lost
    // line.
    if (!m_Session.curve.HoldsPoints())
        m_Session.curve.Clear();
    m_Measurement.InstrumentIsReady();
    m_ServiceDesk.Initialised();
}

void Program::Tell(const Outcome& outcome) {
    static_cast<void>(qor::Tell(outcome, m_Platform.user));
}

/// The losses the operator has set are in force again behind a shown file.
void Program::RunBegins() {
    if (!m_Session.factory.IsBusy())
        m_Session.factory.KeepCarriers(false); // what a free command has switched on is the run's now
    RestorePathLoss(m_Session, m_Store);
    m_Session.results.loaded.Clear();
    FollowBandPower(m_Session, m_Platform, m_Store);
    m_Session.markers.Clear();
    if (m_Session.working.Method() == ModeTwoTone)
        m_Session.markers.ForgetCurves();
    m_RunHasBegun = !m_Session.curve.powers.IsOn(); // powers read back are no result
}

void Program::RunIsOver() {
    if (m_RunHasBegun)
        m_Fatigue.RunIsOver();
    AlarmState::End(m_Platform);
    if (std::exchange(m_RunHasBegun, false))
        m_AutoSaver.RunHasEnded();
    const LevelSource& source = m_Sources.Current();
    if (source.IsLost() || !source.IsHeld()) // else it shows when it is released
        m_ReceiverDesk.NoteLoss();
}

/// The run that has just ended becomes the next numbered file of the series, and stands in the list. Whether
/// files that are there may go was asked at the press.
bool Program::SaveNumbered() {
    const std::filesystem::path path = NumberedFile(m_Session.results.list.NextNumber());
    if (!qor::Tell(m_Files.DataSave(path), m_Platform.user))
        return false;
    m_List.AddNumbered(path);
    return true;
}

std::filesystem::path Program::NumberedFile(int number) const {
    return m_Session.results.autoSave.NumberedFile(number, m_Session.working.Method() == ModeTwoTone,
                                                   m_Store.Directory());
}

/// Both carriers are off yet: no question stands under them.
bool Program::MayWriteSeries() const {
    const RunSettings& runs = m_Session.runs;
    if (m_Session.run.IsOn() || !runs.IsContinuous() || runs.ReplacesData() ||
        m_Session.working.Method() == ModeSpectrum)
        return true;
    const int times = runs.ContinuousTimes();
    const int count = times == 0 ? ResultList::Length : std::min(times, ResultList::Length);
    for (int number = 0; number < count; ++number) {
        const std::filesystem::path path = NumberedFile(number);
        std::error_code ignored;
        if (std::filesystem::exists(path, ignored))
            return MayReplace(m_Platform.user, path); // one answer for all of them
    }
    return true;
}

Outcome Program::OnExitButton() {
    if (!RunIsOff(m_Session))
        return Outcome::Refused("Sich?\nHalten Messung erst!");
    if (m_Leaving || !m_Platform.user.Ask("Sich?", "Sich"))
        return Outcome::Refused({});
    Leave();
    return Outcome::Done();
}

bool Program::Restart(bool keepSession) {
    if (!RunIsOff(m_Session) || !m_Platform.launcher)
        return false;
    m_Platform.launcher->RestartAfterEnd(keepSession);
    Leave();
    return true;
}

void Program::Leave() {
    if (m_Leaving)
        return;
    if (m_InCall) {
        m_LeaveHeld = true;
        GiveCallUp(RunEnd::CutShort);
        return;
    }
    m_Leaving = true;
    m_Measurement.Abandon(); // a run of a service page, too, was not stopped by the operator
    m_Series.End();
    m_Channel.TakeLineBack();
    m_Connection.StopSearch();
    m_Init.Abort();
    m_ServiceDesk.Leave();
    m_Measurement.Abandon(); // one that waited for its turn or for the instrument, too
    m_AutoSaver.WaitForEnd();
    m_Channel.PauseStatusPoll();
    m_ReceiverDesk.Leave();
    if (m_Platform.launcher)
        m_Platform.launcher->CloseStarted();
    if (m_Platform.comm.GetPortOpen() && IsOurPort(m_Session.link))
        m_Channel.Start(); // a question that is open has stopped it, and what waits is to drain
    m_CloseTicks = 0;
    m_CloseTimer.Start(ClosePeriod);
}

/// Waits for the queue, switches the carriers off, and ends, whatever the line does.
void Program::OnCloseTimer() {
    CMSComm& comm = m_Platform.comm;
    LinkState& link = m_Session.link;
    ++m_CloseTicks;
    const bool isOurs = IsOurPort(link);
    if (!m_CarriersOff && isOurs && !comm.GetPortOpen()) {
        comm.SetPortOpen(true); // closed by hand: the instrument may still be carrying
        link.chain.Abort();     // its echoes begin no new chain
    }
    if (!comm.GetPortOpen() || !isOurs) {
        Quit();
    } else if (m_CloseTicks >= LongestClose) {
        m_Channel.SwitchOffAtEnd();
        Quit();
    } else if (LineIsIdle()) {
        if (m_CarriersOff) {
            Quit();
            return;
        }
        m_CarriersOff = true;
        link.queue.Append(command::Tone2Off);
        link.queue.Append(command::Tone1Off);
        m_Channel.Start();
    }
}

void Program::Quit() {
    m_Channel.SwitchOffNow();
    m_SwitchUnit.ResetMpx();
    m_Platform.timers.KillAll();
    m_Platform.comm.SetPortOpen(false);
    m_AutoSaver.SaveAtEnd(); // painting takes its time: the carriers are off by now
    m_Receiver.Close();
    RemoveSideTool(m_Store);
    if (m_Quit)
        m_Quit(QuitCode);
}

} // namespace qor
