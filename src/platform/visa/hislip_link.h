#pragma once

#include "platform/visa/address.h"
#include "platform/visa/link.h"
#include "platform/visa/tcp_stream.h"

#include <cstdint>
#include <optional>

namespace qor::visa {

// HiSLIP (IVI-6.1, protocol version 1.0): messages with a head of sixteen bytes.
enum class HislipType : std::uint8_t {
    Initialize = 0,
    InitializeResponse = 1,
    FatalError = 2,
    Error = 3,
    Data = 6,
    DataEnd = 7,
    AsyncMaximumMessageSize = 15,
    AsyncMaximumMessageSizeResponse = 16,
    AsyncInitialize = 17,
    AsyncInitializeResponse = 18,
};

struct HislipHead {
    HislipType type = HislipType::Data;
    std::uint8_t control = 0;
    std::uint32_t parameter = 0;
    std::uint64_t length = 0; ///< bytes of the payload behind the head
};

inline constexpr std::size_t HislipHeadSize = 16;
inline constexpr std::uint32_t HislipFirstMessage = 0xffffff00;
inline constexpr std::uint32_t HislipVersion = 0x0100;

/// The sixteen bytes of a head.
[[nodiscard]] std::string HislipBytes(const HislipHead& head);
/// Nothing for bytes that do not begin with "HS", or are too few.
[[nodiscard]] std::optional<HislipHead> ParseHislipHead(std::string_view bytes);

/// An instrument on HiSLIP, asked over its synchronous channel. Each answer bears the number of its question,
/// so that a late one is known.
class HislipLink final : public Link {
public:
    explicit HislipLink(Address address) : m_Address(std::move(address)) {}

    LinkResult Open(Deadline deadline) override;
    LinkResult Write(std::string_view message, Deadline deadline) override;
    LinkResult Read(std::string& message, Deadline deadline) override;

private:
    [[nodiscard]] static LinkResult Send(TcpStream& stream, const HislipHead& head, std::string_view payload,
                                         Deadline deadline);
    /// The next message; of a payload beyond LongestMessage the rest is dropped.
    [[nodiscard]] static LinkResult Receive(TcpStream& stream, HislipHead& head, std::string& payload,
                                            Deadline deadline);
    void Close();

    Address m_Address;
    TcpStream m_Sync;
    TcpStream m_Async;
    std::uint32_t m_Message = HislipFirstMessage; ///< number of the next message
    std::uint32_t m_Asked = 0;                    ///< number of the last one
};

} // namespace qor::visa
