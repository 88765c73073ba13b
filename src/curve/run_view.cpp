#include "curve/run_view.h"

#include "curve/curve.h"
#include "desk/session.h"

namespace qor {

bool CanShowRun(const Session& session, int run) {
    return session.curve.Runs() >= (run == 1 ? 2 : run);
}

bool ShowRun(int run, Session& session) {
    Curve& curve = session.curve;
    if (session.run.IsOn() || run < 0 || run > curve.Runs())
        return false;
    curve.ShowRun(run == curve.ShownRun() ? 0 : run);
    curve.JudgeAnew(session.receiver.InstrumentListens());
    return true;
}

} // namespace qor
