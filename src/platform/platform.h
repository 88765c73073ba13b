#pragma once

namespace qor {

class CMSComm;
class Dialogs;
class Launcher;
class Operator;
class PageForms;
class PortList;
class PowerSensorLibrary;
class Printers;
class Speaker;
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
    Speaker* speaker = nullptr;           ///< none: silence
    Launcher* launcher = nullptr;         ///< none: nothing else can be started
    Dialogs* dialogs = nullptr;           ///< none: what a dialog would settle is refused
    PageForms* pictures = nullptr;        ///< none: no pages and no pictures
    Printers* printers = nullptr;         ///< none: nothing is printed
};

} // namespace qor
