#include "measure/run_setup.h"

#include "bands/setup_store.h"
#include "core/session.h"
#include "core/text_format.h"
#include "platform/operator.h"
#include "platform/platform.h"

#include <algorithm>

namespace qor {

namespace {

constexpr int MostRuns = 10;
constexpr int LongestSeconds = 2147483; ///< as many ms fit an int
constexpr int Digits = 7;               ///< of each of the three stores
constexpr int LargestStored = 9999999;

} // namespace

RunSetup CurrentRunSetup(const Session& session) {
    return {session.curve.g_testTimeMs / 1000, session.curve.g_runCount, session.run.g_SweepInterval,
            session.run.g_bSaEnclosed, session.run.tagEndless};
}

bool ApplyRunSetup(const RunSetup& setup, bool administrator, Session& session, const Platform& platform,
                   SetupStore& store) {
    RunSetup taken = setup;
    if (taken.continuous) {
        taken.saEnclosed = false;
        taken.runs = 1;
        taken.interval = 0;
        session.curve.g_worstText = "-300"; // any level is higher
    } else if (taken.saEnclosed) {
        taken.runs = 2;
        taken.interval = 0;
    }
    if (taken.runs > MostRuns && !administrator) {
        platform.user.Message("Einbauen misserfolg");
        return false;
    }
    taken.runs = std::clamp(taken.runs, 1, static_cast<int>(CurveRuns));
    taken.interval = std::clamp(taken.interval, 0, LargestStored);
    taken.seconds = std::clamp(taken.seconds, 1, LongestSeconds);

    RunState& run = session.run;
    run.tagEndless = taken.continuous;
    run.g_bSaEnclosed = taken.saEnclosed;
    run.g_SweepInterval = taken.interval;
    run.g_SweepIntervalLeft = taken.interval;
    session.curve.g_runCount = taken.runs;
    session.curve.g_shownRun = 0;
    session.curve.g_testTimeMs = taken.seconds * 1000;
    store.Write("2tone_time.ccz", ZeroPadded(taken.seconds, Digits));
    store.Write("Sweeptime.ccz", ZeroPadded(taken.runs, Digits));
    store.Write("SweepInter.ccz", ZeroPadded(taken.interval, Digits));
    return true;
}

} // namespace qor
