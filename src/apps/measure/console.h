#pragma once

#include "platform/operator.h"

#include <string>

namespace qor::app {

/// The shell as the operator: messages go to standard error, every question is answered Yes but the one that
/// would look for a lost receiver, and while a run is on a terminal has one line that shows how it goes.
class Console final : public Operator {
public:
    Console();
    ~Console() override { EndProgress(); }

    void Message(std::string_view text, std::string_view title = {}) override;
    [[nodiscard]] bool Ask(std::string_view text, std::string_view title) override;
    void LetLive() override;

    [[nodiscard]] Answer AskOrCancel(std::string_view, std::string_view) override { return Answer::Yes; }

    /// A line beside the messages.
    void Notice(std::string_view text);
    /// Replaces the progress line; nothing on a pipe.
    void ShowProgress(const std::string& line);
    void EndProgress();

private:
    bool m_Terminal;
    bool m_LineShown = false;
    std::string m_Last;
};

} // namespace qor::app
