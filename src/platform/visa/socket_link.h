#pragma once

#include "platform/visa/address.h"
#include "platform/visa/link.h"
#include "platform/visa/tcp_stream.h"

namespace qor::visa {

/// SCPI on a bare TCP port: each message ends with a line feed, which is added to what is written and kept in
/// what is read.
class SocketLink final : public Link {
public:
    explicit SocketLink(Address address) : m_Address(std::move(address)) {}

    LinkResult Open(Deadline deadline) override;
    LinkResult Write(std::string_view message, Deadline deadline) override;
    LinkResult Read(std::string& message, Deadline deadline) override;

private:
    Address m_Address;
    TcpStream m_Stream;
    std::string m_Input;    ///< read beyond the end of the last message
    bool m_GivenUp = false; ///< an answer may still come
};

} // namespace qor::visa
