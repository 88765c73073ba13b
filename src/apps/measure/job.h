#pragma once

#include "apps/measure/console.h"
#include "apps/measure/options.h"
#include "apps/measure/outcome.h"
#include "desk/commands.h"
#include "desk/dialogs.h"
#include "desk/program.h"
#include "platform/wire_log.h"

#include <QElapsedTimer>
#include <QTimer>

#include <functional>
#include <set>
#include <string>

namespace qor::app {

/// One measurement from power-on to saved files, looking at the program a few times a second as an operator
/// would: wait for ready, choose, start, watch, save, exit.
class Job {
public:
    /// `stopAsked` is true once somebody wants the call to end early.
    Job(Program& program, const Options& options, Console& console, const WireLog& wire,
        std::function<bool()> stopAsked, std::function<void()> finished);

    void Start();
    [[nodiscard]] const CallResult& Result() const { return m_Outcome; }

private:
    enum class Phase { Search, Idle, Select, Settle, Measure, Drain, Exit };

    void Look();
    void TellDamaged();
    void LookForInstrument();
    void ChoosePort();
    void TellNoPosition();
    void WaitIdle();
    void Choose();
    void Settle();
    void Watch();
    void EndSpectrum();
    void Drain();
    Outcome SelectAll();
    void ApplySettings();
    [[nodiscard]] std::string WhyNoVerdict(const RunFacts& facts) const;
    void SaveFiles();
    Outcome Save(const std::filesystem::path& path);
    void KeepWire();
    void Finish(ExitStatus status, std::string message = {});
    void OnLeft();
    [[nodiscard]] double ExpectedSeconds() const;
    [[nodiscard]] double TimeLimit() const; ///< s
    [[nodiscard]] bool IsToEnd() const;
    [[nodiscard]] bool ContactWasLost() const;

    /// A call has nobody to fill a dialog in.
    class NoDialogs final : public Dialogs {
        bool Open(std::string_view, int) override { return false; }
    };

    Program& m_Program;
    NoDialogs m_Dialogs;
    Commands m_Commands;
    const Options& m_Options;
    Console& m_Console;
    const WireLog& m_Wire;
    std::function<bool()> m_StopAsked;
    std::function<void()> m_Finished;
    QTimer m_Timer;
    QTimer m_CallTimer; ///< looks on while what the other one has begun waits
    QElapsedTimer m_Since;
    QElapsedTimer m_InPhase;
    Phase m_Phase = Phase::Search;
    CallResult m_Outcome;
    int m_LossesAtStart = 0;
    std::set<std::string> m_ToldDamaged;
    std::string m_ToldNoPosition; ///< the band for which the band switch unit has none
};

} // namespace qor::app
