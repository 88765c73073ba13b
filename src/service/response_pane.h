#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>

namespace qor {

/// What the instrument has answered, for a service page: the reply to the last command, and the lines before
/// it.
class ResponsePane {
public:
    static constexpr std::size_t MostLines = 1000;

    /// The pane is on: what comes stands in it.
    [[nodiscard]] bool IsShown() const { return g_showResponse; }
    [[nodiscard]] const std::string& Text() const { return m_Text; }
    /// Commands and replies, oldest first, "> #SAB?" and "< SAB3".
    [[nodiscard]] const std::deque<std::string>& Lines() const { return m_Lines; }
    /// Grows with each change of text or lines.
    [[nodiscard]] unsigned Version() const { return m_Version; }

    /// Empties the pane, the lines stay, and shows what comes from now on.
    void Begin() {
        g_showResponse = true;
        Clear();
    }
    void End() { g_showResponse = false; }
    void Clear();
    /// A command goes out.
    void Note(std::string_view command);
    /// A piece of a reply.
    void Take(std::string_view piece);

private:
    void AddLine(std::string line);

    bool g_showResponse = false; ///< replies go to the pane
    std::string m_Text;
    std::string m_Begun; ///< of a line whose end has not come
    std::deque<std::string> m_Lines;
    unsigned m_Version = 0;
};

} // namespace qor
