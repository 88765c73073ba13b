#pragma once

namespace qor {

class CMSComm;
class Operator;
class PortList;
class PowerSensorLibrary;
class VisaLibrary;
class WallClock;
class WindowTimers;

/// The outside world as one Program sees it. All parts outlive the Program.
struct Platform {
    CMSComm& comm;
    PortList& ports;
    WindowTimers& timers;
    WallClock& clock;
    Operator& user;
    VisaLibrary* visa = nullptr;          ///< none: every transfer fails
    PowerSensorLibrary* sensor = nullptr; ///< none: every reading stays without a result
};

} // namespace qor
