#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace qor::sim {

/// What hangs at the far end of a serial line: a command in, its reply out.
class Device {
public:
    Device() = default;
    Device(const Device&) = default;
    Device& operator=(const Device&) = default;
    virtual ~Device() = default;

    /// Carries out one command, given without its carriage return. The reply comes with its line end; it is
    /// empty where the device stays silent.
    [[nodiscard]] virtual std::string Execute(std::string_view command) = 0;
    /// Time on the device's own clock, microseconds; it never runs backwards.
    virtual void SetTime(std::int64_t /*microseconds*/) {}
    virtual void SetLooseContact(bool /*loose*/) {}
    /// Of the line's noise, too.
    [[nodiscard]] virtual std::uint64_t Seed() const { return 1; }
};

} // namespace qor::sim
