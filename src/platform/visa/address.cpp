#include "platform/visa/address.h"

#include <algorithm>
#include <charconv>
#include <vector>

namespace qor::visa {

namespace {

std::string Upper(std::string_view text) {
    std::string upper(text);
    std::transform(upper.begin(), upper.end(), upper.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    return upper;
}

/// Parts between "::"; a host in brackets is one part, its colons with it.
std::vector<std::string_view> PartsOf(std::string_view text) {
    std::vector<std::string_view> parts;
    for (;;) {
        std::size_t from = 0;
        if (text.starts_with('['))
            from = std::min(text.find(']'), text.size());
        const std::size_t at = text.find("::", from);
        parts.push_back(text.substr(0, at));
        if (at == std::string_view::npos)
            return parts;
        text.remove_prefix(at + 2);
    }
}

std::optional<std::uint16_t> NumberOf(std::string_view text) {
    int base = 10;
    if (text.starts_with("0x") || text.starts_with("0X")) {
        text.remove_prefix(2);
        base = 16;
    }
    unsigned value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, base);
    if (error != std::errc() || end != text.data() + text.size() || value > 0xffff)
        return std::nullopt;
    return static_cast<std::uint16_t>(value);
}

/// "TCPIP" or "TCPIP0": the word with an optional number.
bool IsBoard(std::string_view part, std::string_view word) {
    if (!part.starts_with(word))
        return false;
    part.remove_prefix(word.size());
    return part.size() <= 3 &&
           std::all_of(part.begin(), part.end(), [](char c) { return c >= '0' && c <= '9'; });
}

/// No blanks, no control characters: what a name server and a kernel may be asked for.
bool IsHost(std::string_view host) {
    return !host.empty() && host.size() <= 253 &&
           std::all_of(host.begin(), host.end(), [](char c) { return c > ' ' && c < 0x7f && c != '/'; });
}

std::optional<Address> Network(const std::vector<std::string_view>& parts) {
    Address address;
    if (parts.size() < 2)
        return std::nullopt;
    std::string_view host = parts[1];
    if (host.starts_with('[') && host.ends_with(']'))
        host = host.substr(1, host.size() - 2);
    if (!IsHost(host))
        return std::nullopt;
    address.host = host;
    if (parts.size() == 4 && Upper(parts[3]) == "SOCKET") {
        const auto port = NumberOf(parts[2]);
        if (!port || *port == 0)
            return std::nullopt;
        address.kind = Address::Kind::Socket;
        address.port = *port;
        return address;
    }
    const bool closed = Upper(parts.back()) == "INSTR";
    if (parts.size() > (closed ? 4u : 3u))
        return std::nullopt;
    const bool named = parts.size() > (closed ? 3u : 2u);
    const std::string_view device = named ? parts[2] : "inst0";
    if (device.empty() || device.size() > 64)
        return std::nullopt;
    if (!Upper(device).starts_with("HISLIP")) {
        address.kind = Address::Kind::Vxi11;
        address.device = device;
        return address;
    }
    const std::size_t comma = device.find(',');
    address.kind = Address::Kind::Hislip;
    address.device = device.substr(0, comma);
    address.port = HislipPort;
    if (comma != std::string_view::npos) {
        const auto port = NumberOf(device.substr(comma + 1));
        if (!port || *port == 0)
            return std::nullopt;
        address.port = *port;
    }
    return address;
}

std::optional<Address> Usb(const std::vector<std::string_view>& parts) {
    if (parts.size() < 4 || parts.size() > 6)
        return std::nullopt;
    const auto vendor = NumberOf(parts[1]);
    const auto product = NumberOf(parts[2]);
    if (!vendor || !product || parts[3].empty())
        return std::nullopt;
    Address address;
    address.kind = Address::Kind::Usbtmc;
    address.vendor = *vendor;
    address.product = *product;
    address.serial = parts[3];
    return address;
}

} // namespace

std::optional<Address> ParseAddress(std::string_view text) {
    while (!text.empty() && (text.back() == ' ' || text.back() == '\r' || text.back() == '\n'))
        text.remove_suffix(1);
    const std::vector<std::string_view> parts = PartsOf(text);
    const std::string board = Upper(parts.front());
    if (IsBoard(board, "TCPIP"))
        return Network(parts);
    if (IsBoard(board, "USB"))
        return Usb(parts);
    for (const std::string_view word : {"GPIB", "ASRL", "PXI", "VXI", "FIREWIRE"})
        if (IsBoard(board, word) && parts.size() > 1)
            return Address{};
    return std::nullopt;
}

} // namespace qor::visa
