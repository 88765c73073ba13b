#include "apps/measure/console.h"

#include "receivers/receiver_search.h"

#include <QCoreApplication>

#include <cstdio>
#include <poll.h>
#include <unistd.h>

namespace qor::app {

namespace {

/// Who does not read what is told, behind a pipe or a halted terminal, must not hold up a run: it waits this
/// long for him, milliseconds, and then goes on without the line.
constexpr int PatienceMs = 50;

void Write(const std::string& text, int patienceMs = PatienceMs) {
    pollfd reader{STDERR_FILENO, POLLOUT, 0};
    if (poll(&reader, 1, patienceMs) == 1)
        std::fputs(text.c_str(), stderr);
}

} // namespace

Console::Console() : m_Terminal(isatty(STDERR_FILENO) == 1) {}

void Console::Message(std::string_view text, std::string_view) {
    const std::size_t begin = text.find_first_not_of('\n');
    const std::string shown(begin == std::string_view::npos ? std::string_view() : text.substr(begin));
    if (shown == m_Last)
        return; // a search says the same every two seconds
    m_Last = shown;
    EndProgress();
    Write(shown + '\n');
}

void Console::Notice(std::string_view text) {
    EndProgress();
    Write(std::string(text) + '\n');
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
    Write("\r" + line + "\x1b[K", 0);
    m_LineShown = true;
}

void Console::EndProgress() {
    if (!m_LineShown)
        return;
    Write("\n");
    m_LineShown = false;
}

} // namespace qor::app
