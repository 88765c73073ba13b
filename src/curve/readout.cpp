#include "curve/readout.h"

#include "curve/curve.h"

namespace qor {

float InShownUnit(const Curve& curve, float dBm) {
    return curve.scale.InDbc() ? dBm - curve.scale.Carrier() : dBm;
}

std::optional<float> ShownWorstLevel(const Curve& curve) {
    const auto worst = curve.WorstLevel();
    return worst ? std::optional(InShownUnit(curve, *worst)) : std::nullopt;
}

std::optional<float> WorstFrequency(const Curve& curve) {
    return curve.WorstLevel() && curve.WorstFrequency() > 0 ? std::optional(curve.WorstFrequency())
                                                            : std::nullopt;
}

} // namespace qor
