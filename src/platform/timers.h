#pragma once

#include <functional>
#include <utility>

namespace qor {

/// Periodic timers of the main window, told apart by number.
///
/// A timer that is late ticks once, not once for each period missed. Handlers run one at a time; a tick
/// that is due while another handler runs comes after it.
class WindowTimers {
public:
    WindowTimers() = default;
    WindowTimers(const WindowTimers&) = delete;
    WindowTimers& operator=(const WindowTimers&) = delete;
    virtual ~WindowTimers() = default;

    /// Starts timer `id` (0 to 63) with a period in ms, or restarts it from now if it runs.
    virtual void SetTimer(int id, int periodMs) = 0;
    virtual void KillTimer(int id) = 0;

    void SetHandler(std::function<void(int id)> handler) { m_Handler = std::move(handler); }

protected:
    void Tick(int id) {
        if (m_Handler)
            m_Handler(id);
    }

private:
    std::function<void(int)> m_Handler;
};

} // namespace qor
