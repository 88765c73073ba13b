#pragma once

#include <string>
#include <vector>

namespace qor {

/// A serial device that could be opened now.
struct SerialDevice {
    int number = 0;     ///< COM number, 1 and up; a device keeps its number for the session
    std::string device; ///< its path, for example /dev/ttyUSB0
};

/// The serial devices of the machine, those named on the command line first, then in the system's order.
/// Only devices that are there now are listed.
class PortList {
public:
    PortList() = default;
    PortList(const PortList&) = delete;
    PortList& operator=(const PortList&) = delete;
    virtual ~PortList() = default;

    [[nodiscard]] virtual std::vector<SerialDevice> List() = 0;
    /// Path of a number that was listed before, empty when there is none.
    [[nodiscard]] virtual std::string DeviceOf(int number) const = 0;
};

} // namespace qor
