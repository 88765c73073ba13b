#include "link/connection.h"

#include "bands/tenths.h"
#include "core/run_control.h"
#include "core/session.h"
#include "core/timer_ids.h"
#include "link/channel.h"
#include "link/commands.h"
#include "link/firmware.h"
#include "link/initialisation.h"
#include "platform/operator.h"
#include "platform/platform.h"
#include "platform/port_list.h"
#include "platform/serial_control.h"
#include "platform/timers.h"

namespace qor {

namespace {

constexpr int HighestPort = 16;
constexpr int IdentityTicks = 10; ///< of the connection watch: one second
constexpr int CloseTicks = 20;    ///< of the housekeeping timer
constexpr const char* SlowSettings = "9600,n,8,1";
constexpr const char* FastSettings = "115200,n,8,1";

} // namespace

Connection::Connection(Session& session, const Platform& platform, Channel& channel, Initialisation& init,
                       RunControl& run)
    : m_Session(session), m_Platform(platform), m_Channel(channel), m_Init(init), m_Run(run) {}

void Connection::ReadPortList() {
    std::vector<PortEntry>& list = m_Session.link.g_PortList;
    list.clear();
    for (const SerialDevice& device : m_Platform.ports.List())
        list.push_back({device.number, "COM" + std::to_string(device.number) + " (" + device.device + ")"});
}

Connection::Search Connection::ScanComm() {
    const Search found = TryPorts();
    if (found == Search::Failed)
        m_Platform.timers.SetTimer(scanCommtimer, SearchPeriod);
    return found;
}

Connection::Search Connection::TryPorts() {
    LinkState& link = m_Session.link;
    m_Channel.PauseStatusPoll();
    m_Channel.Stop();
    m_Channel.Reset();
    link.g_InstrStatus &= static_cast<std::uint8_t>(~0x04);
    m_Run.AbandonRun();
    link.FirmVersion = UnidentifiedFirmware;
    link.portListText.clear();
    ReadPortList();

    if (link.g_PortList.empty()) {
        link.portButton = PortButton::Scan;
        m_Session.panel.portButtonShown = false;
        m_Session.panel.lamp = Lamp::NotReady;
        return Search::Failed;
    }
    if (link.g_PortList.size() == 1)
        return OpenFound(link.g_PortList[0].number, true);
    if (link.g_PortList.size() == 2 && link.g_LastPort != 0) {
        const bool firstWasLast = link.g_PortList[0].number == link.g_LastPort;
        return OpenFound(link.g_PortList[firstWasLast ? 1 : 0].number, false);
    }
    BeginChoice();
    return Search::OperatorChooses;
}

Connection::Search Connection::OpenFound(int number, bool onlyPort) {
    LinkState& link = m_Session.link;
    link.m_comm_sel_v = std::to_string(number);
    if (SetComm()) {
        // The full chain from its beginning: one cut short cannot be taken up in the middle, and without a
        // model nothing is known of the instrument.
        if (link.g_isSWStart || link.m_Type.empty())
            m_Init.StartFullChain();
        else
            m_Init.InitPA();
        link.tagCommTimer = 0;
        m_Platform.timers.SetTimer(commScan, ConnectWatchPeriod);
        return Search::Opened;
    }
    if (onlyPort && link.g_isSWStart)
        link.g_init = InitIdentity;
    FailedToOpen();
    return Search::Failed;
}

void Connection::FailedToOpen() {
    LinkState& link = m_Session.link;
    link.portButton = PortButton::Scan;
    m_Session.panel.portButtonShown = false;
    const std::string device = m_Platform.ports.DeviceOf(WholeNumberIn(link.m_comm_sel_v));
    m_Platform.user.Message("Cannot connect to device for incorrect port, please select correct port!\nCOM" +
                            link.m_comm_sel_v + " (" + device + ")");
}

/// More ports than can be decided here: the list box, and a look at what hangs on each.
void Connection::BeginChoice() {
    LinkState& link = m_Session.link;
    m_Session.panel.portListShown = true;
    m_Session.panel.portButtonShown = true;
    link.portButton = PortButton::Open;
    link.g_ProbeIndex = 0;
    m_Platform.timers.KillTimer(scanCommtimer); // the operator's turn
    m_Platform.timers.SetTimer(ReadEachType, ProbePeriod);
}

void Connection::OnProbeTimer() {
    LinkState& link = m_Session.link;
    const int count = static_cast<int>(link.g_PortList.size());
    if (link.g_bProbing && link.g_ProbeIndex < count)
        TakeProbeAnswer();
    if (link.g_ProbeIndex < count)
        ProbeNext();
    link.g_bProbing = true;
    if (link.g_ProbeIndex >= count) {
        m_Platform.timers.KillTimer(ReadEachType);
        link.g_bProbing = false;
    }
}

void Connection::TakeProbeAnswer() {
    static constexpr std::pair<std::string_view, std::string_view> Labels[] = {
        {"RT-DA1", "RT-DA10"}, {"RT-DB2", "RT-DB22"}, {"RT-E", "RT-E010"}, {"RT-K", "RT-K022"},
        {"RT-L", "RT-L027"},   {"RT-P", "RT-P000"},   {"RT-N", "RT-N026"}, {"RT-M", "RT-M027"},
        {"RT-T", "RT-T000"},   {"RT-S", "RT-S036"},   {"MPX", "MPX"},
    };
    LinkState& link = m_Session.link;
    PortEntry& entry = link.g_PortList[static_cast<std::size_t>(link.g_ProbeIndex)];
    std::string_view label;
    for (const auto& [sought, name] : Labels) {
        if (link.m_revdatastr.find(sought) != std::string::npos) {
            label = name;
            break;
        }
    }
    m_Platform.comm.SetPortOpen(false);
    link.m_revdatastr.clear();
    if (!label.empty()) {
        entry.text += ": ";
        entry.text += label;
        link.m_PortSettings[entry.number] = link.m_comm_settings;
    } else if (link.tagCommPend != 0 && link.g_bProbeSlow) {
        link.g_bProbeSlow = false; // asked and silent: the same port once more at the other speed
        return;
    }
    ++link.g_ProbeIndex; // answered, not asked, or the identity handling has taken the answer
}

void Connection::ProbeNext() {
    LinkState& link = m_Session.link;
    const int number = link.g_PortList[static_cast<std::size_t>(link.g_ProbeIndex)].number;
    link.tagCommPend = 0;
    if (number > HighestPort)
        return;
    CMSComm& comm = m_Platform.comm;
    link.m_comm_settings = link.g_bProbeSlow ? SlowSettings : FastSettings;
    comm.SetPortOpen(false); // after a silence the last port is still open
    comm.SetCommPort(number);
    comm.SetSettings(link.m_comm_settings);
    comm.SetInputMode(CommInputMode::Text);
    comm.SetInputLen(0);
    comm.SetRThreshold(1);
    comm.SetSThreshold(1);
    comm.SetPortOpen(true);
    if (!comm.GetPortOpen())
        return;
    link.FirmVersion = UnidentifiedFirmware;
    link.g_CurTag = TagPlain;
    link.tagCommPend = OpenReply;
    comm.SetOutput("#IDN?"); // not through the queue: nothing else may go out while ports are tried
    comm.SetOutput("\r");
}

bool Connection::SetComm() {
    LinkState& link = m_Session.link;
    m_Platform.timers.KillTimer(ReadEachType);
    m_Platform.timers.KillTimer(scanCommtimer); // its next tick would begin the chain again
    link.g_bProbing = false;
    m_Session.panel.m_Band_sel = NoBandText;
    if (link.portListText.size() > 3) {
        const std::string text = link.portListText.substr(3);
        link.m_comm_sel_v = std::to_string(WholeNumberIn(text.substr(0, text.rfind(':'))));
    }
    const int number = WholeNumberIn(link.m_comm_sel_v);
    if (number > HighestPort) {
        m_Platform.user.Message("Port muessen kleiner als 17\nCOM" + link.m_comm_sel_v + " (" +
                                m_Platform.ports.DeviceOf(number) + ")");
        return false;
    }
    link.bCOMResponse = false;
    link.g_LastPort = number;
    link.m_comm_settings = SlowSettings;
    CMSComm& comm = m_Platform.comm;
    comm.SetPortOpen(false);
    comm.SetCommPort(number);
    comm.SetSettings(link.m_comm_settings);
    comm.SetInputMode(CommInputMode::Text);
    comm.SetInputLen(0);
    comm.SetRThreshold(1);
    comm.SetPortOpen(true);
    link.bCOMResponse = true;
    return comm.GetPortOpen();
}

void Connection::OnButton1() {
    static_cast<void>(Press());
}

bool Connection::ConnectDev() {
    // Contact was lost a moment ago and the button still offers to close: a connection is asked for.
    if (m_Session.link.portButton == PortButton::Close)
        m_Session.link.portButton = PortButton::Scan;
    return Press();
}

bool Connection::Press() {
    LinkState& link = m_Session.link;
    if (link.m_CloseCountdown > 0)
        return false;
    link.m_Type.clear();
    link.g_init = InitIdentity;
    switch (link.portButton) {
    case PortButton::Scan:
        link.g_LastPort = 0;
        return ScanComm() == Search::Opened;
    case PortButton::Open:
        if (!SetComm()) {
            link.portButton = PortButton::Scan;
            m_Session.panel.portListShown = false;
            return false;
        }
        m_Init.StartFullChain();
        link.tagCommTimer = 0;
        m_Platform.timers.SetTimer(openWatch, ConnectWatchPeriod);
        return true;
    case PortButton::Close:
        ClosePortLater();
        return false;
    }
    return false;
}

void Connection::ClosePortLater() {
    LinkState& link = m_Session.link;
    Panel& panel = m_Session.panel;
    link.queue.Clear();
    m_Run.AbandonRun(); // what switches its carriers off goes out while the port is still open
    panel.m_Band_sel = NoBandText;
    link.m_Type.clear();
    link.m_CloseCountdown = CloseTicks;
    m_Platform.timers.SetTimer(HousekeepingTimer, HousekeepingPeriod);
    m_Channel.PauseStatusPoll();
    for (const int timer : {WaitCommTimer, HardBandInitOn, scanCommtimer, commScan, openWatch})
        m_Platform.timers.KillTimer(timer);
    link.m_SetIMOrder = "0";
    link.portButton = PortButton::Open;
    panel.portListShown = true;
    panel.lamp = Lamp::NotReady;
}

void Connection::OnHousekeepingTimer() {
    LinkState& link = m_Session.link;
    if (link.m_CloseCountdown == 0 || --link.m_CloseCountdown == 0) {
        m_Platform.timers.KillTimer(HousekeepingTimer);
        return;
    }
    if (link.m_CloseCountdown != 1)
        return;
    // Nothing may go out any more: a command that is sent opens the port.
    m_Channel.PauseStatusPoll();
    m_Channel.Stop();
    m_Platform.timers.KillTimer(WaitCommTimer);
    m_Channel.Reset();
    m_Platform.comm.SetPortOpen(false);
}

void Connection::OnConnectWatch(int timer) {
    LinkState& link = m_Session.link;
    Panel& panel = m_Session.panel;
    if (link.m_Type.empty() && link.tagCommTimer < IdentityTicks) {
        ++link.tagCommTimer;
        return;
    }
    m_Platform.timers.KillTimer(timer);
    link.tagCommTimer = 0;
    if (link.m_Type.empty()) {
        m_Platform.comm.SetPortOpen(false);
        m_Channel.LoseContact(true); // else what is still queued would open the port again
        return;
    }
    link.portButton = PortButton::Close;
    panel.portListShown = false;
    panel.portButtonShown = !(timer == commScan && link.g_PortList.size() == 1);
    // A run asked for begins when the chain is over: its wipe of the queue would take the run's commands.
}

void Connection::OnSearchTimer() {
    LinkState& link = m_Session.link;
    if (!link.bCOMResponse) {
        link.portButton = PortButton::Scan;
        m_Session.panel.portButtonShown = true;
        link.bCOMResponse = true;
        m_Platform.timers.KillTimer(scanCommtimer);
        return;
    }
    static_cast<void>(ScanComm());
}

} // namespace qor
