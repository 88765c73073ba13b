#include "platform/qt/qt_timers.h"

#include <QTimer>
#include <QTimerEvent>

#include <algorithm>

namespace qor {

void QtTimers::SetTimer(int id, int periodMs) {
    KillTimer(id);
    Slot& slot = m_Slots[Index(id)];
    slot.handle = startTimer(periodMs, Qt::PreciseTimer);
}

void QtTimers::KillTimer(int id) {
    Slot& slot = m_Slots[Index(id)];
    if (slot.handle != 0)
        killTimer(slot.handle);
    slot = {};
}

void QtTimers::timerEvent(QTimerEvent* event) {
    for (std::size_t id = 0; id < m_Slots.size(); ++id) {
        if (m_Slots[id].handle == event->timerId()) {
            Tick(static_cast<int>(id));
            return;
        }
    }
}

void QtScheduler::At(std::int64_t microseconds, std::function<void()> action) {
    const std::int64_t wait = std::max<std::int64_t>(0, microseconds - NowMicroseconds());
    QTimer::singleShot(std::chrono::milliseconds((wait + 999) / 1000), Qt::PreciseTimer, this,
                       std::move(action));
}

} // namespace qor
