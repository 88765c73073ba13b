#include "curve/plot_range.h"

#include "base/setup_store.h"
#include "base/text_format.h"
#include "curve/curve.h"

namespace qor {

namespace {

constexpr double LowestBottom = -200;
constexpr double LeastSpan = 2;
constexpr double Step = 10;
constexpr double Slack = 1e-4; ///< an end typed in dBc comes back from a float

double ReferenceOf(const Curve& curve) {
    return static_cast<double>(curve.scale.Reference());
}

void Take(double top, double bottom, Curve& curve, SetupStore& store) {
    curve.scale.SetRange(static_cast<float>(top), static_cast<float>(bottom));
    store.Write("dbmset.ccz", Fixed(bottom, 1) + "\n" + Fixed(top, 1));
}

} // namespace

bool IsPlotRange(const PlotRange& dBm) {
    return dBm.top <= Slack && dBm.top - dBm.bottom >= LeastSpan - Slack &&
           dBm.bottom >= LowestBottom - Slack;
}

PlotRange ShownPlotRange(const Curve& curve) {
    const double reference = ReferenceOf(curve);
    return {static_cast<double>(curve.scale.Top()) - reference,
            static_cast<double>(curve.scale.Bottom()) - reference};
}

Outcome ApplyPlotRange(const PlotRange& range, Curve& curve, SetupStore& store) {
    const double reference = ReferenceOf(curve);
    const double top = range.top + reference;
    const double bottom = range.bottom + reference;
    if (!IsPlotRange({top, bottom}))
        return Outcome::Refused("Falsch, dichtesortierung.");
    Take(top, bottom, curve, store);
    return Outcome::Done();
}

void StepPlotRange(bool larger, Curve& curve, SetupStore& store) {
    const auto top = static_cast<double>(curve.scale.Top());
    const double bottom = static_cast<double>(curve.scale.Bottom()) + (larger ? Step : -Step);
    if (IsPlotRange({top, bottom}))
        Take(top, bottom, curve, store);
}

} // namespace qor
