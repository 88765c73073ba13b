#pragma once

#include "platform/visa.h"

#include <functional>
#include <memory>

namespace qor::visa {

/// Puts every call of a VISA library on a thread of its own and comes back by a deadline, whatever the
/// library does. A call that is given up is left to its thread; the library is then taken as gone until
/// OpenDefaultRM, which makes a fresh one.
///
/// While a call is under way `whileWaiting` runs every 50 ms: the window repaints there, and a stop or the
/// way out gives the call up through Abandon.
class BoundedVisa final : public VisaLibrary {
public:
    using Factory = std::function<std::unique_ptr<VisaLibrary>()>;

    explicit BoundedVisa(Factory factory);
    ~BoundedVisa() override;

    void SetWhileWaiting(std::function<void()> whileWaiting) { m_WhileWaiting = std::move(whileWaiting); }
    /// Gives the call up that is under way; it comes back at once as failed. For use in `whileWaiting`.
    void Abandon() { m_Abandon = true; }

    VisaStatus OpenDefaultRM(VisaSession& manager) override;
    VisaStatus Open(VisaSession manager, std::string_view address, VisaSession& session) override;
    VisaStatus Close(VisaSession session) override;
    VisaStatus SetAttribute(VisaSession session, VisaAttribute attribute, std::uint32_t value) override;
    VisaStatus Write(VisaSession session, std::string_view text) override;
    VisaStatus Read(VisaSession session, std::size_t limit, std::string& reply) override;

private:
    struct Worker;
    struct Answer {
        VisaStatus status;
        VisaSession session = 0;
        std::string reply;
    };
    using Job = std::function<Answer(VisaLibrary&)>;
    [[nodiscard]] Answer Do(Job job, int limitMs);
    [[nodiscard]] int TransferMs() const { return m_TimeoutMs + 500; }

    Factory m_Factory;
    std::shared_ptr<Worker> m_Worker; ///< none once a call was given up
    std::function<void()> m_WhileWaiting;
    int m_TimeoutMs = 2000; ///< the longest that a session was given
    bool m_Abandon = false;
};

} // namespace qor::visa
