#include "service/response_pane.h"

#include <utility>

namespace qor {

namespace {

/// A line that never ends must not fill the memory.
constexpr std::size_t LongestText = 4096;

} // namespace

void ResponsePane::Clear() {
    ++m_Version;
    m_Text.clear();
    if (!m_Begun.empty())
        AddLine("< " + std::exchange(m_Begun, {}));
}

void ResponsePane::Note(std::string_view command) {
    AddLine("> " + std::string(command));
}

void ResponsePane::Take(std::string_view piece) {
    if (!g_showResponse)
        return;
    ++m_Version;
    if (m_Text.size() < LongestText)
        m_Text += piece;
    for (const char c : piece) {
        if (c == '\n' || m_Begun.size() >= LongestText)
            AddLine("< " + std::exchange(m_Begun, {}));
        else if (c != '\r')
            m_Begun += c;
    }
}

void ResponsePane::AddLine(std::string line) {
    ++m_Version;
    m_Lines.push_back(std::move(line));
    if (m_Lines.size() > MostLines)
        m_Lines.pop_front();
}

} // namespace qor
