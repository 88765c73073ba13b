#pragma once

namespace qor {

/// What the link asks of the measurement.
class RunControl {
public:
    RunControl() = default;
    RunControl(const RunControl&) = delete;
    RunControl& operator=(const RunControl&) = delete;
    virtual ~RunControl() = default;

    [[nodiscard]] virtual bool IsRunOn() const = 0;
    /// A service page wants the carriers as they are, without a run.
    [[nodiscard]] virtual bool KeepsCarriers() const = 0;
    /// The instrument's own receiver measures, no external one.
    [[nodiscard]] virtual bool InstrumentListens() const = 0;
    /// What is queued has to wait: the receiver has not settled.
    [[nodiscard]] virtual bool HoldsLine() const { return false; }
    /// Ends a run, or what a service page does, whose instrument is gone, and drops a run that waits for it.
    /// It never counts as passed.
    virtual void AbandonRun() = 0;
};

} // namespace qor
