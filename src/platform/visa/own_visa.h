#pragma once

#include "platform/visa.h"
#include "platform/visa/link.h"

#include <functional>
#include <map>
#include <memory>

namespace qor::visa {

/// VISA without an installed library: raw sockets, VXI-11, HiSLIP and USBTMC, chosen by the address. Every
/// call comes back: an open within 2.5 s, a transfer within the session's timeout (2 s unless set). It waits
/// on the thread that calls: an answer costs no change of threads.
class OwnVisa final : public VisaLibrary {
public:
    /// A link for an address, not open yet; none for a form that it does not reach.
    using LinkMaker = std::function<std::unique_ptr<Link>(const Address&)>;

    explicit OwnVisa(LinkMaker makeLink = MakeLink) : m_MakeLink(std::move(makeLink)) {}

    void SetWhileWaiting(std::function<void()> whileWaiting) override {
        m_Patience.whileWaiting = std::move(whileWaiting);
    }
    void Abandon() override { m_Patience.givenUp = true; }
    void LimitOpen(int ms) override { m_OpenMs = ms; }
    VisaStatus OpenDefaultRM(VisaSession& manager) override;
    VisaStatus Open(VisaSession manager, std::string_view address, VisaSession& session) override;
    VisaStatus Close(VisaSession session) override;
    VisaStatus SetAttribute(VisaSession session, VisaAttribute attribute, std::uint32_t value) override;
    VisaStatus Write(VisaSession session, std::string_view text) override;
    /// One whole message, of which the first `limit` bytes are given.
    VisaStatus Read(VisaSession session, std::size_t limit, std::string& reply) override;

private:
    struct Conversation {
        std::unique_ptr<Link> link; ///< none for a manager
        int timeoutMs = 2000;
    };
    [[nodiscard]] Conversation* Find(VisaSession session);
    [[nodiscard]] Deadline In(int ms);

    Patience m_Patience;
    int m_OpenMs = 0; ///< 0: the usual one
    LinkMaker m_MakeLink;
    std::map<VisaSession, Conversation> m_Sessions;
    VisaSession m_Last = 0;
};

} // namespace qor::visa
