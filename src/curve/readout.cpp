#include "curve/readout.h"

#include "curve/curve.h"

namespace qor {

float InShownUnit(const Curve& curve, float dBm) {
    return curve.scale.InDbc() ? dBm - curve.scale.Carrier() : dBm;
}

std::optional<float> ShownWorstLevel(const Curve& curve) {
    return curve.WorstLevel() != 0 ? std::optional(curve.WorstLevel()) : std::nullopt;
}

std::optional<float> WorstLevelDbm(const Curve& curve) {
    const auto shown = ShownWorstLevel(curve);
    return shown && curve.scale.InDbc() ? *shown + curve.scale.Carrier() : shown;
}

std::optional<float> WorstFrequency(const Curve& curve) {
    return curve.WorstLevel() != 0 && curve.WorstFrequency() > 0 ? std::optional(curve.WorstFrequency())
                                                                 : std::nullopt;
}

} // namespace qor
