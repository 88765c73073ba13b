#pragma once

#include "base/outcome.h"

namespace qor {

class SetupStore;
class Curve;
class RunSettings;

/// What the operator sets for the runs of a measurement.
struct RunSetup {
    int seconds = 5;         ///< length of a 2-tone run, 1 to 2147483
    int runs = 1;            ///< of a sweep: 1 to 10, up to 1000 for an administrator
    int interval = 0;        ///< s between sweep runs, 0 and up
    bool saEnclosed = false; ///< two runs without a pause, the first with the carriers off
    bool continuous = false; ///< repeat until EndlessTimes or the stop button; excludes saEnclosed
};

/// The set-up in force.
[[nodiscard]] RunSetup CurrentRunSetup(const Curve& curve, const RunSettings& runs);

/// Takes the set-up over and keeps its numbers in `2tone_time.ccz`, `Sweeptime.ccz` and `SweepInter.ccz`.
/// Refused, with nothing changed, for more runs than this user may set.
Outcome ApplyRunSetup(const RunSetup& setup, bool administrator, Curve& curve, RunSettings& runs,
                      SetupStore& store);

} // namespace qor
