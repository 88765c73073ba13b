#pragma once

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

namespace qor::visa {

/// Puts every call of a library on a thread of its own and comes back by a deadline, whatever the library
/// does. A call that is given up is left to its thread, and its library with it: the next Start makes a fresh
/// one. Nothing waits for it, not even the end of the program.
template <typename Library> class CallThread {
public:
    using Factory = std::function<std::unique_ptr<Library>()>;
    using Job = std::function<void(Library&)>;
    enum class Call { Done, NoLibrary, GivenUp };

    explicit CallThread(Factory factory) : m_Factory(std::move(factory)) {}
    CallThread(const CallThread&) = delete;
    CallThread& operator=(const CallThread&) = delete;
    ~CallThread() {
        if (m_Worker)
            m_Worker->End();
    }

    void SetWhileWaiting(std::function<void()> whileWaiting) { m_WhileWaiting = std::move(whileWaiting); }
    /// Gives the call up that is under way. For use in `whileWaiting`.
    void Abandon() { m_Abandon = true; }

    /// The library is made, on its thread, unless there is one.
    void Start() {
        if (m_Worker)
            return;
        m_Worker = std::make_shared<Worker>();
        std::thread([worker = m_Worker, factory = m_Factory] { worker->Work(factory()); }).detach();
    }

    /// What `job` writes has to live as long as the job itself: it may end long after it was given up.
    [[nodiscard]] Call Do(Job job, int limitMs) {
        if (!m_Worker)
            return Call::NoLibrary;
        const std::shared_ptr<Worker> worker = m_Worker;
        std::unique_lock lock(worker->mutex);
        worker->job = std::move(job);
        worker->state = State::Asked;
        worker->changed.notify_all();
        const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(limitMs);
        m_Abandon = false;
        const auto isOver = [&] { return worker->state == State::Done || worker->state == State::Empty; };
        while (!worker->changed.wait_until(lock, std::min(end, std::chrono::steady_clock::now() + Tick),
                                           isOver)) {
            lock.unlock();
            if (m_WhileWaiting)
                m_WhileWaiting();
            lock.lock();
            if (isOver())
                break;
            if (m_Abandon || std::chrono::steady_clock::now() >= end) {
                worker->over = true;
                worker->changed.notify_all();
                m_Worker.reset();
                return Call::GivenUp;
            }
        }
        return worker->state == State::Done ? Call::Done : Call::NoLibrary;
    }

private:
    static constexpr auto Tick = std::chrono::milliseconds(50);
    enum class State { Idle, Asked, Done, Empty };

    /// What the two threads share; the library's own thread holds it, too.
    struct Worker {
        std::mutex mutex;
        std::condition_variable changed;
        Job job;
        State state = State::Idle;
        bool over = false;

        void End() {
            const std::lock_guard lock(mutex);
            over = true;
            changed.notify_all();
        }
        void Work(const std::unique_ptr<Library>& library) {
            std::unique_lock lock(mutex);
            for (;;) {
                changed.wait(lock, [&] { return over || state == State::Asked; });
                if (over)
                    return;
                const Job now = std::move(job);
                lock.unlock();
                if (library)
                    now(*library);
                lock.lock();
                state = library ? State::Done : State::Empty;
                changed.notify_all();
            }
        }
    };

    Factory m_Factory;
    std::shared_ptr<Worker> m_Worker; ///< none once a call was given up
    std::function<void()> m_WhileWaiting;
    bool m_Abandon = false;
};

} // namespace qor::visa
