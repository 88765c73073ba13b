#include "apps/measure/console.h"

#include "receivers/receiver_search.h"

#include <QCoreApplication>

#include <cstdio>
#include <unistd.h>

namespace qor::app {

Console::Console() : m_Terminal(isatty(STDERR_FILENO) == 1) {}

void Console::Message(std::string_view text, std::string_view) {
    const std::size_t begin = text.find_first_not_of('\n');
    const std::string shown(begin == std::string_view::npos ? std::string_view() : text.substr(begin));
    if (shown == m_Last)
        return; // a search says the same every two seconds
    m_Last = shown;
    EndProgress();
    std::fprintf(stderr, "%s\n", shown.c_str());
}

void Console::Notice(std::string_view text) {
    EndProgress();
    std::fprintf(stderr, "%.*s\n", static_cast<int>(text.size()), text.data());
}

bool Console::Ask(std::string_view, std::string_view title) {
    return title != RecoveryTitle;
}

void Console::LetLive() {
    QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
}

void Console::ShowProgress(const std::string& line) {
    if (!m_Terminal)
        return;
    std::fprintf(stderr, "\r%s\x1b[K", line.c_str());
    std::fflush(stderr);
    m_LineShown = true;
}

void Console::EndProgress() {
    if (!m_LineShown)
        return;
    std::fputc('\n', stderr);
    m_LineShown = false;
}

} // namespace qor::app
