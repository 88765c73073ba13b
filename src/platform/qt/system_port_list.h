#pragma once

#include "platform/port_list.h"

#include <functional>
#include <string>
#include <vector>

namespace qor {

/// A serial device as the system lists it.
struct SystemDevice {
    std::string device; ///< its path
    bool isUsb = false; ///< it has a USB vendor id: not one of the machine's own
};
[[nodiscard]] std::vector<SystemDevice> SystemDevices();

/// Which of the machine's devices are offered beside those given. What is offered is talked to, so the
/// machine's own ports, on which anything may hang, are left alone unless asked for.
enum class PortScope { Given, Usb, All };

/// Serial devices of the machine: those given, then the system's, USB ports first. Two paths that lead to one
/// device are one port, under the first of them.
class SystemPortList final : public PortList {
public:
    SystemPortList(std::vector<std::string> given, PortScope scope,
                   std::function<std::vector<SystemDevice>()> system = SystemDevices);

    [[nodiscard]] std::vector<SerialDevice> List() override;
    [[nodiscard]] std::string DeviceOf(int number) const override;

private:
    struct Known {
        std::string device; ///< as it was first named
        std::string real;   ///< where it leads, links followed
    };
    [[nodiscard]] int NumberOf(const std::string& device);

    std::vector<std::string> m_Given;
    PortScope m_Scope;
    std::function<std::vector<SystemDevice>()> m_System;
    std::vector<Known> m_Known; ///< index + 1 is the number
};

} // namespace qor
