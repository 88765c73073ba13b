#include "display/plot_range.h"

#include "bands/setup_store.h"
#include "core/text_format.h"
#include "display/curve_state.h"
#include "platform/operator.h"
#include "platform/platform.h"

namespace qor {

namespace {

constexpr double LowestBottom = -200;
constexpr double LeastSpan = 2;
constexpr double Step = 10;
constexpr double Slack = 1e-4; ///< an end typed in dBc comes back from a float

double ReferenceOf(const CurveState& curve) {
    return curve.g_UnitDbc ? static_cast<double>(curve.g_CarrierDbm) : 0.0;
}

void Take(double top, double bottom, CurveState& curve, SetupStore& store) {
    curve.g_plotTop = static_cast<float>(top);
    curve.g_plotBottom = static_cast<float>(bottom);
    store.Write("dbmset.ccz", Fixed(bottom, 1) + "\n" + Fixed(top, 1));
}

} // namespace

bool IsPlotRange(const PlotRange& dBm) {
    return dBm.top <= Slack && dBm.top - dBm.bottom >= LeastSpan - Slack &&
           dBm.bottom >= LowestBottom - Slack;
}

PlotRange ShownPlotRange(const CurveState& curve) {
    const double reference = ReferenceOf(curve);
    return {static_cast<double>(curve.g_plotTop) - reference,
            static_cast<double>(curve.g_plotBottom) - reference};
}

bool ApplyPlotRange(const PlotRange& range, CurveState& curve, const Platform& platform, SetupStore& store) {
    const double reference = ReferenceOf(curve);
    const double top = range.top + reference;
    const double bottom = range.bottom + reference;
    if (!IsPlotRange({top, bottom})) {
        platform.user.Message("Falsch, dichtesortierung.");
        return false;
    }
    Take(top, bottom, curve, store);
    return true;
}

void StepPlotRange(bool larger, CurveState& curve, SetupStore& store) {
    const auto top = static_cast<double>(curve.g_plotTop);
    const double bottom = static_cast<double>(curve.g_plotBottom) + (larger ? Step : -Step);
    if (IsPlotRange({top, bottom}))
        Take(top, bottom, curve, store);
}

} // namespace qor
