#pragma once

#include "measure/stepped_shape.h"

namespace qor {

/// Spectrum: the rising half of a sweep alone, at IM3 and with the carriers off, until it is stopped.
class Spectrum final : public SteppedShape {
public:
    explicit Spectrum(const RunParts& parts);

    void Begin() override;
    void Repeat() override;
    void Stop() override;

private:
    void NextStep() override;
    void QueueCarriersOff() override {} // they were never on
};

} // namespace qor
