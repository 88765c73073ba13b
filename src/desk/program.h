#pragma once

#include "base/setup_store.h"
#include "curve/markers.h"
#include "desk/auto_saver.h"
#include "desk/calibration_desk.h"
#include "desk/file_settings.h"
#include "desk/file_show.h"
#include "desk/list_panel.h"
#include "desk/receiver_desk.h"
#include "desk/selection.h"
#include "desk/service_desk.h"
#include "desk/session.h"
#include "desk/start_button.h"
#include "link/band_activation.h"
#include "link/channel.h"
#include "link/connection.h"
#include "link/initialisation.h"
#include "link/instrument_selection.h"
#include "link/run_control.h"
#include "link/run_mark.h"
#include "link/switch_unit.h"
#include "measure/measurement.h"
#include "platform/platform.h"
#include "platform/timers.h"
#include "receivers/level_source.h"
#include "receivers/receiver_access.h"
#include "receivers/receiver_search.h"
#include "results/page_series.h"
#include "results/result_files.h"
#include "service/fatigue_test.h"

#include <filesystem>
#include <functional>

namespace qor {

inline constexpr int CloseQOR = 29;     ///< timer of the program's end
inline constexpr int ClosePeriod = 200; ///< ms
inline constexpr int AfterCallTimer = 51;
inline constexpr int AfterCallPeriod = 10; ///< ms

/// One engine wired to one set of platform parts. Everything the operator can do without a window starts
/// from its members; timers, port events and commands come in one at a time.
class Program final : private LinkEvents, private RunControl, private RunEvents {
public:
    Program(const Platform& platform, std::filesystem::path dataDirectory);
    ~Program() override;

    /// Reads the stores and starts the search for the instrument; nothing is sent before its first tick.
    /// With `keepLastSession` the choices of the last session stay in force.
    void Start(bool keepLastSession);
    /// Searches at once, without the wait of an ordinary start.
    void SearchNow();
    /// Lets queued commands out over a port that was opened by hand.
    void StartLine() { m_Channel.Start(); }

    /// The start button, for the operator, and for whoever tells the outcome himself.
    void OnMeasButton() { Tell(PressStart()); }
    Outcome PressStart();
    /// The same for the fatigue test, which refuses the operator's start while it is on.
    Outcome PressForTest();
    void StopMeas() { m_Measurement.Stop(); }
    /// Ends a run that nobody stopped: it has no verdict but a level over the limit.
    void CutRunShort() { m_Measurement.Abandon(); }
    /// A run that was asked for and has not begun does not begin any more.
    void DropStart() {
        m_AutoSaver.DropStart();
        m_Measurement.DropStart();
    }
    /// What ends the application once the program has ended in order.
    void SetQuit(std::function<void(int exitCode)> quit) { m_Quit = std::move(quit); }
    /// The exit button: refused during a run, asks otherwise; then Leave.
    Outcome OnExitButton();
    /// Ends in order: carriers off, port closed, `quit`.
    void Leave();
    /// Leaves, unasked, and has the program started anew. False during a run, or when nobody can start it.
    bool Restart(bool keepSession);
    /// True from the exit button on.
    [[nodiscard]] bool IsLeaving() const { return m_Leaving; }
    /// A call to a receiver is under way, and the handler that made it waits. Nothing else may be begun: only
    /// the start button, as a stop, and Leave are heard. They switch the carriers off at once and give the
    /// call up; the rest follows as soon as the handler has come back.
    [[nodiscard]] bool IsInCall() const { return m_InCall; }
    void GiveCallUp(RunEnd how = RunEnd::Stopped);
    /// The status poll of an idle link, in case nothing has armed it yet.
    void ArmStatusPoll() { m_Channel.ArmStatusPoll(); }

    /// True once the chain from power-on is over and nothing is queued or under way.
    [[nodiscard]] bool IsReady() const;
    /// True when nothing is queued and no reply is awaited.
    [[nodiscard]] bool LineIsIdle() const;

