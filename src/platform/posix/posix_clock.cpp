#include "platform/posix/posix_clock.h"

#include <chrono>
#include <ctime>
#include <thread>

namespace qor {

std::int64_t PosixClock::TickMs() const {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
}

void PosixClock::Sleep(int ms) {
    std::this_thread::sleep_for(std::chrono::milliseconds(ms));
}

LocalTime PosixClock::Now() const {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec};
}

} // namespace qor
