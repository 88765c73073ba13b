#include "platform/visa/own_visa.h"

#include "platform/visa/address.h"
#include "platform/visa/bounded_link.h"
#include "platform/visa/hislip_link.h"
#include "platform/visa/socket_link.h"
#include "platform/visa/usbtmc_link.h"
#include "platform/visa/vxi11_link.h"

#include <fcntl.h>

namespace qor::visa {

namespace {

constexpr int UsualOpenMs = 2500;

VisaStatus StatusOf(LinkResult result) {
    return result == LinkResult::Done       ? Success
           : result == LinkResult::TimedOut ? ErrorTimeout
                                            : ErrorConnectionLost;
}

int OpenDeviceFile(const Address& address) {
    const std::filesystem::path device = UsbtmcDevice(address);
    return device.empty() ? -1 : open(device.c_str(), O_RDWR | O_CLOEXEC);
}

} // namespace

std::unique_ptr<Link> MakeLink(const Address& address) {
    switch (address.kind) {
    case Address::Kind::Socket:
        return std::make_unique<SocketLink>(address);
    case Address::Kind::Vxi11:
        return std::make_unique<Vxi11Link>(address);
    case Address::Kind::Hislip:
        return std::make_unique<HislipLink>(address);
    case Address::Kind::Usbtmc:
        return std::make_unique<BoundedLink>(
            [address] { return std::make_unique<UsbtmcLink>(address, OpenDeviceFile); });
    case Address::Kind::Other:
        break;
    }
    return nullptr;
}

VisaStatus OwnVisa::OpenDefaultRM(VisaSession& manager) {
    manager = ++m_Last;
    m_Sessions[manager];
    return Success;
}

VisaStatus OwnVisa::Open(VisaSession manager, std::string_view address, VisaSession& session) {
    if (!m_Sessions.contains(manager))
        return ErrorInvalidObject;
    const auto parsed = ParseAddress(address);
    if (!parsed)
        return ErrorInvalidName;
    std::unique_ptr<Link> link = m_MakeLink(*parsed);
    if (!link)
        return ErrorNoLibrary;
    const LinkResult opened = link->Open(In(m_OpenMs > 0 ? m_OpenMs : UsualOpenMs));
    if (opened != LinkResult::Done)
        return opened == LinkResult::TimedOut ? ErrorTimeout : ErrorNotFound;
    session = ++m_Last;
    m_Sessions[session].link = std::move(link);
    return Success;
}

/// A call begins, which nobody has given up yet.
Deadline OwnVisa::In(int ms) {
    m_Patience.givenUp = false;
    return Deadline::In(ms, &m_Patience);
}

OwnVisa::Conversation* OwnVisa::Find(VisaSession session) {
    const auto at = m_Sessions.find(session);
    return at != m_Sessions.end() && at->second.link ? &at->second : nullptr;
}

VisaStatus OwnVisa::Close(VisaSession session) {
    return m_Sessions.erase(session) > 0 ? Success : ErrorInvalidObject;
}

VisaStatus OwnVisa::SetAttribute(VisaSession session, VisaAttribute attribute, std::uint32_t value) {
    Conversation* conversation = Find(session);
    if (!conversation)
        return ErrorInvalidObject;
    if (attribute == VisaAttribute::TimeoutMs) // how a library buffers is no matter of messages
        conversation->timeoutMs = static_cast<int>(std::min<std::uint32_t>(value, 60000));
    return Success;
}

VisaStatus OwnVisa::Write(VisaSession session, std::string_view text) {
    Conversation* conversation = Find(session);
    if (!conversation)
        return ErrorInvalidObject;
    return StatusOf(conversation->link->Write(text, In(conversation->timeoutMs)));
}

VisaStatus OwnVisa::Read(VisaSession session, std::size_t limit, std::string& reply) {
    Conversation* conversation = Find(session);
    reply.clear();
    if (!conversation)
        return ErrorInvalidObject;
    const VisaStatus status = StatusOf(conversation->link->Read(reply, In(conversation->timeoutMs)));
    if (status != Success)
        reply.clear();
    else if (reply.size() > limit)
        reply.resize(limit);
    return status;
}

} // namespace qor::visa
