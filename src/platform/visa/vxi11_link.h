#pragma once

#include "platform/visa/address.h"
#include "platform/visa/link.h"
#include "platform/visa/rpc_client.h"

namespace qor::visa {

// VXI-11 (TCP/IP Instrument Protocol, revision 1.0): the core channel.
inline constexpr std::uint32_t Vxi11Core = 0x0607AF;
inline constexpr std::uint32_t Vxi11Version = 1;
enum Vxi11Procedure : std::uint32_t {
    Vxi11CreateLink = 10,
    Vxi11DeviceWrite = 11,
    Vxi11DeviceRead = 12,
    Vxi11DestroyLink = 23,
};
inline constexpr std::uint32_t Vxi11FlagEnd = 8;   ///< of a write: the message ends with it
inline constexpr std::uint32_t Vxi11ReasonEnd = 4; ///< of a read: the message has ended
inline constexpr std::uint32_t Vxi11TimedOut = 15; ///< error of a call whose own time was up

/// An instrument on a VXI-11 core channel, its port asked of the host's port mapper.
class Vxi11Link final : public Link {
public:
    /// `mapperPort`: where the host's port mapper listens.
    explicit Vxi11Link(Address address, std::uint16_t mapperPort = PortMapperPort)
        : m_Address(std::move(address)), m_MapperPort(mapperPort) {}
    ~Vxi11Link() override;

    LinkResult Open(Deadline deadline) override;
    LinkResult Write(std::string_view message, Deadline deadline) override;
    LinkResult Read(std::string& message, Deadline deadline) override;

private:
    Address m_Address;
    std::uint16_t m_MapperPort;
    RpcClient m_Core{Vxi11Core, Vxi11Version};
    std::uint32_t m_Link = 0;
    std::uint32_t m_LongestWrite = 1024;
};

} // namespace qor::visa
