#pragma once

#include "platform/clock.h"
#include "platform/scheduler.h"
#include "platform/timers.h"

#include <queue>

#include <array>
#include <cstdint>
#include <functional>
#include <vector>

namespace qor::test {

/// Clock, timers and scheduler of one virtual world. Time passes only in RunFor and in Sleep; an hour of it
/// costs what its handlers cost.
class VirtualTime {
public:
    class Timers final : public WindowTimers {
    public:
        explicit Timers(VirtualTime& time) : m_Time(time) {}
        void SetTimer(int id, int periodMs) override;
        void KillTimer(int id) override { m_Slots[static_cast<std::size_t>(id)].dueUs = Never; }
        [[nodiscard]] bool Runs(int id) const { return m_Slots[static_cast<std::size_t>(id)].dueUs != Never; }

    private:
        friend class VirtualTime;
        static constexpr std::int64_t Never = INT64_MAX;
        struct Slot {
            std::int64_t dueUs = Never;
            std::int64_t periodUs = 0;
            bool ticking = false; ///< its handler has not come back: it does not tick inside it
        };
        void Fire(int id);
        VirtualTime& m_Time;
        std::array<Slot, 64> m_Slots;
    };

    class Clock final : public WallClock {
    public:
        explicit Clock(VirtualTime& time) : m_Time(time) {}
        [[nodiscard]] std::int64_t TickMs() const override { return m_Time.m_NowUs / 1000; }
        void Sleep(int ms) override { m_Time.m_NowUs += std::int64_t{ms} * 1000; }
        [[nodiscard]] LocalTime Now() const override { return {2026, 3, 7, 9, 5, second}; }

        int second = 12;

    private:
        VirtualTime& m_Time;
    };

    class Later final : public Scheduler {
    public:
        explicit Later(VirtualTime& time) : m_Time(time) {}
        [[nodiscard]] std::int64_t NowMicroseconds() const override { return m_Time.m_NowUs; }
        void At(std::int64_t us, std::function<void()> action) override {
            m_Time.m_Actions.push({us, m_Time.m_Order++, std::move(action)});
        }

    private:
        VirtualTime& m_Time;
    };

    Timers timers{*this};
    Clock clock{*this};
    Later later{*this};

    void RunFor(std::int64_t ms) {
        const std::int64_t end = m_NowUs + ms * 1000;
        while (Step(end)) {
        }
        m_NowUs = std::max(m_NowUs, end);
    }
    /// Runs until `done` says so; false when `limitMs` went by first.
    bool RunUntil(const std::function<bool()>& done, std::int64_t limitMs) {
        const std::int64_t end = m_NowUs + limitMs * 1000;
        while (!done()) {
            if (!Step(end))
                return false;
        }
        return true;
    }
    [[nodiscard]] std::int64_t NowMs() const { return m_NowUs / 1000; }

private:
    struct Action {
        std::int64_t dueUs;
        std::uint64_t order;
        std::function<void()> run;
        bool operator<(const Action& other) const {
            return dueUs != other.dueUs ? dueUs > other.dueUs : order > other.order;
        }
    };

    bool Step(std::int64_t endUs);

    std::int64_t m_NowUs = 0;
    std::uint64_t m_Order = 0;
    std::priority_queue<Action> m_Actions;
};

} // namespace qor::test
