#include "sim/simulated_port.h"

#include <charconv>
#include <utility>

namespace qor::sim {

namespace {

constexpr std::size_t InputLimit = 65536; // a host that does not read loses what comes after

int SpeedOf(std::string_view settings) {
    int speed = 0;
    std::from_chars(settings.data(), settings.data() + settings.size(), speed);
    return speed;
}

} // namespace

int SimulatedPortList::Add(Line& line, std::string device) {
    const int number = static_cast<int>(m_Entries.size()) + 1;
    if (device.empty())
        device = "sim:" + std::to_string(number);
    m_Entries.push_back({{number, std::move(device)}, &line});
    return number;
}

std::vector<SerialDevice> SimulatedPortList::List() {
    std::vector<SerialDevice> devices;
    for (const Entry& entry : m_Entries)
        if (entry.line->Plugged(m_Scheduler.NowMicroseconds()))
            devices.push_back(entry.device);
    return devices;
}

std::string SimulatedPortList::DeviceOf(int number) const {
    for (const Entry& entry : m_Entries)
        if (entry.device.number == number)
            return entry.device.device;
    return {};
}

Line* SimulatedPortList::LineOf(int number) const {
    for (const Entry& entry : m_Entries)
        if (entry.device.number == number)
            return entry.line;
    return nullptr;
}

void SimulatedPortList::Unplug(int number) {
    if (Line* line = LineOf(number))
        line->Unplug(m_Scheduler.NowMicroseconds());
}

void SimulatedPortList::Replug(int number) {
    if (Line* line = LineOf(number))
        line->Replug(m_Scheduler.NowMicroseconds());
}

SimulatedPort::~SimulatedPort() {
    Close();
}

void SimulatedPort::SetPortOpen(bool open) {
    if (open)
        Open();
    else
        Close();
}

void SimulatedPort::Open() {
    Line* line = m_Ports.LineOf(m_Number);
    const std::int64_t nowUs = m_Scheduler.NowMicroseconds();
    if (m_Open || !line || !line->Plugged(nowUs))
        return;
    m_Open = line;
    m_Input.clear();
    line->SetHostSpeed(SpeedOf(m_Settings));
    line->HostOpens(nowUs);
    line->SetWake([this] { CallAt(m_Scheduler.NowMicroseconds()); });
    ScheduleNext();
}

void SimulatedPort::Close() {
    if (!m_Open)
        return;
    m_Open->SetWake(nullptr);
    m_Open = nullptr;
    m_Input.clear();
}

void SimulatedPort::SetOutput(std::string_view bytes) {
    if (!m_Open)
        return;
    m_Open->HostWrites(bytes, m_Scheduler.NowMicroseconds());
    ScheduleNext();
}

void SimulatedPort::GetInput(std::string& bytes) {
    bytes.swap(m_Input);
    m_Input.clear();
}

void SimulatedPort::ScheduleNext() {
    if (!m_Open)
        return;
    if (const auto nextUs = m_Open->NextEventUs())
        CallAt(*nextUs);
}

void SimulatedPort::CallAt(std::int64_t microseconds) {
    // A call that is already under way for then or earlier looks again by itself.
    if (m_NextCallUs && *m_NextCallUs <= microseconds)
        return;
    m_NextCallUs = microseconds;
    m_Scheduler.At(microseconds, [this, microseconds, alive = std::weak_ptr<char>(m_Alive)] {
        if (!alive.expired())
            Look(microseconds);
    });
}

void SimulatedPort::Look(std::int64_t dueUs) {
    if (m_NextCallUs == dueUs)
        m_NextCallUs.reset();
    if (!m_Open)
        return;
    if (!m_Open->Plugged(m_Scheduler.NowMicroseconds())) {
        Close();
        Report(CommEvent::Lost);
        return;
    }
    const std::string bytes = m_Open->TakeDelivered(m_Scheduler.NowMicroseconds());
    if (!bytes.empty() && m_Input.size() < InputLimit) {
        m_Input += bytes;
        Report(CommEvent::Receive);
    }
    ScheduleNext();
}

} // namespace qor::sim
