#pragma once

#include "sim/command_framer.h"
#include "sim/device.h"
#include "sim/faults.h"
#include "sim/pim_model.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qor::sim {

struct LineTiming {
    int baud = 9600;                  ///< of the instrument; a byte takes ten bits
    std::int64_t processingUs = 2000; ///< from the last byte of a command to the first of its reply
};

/// The serial line between a host and one device, and everything that can go wrong on it.
///
/// It has no clock: the caller says what time it is, in microseconds that never run backwards, and asks when
/// to look again. The instrument takes one command at a time and starts on the next when the reply before is
/// out. A reply arrives as one piece with its last byte, as through a USB adapter.
class Line {
public:
    explicit Line(Device& device, LineTiming timing = {});
    Line(const Line&) = delete;
    Line& operator=(const Line&) = delete;

    /// A fault may be ordered several times with different numbers.
    void Add(Fault fault) { m_Faults.push_back(fault); }
    void ClearFaults();

    /// Speed the host has set; at another than the instrument's nothing that it writes is understood.
    void SetHostSpeed(int baud) { m_HostBaud = baud; }
    /// The host opens its port: what came while it was closed is gone.
    void HostOpens(std::int64_t nowUs);
    void HostWrites(std::string_view bytes, std::int64_t nowUs);
    /// Bytes that have come to the host by now.
    [[nodiscard]] std::string TakeDelivered(std::int64_t nowUs);
    /// When something happens next: bytes come, or the cable is pulled or put back.
    [[nodiscard]] std::optional<std::int64_t> NextEventUs() const;

    [[nodiscard]] bool Plugged(std::int64_t nowUs) const;
    void Unplug(std::int64_t nowUs);
    void Replug(std::int64_t nowUs);
    /// Called when the cable is pulled or put back by hand, so that the host's side can look again.
    void SetWake(std::function<void()> wake) { m_Wake = std::move(wake); }

    [[nodiscard]] int CommandCount() const { return m_Commands; }

private:
    struct Delivery {
        std::int64_t atUs;
        std::string bytes;
    };
    struct EndlessStream {
        std::int64_t sinceUs;
        std::int64_t taken = 0;
        std::string pattern;
    };

    void Handle(const std::string& command, std::int64_t atUs);
    [[nodiscard]] std::string Reply(const std::string& command, int index);
    void Deliver(std::string reply, int index, std::int64_t sinceUs);
    void Pull(std::int64_t atUs);
    [[nodiscard]] std::int64_t BytesUs(std::int64_t count) const;
    [[nodiscard]] std::int64_t BytesIn(std::int64_t microseconds) const;
    /// A fault that began with an earlier command or begins with this one.
    [[nodiscard]] bool Lasting(FaultKind kind, int index) const;
    /// A fault that hits this very command.
    [[nodiscard]] bool Once(FaultKind kind, int index) const;
    [[nodiscard]] std::optional<int> NumberOf(FaultKind kind) const;

    Device& m_Device;
    LineTiming m_Timing;
    Noise m_Noise;
    std::vector<Fault> m_Faults;
    std::function<void()> m_Wake;
    CommandFramer m_Framer;
    int m_HostBaud;
    int m_Commands = 0;

    // Bytes on their way to the instrument: a burst keeps its own start, so that rounding never adds up.
    static constexpr std::int64_t LongAgo = std::numeric_limits<std::int64_t>::min() / 2;
    std::int64_t m_BurstStartUs = LongAgo;
    std::int64_t m_BurstBytes = 0;
    std::int64_t m_BusyUntilUs = LongAgo;

    std::deque<Delivery> m_Deliveries;
    std::optional<EndlessStream> m_Endless;
    std::optional<std::int64_t> m_PulledAtUs;
    std::optional<std::int64_t> m_BackAtUs;
    std::optional<std::int64_t> m_SeenUs; ///< time of the last look
};

} // namespace qor::sim
