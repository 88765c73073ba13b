#include "curve/run_view.h"

#include "curve/curve.h"

namespace qor {

bool CanShowRun(const Curve& curve, int run) {
    return curve.Runs() >= (run == 1 ? 2 : run);
}

bool ShowRun(int run, Curve& curve) {
    if (run < 0 || run > curve.Runs())
        return false;
    curve.ShowRun(run == curve.ShownRun() ? 0 : run);
    return true;
}

} // namespace qor
