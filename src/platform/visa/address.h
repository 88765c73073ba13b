#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace qor::visa {

/// Where an instrument is reached, as a resource name tells it. Letters of either case; the board number
/// behind the first word and a closing "::INSTR" may be left out.
struct Address {
    enum class Kind {
        Socket, ///< TCPIP0::host::5025::SOCKET
        Vxi11,  ///< TCPIP0::host::inst0::INSTR
        Hislip, ///< TCPIP0::host::hislip0::INSTR, hislip0,4880 with a port of its own
        Usbtmc, ///< USB0::0x0AAD::0x0054::100234::INSTR
        Other,  ///< of a form that only an installed library can know: GPIB, ASRL, PXI
    };
    Kind kind = Kind::Other;
    std::string host; ///< name, IPv4, or IPv6 in brackets, without them
    std::uint16_t port = 0;
    std::string device; ///< "inst0", "hislip0"
    std::uint16_t vendor = 0;
    std::uint16_t product = 0;
    std::string serial; ///< of a USB device
};

inline constexpr std::uint16_t HislipPort = 4880;

/// Nothing for a text that is no resource name.
[[nodiscard]] std::optional<Address> ParseAddress(std::string_view text);

} // namespace qor::visa
