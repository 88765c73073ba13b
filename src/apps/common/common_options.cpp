#include "apps/common/common_options.h"

#include <cstdlib>

namespace qor::app {

std::filesystem::path DefaultDataDirectory() {
    if (const char* data = std::getenv("XDG_DATA_HOME"); data && *data)
        return std::filesystem::path(data) / "qor";
    const char* home = std::getenv("HOME");
    return std::filesystem::path(home ? home : ".") / ".local/share/qor";
}

std::optional<sim::InstrumentConfig> ParseSimulate(const std::string& text, std::string& problem) {
    sim::InstrumentConfig config;
    const std::size_t colon = text.find(':');
    config.model = text.substr(0, colon);
    if (colon != std::string::npos)
        config.firmware = text.substr(colon + 1);
    if (const std::string fault = sim::ConfigFault(config); !fault.empty()) {
        problem = "--simulate " + text + ": " + fault;
        return std::nullopt;
    }
    return config;
}

} // namespace qor::app
