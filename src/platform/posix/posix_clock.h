#pragma once

#include "platform/clock.h"

namespace qor {

/// The machine's own clock.
class PosixClock final : public WallClock {
public:
    [[nodiscard]] std::int64_t TickMs() const override;
    void Sleep(int ms) override;
    [[nodiscard]] LocalTime Now() const override;
};

} // namespace qor
