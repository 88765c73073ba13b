#include "platform/visa/bounded_visa.h"

#include "platform/visa/own_visa.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>

namespace qor::visa {

namespace {

constexpr auto Tick = std::chrono::milliseconds(50);
constexpr int OpenMs = 3000;
constexpr int CloseMs = 500;

} // namespace

/// What the two threads share. The worker's thread holds it too, so that a call that was given up can end in
/// peace.
struct BoundedVisa::Worker {
    std::mutex mutex;
    std::condition_variable changed;
    std::optional<Job> job;
    std::optional<Answer> answer;
    bool over = false;
};

BoundedVisa::BoundedVisa(Factory factory) : m_Factory(std::move(factory)) {}

BoundedVisa::~BoundedVisa() {
    if (!m_Worker)
        return;
    const std::lock_guard lock(m_Worker->mutex);
    m_Worker->over = true;
    m_Worker->changed.notify_all();
}

BoundedVisa::Answer BoundedVisa::Do(Job job, int limitMs) {
    if (!m_Worker)
        return {ErrorConnectionLost, 0, {}};
    const std::shared_ptr<Worker> worker = m_Worker;
    std::unique_lock lock(worker->mutex);
    worker->job = std::move(job);
    worker->answer.reset();
    worker->changed.notify_all();
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(limitMs);
    m_Abandon = false;
    while (!worker->changed.wait_until(lock, std::min(end, std::chrono::steady_clock::now() + Tick),
                                       [&] { return worker->answer.has_value(); })) {
        lock.unlock();
        if (m_WhileWaiting)
            m_WhileWaiting();
        lock.lock();
        if (worker->answer)
            break;
        if (m_Abandon || std::chrono::steady_clock::now() >= end) {
            worker->over = true;
            worker->changed.notify_all();
            m_Worker.reset();
            return {ErrorTimeout, 0, {}};
        }
    }
    return std::move(*worker->answer);
}

VisaStatus BoundedVisa::OpenDefaultRM(VisaSession& manager) {
    if (!m_Worker) {
        m_Worker = std::make_shared<Worker>();
        std::thread([worker = m_Worker, factory = m_Factory] {
            const std::unique_ptr<VisaLibrary> library = factory();
            std::unique_lock lock(worker->mutex);
            for (;;) {
                worker->changed.wait(lock, [&] { return worker->over || worker->job; });
                if (worker->over)
                    return;
                const Job job = std::move(*worker->job);
                worker->job.reset();
                lock.unlock();
                Answer answer = library ? job(*library) : Answer{ErrorNotFound, 0, {}};
                lock.lock();
                worker->answer = std::move(answer);
                worker->changed.notify_all();
            }
        }).detach();
    }
    const Answer answer = Do(
        [](VisaLibrary& visa) {
            Answer a{};
            a.status = visa.OpenDefaultRM(a.session);
            return a;
        },
        OpenMs);
    manager = answer.session;
    return answer.status;
}

VisaStatus BoundedVisa::Open(VisaSession manager, std::string_view address, VisaSession& session) {
    const Answer answer = Do(
        [manager, text = std::string(address)](VisaLibrary& visa) {
            Answer a{};
            a.status = visa.Open(manager, text, a.session);
            return a;
        },
        OpenMs);
    session = answer.session;
    return answer.status;
}

VisaStatus BoundedVisa::Close(VisaSession session) {
    return Do([session](VisaLibrary& visa) { return Answer{visa.Close(session), 0, {}}; }, CloseMs).status;
}

VisaStatus BoundedVisa::SetAttribute(VisaSession session, VisaAttribute attribute, std::uint32_t value) {
    if (attribute == VisaAttribute::TimeoutMs)
        m_TimeoutMs = std::max(m_TimeoutMs, static_cast<int>(std::min<std::uint32_t>(value, 60000)));
    return Do(
               [=](VisaLibrary& visa) {
                   return Answer{visa.SetAttribute(session, attribute, value), 0, {}};
               },
               CloseMs)
        .status;
}

VisaStatus BoundedVisa::Write(VisaSession session, std::string_view text) {
    return Do(
               [session, copy = std::string(text)](VisaLibrary& visa) {
                   return Answer{visa.Write(session, copy), 0, {}};
               },
               TransferMs())
        .status;
}

VisaStatus BoundedVisa::Read(VisaSession session, std::size_t limit, std::string& reply) {
    Answer answer = Do(
        [session, limit](VisaLibrary& visa) {
            Answer a{};
            a.status = visa.Read(session, limit, a.reply);
            return a;
        },
        TransferMs());
    reply = std::move(answer.reply);
    return answer.status;
}

} // namespace qor::visa
