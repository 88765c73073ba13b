#include "sim/line.h"

#include <algorithm>
#include <utility>

namespace qor::sim {

namespace {

constexpr std::int64_t BitsPerByte = 10;
constexpr std::int64_t MicrosecondsPerSecond = 1'000'000;
constexpr std::int64_t EndlessChunk = 16;
constexpr std::int64_t EndlessAtOnce = 4096; // a host that slept for an hour has lost the rest

} // namespace

Line::Line(Device& device, LineTiming timing)
    : m_Device(device), m_Timing(timing), m_Noise(device.Seed() ^ 0x51de'5eedU), m_HostBaud(timing.baud) {}

void Line::ClearFaults() {
    m_Faults.clear();
    m_Endless.reset();
    m_Device.SetLooseContact(false);
}

std::int64_t Line::BytesUs(std::int64_t count) const {
    return count * BitsPerByte * MicrosecondsPerSecond / m_Timing.baud;
}

std::int64_t Line::BytesIn(std::int64_t microseconds) const {
    return microseconds * m_Timing.baud / (BitsPerByte * MicrosecondsPerSecond);
}

bool Line::Lasting(FaultKind kind, int index) const {
    return std::any_of(m_Faults.begin(), m_Faults.end(),
                       [=](const Fault& fault) { return fault.kind == kind && index >= fault.number; });
}

bool Line::Once(FaultKind kind, int index) const {
    return std::any_of(m_Faults.begin(), m_Faults.end(),
                       [=](const Fault& fault) { return fault.kind == kind && index == fault.number; });
}

std::optional<int> Line::NumberOf(FaultKind kind) const {
    for (const Fault& fault : m_Faults)
        if (fault.kind == kind)
            return fault.number;
    return {};
}

void Line::HostOpens(std::int64_t nowUs) {
    (void)TakeDelivered(nowUs);
}

void Line::HostWrites(std::string_view bytes, std::int64_t nowUs) {
    if (m_HostBaud != m_Timing.baud)
        return;
    if (nowUs > m_BurstStartUs + BytesUs(m_BurstBytes)) {
        m_BurstStartUs = nowUs;
        m_BurstBytes = 0;
    }
    for (const char byte : bytes) {
        const std::int64_t atUs = m_BurstStartUs + BytesUs(++m_BurstBytes);
        if (!Plugged(atUs))
            continue;
        if (const auto command = m_Framer.Feed(byte))
            Handle(*command, atUs);
    }
}

void Line::Handle(const std::string& command, std::int64_t atUs) {
    const int index = m_Commands;
    if (m_Commands < std::numeric_limits<int>::max())
        ++m_Commands;
    if (Once(FaultKind::Unplug, index)) {
        Pull(atUs);
        if (const auto seconds = NumberOf(FaultKind::Replug))
            m_BackAtUs = atUs + *seconds * MicrosecondsPerSecond;
        return;
    }
    if (m_Endless || Lasting(FaultKind::Silence, index))
        return;
    if (Lasting(FaultKind::LooseContact, index))
        m_Device.SetLooseContact(true);
    const std::int64_t slowUs = std::int64_t{1000} * NumberOf(FaultKind::Slow).value_or(0);
    const std::int64_t readyUs = std::max(atUs, m_BusyUntilUs) + m_Timing.processingUs + slowUs;
    m_BusyUntilUs = readyUs;
    m_Device.SetTime(readyUs);
    std::string reply = Reply(command, index);
    if (!reply.empty())
        Deliver(std::move(reply), index, readyUs);
}

std::string Line::Reply(const std::string& command, int index) {
    if (Once(FaultKind::SyntaxError, index))
        return "SYNTAX ERROR\r\n";
    if (Once(FaultKind::OutOfRange, index))
        return "OUT OF RANGE\r\n";
    if (Once(FaultKind::Pll, index))
        return "PLL NOT LOCKED\r\n";
    std::string reply = m_Device.Execute(command);
    if (!reply.empty() && Lasting(FaultKind::Garble, index)) {
        char& spoilt = reply[m_Noise.Next() % reply.size()];
        spoilt = static_cast<char>(static_cast<unsigned char>(spoilt) ^ (1 + m_Noise.Next() % 255));
    }
    return reply;
}

void Line::Deliver(std::string reply, int index, std::int64_t sinceUs) {
    if (Once(FaultKind::Endless, index)) {
        std::erase_if(reply, [](char c) { return c == '\r' || c == '\n'; });
        reply += ' ';
        m_Endless = EndlessStream{sinceUs, 0, std::move(reply)};
        return;
    }
    std::vector<std::size_t> cuts;
    if (Lasting(FaultKind::EarlyEnd, index)) {
        const std::size_t middle = (reply.size() - 2) / 2;
        reply.insert(middle, "\r\n");
        cuts.push_back(middle + 2);
    }
    if (Lasting(FaultKind::Pieces, index)) {
        cuts.clear();
        for (std::size_t end = 1; end < reply.size(); ++end)
            cuts.push_back(end);
    }
    cuts.push_back(reply.size());
    std::size_t begin = 0;
    for (const std::size_t end : cuts) {
        m_BusyUntilUs = sinceUs + BytesUs(static_cast<std::int64_t>(end));
        m_Deliveries.push_back({m_BusyUntilUs, reply.substr(begin, end - begin)});
        begin = end;
    }
}

std::string Line::TakeDelivered(std::int64_t nowUs) {
    m_SeenUs = std::max(m_SeenUs.value_or(nowUs), nowUs);
    std::string bytes;
    while (!m_Deliveries.empty() && m_Deliveries.front().atUs <= nowUs) {
        bytes += m_Deliveries.front().bytes;
        m_Deliveries.pop_front();
    }
    if (m_Endless) {
        EndlessStream& stream = *m_Endless;
        const std::int64_t come = std::max(BytesIn(nowUs - stream.sinceUs), stream.taken);
        for (stream.taken = std::max(stream.taken, come - EndlessAtOnce); stream.taken < come; ++stream.taken)
            bytes += stream.pattern[static_cast<std::size_t>(stream.taken) % stream.pattern.size()];
    }
    return bytes;
}

std::optional<std::int64_t> Line::NextEventUs() const {
    std::optional<std::int64_t> next;
    const auto consider = [&next](std::int64_t atUs) { next = next ? std::min(*next, atUs) : atUs; };
    if (!m_Deliveries.empty())
        consider(m_Deliveries.front().atUs);
    if (m_Endless)
        consider(m_Endless->sinceUs + BytesUs(m_Endless->taken + EndlessChunk) + 1);
    for (const auto& cableUs : {m_PulledAtUs, m_BackAtUs})
        if (cableUs && (!m_SeenUs || *cableUs > *m_SeenUs))
            consider(*cableUs);
    return next;
}

bool Line::Plugged(std::int64_t nowUs) const {
    return !m_PulledAtUs || nowUs < *m_PulledAtUs || (m_BackAtUs && nowUs >= *m_BackAtUs);
}

void Line::Pull(std::int64_t atUs) {
    m_PulledAtUs = atUs;
    m_BackAtUs.reset();
    m_Framer.Reset();
    m_Endless.reset();
    // What is still on its way does not arrive any more.
    while (!m_Deliveries.empty() && m_Deliveries.back().atUs > atUs)
        m_Deliveries.pop_back();
}

void Line::Unplug(std::int64_t nowUs) {
    Pull(nowUs);
    if (m_Wake)
        m_Wake();
}

void Line::Replug(std::int64_t nowUs) {
    if (Plugged(nowUs))
        return;
    m_BackAtUs = nowUs;
    if (m_Wake)
        m_Wake();
}

} // namespace qor::sim
