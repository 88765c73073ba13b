#pragma once

#include "platform/timers.h"
#include "results/result_document.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qor {

class Channel;
class Program;

inline constexpr int AutoSaveTimer = 47;

/// Saves each run that has ended, if the operator wants that, as soon as the carriers are off: a question
/// about it stands while nothing is sent, and no further run begins before the files are written.
class AutoSaver {
public:
    /// `onSaved` is told once the files are written and a start was asked for meanwhile.
    AutoSaver(Program& program, Channel& channel, std::function<void()> onSaved);

    /// A run has ended; its files wait for the echoes of the off commands, two seconds at most.
    void RunHasEnded();
    /// A start that was asked for meanwhile is not wanted any more.
    void DropStart() { m_StartAsked = false; }
    [[nodiscard]] bool IsBusy() const { return m_Busy; }
    /// A start was asked for: it begins behind the files.
    void StartAfterwards() { m_StartAsked = true; }
    /// The program ends: what waits is written once the carriers are off, and nothing is asked.
    void WaitForEnd() { m_Timer.Stop(); }
    void SaveAtEnd();

private:
    /// A run as it is going to be filed.
    struct Filed {
        ResultDocument document;
        std::string mark; ///< in its names: "_error", "_incomplete" or nothing
        int number = 0;
        bool replaces = true; ///< files that exist
    };

    void OnTimer();
    void TagAutoSaveReport(bool mayAsk);
    [[nodiscard]] bool SettleNames(Filed& filed, bool mayAsk) const;
    [[nodiscard]] std::filesystem::path PathOf(const Filed& filed, int number, std::string_view ending) const;
    [[nodiscard]] std::filesystem::path FirstExisting(const Filed& filed, int number) const;
    void WriteFiles(const Filed& filed);
    [[nodiscard]] std::string Write(const Filed& filed, std::string_view ending);
    void Finish();

    Program& m_Program;
    Channel& m_Channel;
    std::function<void()> m_OnSaved;
    Timer m_Timer;
    std::optional<ResultDocument> m_Document; ///< of the run that has ended
    int m_Waited = 0;                         ///< ms
    bool m_Busy = false;
    bool m_StartAsked = false;
};

} // namespace qor
