#include "support/virtual_time.h"

#include <algorithm>

namespace qor::test {

void VirtualTime::Timers::SetTimer(int id, int periodMs) {
    const std::int64_t period = std::int64_t{periodMs} * 1000;
    const std::int64_t due = m_Time.m_NowUs + period;
    m_Slots[Index(id)] = {due + m_Time.DelayUs(), due, period, false};
}

void VirtualTime::Timers::Fire(int id) {
    Slot& slot = m_Slots[Index(id)];
    // A late timer ticks once for all the periods it missed.
    while (slot.dueUs <= m_Time.m_NowUs)
        slot.dueUs += slot.periodUs;
    slot.tickUs = slot.dueUs + m_Time.DelayUs();
    slot.ticking = true;
    Tick(id);
    slot.ticking = false;
}

/// Runs the next thing due before `endUs`; false when there is none.
bool VirtualTime::Step(std::int64_t endUs) {
    int next = -1;
    std::int64_t due = INT64_MAX;
    for (std::size_t id = 0; id < timers.m_Slots.size(); ++id) {
        if (timers.m_Slots[id].tickUs < due && !timers.m_Slots[id].ticking) {
            due = timers.m_Slots[id].tickUs;
            next = static_cast<int>(id);
        }
    }
    const bool action = !m_Actions.empty() && m_Actions.top().dueUs <= due;
    if (action)
        due = m_Actions.top().dueUs;
    if (due > endUs || (next < 0 && !action))
        return false;
    m_NowUs = std::max(m_NowUs, due);
    if (action) {
        const auto run = m_Actions.top().run;
        m_Actions.pop();
        run();
    } else {
        timers.Fire(next);
    }
    return true;
}

} // namespace qor::test
