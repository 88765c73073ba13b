#pragma once

#include "platform/visa.h"
#include "platform/visa/call_thread.h"

namespace qor::visa {

/// A VISA library whose every call comes back by a deadline, whatever it does. Behind a call that is given up
/// it is taken as gone until OpenDefaultRM.
class BoundedVisa final : public VisaLibrary {
public:
    explicit BoundedVisa(CallThread<VisaLibrary>::Factory factory) : m_Calls(std::move(factory)) {}

    void SetWhileWaiting(std::function<void()> whileWaiting) override {
        m_Calls.SetWhileWaiting(std::move(whileWaiting));
    }
    void Abandon() override { m_Calls.Abandon(); }
    /// There is a library; nothing when even its loading was given up.
    [[nodiscard]] std::optional<bool> IsLoaded();
    [[nodiscard]] bool IsInstalled() override;
    void LimitOpen(int ms) override { m_OpenMs = ms; }

    VisaStatus OpenDefaultRM(VisaSession& manager) override;
    VisaStatus Open(VisaSession manager, std::string_view address, VisaSession& session) override;
    VisaStatus Close(VisaSession session) override;
    VisaStatus SetAttribute(VisaSession session, VisaAttribute attribute, std::uint32_t value) override;
    VisaStatus SetBuf(VisaSession session, std::uint32_t bytes) override;
    VisaStatus Write(VisaSession session, std::string_view text) override;
    VisaStatus Read(VisaSession session, std::size_t limit, std::string& reply) override;

private:
    static constexpr int UsualOpenMs = 3000;
    static constexpr int UsualTimeoutMs = 2000;

    struct Answer {
        VisaStatus status = ErrorConnectionLost;
        VisaSession session = 0;
        std::string reply;
    };
    [[nodiscard]] Answer Do(std::function<Answer(VisaLibrary&)> job, int limitMs);
    [[nodiscard]] int TransferMs() const { return m_TimeoutMs + 500; }

    CallThread<VisaLibrary> m_Calls;
    int m_OpenMs = 0;                 ///< 0: the usual one
    int m_TimeoutMs = UsualTimeoutMs; ///< the longest that a session was given
};

} // namespace qor::visa
