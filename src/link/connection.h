#pragma once

#include <string>

namespace qor {

class Channel;
class Initialisation;
class RunControl;
struct Platform;
struct Session;

/// Finds the instrument's port, opens it, and keeps trying when the connection goes away.
class Connection {
public:
    enum class Search { Failed = -1, OperatorChooses = 0, Opened = 1 };

    Connection(Session& session, const Platform& platform, Channel& channel, Initialisation& init,
               RunControl& run);

    /// A search without success goes on every two seconds.
    Search ScanComm();
    /// Opens the port of the list entry chosen, or the one selected last. True when it is open.
    bool SetComm();
    void OnButton1(); ///< the port button
    /// Connects for the start button, whose question comes with the port closed. True when a port was opened.
    bool ConnectDev();

    void OnSearchTimer();           ///< scanCommtimer
    void OnProbeTimer();            ///< ReadEachType
    void OnConnectWatch(int timer); ///< commScan or openWatch: waits for the identity
    void OnHousekeepingTimer();     ///< close countdown

private:
    bool Press();
    void ReadPortList();
    Search TryPorts();
    Search OpenFound(int number, bool onlyPort);
    void FailedToOpen();
    void BeginChoice();
    void TakeProbeAnswer();
    void ProbeNext();
    void ClosePortLater();

    Session& m_Session;
    const Platform& m_Platform;
    Channel& m_Channel;
    Initialisation& m_Init;
    RunControl& m_Run;
};

} // namespace qor
