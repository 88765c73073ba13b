#pragma once

#include "platform/port_list.h"

#include <string>
#include <vector>

namespace qor {

/// Serial devices of the machine: those given, then, unless they are to be the only ones, those the system
/// lists, virtual (USB) ports first.
class SystemPortList final : public PortList {
public:
    SystemPortList(std::vector<std::string> given, bool onlyGiven);

    [[nodiscard]] std::vector<SerialDevice> List() override;
    [[nodiscard]] std::string DeviceOf(int number) const override;

private:
    [[nodiscard]] int NumberOf(const std::string& device);

    std::vector<std::string> m_Given;
    bool m_OnlyGiven;
    std::vector<std::string> m_Known; ///< index + 1 is the number
};

} // namespace qor
