#pragma once

namespace qor {

/// What the link needs of the measurement.
class RunControl {
public:
    RunControl() = default;
    RunControl(const RunControl&) = delete;
    RunControl& operator=(const RunControl&) = delete;
    virtual ~RunControl() = default;

    /// The instrument is ready again: begins the run that the start button asked for before it was found.
    virtual void StartAfterConnect() = 0;
    /// Ends a run whose instrument is gone; does nothing when none is on. It never counts as passed.
    virtual void AbandonRun() = 0;
};

} // namespace qor
