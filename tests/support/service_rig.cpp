#include "support/service_rig.h"

#include <sstream>

namespace qor::test {

std::string Bytes(std::string_view logged) {
    std::string bytes;
    for (std::size_t i = 0; i < logged.size(); ++i) {
        if (logged[i] != '\\' || i + 1 == logged.size()) {
            bytes += logged[i];
            continue;
        }
        const char c = logged[++i];
        if (c == 'x') {
            bytes += static_cast<char>(std::stoi(std::string(logged.substr(i + 1, 2)), nullptr, 16));
            i += 2;
        } else {
            bytes += c == 'r' ? '\r' : c == 'n' ? '\n' : c == 't' ? '\t' : c;
        }
    }
    return bytes;
}

std::vector<std::string> ServiceRig::Said(std::string_view first) {
    const std::string log = wire.Recent();
    std::istringstream transfers(log.substr(std::min(m_Heard, log.size())));
    m_Heard = log.size();
    std::vector<std::string> commands;
    std::string command;
    bool ended = true; // a carriage return behind a carriage return was a payload
    for (std::string transfer; std::getline(transfers, transfer);) {
        const std::size_t at = transfer.find(" > ");
        if (at == std::string::npos)
            continue;
        const std::string bytes = Bytes(transfer.substr(at + 3));
        if (bytes == "\r" && !ended) {
            commands.push_back(command);
            ended = true;
        } else if (bytes == "\r") {
            commands.back() += bytes;
        } else if (ended) {
            command = bytes;
            ended = false;
        } else {
            command += bytes;
        }
    }
    commands.erase(commands.begin(), std::find(commands.begin(), commands.end(), first));
    return commands;
}

std::pair<int, int> ServiceRig::Recorded() const {
    std::istringstream lines(FileText(dir / "memory-record.csv"));
    std::pair<int, int> count{-1, 0};
    for (std::string text; std::getline(lines, text);) {
        ++count.first;
        count.second += text.ends_with(";no") ? 1 : 0;
    }
    return {std::max(count.first, 0), count.second};
}

} // namespace qor::test