    [[nodiscard]] Session& State() { return m_Session; }
    [[nodiscard]] const Session& State() const { return m_Session; }
    [[nodiscard]] SetupStore& Stores() { return m_Store; }
    [[nodiscard]] const SetupStore& Stores() const { return m_Store; }
    [[nodiscard]] FatigueTest& Fatigue() { return m_Fatigue; }
    [[nodiscard]] Selection& Select() { return m_Selection; }
    [[nodiscard]] ReceiverDesk& Receiver() { return m_ReceiverDesk; }
    [[nodiscard]] ServiceDesk& Service() { return m_ServiceDesk; }
    [[nodiscard]] CalibrationDesk& Calibrations() { return m_Calibrations; }
    [[nodiscard]] InstrumentSelection& Instrument() { return m_Instrument; }
    [[nodiscard]] Connection& Link() { return m_Connection; }
    [[nodiscard]] ResultFiles& Files() { return m_Files; }
    [[nodiscard]] FileShow& Show() { return m_Show; }
    [[nodiscard]] FileSettings& FileInForce() { return m_FileSettings; }
    [[nodiscard]] const FileSettings& FileInForce() const { return m_FileSettings; }
    [[nodiscard]] ListPanel& List() { return m_List; }
    [[nodiscard]] ReportMaker& Reports() { return m_Reports; }
    [[nodiscard]] const ReportMaker& Reports() const { return m_Reports; }
    [[nodiscard]] const AutoSaver& Saver() const { return m_AutoSaver; }
    [[nodiscard]] PageSeries& Series() { return m_Series; }
    [[nodiscard]] const PageSeries& Series() const { return m_Series; }
    [[nodiscard]] Markers& Marks() { return m_Session.markers; }
    [[nodiscard]] const Platform& Parts() const { return m_Platform; }

private:
    [[nodiscard]] bool MayWriteSeries() const;
    [[nodiscard]] std::filesystem::path NumberedFile(int number) const;
    void OnCloseTimer();
    void Quit();
    void WhileCallWaits();
    void AfterCall();

    void BeforeSend() override;
    void LineIdle() override { m_Measurement.LineIdle(); }
    void LevelReply(const Reading& level) override { m_Measurement.Reply(level); }
    void ErrorReply(InstrumentError error) override;
    void ReplyTime(int ms) override;
    void BandActivated(bool byOperator) override;
    void Initialised() override;
    void Heard(std::string_view piece) override { m_ServiceDesk.Heard(piece); }
    void Tell(const Outcome& outcome) override;
    [[nodiscard]] bool IsRunOn() const override { return m_Session.run.IsOn(); }
    [[nodiscard]] bool InstrumentListens() const override { return m_Session.receiver.InstrumentListens(); }
    [[nodiscard]] bool KeepsCarriers() const override { return m_Session.factory.KeepsCarriers(); }
    [[nodiscard]] bool HoldsLine() const override { return m_Measurement.HoldsLine(); }
    void AbandonRun() override;
    void RunBegins() override;
    bool SaveNumbered() override;
    void RunIsAskedFor() override { m_Session.alarm.Begin(m_Platform); }
    void LevelIsShown() override { m_Session.alarm.LevelShown(m_Session.curve, m_Session.readout); }
    void RunIsOver() override;
    void ReceiverIsReleased() override { m_ReceiverDesk.NoteLoss(); }

    Platform m_Platform;
    bool m_RestoreWasBroken; ///< one was taken back, before any store was read
    Session m_Session;
    SetupStore m_Store;
    ReceiverAccess m_Receiver;
    ReceiverSearch m_ReceiverSearch;
    ResultFiles m_Files;
    ReportMaker m_Reports;
    PageSeries m_Series;
    LinkParts m_Line;
    RunMark m_RunMark;
    SwitchUnit m_SwitchUnit;
    Channel m_Channel;
    BandActivation m_Activation;
    Initialisation m_Init;
    Connection m_Connection;
    InstrumentSelection m_Instrument;
    FileSettings m_FileSettings;
    FileShow m_Show;
    ListPanel m_List;
    LevelSources m_Sources;
    Measurement m_Measurement;
    StartButton m_StartButton;
    FatigueTest m_Fatigue;
    Selection m_Selection;
    AutoSaver m_AutoSaver;
    ReceiverDesk m_ReceiverDesk;
    ServiceDesk m_ServiceDesk;
    CalibrationDesk m_Calibrations;
    Timer m_CloseTimer;
    Timer m_CallTimer; ///< what came during a call, once its handler has come back

    std::function<void(int)> m_Quit;
    int m_CloseTicks = 0;
    bool m_CarriersOff = false;
    bool m_Leaving = false;
    bool m_RunHasBegun = false; ///< and its end was not seen yet
    bool m_InCall = false;
    bool m_LeaveHeld = false; ///< the wish to leave came during the call
};

} // namespace qor
