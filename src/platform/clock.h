#pragma once

#include <cstdint>

namespace qor {

/// Local date and time of day.
struct LocalTime {
    int year = 0;
    int month = 0; ///< 1 to 12
    int day = 0;   ///< 1 to 31
    int hour = 0;
    int minute = 0;
    int second = 0; ///< 0 to 60
};

class WallClock {
public:
    WallClock() = default;
    WallClock(const WallClock&) = delete;
    WallClock& operator=(const WallClock&) = delete;
    virtual ~WallClock() = default;

    /// Monotonic, ms since an arbitrary start.
    [[nodiscard]] virtual std::int64_t TickMs() const = 0;
    /// Blocks the one thread of the program.
    virtual void Sleep(int ms) = 0;
    [[nodiscard]] virtual LocalTime Now() const = 0;
};

} // namespace qor
