#pragma once

#include <QSocketNotifier>

#include <functional>
#include <memory>

namespace qor::app {

/// Calls `onEnd`, from the event loop and once, when the process is asked to end: SIGINT, SIGTERM, SIGHUP or
/// SIGQUIT. A program that drives carriers must not die of them, nor of a reader of its output that is gone,
/// nor be stopped at the terminal (Ctrl-Z) with the carriers on: those signals do nothing. At most one lives
/// at a time.
class EndSignals {
public:
    explicit EndSignals(std::function<void()> onEnd);
    ~EndSignals();
    EndSignals(const EndSignals&) = delete;
    EndSignals& operator=(const EndSignals&) = delete;

private:
    std::unique_ptr<QSocketNotifier> m_Notifier;
};

} // namespace qor::app
