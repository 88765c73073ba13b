#pragma once

#include "curve/run_matrix.h"
#include "measure/run_shape.h"
#include "platform/timers.h"

#include <bitset>
#include <string_view>
#include <vector>

namespace qor {

/// A curve over frequency: one tone moves in steps, each step is read once and lands at its place on the
/// grid. The steps come from a timer and the queue takes them, however slow the line is. Behind the last
/// step:
///
///   Stepped   the line has everything, nothing is awaited: the last commands go out
///   Closing   a quarter of a second for them; the receiver is released, the points are judged
///   Over      the run is told so on every idle tick, until it ends or begins again
class SteppedShape : public RunShape {
public:
    [[nodiscard]] PassTally Tally() const override;
    void Reply(const Reading& reading, int tag, float product) override;
    void BeforeSend() override;
    void Idle() override;
    void Finish() override;
    void Stop() override;

protected:
    enum class Stage { None, Up, Down, Stepped, Closing, Over };

    SteppedShape(const RunParts& parts, int stepTimer, int waitTimer);

    /// Tone 1 of a step of the rising half, and whether the half has such a step.
    [[nodiscard]] static float F1At(const FrequencyPlan& plan, int step);
    [[nodiscard]] static bool RisesTo(const FrequencyPlan& plan, int step);

    /// A tick of the steps: Stage Up or Down, and the queue has room.
    virtual void NextStep() = 0;
    /// What a stop sends ahead of the path.
    virtual void QueueCarriersOff() = 0;

    /// A step that the pass will ask for. Its product gets a place on the grid of the curve where the two
    /// lists that the grid is made of leave it out.
    struct Step {
        float product; ///< MHz
        bool down;
    };
    /// What the passes of the run will ask for. The grid is in place.
    void Expect(const std::vector<Step>& steps);
    /// Queues the commands and arms the steps. An external receiver is waited for, less `ticksWaited`.
    void BeginPass(const StartCommands& commands, int ticksWaited);
    /// The same without a wait; a step each `period` ms.
    void BeginSteps(const StartCommands& commands, int period);
    void QueueStep(std::string_view command, float frequency, int tag, float product);
    /// No more steps.
    void StopStepping();

    // What a shape may see otherwise.
    /// A reading as the curve keeps it.
    [[nodiscard]] virtual float Kept(const Reading& reading) const { return Corrected(reading); }
    virtual void ShowKept(float dBm) { Show(dBm); }
    /// A point has come: the tones shown follow the points, not the commands.
    virtual void TonesMoved(float product, bool down);
    /// A level has found its place in the curve.
    virtual void Stored(float /*product*/, float /*dBm*/, bool /*down*/) {}
    /// Behind this pass the carriers go off.
    [[nodiscard]] virtual bool IsLastPass() const;

    Stage m_Stage = Stage::None; ///< g_SweepPhase
    int m_Step = 0;              ///< of the next step; its frequency follows from it, no errors add up
    /// The reading that comes next belongs to the first step of a half: the tones shown stand already.
    bool g_SweepMarkFirst = false;

private:
    void BeginUpHalf(const StartCommands& commands);
    void OnStepTick();
    void OnWaitTick();
    void Store(const Reading& reading, float product, bool down);
    [[nodiscard]] bool IntoDown(bool down) const;
    void CloseLine();

    Timer m_StepTimer;
    Timer m_WaitTimer;
    using Places = std::bitset<2 * CurvePoints>; ///< of the up curve, then of the down curve
    Places m_Asked;
    Places m_Taken;
    int m_Placeless = 0;    ///< steps for which the grid has no room
    int m_Retries = 0;      ///< readings of the step in progress that were spoilt
    int g_RecvDelay = 0;    ///< ticks of the wait for an external receiver
    int m_ClosingTicks = 0; ///< of Stage::Closing
};

} // namespace qor
