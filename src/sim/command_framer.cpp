#include "sim/command_framer.h"

#include <string_view>
#include <utility>

namespace qor::sim {

namespace {

// No command is nearly as long: what is cut off here is refused as unknown all the same.
constexpr std::size_t LongestCommand = 64;

// Length up to which every byte belongs to the command, whatever its value.
std::size_t FixedPart(std::string_view text) {
    if (text.starts_with("$KVTRE"))
        return 8; // page, address; a filler may follow
    if (text.starts_with("$KVTWE"))
        return 9; // page, address, value
    if (text.starts_with("#SST"))
        return 5; // status byte or "?"
    return 0;
}

} // namespace

std::optional<std::string> CommandFramer::Feed(char byte) {
    if (m_Text.empty() && (byte == '\r' || byte == '\n'))
        return {};
    if (byte == '\r' && m_Text.size() >= FixedPart(m_Text))
        return std::exchange(m_Text, {});
    if (m_Text.size() < LongestCommand)
        m_Text += byte;
    return {};
}

} // namespace qor::sim
