#pragma once

#include <cstdint>
#include <functional>

namespace qor {

/// Calls back later on the program's own thread. The simulated instrument lives on it.
class Scheduler {
public:
    Scheduler() = default;
    Scheduler(const Scheduler&) = delete;
    Scheduler& operator=(const Scheduler&) = delete;
    virtual ~Scheduler() = default;

    [[nodiscard]] virtual std::int64_t NowMicroseconds() const = 0;
    /// Calls `action` once, at or soon after the time of NowMicroseconds() given. Cannot be taken back:
    /// an action whose owner may be gone by then must find that out for itself.
    virtual void At(std::int64_t microseconds, std::function<void()> action) = 0;
};

} // namespace qor
