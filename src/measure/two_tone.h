#pragma once

#include "measure/run_shape.h"
#include "platform/timers.h"

namespace qor {

/// 2-tone: both tones fixed, level against time.
class TwoTone final : public RunShape {
public:
    explicit TwoTone(const RunParts& parts);

    void Begin() override;
    void Repeat() override;
    [[nodiscard]] PassTally Tally() const override;
    void Reply(const Reading& reading, int tag, float product) override;
    void Finish() override;
    void Stop() override;

private:
    void BeginPass(const StartCommands& commands);
    void OnTick();
    [[nodiscard]] int Points() const;
    [[nodiscard]] bool TimeIsUp() const;

    Timer m_Timer;           ///< T2messuretimer
    int m_Ticks = 0;         ///< of the pass in progress
    bool m_Repeated = false; ///< the pass in progress follows another without a break
    int g_SettleTicks = 0;   ///< of the run, while the readings of an external receiver do not count yet
    int m_Spoilt = 0;        ///< answers of the instrument in the pass that held no level
    int m_Gaps = 0;          ///< places of the pass that an external receiver has left empty
};

} // namespace qor
