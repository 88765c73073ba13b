#include "platform/qt/system_port_list.h"

#include <QSerialPortInfo>

#include <algorithm>
#include <filesystem>

namespace qor {

SystemPortList::SystemPortList(std::vector<std::string> given, bool onlyGiven)
    : m_Given(std::move(given)), m_OnlyGiven(onlyGiven) {}

int SystemPortList::NumberOf(const std::string& device) {
    auto at = std::find(m_Known.begin(), m_Known.end(), device);
    if (at == m_Known.end())
        at = m_Known.insert(at, device);
    return static_cast<int>(at - m_Known.begin()) + 1;
}

std::vector<SerialDevice> SystemPortList::List() {
    std::vector<std::string> devices;
    for (const std::string& device : m_Given) {
        std::error_code ignored;
        if (std::filesystem::exists(device, ignored))
            devices.push_back(device);
    }
    if (!m_OnlyGiven) {
        std::vector<std::string> builtIn;
        for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts()) {
            auto& place = info.hasVendorIdentifier() ? devices : builtIn;
            place.push_back(info.systemLocation().toStdString());
        }
        devices.insert(devices.end(), builtIn.begin(), builtIn.end());
    }
    std::vector<SerialDevice> list;
    for (const std::string& device : devices) {
        const int number = NumberOf(device);
        const bool listed =
            std::any_of(list.begin(), list.end(), [&](const auto& d) { return d.number == number; });
        if (!listed)
            list.push_back({number, device});
    }
    return list;
}

std::string SystemPortList::DeviceOf(int number) const {
    const auto index = static_cast<std::size_t>(number) - 1;
    return index < m_Known.size() ? m_Known[index] : std::string();
}

} // namespace qor
