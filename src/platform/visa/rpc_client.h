#pragma once

#include "platform/visa/link.h"
#include "platform/visa/tcp_stream.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace qor::visa {

// Numbers of RFC 5531 and RFC 1833.
inline constexpr std::uint32_t RpcLastFragment = 0x80000000;
inline constexpr std::uint32_t RpcCall = 0;
inline constexpr std::uint32_t RpcReplyMessage = 1;
inline constexpr std::uint32_t RpcVersion = 2;
inline constexpr std::uint32_t PortMapperProgram = 100000;
inline constexpr std::uint32_t PortMapperVersion = 2;
inline constexpr std::uint32_t PortMapperGetPort = 3;
inline constexpr std::uint16_t PortMapperPort = 111;

/// Remote procedure calls of RFC 5531 over one TCP connection, without authentication.
class RpcClient {
public:
    RpcClient(std::uint32_t program, std::uint32_t version) : m_Program(program), m_Version(version) {}

    [[nodiscard]] LinkResult Connect(const std::string& host, std::uint16_t port, Deadline deadline);
    /// Calls a procedure with arguments in their external form; `results` receives what it gives back.
    /// Answers to calls that were given up are passed over by their number. Gone also where the peer refuses
    /// the call.
    [[nodiscard]] LinkResult Call(std::uint32_t procedure, std::string_view arguments, std::string& results,
                                  Deadline deadline);
    void Close() { m_Stream.Close(); }
    [[nodiscard]] bool IsOpen() const { return m_Stream.IsOpen(); }

private:
    [[nodiscard]] LinkResult ReadRecord(std::string& record, Deadline deadline);

    TcpStream m_Stream;
    std::uint32_t m_Program;
    std::uint32_t m_Version;
    std::uint32_t m_Number = 0x51000000; ///< of the last call
};

/// Asks the port mapper of a host (RFC 1833, version 2) for the TCP port of a program; 0 when it knows none.
[[nodiscard]] LinkResult PortOf(const std::string& host, std::uint16_t mapperPort, std::uint32_t program,
                                std::uint32_t version, std::uint16_t& port, Deadline deadline);

/// What a reply record says.
struct RpcReply {
    std::uint32_t number = 0;
    bool accepted = false;
    std::string_view results; ///< into the record
};
/// Nothing for a record that is no reply.
[[nodiscard]] std::optional<RpcReply> ParseReply(std::string_view record);

} // namespace qor::visa
