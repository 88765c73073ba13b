#include "platform/qt/system_port_list.h"

#include <QSerialPortInfo>

#include <algorithm>
#include <filesystem>

namespace qor {

namespace {

std::string RealPath(const std::string& device) {
    std::error_code ignored;
    const auto real = std::filesystem::weakly_canonical(device, ignored);
    return real.empty() ? device : real.string();
}

/// A device by its whole path: a bare name is one of this folder, or else of the system's.
std::string WholePath(const std::string& device) {
    std::error_code ignored;
    const std::filesystem::path path(device);
    if (path.is_absolute() || device.empty())
        return device;
    if (!path.has_parent_path() && !std::filesystem::exists(path, ignored) &&
        std::filesystem::exists("/dev" / path, ignored))
        return ("/dev" / path).string();
    return std::filesystem::absolute(path, ignored).string();
}

} // namespace

std::vector<SystemDevice> SystemDevices() {
    std::vector<SystemDevice> devices;
    for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts())
        devices.push_back({info.systemLocation().toStdString(), info.hasVendorIdentifier()});
    return devices;
}

SystemPortList::SystemPortList(std::vector<std::string> given, PortScope scope,
                               std::function<std::vector<SystemDevice>()> system)
    : m_Given(std::move(given)), m_Scope(scope), m_System(std::move(system)) {
    std::transform(m_Given.begin(), m_Given.end(), m_Given.begin(), WholePath);
}

/// A link that comes to lead elsewhere, as a pseudo-terminal's does when it is made anew, keeps its number.
int SystemPortList::NumberOf(const std::string& device) {
    const std::string real = RealPath(device);
    auto at = std::find_if(m_Known.begin(), m_Known.end(),
                           [&](const Known& known) { return known.device == device; });
    if (at == m_Known.end())
        at = std::find_if(m_Known.begin(), m_Known.end(),
                          [&](const Known& known) { return known.real == real; });
    else
        at->real = real;
    if (at == m_Known.end())
        at = m_Known.insert(at, {device, real});
    return static_cast<int>(at - m_Known.begin()) + 1;
}

std::vector<SerialDevice> SystemPortList::List() {
    std::vector<std::string> devices;
    for (const std::string& device : m_Given) {
        std::error_code ignored;
        if (std::filesystem::exists(device, ignored))
            devices.push_back(device);
    }
    if (m_Scope != PortScope::Given) {
        std::vector<std::string> builtIn;
        for (const SystemDevice& device : m_System())
            (device.isUsb ? devices : builtIn).push_back(device.device);
        if (m_Scope == PortScope::All)
            devices.insert(devices.end(), builtIn.begin(), builtIn.end());
    }
    std::vector<SerialDevice> list;
    for (const std::string& device : devices) {
        const int number = NumberOf(device);
        const bool listed =
            std::any_of(list.begin(), list.end(), [&](const auto& d) { return d.number == number; });
        if (!listed)
            list.push_back({number, DeviceOf(number)});
    }
    return list;
}

std::string SystemPortList::DeviceOf(int number) const {
    const auto index = static_cast<std::size_t>(number) - 1;
    return index < m_Known.size() ? m_Known[index].device : std::string();
}

} // namespace qor
