#pragma once

#include "base/outcome.h"
#include "curve/verdict.h"
#include "platform/clock.h"
#include "platform/timers.h"
#include "service/service_activity.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>

namespace qor {

class Curve;
class FactoryMode;
class Run;
class WorkingSet;
struct LinkState;

enum FatigueTimer : int { fatiguecycletimer = 54, fatiguedelaytimer = 55, fatiguechecktimer = 56 };

/// What the operator has entered.
struct FatigueSettings {
    static constexpr int LongestSeconds = 100;
    static constexpr int MostTimes = 100000;

    int on = 10;    ///< s from the press that starts to the press that stops, 1 to 100
    int off = 10;   ///< s from there to the next press that starts, 1 to 100
    int times = 10; ///< cycles, 1 to 100000

    [[nodiscard]] bool IsInRange() const {
        return on >= 1 && on <= LongestSeconds && off >= 1 && off <= LongestSeconds && times >= 1 &&
               times <= MostTimes;
    }
};

/// A run of the test that is over.
struct FatigueCycle {
    int number = 0; ///< counted from 1
    LocalTime begun;
    int seconds = 0; ///< from the press to its end
    RunFacts facts;
};

/// The start button as the test has it.
struct FatigueButton {
    std::function<Outcome()> press; ///< starts, or stops the run that is on
    std::function<void()> drop;     ///< a start that waits does not begin
    std::function<void(const Outcome&)> tell;
};

/// The fatigue test: presses the start button in the operator's stead, a 2-tone run for a while, a pause,
/// again and again. It measures nothing itself, and is refused whatever the operator would be.
///
/// The first press comes a whole period behind the start of the test. Both timers press the same button:
/// where a run ends by itself before it is stopped, the next press starts one, and on-time and pause change
/// places.
class FatigueTest final : public ServiceActivity {
public:
    struct Rooms {
        FactoryMode& factory;
        WorkingSet& working;
        const Run& run;
        const Curve& curve;
        const LinkState& link;
    };
    /// Protocols go into `folder`.
    FatigueTest(const Rooms& rooms, WindowTimers& timers, WallClock& clock, std::filesystem::path folder,
                FatigueButton button);

    /// What the fields hold, in range or not.
    [[nodiscard]] const FatigueSettings& Entered() const { return m_Entered; }
    void Enter(const FatigueSettings& settings) { m_Entered = settings; }
    /// Refused without a word for settings out of range, and with one where no protocol can be written.
    Outcome Start();
    /// Ends it, and stops its run.
    void Stop() override;
    void ContactIsLost() override { End(); }
    /// A press has waited until the files of the run before were written.
    void PressAfterSaving();
    /// A run is over, by whatever way.
    void RunIsOver();

    [[nodiscard]] bool IsOn() const { return m_IsOn; }
    [[nodiscard]] int Begun() const { return m_FatigueDone; }     ///< presses that begin a cycle
    [[nodiscard]] int Finished() const { return m_FinishedRuns; } ///< runs that are over
    [[nodiscard]] const std::optional<FatigueCycle>& Last() const { return m_Last; }
    [[nodiscard]] std::optional<float> Worst() const { return m_Worst; } ///< dBm, of all cycles
    /// s until the test ends by itself; 0 when it is off.
    [[nodiscard]] int SecondsLeft() const;
    /// Empty before the first test.
    [[nodiscard]] const std::filesystem::path& Protocol() const { return m_Path; }
    /// A cycle could not be written.
    [[nodiscard]] bool ProtocolIsShort() const { return m_ProtocolIsShort; }

private:
    void OnCycle();
    void OnDelay();
    void OnCheck();
    void Press();
    void End();
    [[nodiscard]] bool WasRefused() const;
    [[nodiscard]] std::string Head() const;
    void Write(const FatigueCycle& cycle);

    Rooms m_Rooms;
    WallClock& m_Clock;
    std::filesystem::path m_Folder;
    FatigueButton m_Button;
    Timer m_CycleTimer; ///< begins cycles
    Timer m_DelayTimer; ///< puts the check the on-time behind them
    Timer m_CheckTimer; ///< stops their runs

    bool m_IsOn = false;
    FatigueSettings m_Entered;
    FatigueSettings m_Settings; ///< of the test
    int m_FatigueDone = 0;      ///< cycles begun
    bool m_Pressed = false;
    bool m_Refused = false;
    bool m_RunIsOwn = false; ///< the run that is on, or waits, is the test's
    std::int64_t m_StartMs = 0;
    std::int64_t m_PressMs = 0;
    LocalTime m_PressTime;
    int m_FinishedRuns = 0;
    std::optional<FatigueCycle> m_Last;
    std::optional<float> m_Worst;
    std::filesystem::path m_Path;
    bool m_ProtocolIsShort = false;
};

} // namespace qor
