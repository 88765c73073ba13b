#include "apps/common/end_signals.h"

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace qor::app {

namespace {

constexpr int Signals[] = {SIGINT, SIGTERM, SIGHUP, SIGQUIT};
constexpr int Unheard[] = {SIGPIPE, SIGTSTP, SIGTTOU};

/// A signal handler may do no more than write: the event loop reads at the other end.
int g_Pipe[2] = {-1, -1};

void OnSignal(int) {
    [[maybe_unused]] const ssize_t written = write(g_Pipe[1], "", 1);
}

} // namespace

EndSignals::EndSignals(std::function<void()> onEnd) {
    if (pipe2(g_Pipe, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    m_Notifier = std::make_unique<QSocketNotifier>(g_Pipe[0], QSocketNotifier::Read);
    QObject::connect(m_Notifier.get(), &QSocketNotifier::activated, [this, onEnd = std::move(onEnd)] {
        m_Notifier->setEnabled(false);
        onEnd();
    });
    for (const int signal : Signals)
        std::signal(signal, OnSignal);
    for (const int signal : Unheard)
        std::signal(signal, SIG_IGN);
}

EndSignals::~EndSignals() {
    for (const int signal : Signals)
        std::signal(signal, SIG_DFL);
    for (const int signal : Unheard)
        std::signal(signal, SIG_DFL);
    m_Notifier.reset();
    for (int& end : g_Pipe) {
        if (end >= 0)
            close(end);
        end = -1;
    }
}

} // namespace qor::app
