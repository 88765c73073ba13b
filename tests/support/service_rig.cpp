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
    std::vector<std::string> commands;
    for (const std::string& piece : Sent()) {
        const std::string bytes = Bytes(piece);
        if (bytes.size() > 1 || commands.empty())
            commands.push_back(bytes);
        else
            commands.back() += bytes; // the payload goes out by itself
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
