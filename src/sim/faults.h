#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace qor::sim {

enum class FaultKind {
    Silence,
    Garble,
    Pieces,
    EarlyEnd,
    Endless,
    SyntaxError,
    OutOfRange,
    Pll,
    Unplug,
    Replug,
    Slow,
    LooseContact,
};

/// A fault as it is ordered: "silence:40". The number counts commands, but for the two that say otherwise.
struct Fault {
    FaultKind kind;
    int number = 0;
};

struct FaultInfo {
    std::string_view name;
    FaultKind kind;
    int defaultNumber;
    std::string_view meaning;
};

inline constexpr std::array<FaultInfo, 12> Faults{{
    {"silence", FaultKind::Silence, 0, "after N commands nothing is answered any more"},
    {"garble", FaultKind::Garble, 0, "after N commands one byte of each reply is spoilt"},
    {"pieces", FaultKind::Pieces, 0, "after N commands replies come byte by byte"},
    {"early-end", FaultKind::EarlyEnd, 0, "after N commands replies have a line end in the middle"},
    {"endless", FaultKind::Endless, 0, "after N commands the next reply never ends"},
    {"syntax-error", FaultKind::SyntaxError, 0, "after N commands the next is answered SYNTAX ERROR"},
    {"out-of-range", FaultKind::OutOfRange, 0, "after N commands the next is answered OUT OF RANGE"},
    {"pll", FaultKind::Pll, 0, "after N commands the next is answered PLL NOT LOCKED"},
    {"unplug", FaultKind::Unplug, 0, "after N commands the next finds the cable pulled"},
    {"replug", FaultKind::Replug, 5, "a pulled cable is back after N seconds"},
    {"slow", FaultKind::Slow, 200, "each reply takes N ms longer"},
    {"loose-contact", FaultKind::LooseContact, 0, "after N commands a contact of the device is loose"},
}};

/// "KIND" or "KIND:N"; nothing for an unknown kind or a number that is none.
[[nodiscard]] std::optional<Fault> ParseFault(std::string_view text);

} // namespace qor::sim
