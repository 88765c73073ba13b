#include "desk/setup/run_setup.h"

#include "base/setup_store.h"
#include "base/text_format.h"
#include "curve/curve.h"
#include "measure/run.h"

#include <algorithm>

namespace qor {

namespace {

constexpr int MostRuns = 10;
constexpr int LongestSeconds = 2147483; ///< as many ms fit an int
constexpr int Digits = 7;               ///< of each of the three stores
constexpr int LargestStored = 9999999;

} // namespace

RunSetup CurrentRunSetup(const Curve& curve, const RunSettings& runs) {
    return {curve.OwnLength() / 1000, curve.Runs(), runs.Interval(), runs.IsSaEnclosed(),
            runs.IsContinuous()};
}

Outcome ApplyRunSetup(const RunSetup& setup, bool administrator, Curve& curve, RunSettings& runs,
                      SetupStore& store) {
    RunSetup taken = setup;
    if (taken.continuous) {
        taken.saEnclosed = false;
        taken.runs = 1;
        taken.interval = 0;
    } else if (taken.saEnclosed) {
        taken.runs = 2;
        taken.interval = 0;
    }
    if (taken.runs > MostRuns && !administrator)
        return Outcome::Refused("Einbauen misserfolg");
    taken.runs = std::clamp(taken.runs, 1, static_cast<int>(CurveRuns));
    taken.interval = std::clamp(taken.interval, 0, LargestStored);
    taken.seconds = std::clamp(taken.seconds, 1, LongestSeconds);

    runs.SetContinuous(taken.continuous);
    runs.SetSaEnclosed(taken.saEnclosed);
    runs.SetInterval(taken.interval);
    curve.SetRuns(taken.runs);
    curve.ShowRun(0);
    curve.SetLength(taken.seconds * 1000);
    store.Write("2tone_time.ccz", ZeroPadded(taken.seconds, Digits));
    store.Write("Sweeptime.ccz", ZeroPadded(taken.runs, Digits));
    store.Write("SweepInter.ccz", ZeroPadded(taken.interval, Digits));
    return Outcome::Done();
}

} // namespace qor
