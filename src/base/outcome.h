#pragma once

#include <string>
#include <utility>

namespace qor {

/// What became of something that was asked for: it was done, or it was refused with the words that tell the
/// operator why. Nothing is changed by what is refused. A refusal without words is one the operator needs no
/// telling of.
class [[nodiscard]] Outcome {
public:
    [[nodiscard]] static Outcome Done() { return {}; }
    [[nodiscard]] static Outcome Refused(std::string text, std::string title = {}) {
        Outcome outcome;
        outcome.m_Done = false;
        outcome.m_Text = std::move(text);
        outcome.m_Title = std::move(title);
        return outcome;
    }
    /// Done, with something the operator should read nevertheless.
    [[nodiscard]] static Outcome DoneWith(std::string text, std::string title = {}) {
        Outcome outcome = Refused(std::move(text), std::move(title));
        outcome.m_Done = true;
        return outcome;
    }

    [[nodiscard]] bool IsDone() const { return m_Done; }
    explicit operator bool() const { return m_Done; }
    [[nodiscard]] const std::string& Text() const { return m_Text; }
    [[nodiscard]] const std::string& Title() const { return m_Title; }

private:
    Outcome() = default;

    bool m_Done = true;
    std::string m_Text;
    std::string m_Title;
};

} // namespace qor
