#pragma once

#include "link/connection_state.h"
#include "link/link_parts.h"
#include "platform/timers.h"

#include <string>

namespace qor {

/// Timers of the connection and their periods in ms.
enum ConnectionTimer : int {
    openWatch = 6,
    commScan = 7,
    HousekeepingTimer = 8,
    scanCommtimer = 25,
    ReadEachType = 27,
};
inline constexpr int ConnectWatchPeriod = 100;
inline constexpr int HousekeepingPeriod = 100;
inline constexpr int SearchPeriod = 2000;
inline constexpr int ProbePeriod = 500;

class Channel;
class Initialisation;
class LinkEvents;
class RunControl;
class WorkingSet;
struct LinkState;

/// Finds the instrument's port, opens it, and keeps trying when the connection goes away.
class Connection {
public:
    enum class Search { Failed = -1, OperatorChooses = 0, Opened = 1 };

    Connection(LinkState& link, WorkingSet& working, const LinkParts& parts, Channel& channel,
               Initialisation& init, LinkEvents& events, RunControl& run);

    /// A search without success goes on every two seconds.
    Search ScanComm();
    /// Opens the port of the list entry chosen, or the one selected last. True when it is open.
    bool SetComm();
    void OnButton1(); ///< the port button
    /// Connects for the start button, whose question comes with the port closed. True when a port was opened.
    bool ConnectDev();
    /// The program has started: the first search comes with its timer.
    void Begin();
    /// Searches at once.
    void OnSearchTimer();
    /// Whoever is there now is looked for as at the start.
    void SearchAgain() { m_SearchTimer.Start(SearchPeriod); }
    /// Port `number` was opened, by whatever way.
    void Opened(int number) { m_State.PortIsOpened(number); }
    /// The program ends: nothing is looked for any more, and nothing that is found is talked to.
    void StopSearch();

private:
    bool Press();
    void ReadPortList();
    Search TryPorts();
    Search OpenFound(int number);
    void LabelKnownUnit();
    void FailedToOpen();
    void BeginChoice();
    void OnProbeTimer();
    void ProposeTheOneThatAnswered();
    void TakeProbeAnswer();
    void ProbeNext();
    [[nodiscard]] int SelectedPort() const;
    bool OpenPort(int number, std::string_view settings);
    void ClosePortLater();
    void OfferScan();
    void OnConnectWatch(int timer);
    void OnHousekeepingTimer();
    void OnLoss();

    LinkState& m_Link;
    ConnectionState& m_State;
    WorkingSet& m_Working;
    LinkParts m_Parts;
    Channel& m_Channel;
    Initialisation& m_Init;
    LinkEvents& m_Events;
    RunControl& m_Run;
    Timer m_OpenWatch;    ///< waits for the identity behind the press of the button
    Timer m_ScanWatch;    ///< waits for the identity behind a search
    Timer m_Housekeeping; ///< counts the seconds of closing
    Timer m_SearchTimer;
    Timer m_ProbeTimer;

    std::string m_comm_sel_v;    ///< number of the selected port, as text
    std::string m_comm_settings; ///< settings text of the port
    int g_ProbeIndex = 0;        ///< port being looked at
    bool m_ProbeIsOut = false;   ///< it was asked
    bool g_bProbeSlow = true;    ///< it is asked at 9600 baud
    int tagCommTimer = 0;        ///< ticks of the wait for an identity
    bool bCOMResponse = true;    ///< the last opening has come back
    int m_CloseCountdown = 0;    ///< ticks until the port closes
    bool m_IsOver = false;       ///< the program is ending
};

} // namespace qor
