#include "sim/switch_unit.h"

#include <algorithm>
#include <cctype>

namespace qor::sim {

namespace {

constexpr std::string_view Set = "#REL"; ///< and the bank's letter
constexpr std::size_t Letter = Set.size();

bool IsMask(std::string_view text) {
    constexpr std::size_t Length = 6;
    return text.size() == Length && text.starts_with("0x") &&
           std::all_of(text.begin() + 2, text.end(), [](unsigned char c) { return std::isxdigit(c) != 0; });
}

} // namespace

std::string SwitchUnit::Execute(std::string_view command) {
    if (command == "#IDN?")
        return "MPX band switch unit, v1.0\r\n";
    const bool setsBank = command.starts_with(Set) && command.size() > Letter && command[Letter] >= 'A' &&
                          command[Letter] <= 'C';
    if (!setsBank)
        return "SYNTAX ERROR\r\n";
    const std::string_view mask = command.substr(Letter + 1);
    if (!mask.empty() && !IsMask(mask))
        return "SYNTAX ERROR\r\n";
    if (!mask.empty())
        m_Relays[static_cast<std::size_t>(command[Letter] - 'A')] = mask;
    return std::string(command) + "\r\n";
}

} // namespace qor::sim
