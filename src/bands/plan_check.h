#pragma once

#include "bands/records.h"

#include <string>
#include <vector>

namespace qor {

/// IM frequencies from the lowest to the highest of one half of a sweep, MHz.
struct FimSpan {
    float from = 0;
    float to = 0;
};

/// The IM frequencies that a plan gives, MHz.
struct FimFrequencies {
    float twoTone = 0;
    FimSpan rising;  ///< f1 rises, f2 is held
    FimSpan falling; ///< f2 falls, f1 is held
};

/// By the product of the band: a f1 - b f2, or a f2 - b f1 where it receives above the carriers, with a and
/// b from CoefficientsOf(imIndex).
[[nodiscard]] FimFrequencies FimRange(const FrequencyPlan& plan, int band, int imIndex);

/// What the operator is told of a plan while it is edited.
struct PlanVerdict {
    std::string text;             ///< m_checkText: the faults, then the IM frequencies; lines end with "\r\n"
    std::vector<PlanValue> wrong; ///< the values that a fault is about
    bool fits = false;            ///< no fault: the plan may be saved
};

/// The live check of a plan against the carrier and IM ranges of the band. The TETRA bands are checked for
/// the step only; their ranges differ with the order and count when the plan is saved.
[[nodiscard]] PlanVerdict CheckPlan(const FrequencyPlan& plan, int band, int imIndex);

/// True when the plan may be stored: as the band's plan or, `forDefault`, as its default. Some limits are
/// narrower than those of the live check, and the two kinds differ in a few of UMTS2. False for a band
/// without plans.
[[nodiscard]] bool SaveTest(const FrequencyPlan& plan, int band, int imIndex, bool forDefault);

/// True when both tones stay in the sub-bands that an instrument without a 3-dB bridge can make, or the band
/// has none.
[[nodiscard]] bool SubBandTest(const FrequencyPlan& plan, int band, int imIndex, bool forDefault);

/// True when both tones lie in the carrier range of the band, bounds included, MHz. False for a band without
/// one.
[[nodiscard]] bool TonesFit(float f1, float f2, int band);

} // namespace qor
