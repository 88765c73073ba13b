#pragma once

#include "measure/stepped_shape.h"

namespace qor {

class InterBandMode;
class WorkingSet;

/// Sweep: f1 rises with f2 held, then f2 falls with f1 held.
class Sweep final : public SteppedShape {
public:
    explicit Sweep(const RunParts& parts);

    void Begin() override;
    void Repeat() override;

private:
    void NextStep() override;
    void QueueCarriersOff() override;
    [[nodiscard]] std::vector<Step> Steps() const;
    [[nodiscard]] bool RestBetweenHalves();
    void TurnToFallingHalf();

    int g_SweepPause = 0; ///< ticks of the rest between the halves
};

} // namespace qor
