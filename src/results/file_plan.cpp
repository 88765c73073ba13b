#include "results/file_plan.h"

#include "base/tenths.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace qor {

namespace {

int TenthsOf(float frequency) {
    return ToTenths(static_cast<double>(frequency));
}

/// Tenths of MHz that the moving tone has gone from the start of its half when a row was measured; nothing
/// beyond the half's end.
std::optional<int> OffsetOf(const ResultDocument& document, const FrequencyPlan& plan,
                            const ResultPoint& point, bool down) {
    const ResultTones tones = TonesAt(document, point, down);
    const int offset =
        down ? TenthsOf(plan.f2Start) - TenthsOf(tones.f2) : TenthsOf(tones.f1) - TenthsOf(plan.f1Start);
    const float span = down ? plan.f2Start - plan.f2Stop : plan.f1Stop - plan.f1Start;
    return offset >= 0 && offset <= TenthsOf(span) ? std::optional(offset) : std::nullopt;
}

/// The largest step, in tenths of MHz, on which every row stands; 0 where there is none. Where the down curve
/// begins above the end of the up curve a file does not tell one from the other.
int StepOf(const ResultDocument& document, const FrequencyPlan& plan) {
    int step = 0;
    for (const bool down : {false, true}) {
        for (const ResultPoint& point : down ? document.runs.back().down : document.runs.back().up) {
            auto offset = OffsetOf(document, plan, point, down);
            if (!offset)
                offset = OffsetOf(document, plan, point, !down);
            if (!offset)
                return 0;
            step = std::gcd(step, *offset);
        }
    }
    return step == 0 ? TenthsOf(plan.step) : step;
}

} // namespace

std::optional<FrequencyPlan> PlanOf(const ResultDocument& document, const FrequencyPlan& base) {
    const FrequencyPlan& stated = document.plan;
    FrequencyPlan plan = base;
    const auto take = [&](float FrequencyPlan::*value) {
        if (stated.*value > 0)
            plan.*value = stated.*value;
        return stated.*value > 0;
    };
    bool ends = true;
    for (float FrequencyPlan::*const end :
         {&FrequencyPlan::f1Start, &FrequencyPlan::f1Stop, &FrequencyPlan::f2Start, &FrequencyPlan::f2Stop})
        ends = take(end) && ends;
    if (document.method == ResultMethod::TwoTone)
        return take(&FrequencyPlan::f1) && take(&FrequencyPlan::f2) ? std::optional(plan) : std::nullopt;
    if (!ends || !take(&FrequencyPlan::f1Fix) || !take(&FrequencyPlan::f2Fix))
        return std::nullopt;
    const int step = StepOf(document, plan);
    if (step <= 0)
        return std::nullopt;
    plan.step = static_cast<float>(step / 10.0);
    return plan;
}

} // namespace qor
