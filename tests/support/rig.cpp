#include "support/rig.h"

#include <sstream>

namespace qor::test {

std::vector<std::string> Rig::Sent() {
    const std::string log = wire.Recent();
    std::istringstream lines(log.substr(std::min(m_Seen, log.size())));
    m_Seen = log.size();
    std::vector<std::string> sent;
    for (std::string transfer; std::getline(lines, transfer);) {
        const std::size_t at = transfer.find(" > ");
        if (at != std::string::npos && transfer.substr(at + 3) != "\\r")
            sent.push_back(transfer.substr(at + 3));
    }
    return sent;
}

std::vector<std::string> Times(int count, const std::string& text) {
    return std::vector<std::string>(static_cast<std::size_t>(count), text);
}

std::vector<std::string> Chain(std::initializer_list<std::vector<std::string>> parts) {
    std::vector<std::string> all;
    for (const auto& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

} // namespace qor::test
