#include "core/program.h"

#include "core/startup.h"
#include "core/timer_ids.h"
#include "platform/launcher.h"
#include "platform/operator.h"
#include "platform/serial_control.h"
#include "platform/timers.h"
#include "platform/visa.h"
#include "tools/side_tool.h"

namespace qor {

namespace {

constexpr int QuitCode = 16;
/// Ticks of the closing timer after which the carriers are given up: an instrument that is gone must not
/// keep the program from ending.
constexpr int LongestClose = 40;

} // namespace

Program::Program(const Platform& platform, std::filesystem::path dataDirectory)
    : m_Platform(platform), m_Store(std::move(dataDirectory)),
      m_Receiver(m_Session.receiver, m_Store, platform.visa, platform.sensor),
      m_Files(m_Session, m_Platform, m_Store), m_List(m_Session, m_Files, m_Store), m_Markers(m_Session),
      m_Channel(m_Session, m_Platform, *this, *this), m_Activation(m_Session, m_Platform, m_Store),
      m_Init(m_Session, m_Platform, m_Channel, m_Activation),
      m_Connection(m_Session, m_Platform, m_Channel, m_Init, *this),
      m_Measurement(m_Session, m_Platform, m_Store, m_Channel, m_Receiver, m_Files),
      m_Selection(m_Session, m_Platform, m_Store, m_Channel, m_Init, m_Connection) {
    m_Platform.timers.SetHandler([this](int id) { OnTimer(id); });
    m_Platform.comm.SetHandler([this] { m_Channel.OnComm(); });
}

Program::~Program() {
    m_Platform.timers.SetHandler({});
    m_Platform.comm.SetHandler({});
}

void Program::Start(bool keepLastSession) {
    if (!keepLastSession)
        ForgetLastSession(m_Store);
    LoadStores(m_Session, m_Store);
    m_Session.link.g_isSWStart = true;
    m_Selection.ShowRepetition();
    m_Platform.timers.SetTimer(scanCommtimer, SearchPeriod);
    m_Platform.timers.SetTimer(MarkerTimer, MarkerPeriod);
    m_Platform.timers.SetTimer(HousekeepingTimer,
                               HousekeepingPeriod); // stops itself when it has nothing to do
}

void Program::SearchNow() {
    m_Connection.OnSearchTimer();
}

bool Program::LineIsIdle() const {
    return m_Session.link.queue.Empty() && m_Session.link.tagCommPend == 0;
}

bool Program::IsReady() const {
    const LinkState& link = m_Session.link;
    return m_Platform.comm.GetPortOpen() && m_Session.panel.lamp != Lamp::NotReady &&
           link.g_init >= InitSerial && !link.g_bInitFlush && link.g_InitLamp > LampNothing && LineIsIdle();
}

void Program::Initialised() {
    // Firmware before 3.5 answers nothing that turns the lamp: the end of the chain does.
    m_Session.panel.lamp = Lamp::Ready;
    StartAfterConnect();
}

bool Program::OnExitButton() {
    if (m_Session.run.runOn) {
        m_Platform.user.Message("Sich?\nHalten Messung erst!");
        return false;
    }
    if (m_Leaving || !m_Platform.user.Ask("Sich?", "Sich"))
        return false;
    Leave();
    return true;
}

bool Program::Restart(bool keepSession) {
    if (m_Session.run.runOn || !m_Platform.launcher)
        return false;
    m_Platform.launcher->RestartAfterEnd(keepSession);
    Leave();
    return true;
}

void Program::Leave() {
    m_Leaving = true;
    m_Measurement.AbandonRun(); // one that waited for its turn or for the instrument, too
    m_Channel.PauseStatusPoll();
    if (m_Platform.visa && m_Session.receiver.g_VisaRM != 0) {
        m_Platform.visa->Close(m_Session.receiver.g_VisaSession);
        m_Platform.visa->Close(m_Session.receiver.g_VisaRM);
    }
    m_CloseTicks = 0;
    m_Platform.timers.SetTimer(CloseQOR, ClosePeriod);
}

/// Waits for the queue, switches the carriers off, and ends.
void Program::OnCloseTimer() {
    CMSComm& comm = m_Platform.comm;
    ++m_CloseTicks;
    if (!m_CarriersOff && m_Session.link.g_LastPort != 0 && !comm.GetPortOpen()) {
        comm.SetPortOpen(true);                 // closed by hand: the instrument may still be carrying
        m_Session.link.g_init = InitSerialDone; // its echoes must not begin a new chain
    }
    const bool gone = !comm.GetPortOpen() || m_CloseTicks > LongestClose;
    if (!gone && !LineIsIdle())
        return;
    if (!gone && !m_CarriersOff) {
        m_CarriersOff = true;
        m_Session.link.queue.Append("#SPB0");
        m_Session.link.queue.Append("#SPA0");
        m_Channel.Start();
        return;
    }
    Quit();
}

void Program::Quit() {
    for (int timer = 0; timer < TimerCount; ++timer)
        m_Platform.timers.KillTimer(timer);
    m_Platform.comm.SetPortOpen(false);
    RemoveSideTool(m_Store);
    if (m_Quit)
        m_Quit(QuitCode);
}

void Program::OnTimer(int id) {
    switch (id) {
    case CurveTimer:
        return m_Measurement.OnCurveTimer();
    case commsendtimer:
        return m_Channel.OnSendTimer();
    case openWatch:
    case commScan:
        return m_Connection.OnConnectWatch(id);
    case HousekeepingTimer:
        return m_Connection.OnHousekeepingTimer();
    case WaitCommTimer:
        return m_Channel.OnWaitTimer();
    case settingchecktimer:
        return m_Channel.OnStatusTimer();
    case HardBandInitOn:
        return m_Init.OnBandWaitTimer();
    case scanCommtimer:
        return m_Connection.OnSearchTimer();
    case ReadEachType:
        return m_Connection.OnProbeTimer();
    case MarkerTimer:
        return m_Markers.OnMarkerTimer();
    case SlowBeepTimer:
    case FastBeepTimer:
    case UnderBeepTimer:
        return OnBeepTimer(id, m_Session.alarm, m_Platform);
    case CloseQOR:
        return OnCloseTimer();
    case T2messuretimer:
        return m_Measurement.OnTwoToneTimer();
    case sweeptimer:
        return m_Measurement.OnSweepTimer();
    case spectrumtimer:
        return m_Measurement.OnSpectrumTimer();
    case analyzerwaittimer:
    case spectrumwaittimer:
        return m_Measurement.OnAnalyserWait(id);
    case intervaltimer:
        return m_Measurement.OnIntervalTimer();
    case restarttimer:
        return m_Measurement.OnRestartTimer();
    default:
        return;
    }
}

} // namespace qor
