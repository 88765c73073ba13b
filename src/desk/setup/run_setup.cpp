#include "desk/setup/run_setup.h"

#include "base/setup_store.h"
#include "base/text_format.h"
#include "desk/session.h"

#include <algorithm>

namespace qor {

namespace {

constexpr int MostRuns = 10;
constexpr int LongestSeconds = 2147483; ///< as many ms fit an int
constexpr int Digits = 7;               ///< of each of the three stores
constexpr int LargestStored = 9999999;

} // namespace

RunSetup CurrentRunSetup(const Session& session) {
    return {session.curve.Length() / 1000, session.curve.Runs(), session.runs.Interval(),
            session.runs.IsSaEnclosed(), session.runs.IsContinuous()};
}

Outcome ApplyRunSetup(const RunSetup& setup, Session& session, SetupStore& store) {
    RunSetup taken = setup;
    if (taken.continuous) {
        taken.saEnclosed = false;
        taken.runs = 1;
        taken.interval = 0;
        session.curve.WatchWorst();
    } else if (taken.saEnclosed) {
        taken.runs = 2;
        taken.interval = 0;
    }
    if (taken.runs > MostRuns && !session.user.IsAdministrator())
        return Outcome::Refused("Einbauen misserfolg");
    taken.runs = std::clamp(taken.runs, 1, static_cast<int>(CurveRuns));
    taken.interval = std::clamp(taken.interval, 0, LargestStored);
    taken.seconds = std::clamp(taken.seconds, 1, LongestSeconds);

    RunSettings& runs = session.runs;
    runs.SetContinuous(taken.continuous);
    runs.SetSaEnclosed(taken.saEnclosed);
    runs.SetInterval(taken.interval);
    session.curve.SetRuns(taken.runs);
    session.curve.ShowRun(0);
    session.curve.SetLength(taken.seconds * 1000);
    store.Write("2tone_time.ccz", ZeroPadded(taken.seconds, Digits));
    store.Write("Sweeptime.ccz", ZeroPadded(taken.runs, Digits));
    store.Write("SweepInter.ccz", ZeroPadded(taken.interval, Digits));
    return Outcome::Done();
}

} // namespace qor
