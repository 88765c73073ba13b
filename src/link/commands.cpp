#include "link/commands.h"

#include "base/tenths.h"
#include "base/text_format.h"
#include "link/firmware.h"

#include <charconv>

namespace qor {

namespace {

bool Holds(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

/// Address letter of a byte-coded memory command "$KVTRE" or "$KVTWE" page address, 0 when it is none.
char AddressOf(std::string_view command) {
    return command.size() > 7 && (command.starts_with("$KVTRE") || command.starts_with("$KVTWE")) ? command[7]
                                                                                                  : '\0';
}

/// Place of the value in a byte-coded reply to a read of `address` on `page`, on any page when that is below
/// 0, or npos. A late reply to the read before it may stand ahead.
std::size_t MemoryByteAt(std::string_view bytes, int page, char address) {
    constexpr std::size_t PageAt = 5;
    constexpr std::size_t AddressAt = 6;
    for (std::size_t at = bytes.find("KVT"); at != std::string_view::npos; at = bytes.find("KVT", at + 1))
        if (at + AddressAt + 1 < bytes.size() && bytes[at + AddressAt] == address &&
            (page < 0 || bytes[at + PageAt] == static_cast<char>(page)))
            return at + AddressAt + 1;
    return std::string_view::npos;
}

std::optional<int> ByteAt(std::string_view bytes, std::size_t at) {
    return at == std::string_view::npos ? std::nullopt
                                        : std::optional<int>(static_cast<unsigned char>(bytes[at]));
}

constexpr int LevelDigits = 10;
constexpr int DetectorDigits = 4;

/// Blanks, a sign, digits and a point: nothing else, so that a spoilt "-9x.3" never counts as -9.
bool IsDecimal(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    if (text.starts_with('-') || text.starts_with('+'))
        text.remove_prefix(1);
    while (text.ends_with(' '))
        text.remove_suffix(1);
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    return std::any_of(text.begin(), text.end(), isDigit) && std::count(text.begin(), text.end(), '.') <= 1 &&
           std::all_of(text.begin(), text.end(), [&](char c) { return isDigit(c) || c == '.'; });
}

} // namespace

std::string WithTenths(std::string_view command, double value) {
    return std::string(command) + TenthsText(value);
}

std::string SelectPosition(int position) {
    return "#SAB" + std::to_string(position);
}

bool SelectsPosition(std::string_view text) {
    return text.starts_with("#SAB") && text != command::Position;
}

std::string UseReceiver(int imIndex) {
    return "#USEID" + std::to_string(imIndex >= 1 && imIndex <= 5 ? 2 * imIndex + 1 : 3);
}

std::string ReadMemory(int address) {
    return "#KVTRE,125,0," + ZeroPadded(address, 3);
}

std::string_view SetPath(int path) {
    return path == 2 ? command::Transmission : command::Reflection;
}

std::string ReadMemoryByte(char address) {
    return std::string("$KVTREd") + address + '0';
}

std::string WriteMemoryByte(int page, int address) {
    return std::string("$KVTWE") + static_cast<char>(page) + static_cast<char>(address);
}

std::string ReadMemoryByteOf(int page, int address) {
    return std::string("$KVTRE") + static_cast<char>(page) + static_cast<char>(address);
}

int OwnPage(float firmVersion) {
    return HasPage125(firmVersion) ? '}' : HasPageN(firmVersion) ? 'n' : 'd';
}

void ApplyMemoryPage(std::string& command, int tag, float firmVersion) {
    const bool ofTheChain = tag == TagSerialHigh || tag == TagSerialLow || tag == TagOption;
    if (ofTheChain && command.starts_with("$KVTREd"))
        command[6] = static_cast<char>(OwnPage(firmVersion));
}

void EchoOf(std::string_view command, std::string_view payload, std::string& echo) {
    echo.assign(command.empty() ? command : command.substr(1)).append(payload).append("\r\n");
}

Echo EchoIn(std::string_view bytes, std::string_view echo) {
    if (Holds(bytes, echo))
        return Echo::Whole;
    const bool mayBecomeIt = echo.starts_with(bytes);
    return !mayBecomeIt && (bytes.ends_with('\n') || bytes.ends_with('\r')) ? Echo::Other : Echo::Awaited;
}

void ReplyText(std::string_view command, std::string& text) {
    text.assign(command.empty() ? command : command.substr(1));
    if (text.ends_with('?'))
        text.pop_back();
    if (const std::size_t at = text.find("KVTRE"); at != std::string::npos)
        text.replace(at, 5, "KVTWE");
}

int ReplyLength(std::string_view command, int tag) {
    const int length = static_cast<int>(command.size()) + 1;
    if (command == command::Level)
        return length + LevelDigits;
    if (command == command::Detector)
        return length + DetectorDigits;
    const char address = command.starts_with("$KVTRE") ? AddressOf(command) : '\0';
    const bool open = command == command::Status || command == command::Identity ||
                      (tag >= TagMemoryEditor && tag <= TagPathTable) ||
                      (tag >= TagOption && tag <= TagReceiverCalLast) || address == 'x' || address == 'y' ||
                      address == 't' || Holds(command, "#KVTRE,");
    return open ? OpenReply : length;
}

int TagAsSent(int queued) {
    if (queued < 20 || queued > 199 || queued == TagTypeCode)
        return queued;
    const int lowered = queued - 10;
    return lowered == 21 ? 11 : lowered;
}

std::optional<int> MemoryValue(std::string_view reply) {
    const std::size_t comma = reply.rfind(',');
    if (comma == std::string_view::npos)
        return {};
    std::string_view digits = reply.substr(comma + 1);
    digits = digits.substr(0, digits.find_first_of("\r\n"));
    digits.remove_prefix(std::min(digits.find_first_not_of(' '), digits.size()));
    int value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    const bool whole = error == std::errc() && end == digits.data() + digits.size();
    return whole && value >= 0 && value <= 255 ? std::optional(value) : std::nullopt;
}

std::optional<int> MemoryByte(std::string_view bytes, char address) {
    return ByteAt(bytes, MemoryByteAt(bytes, -1, address));
}

std::optional<int> MemoryByte(std::string_view bytes, int page, int address) {
    return ByteAt(bytes, MemoryByteAt(bytes, page, static_cast<char>(address)));
}

bool HoldsMemoryByte(std::string_view bytes, std::string_view command) {
    constexpr std::size_t LineEnd = 2;
    if (command.size() < 8)
        return false;
    const std::size_t at = MemoryByteAt(bytes, static_cast<unsigned char>(command[6]), AddressOf(command));
    return at != std::string_view::npos && at + LineEnd < bytes.size();
}

std::string_view LevelText(std::string_view reply) {
    const std::size_t end = reply.rfind('m');
    if (end == std::string_view::npos)
        return {};
    std::string_view text = reply.substr(0, end + 1);
    if (text.size() > 10)
        text.remove_prefix(text.size() - 10);
    text.remove_suffix(std::min<std::size_t>(3, text.size()));
    return IsDecimal(text) ? text : std::string_view();
}

} // namespace qor
