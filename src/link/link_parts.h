#pragma once

namespace qor {

class CMSComm;
class PortList;
class WallClock;
class WindowTimers;

/// What the link needs of the outside world. It talks to nobody but the instrument.
struct LinkParts {
    CMSComm& comm;
    PortList& ports;
    WindowTimers& timers;
    WallClock& clock;
};

} // namespace qor
