#include "link/connection.h"

#include "base/tenths.h"
#include "link/channel.h"
#include "link/commands.h"
#include "link/initialisation.h"
#include "link/link_events.h"
#include "link/link_state.h"
#include "link/run_control.h"
#include "link/working_set.h"
#include "platform/port_list.h"
#include "platform/serial_control.h"

namespace qor {

namespace {

constexpr int HighestPort = 16;
constexpr int IdentityTicks = 10; ///< of the connection watch: one second
constexpr int CloseTicks = 20;    ///< of the housekeeping timer
constexpr std::string_view FastSettings = "115200,n,8,1";

} // namespace

Connection::Connection(LinkState& link, WorkingSet& working, const LinkParts& parts, Channel& channel,
                       Initialisation& init, LinkEvents& events, RunControl& run)
    : m_Link(link), m_State(link.connection), m_Working(working), m_Parts(parts), m_Channel(channel),
      m_Init(init), m_Events(events), m_Run(run),
      m_OpenWatch(parts.timers, openWatch, [this] { OnConnectWatch(openWatch); }),
      m_ScanWatch(parts.timers, commScan, [this] { OnConnectWatch(commScan); }),
      m_Housekeeping(parts.timers, HousekeepingTimer, [this] { OnHousekeepingTimer(); }),
      m_SearchTimer(parts.timers, scanCommtimer, [this] { OnSearchTimer(); }),
      m_ProbeTimer(parts.timers, ReadEachType, [this] { OnProbeTimer(); }) {
    m_Channel.SetOnLoss([this] { OnLoss(); });
}

void Connection::Begin() {
    m_SearchTimer.Start(SearchPeriod);
    m_Housekeeping.Start(HousekeepingPeriod); // stops itself when it has nothing to do
}

void Connection::StopSearch() {
    m_IsOver = true;
    for (Timer* const timer : {&m_SearchTimer, &m_ProbeTimer, &m_ScanWatch, &m_OpenWatch})
        timer->Stop();
}

void Connection::OnLoss() {
    m_Init.StopBandWait();
    if (!m_IsOver && !m_State.IsClosing()) // else the operator is closing the port
        m_SearchTimer.Start(SearchPeriod);
}

void Connection::ReadPortList() {
    std::vector<PortEntry> found;
    for (const SerialDevice& device : m_Parts.ports.List())
        found.push_back({device.number, "COM" + std::to_string(device.number) + " (" + device.device + ")",
                         false, false});
    m_State.TakePorts(std::move(found));
}

Connection::Search Connection::ScanComm() {
    if (m_IsOver)
        return Search::Failed;
    const Search found = TryPorts();
    if (found == Search::Failed)
        m_SearchTimer.Start(SearchPeriod);
    return found;
}

Connection::Search Connection::TryPorts() {
    m_ScanWatch.Stop(); // for an identity that would be another port's now
    m_OpenWatch.Stop();
    m_Channel.PauseStatusPoll();
    m_Run.AbandonRun();
    m_Channel.SwitchOffNow();
    m_Channel.Stop();
    m_Channel.Reset();
    m_Link.chain.Lose();
    ReadPortList();

    std::vector<int> ports; // that may be the instrument's
    for (const PortEntry& port : m_State.Ports())
        if (port.number != m_Link.unit.Port())
            ports.push_back(port.number);
    if (ports.empty()) {
        m_State.Offer(PortButton::Scan);
        m_State.ShowButton(false);
        return Search::Failed;
    }
    if (ports.size() == 1)
        return OpenFound(ports[0]);
    if (ports.size() == 2 && m_State.LastPort() != 0) {
        const bool firstWasLast = ports[0] == m_State.LastPort();
        return OpenFound(ports[firstWasLast ? 1 : 0]);
    }
    BeginChoice();
    return Search::OperatorChooses;
}

Connection::Search Connection::OpenFound(int number) {
    m_comm_sel_v = std::to_string(number);
    LabelKnownUnit();
    if (!SetComm()) {
        FailedToOpen();
        return Search::Failed;
    }
    m_Init.Begin();
    tagCommTimer = 0;
    m_ScanWatch.Start(ConnectWatchPeriod);
    return Search::Opened;
}

/// No port is asked what hangs on it.
void Connection::LabelKnownUnit() {
    for (std::size_t i = 0; i < m_State.Ports().size(); ++i)
        if (m_State.Ports()[i].number == m_Link.unit.Port())
            m_State.LabelUnit(i, SwitchUnitName);
}

void Connection::FailedToOpen() {
    m_State.Offer(PortButton::Scan);
    m_State.ShowButton(false);
    const std::string device = m_Parts.ports.DeviceOf(WholeNumberIn(m_comm_sel_v));
    m_Events.Tell(
        Outcome::Refused("Cannot connect to device for incorrect port, please select correct port!\nCOM" +
                         m_comm_sel_v + " (" + device + ")"));
}

/// More ports than can be decided here: the list box, and a look at what hangs on each.
void Connection::BeginChoice() {
    m_State.ShowList(true);
    m_State.ShowButton(true);
    m_State.Offer(PortButton::Open);
    g_ProbeIndex = 0;
    m_State.ExpectProbe();
    m_SearchTimer.Stop(); // the operator's turn
    m_ProbeTimer.Start(ProbePeriod);
}

void Connection::OnProbeTimer() {
    const int count = static_cast<int>(m_State.Ports().size());
    if (m_State.IsProbing() && g_ProbeIndex < count)
        TakeProbeAnswer();
    if (g_ProbeIndex < count)
        ProbeNext();
    m_State.Probe(true);
    if (g_ProbeIndex >= count) {
        m_ProbeTimer.Stop();
        m_State.Probe(false);
        m_Link.identity.Forget(); // of whoever answered: nobody is connected yet
        ProposeTheOneThatAnswered();
    }
}

/// The press of the button stays the operator's.
void Connection::ProposeTheOneThatAnswered() {
    const PortEntry* answered = nullptr;
    for (const PortEntry& port : m_State.Ports()) {
        if (!port.answers)
            continue;
        if (answered)
            return;
        answered = &port;
    }
    if (answered && m_State.Chosen().empty())
        m_State.Choose(answered->text);
}

void Connection::TakeProbeAnswer() {
    static constexpr std::pair<std::string_view, std::string_view> Labels[] = {
        {"RT-DA1", "RT-DA10"},
        {"RT-DB2", "RT-DB22"},
        {"RT-E", "RT-E010"},
        {"RT-K", "RT-K022"},
        {"RT-L", "RT-L027"},
        {"RT-P", "RT-P000"},
        {"RT-N", "RT-N026"},
        {"RT-M", "RT-M027"},
        {"RT-T", "RT-T000"},
        {"RT-S", "RT-S036"},
        {SwitchUnitName, SwitchUnitName},
    };
    std::string& answer = m_Link.transaction.Text();
    std::string_view label;
    for (const auto& [sought, name] : Labels) {
        if (answer.find(sought) != std::string::npos) {
            label = name;
            break;
        }
    }
    m_Parts.comm.SetPortOpen(false);
    answer.clear();
    const auto index = static_cast<std::size_t>(g_ProbeIndex);
    const int number = m_State.Ports()[index].number;
    const bool isInstrument = !label.empty() || (m_ProbeIsOut && m_Link.transaction.IsIdle());
    if (label == SwitchUnitName) {
        m_State.LabelUnit(index, label);
        m_Link.unit.Found(number, m_comm_settings);
    } else if (isInstrument) {
        m_State.Label(index, label); // empty where the identity handling has taken the answer
        if (number == m_Link.unit.Port())
            m_Link.unit.Forget();
    } else if (!m_Link.transaction.IsIdle() && g_bProbeSlow) {
        g_bProbeSlow = false; // asked and silent: the same port once more at the other speed
        return;
    } else if (number == m_Link.unit.Port()) {
        m_State.LabelUnit(index, SwitchUnitName); // asked at the other speed only
    }
    ++g_ProbeIndex; // answered or not asked
}

void Connection::ProbeNext() {
    const int number = m_State.Ports()[static_cast<std::size_t>(g_ProbeIndex)].number;
    m_Link.transaction.Finish();
    m_ProbeIsOut = false;
    if (number > HighestPort)
        return;
    m_Parts.comm.SetSThreshold(1);
    if (!OpenPort(number, g_bProbeSlow ? InstrumentSettings : FastSettings))
        return;
    m_Link.identity.AwaitAnyAnswer();
    m_Link.transaction.BeginUnasked();
    m_Parts.comm.SetOutput(
        command::Identity); // past the queue: nothing else may go out while ports are tried
    m_Parts.comm.SetOutput("\r");
    m_ProbeIsOut = true;
}

/// Opens a port for text, at these settings; whatever port was open before is closed.
bool Connection::OpenPort(int number, std::string_view settings) {
    CMSComm& comm = m_Parts.comm;
    m_comm_settings = settings;
    comm.SetPortOpen(false);
    comm.SetCommPort(number);
    comm.SetSettings(m_comm_settings);
    comm.SetInputMode(CommInputMode::Text);
    comm.SetInputLen(0);
    comm.SetRThreshold(1);
    comm.SetPortOpen(true);
    return comm.GetPortOpen();
}

/// The list entry chosen, or else the port selected last; 0 when there is none.
int Connection::SelectedPort() const {
    if (m_State.Chosen().size() <= 3)
        return WholeNumberIn(m_comm_sel_v);
    const std::string text = m_State.Chosen().substr(3);
    return WholeNumberIn(text.substr(0, text.rfind(':')));
}

bool Connection::SetComm() {
    m_ProbeTimer.Stop();
    m_SearchTimer.Stop(); // its next tick would begin the chain again
    m_State.Probe(false);
    m_Working.DoubtBand();
    const int number = SelectedPort();
    m_comm_sel_v = std::to_string(number);
    if (number > HighestPort) {
        m_Events.Tell(Outcome::Refused("Port muessen kleiner als 17\nCOM" + m_comm_sel_v + " (" +
                                       m_Parts.ports.DeviceOf(number) + ")"));
        return false;
    }
    bCOMResponse = false;
    m_State.PortIsOpened(number);
    const bool isOpen = OpenPort(number, InstrumentSettings);
    bCOMResponse = true;
    return isOpen;
}

void Connection::OnButton1() {
    static_cast<void>(Press());
}

bool Connection::ConnectDev() {
    // Contact was lost a moment ago and the button still offers to close: a connection is asked for.
    if (m_State.Button() == PortButton::Close)
        m_State.Offer(PortButton::Scan);
    return Press();
}

bool Connection::Press() {
    if (m_State.IsClosing() || m_IsOver)
        return false;
    m_Link.identity.ForgetModel();
    m_Link.chain.GoBackTo(InitIdentity);
    switch (m_State.Button()) {
    case PortButton::Scan:
        m_State.PortIsOpened(0);
        return ScanComm() == Search::Opened;
    case PortButton::Open:
        if (SelectedPort() == 0) {
            m_Events.Tell(Outcome::Refused("Bitte zuerst einen Port auswaehlen."));
            return false;
        }
        if (SelectedPort() == m_Link.unit.Port()) {
            m_Events.Tell(Outcome::Refused("Das ist das Umschaltgeraet, nicht der Analysator."));
            if (m_State.Ports().size() == 1)
                OfferScan(); // nothing else can be chosen
            return false;
        }
        if (!SetComm()) {
            OfferScan();
            return false;
        }
        m_Init.Begin();
        tagCommTimer = 0;
        m_OpenWatch.Start(ConnectWatchPeriod);
        return true;
    case PortButton::Close:
        ClosePortLater();
        return false;
    }
    return false;
}

/// The list may be out of date: the operator can have the ports looked for again.
void Connection::OfferScan() {
    m_State.Offer(PortButton::Scan);
    m_State.ShowButton(true);
    m_State.ShowList(false);
}

/// A run ends first: what switches its carriers off goes out while the port is still open.
void Connection::ClosePortLater() {
    m_Channel.TakeLineBack();
    m_Init.Abort();
    m_Link.queue.Clear();
    m_Run.AbandonRun();
    m_Working.DoubtBand();
    m_Link.chain.Lose();
    m_CloseCountdown = CloseTicks;
    m_State.BeginClosing();
    m_Housekeeping.Start(HousekeepingPeriod);
    m_Channel.PauseStatusPoll();
    m_Channel.StopWait();
    m_SearchTimer.Stop();
    m_ScanWatch.Stop();
    m_OpenWatch.Stop();
    m_State.Offer(PortButton::Open);
    m_State.ShowList(true);
}

void Connection::OnHousekeepingTimer() {
    if (m_CloseCountdown == 0 || --m_CloseCountdown == 0) {
        m_Housekeeping.Stop();
        m_State.EndClosing();
        return;
    }
    if (m_CloseCountdown != 1)
        return;
    // Nothing may go out any more: a command that is sent opens the port.
    m_Channel.PauseStatusPoll();
    m_Channel.SwitchOffNow();
    m_Channel.Stop();
    m_Channel.StopWait();
    m_Channel.Reset();
    m_Parts.comm.SetPortOpen(false);
}

void Connection::OnConnectWatch(int timer) {
    if (!m_Link.identity.HasModel() && tagCommTimer < IdentityTicks) {
        ++tagCommTimer;
        return;
    }
    (timer == commScan ? m_ScanWatch : m_OpenWatch).Stop();
    tagCommTimer = 0;
    if (!m_Link.identity.HasModel()) {
        m_Parts.comm.SetPortOpen(false);
        m_Channel.LoseContact(); // else what is still queued would open the port again
        return;
    }
    m_State.InstrumentHasAnswered();
    if (m_Link.unit.Port() == m_State.LastPort())
        m_Link.unit.Forget(); // its cable hangs elsewhere now
    m_State.Offer(PortButton::Close);
    m_State.ShowList(false);
    m_State.ShowButton(!(timer == commScan && m_State.Ports().size() == 1));
    // A run asked for begins when the chain is over: its wipe of the queue would take the run's commands.
}

void Connection::OnSearchTimer() {
    if (!bCOMResponse) {
        m_State.Offer(PortButton::Scan);
        m_State.ShowButton(true);
        bCOMResponse = true;
        m_SearchTimer.Stop();
        return;
    }
    static_cast<void>(ScanComm());
}

} // namespace qor
