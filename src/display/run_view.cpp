#include "display/run_view.h"

#include "core/guards.h"
#include "core/session.h"
#include "display/curve_store.h"

namespace qor {

bool CanShowRun(const Session& session, int run) {
    return session.curve.g_runCount >= (run == 1 ? 2 : run);
}

bool ShowRun(int run, Session& session, const Platform& platform) {
    CurveState& curve = session.curve;
    if (!RunIsOff(session, platform) || run < 0 || run > curve.g_runCount)
        return false;
    curve.g_shownRun = run == curve.g_shownRun ? 0 : run;
    JudgeAnew(curve, session.receiver.tagReceiver == 1);
    curve.g_curveDirty = 1;
    return true;
}

} // namespace qor
