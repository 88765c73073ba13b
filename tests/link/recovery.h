#pragma once

#include "support/rig.h"

namespace qor::test {

/// An RT-DB22 of this firmware with DCS in position, which it has there whatever its firmware.
inline sim::InstrumentConfig AtDcs(const char* firmware, std::uint64_t seed = 1) {
    sim::InstrumentConfig config;
    config.firmware = firmware;
    config.position = 4;
    config.seed = seed;
    return config;
}

/// Ready and with a green lamp: contact that was lost a moment ago does not count.
inline bool BecomesReady(Rig& rig, std::int64_t limitMs) {
    return rig.time.RunUntil([&] { return PanelOf(rig.S()).lamp == Lamp::Ready && rig.program.IsReady(); },
                             limitMs);
}

inline int CommandsToReady(const char* firmware) {
    Rig rig(AtDcs(firmware));
    EXPECT_TRUE(rig.PowerOn());
    return rig.line.CommandCount();
}

} // namespace qor::test
