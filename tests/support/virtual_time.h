#pragma once

#include "platform/clock.h"
#include "platform/scheduler.h"
#include "platform/timers.h"

#include <queue>

#include <array>
#include <cstdint>
#include <functional>
#include <random>
#include <vector>

namespace qor::test {

/// Clock, timers and scheduler of one virtual world. Time passes only in RunFor and in Sleep; an hour of it
/// costs what its handlers cost. Each tick comes 1 to 3 ms late, as the seed has it: timers of equal periods
/// take turns in every order, as they do in a window.
class VirtualTime {
public:
    explicit VirtualTime(unsigned seed = 1) : m_Random(seed) {}

    class Timers final : public WindowTimers {
    public:
        explicit Timers(VirtualTime& time) : m_Time(time) {}
        void SetTimer(int id, int periodMs) override;
        void KillTimer(int id) override {
            Slot& slot = m_Slots[Index(id)];
            slot.tickUs = slot.dueUs = Never;
        }
        [[nodiscard]] bool Runs(int id) const { return m_Slots[Index(id)].tickUs != Never; }

    private:
        friend class VirtualTime;
        static constexpr std::int64_t Never = INT64_MAX;
        struct Slot {
            std::int64_t tickUs = Never; ///< when the next tick comes: when it is due, and the delay
            std::int64_t dueUs = Never;
            std::int64_t periodUs = 0;
            bool ticking = false; ///< its handler has not come back: it does not tick inside it
        };
        void Fire(int id);
        VirtualTime& m_Time;
        std::array<Slot, Count> m_Slots;
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
    std::int64_t DelayUs() { return std::uniform_int_distribution<std::int64_t>(1000, 3000)(m_Random); }

    std::mt19937 m_Random;
    std::int64_t m_NowUs = 0;
    std::uint64_t m_Order = 0;
    std::priority_queue<Action> m_Actions;
};

} // namespace qor::test
