#include "sim/faults.h"

#include <charconv>

namespace qor::sim {

std::optional<Fault> ParseFault(std::string_view text) {
    const std::size_t colon = text.find(':');
    const std::string_view name = text.substr(0, colon);
    for (const FaultInfo& info : Faults) {
        if (info.name != name)
            continue;
        Fault fault{info.kind, info.defaultNumber};
        if (colon == std::string_view::npos)
            return fault;
        const std::string_view number = text.substr(colon + 1);
        const char* end = number.data() + number.size();
        const auto [stop, error] = std::from_chars(number.data(), end, fault.number);
        if (error != std::errc() || stop != end || fault.number < 0 || fault.number > 1'000'000)
            return {};
        return fault;
    }
    return {};
}

} // namespace qor::sim
