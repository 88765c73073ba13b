#include "curve/verdict.h"

namespace qor {

namespace {

constexpr double LimitMargin = 0.01;
/// Floats of decimal levels lie up to this far beside them; the margin means the decimals.
constexpr double DecimalSlack = 0.0005;

} // namespace

bool IsAboveLimit(float level, double limit) {
    return static_cast<double>(level) - limit > LimitMargin + DecimalSlack;
}

Verdict Judge(const RunFacts& facts) {
    if (facts.error != 0)
        return Verdict::Error;
    if (!facts.watched || facts.limit < static_cast<double>(facts.floor))
        return Verdict::None;
    if (facts.hasFailed || (facts.highest && IsAboveLimit(*facts.highest, facts.limit)))
        return Verdict::Failed;
    const bool enough =
        facts.end == RunEnd::Stopped ? facts.taken > 0 : facts.end == RunEnd::ByItself && facts.IsComplete();
    return enough ? Verdict::Passed : Verdict::None;
}

} // namespace qor
