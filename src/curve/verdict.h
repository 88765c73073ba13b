#pragma once

namespace qor {

enum Verdict : int {
    VerdictNone = 0,
    VerdictOverLimit = 1,
    VerdictSyntaxError = 2,
    VerdictOutOfRange = 3,
    VerdictPllNotLocked = 4,
    VerdictFailed = 101,
    VerdictPassed = 1001,
};

/// True for a verdict that an error reply of the instrument has set.
[[nodiscard]] constexpr bool IsInstrumentError(int verdict) {
    return verdict >= VerdictSyntaxError && verdict <= VerdictPllNotLocked;
}

/// What is known of a run that has ended.
struct RunFacts {
    bool holdsPoint = false; ///< at least one level has come
    bool isComplete = false; ///< every level that was asked for
    bool wasStopped = false; ///< by the operator
    bool overLimit = false;  ///< the highest level since the start button, of every pass
};

/// The verdict of a run: an error of the instrument stays, a level over the limit has failed, whatever else
/// happened. Passed is earned by all that was asked for, or by what the operator had seen when he stopped.
[[nodiscard]] constexpr Verdict VerdictOf(Verdict soFar, const RunFacts& facts) {
    if (IsInstrumentError(soFar))
        return soFar;
    if (facts.overLimit || soFar == VerdictOverLimit || soFar == VerdictFailed)
        return VerdictFailed;
    const bool judged = facts.holdsPoint && (facts.isComplete || facts.wasStopped);
    return judged ? VerdictPassed : VerdictNone;
}

/// The verdict of the measurement in the plot.
class VerdictState {
public:
    [[nodiscard]] Verdict Value() const { return g_MeasVerdict; }
    [[nodiscard]] bool IsError() const { return IsInstrumentError(g_MeasVerdict); }

    void Take(Verdict verdict) { g_MeasVerdict = verdict; }
    /// The end of a run.
    void Settle(const RunFacts& facts) { g_MeasVerdict = VerdictOf(g_MeasVerdict, facts); }

private:
    Verdict g_MeasVerdict = VerdictNone;
};

} // namespace qor
