#pragma once

#include "base/outcome.h"
#include "base/reading.h"
#include "curve/run_tally.h"
#include "measure/start_commands.h"

namespace qor {

class Curve;
class LevelSources;
class Readout;
class Run;
class RunSettings;
class WindowTimers;
struct LinkState;

/// What a shape tells the run that it is the shape of.
class RunHost {
public:
    RunHost() = default;
    RunHost(const RunHost&) = delete;
    RunHost& operator=(const RunHost&) = delete;
    virtual ~RunHost() = default;

    /// What the commands of a start depend on now.
    [[nodiscard]] virtual StartSituation Situation() const = 0;
    /// The first levels come: what is drawn follows them from now on.
    virtual void FollowCurve() = 0;
    /// A level is shown.
    virtual void LevelShown() = 0;
    /// An external receiver was asked; false when the run is over by that.
    [[nodiscard]] virtual bool ReceiverAnswered() = 0;
    /// The receiver gives nothing that could be measured: the run is over.
    virtual void EndWithFault(const Outcome& fault) = 0;
    /// The pass is over, told again and again until something new begins.
    virtual void PassIsOver() = 0;
};

/// What the shapes of a run work with. The record of the run says what is measured.
struct RunParts {
    RunHost& host;
    const Run& run;
    const RunSettings& settings;
    LinkState& link;
    Curve& curve;
    Readout& readout;
    LevelSources& sources;
    WindowTimers& timers;
};

/// A way to measure a curve: it begins, its timer ticks, its readings come, the line has nothing to do, and
/// it ends. Everything else is the same for all shapes.
///
/// To add one: a class here in a file of its own, its commands in start_commands, its row in
/// Measurement::ShapeOf.
class RunShape {
public:
    explicit RunShape(const RunParts& parts) : m_Parts(parts) {}
    RunShape(const RunShape&) = delete;
    RunShape& operator=(const RunShape&) = delete;
    virtual ~RunShape() = default;

    /// Empties the curve, queues the commands of a run and arms its ticks.
    virtual void Begin() = 0;
    /// The same for a further pass, whose points replace those of the one before.
    virtual void Repeat() = 0;
    /// What the pass in progress asks for, and what has come.
    [[nodiscard]] virtual PassTally Tally() const = 0;
    /// A reading of the instrument, with the tag and the frequency of its question.
    virtual void Reply(const Reading& reading, int tag, float product) = 0;
    /// The head of the queue is about to go out.
    virtual void BeforeSend() {}
    /// A send tick that sends nothing.
    virtual void Idle() {}
    /// The run has ended by itself: the ticks stop, and this is sent behind the steps.
    virtual void Finish() = 0;
    /// The run is stopped: the ticks stop, and this is sent. Nothing else is queued.
    virtual void Stop() = 0;

protected:
    /// Queues what a start has put together; nothing that waits belongs to a step any more.
    void Queue(const StartCommands& commands);
    /// A reading as it is kept and shown, dBm with both corrections of the run; never 0, which is no level.
    [[nodiscard]] float Corrected(const Reading& reading) const;
    void Show(float dBm);

    const RunParts m_Parts;
};

} // namespace qor
