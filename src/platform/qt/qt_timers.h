#pragma once

#include "platform/scheduler.h"
#include "platform/timers.h"

#include <QElapsedTimer>
#include <QObject>

#include <array>

namespace qor {

/// The window timers on Qt's event loop.
class QtTimers final : public QObject, public WindowTimers {
public:
    void SetTimer(int id, int periodMs) override;
    void KillTimer(int id) override;

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    struct Slot {
        int handle = 0;
    };
    std::array<Slot, Count> m_Slots{};
};

/// Later calls on Qt's event loop, for the simulated instrument inside the program.
class QtScheduler final : public QObject, public Scheduler {
public:
    QtScheduler() { m_Since.start(); }

    [[nodiscard]] std::int64_t NowMicroseconds() const override { return m_Since.nsecsElapsed() / 1000; }
    void At(std::int64_t microseconds, std::function<void()> action) override;

private:
    QElapsedTimer m_Since;
};

} // namespace qor
