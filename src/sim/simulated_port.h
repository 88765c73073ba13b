#pragma once

#include "platform/port_list.h"
#include "platform/scheduler.h"
#include "platform/serial_control.h"
#include "sim/line.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qor::sim {

/// The serial devices of a simulated machine, one for each line that hangs on it. A device is listed while
/// its cable is plugged.
class SimulatedPortList final : public PortList {
public:
    explicit SimulatedPortList(const Scheduler& scheduler) : m_Scheduler(scheduler) {}

    /// Adds a line under the next number, and as "sim:" and that number unless it is given a path. The line
    /// outlives the list and the ports that open it. Returns the number.
    int Add(Line& line, std::string device = {});

    [[nodiscard]] std::vector<SerialDevice> List() override;
    [[nodiscard]] std::string DeviceOf(int number) const override;
    /// Line behind a number, null when there is none.
    [[nodiscard]] Line* LineOf(int number) const;

    void Unplug(int number);
    void Replug(int number);

private:
    struct Entry {
        SerialDevice device;
        Line* line;
    };
    const Scheduler& m_Scheduler;
    std::vector<Entry> m_Entries;
};

/// A serial control whose line ends in a simulated instrument, on the program's own thread.
class SimulatedPort final : public CMSComm {
public:
    SimulatedPort(SimulatedPortList& ports, Scheduler& scheduler) : m_Ports(ports), m_Scheduler(scheduler) {}
    ~SimulatedPort() override;

    void SetCommPort(int number) override { m_Number = number; }
    void SetSettings(std::string_view settings) override { m_Settings = settings; }
    void SetPortOpen(bool open) override;
    [[nodiscard]] bool GetPortOpen() const override { return m_Open != nullptr; }
    void SetOutput(std::string_view bytes) override;
    void GetInput(std::string& bytes) override;

    /// Pulls the cable of the device last chosen, and puts it back. The loss is reported from the scheduler,
    /// as a real one would be.
    void Unplug() { m_Ports.Unplug(m_Number); }
    void Replug() { m_Ports.Replug(m_Number); }

private:
    void Open();
    void Close();
    void ScheduleNext();
    void CallAt(std::int64_t microseconds);
    void Look(std::int64_t dueUs);

    SimulatedPortList& m_Ports;
    Scheduler& m_Scheduler;
    int m_Number = 0;
    std::string m_Settings = "9600,n,8,1";
    Line* m_Open = nullptr;
    std::string m_Input;
    std::optional<std::int64_t> m_NextCallUs;
    /// Calls that come after the port is gone find this gone, too.
    std::shared_ptr<char> m_Alive = std::make_shared<char>();
};

} // namespace qor::sim
