#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <utility>

namespace qor {

/// Periodic timers of the main window, told apart by number.
///
/// A timer that is late ticks once, not once for each period missed. Handlers run one at a time; a tick
/// that is due while another handler runs comes after it. Ticks that are due at once come by number.
class WindowTimers {
public:
    static constexpr int Count = 64; ///< numbers 0 to 63

    WindowTimers() = default;
    WindowTimers(const WindowTimers&) = delete;
    WindowTimers& operator=(const WindowTimers&) = delete;
    virtual ~WindowTimers() = default;

    /// Starts timer `id` with a period in ms, or restarts it from now if it runs.
    virtual void SetTimer(int id, int periodMs) = 0;
    virtual void KillTimer(int id) = 0;

    void KillAll() {
        for (int id = 0; id < Count; ++id)
            KillTimer(id);
    }
    /// While they are held no timer ticks: a handler waits inside a call. What is missed does not come later.
    void Hold(bool held) { m_Held = held; }
    void OnTick(int id, std::function<void()> handler) { m_Handlers[Index(id)] = std::move(handler); }

protected:
    [[nodiscard]] static std::size_t Index(int id) { return static_cast<std::size_t>(id); }
    void Tick(int id) {
        if (const auto& handler = m_Handlers[Index(id)]; handler && !m_Held)
            handler();
    }

private:
    std::array<std::function<void()>, Count> m_Handlers;
    bool m_Held = false;
};

/// One of them, held by its owner: it stops with its owner.
class Timer {
public:
    Timer(WindowTimers& timers, int id, std::function<void()> onTick) : m_Timers(timers), m_Id(id) {
        m_Timers.OnTick(id, std::move(onTick));
    }
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;
    ~Timer() {
        Stop();
        m_Timers.OnTick(m_Id, {});
    }

    void Start(int periodMs) { m_Timers.SetTimer(m_Id, periodMs); }
    void Stop() { m_Timers.KillTimer(m_Id); }

private:
    WindowTimers& m_Timers;
    int m_Id;
};

} // namespace qor
