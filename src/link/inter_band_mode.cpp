#include "link/inter_band_mode.h"

#include "curve/curve.h"
#include "curve/grid.h"
#include "link/working_set.h"

namespace qor {

void BuildGridInForce(Curve& curve, int band, const WorkingSet& working, const InterBandMode& interBand) {
    if (!interBand.IsOn()) {
        BuildSweepGrid(curve, band, working.Coefficients(), working.Plan());
        return;
    }
    const float step = working.Plan().step;
    curve.SetGrid(InterBandGrid(interBand.Order(), interBand.RxBand(), step), step);
}

} // namespace qor
