#include "support/wire_reading.h"

#include "base/tenths.h"

#include <cmath>
#include <sstream>

namespace qor::test {

std::vector<std::string> Words(std::string_view text) {
    std::istringstream in{std::string(text)};
    std::vector<std::string> words;
    for (std::string word; in >> word;) {
        const std::size_t star = word.find('*');
        const int count = star == std::string::npos ? 1 : std::stoi(word.substr(star + 1));
        words.insert(words.end(), static_cast<std::size_t>(count), word.substr(0, star));
    }
    return words;
}

std::string Joined(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words)
        text += word + ' ';
    return text;
}

std::vector<std::string> Steps(const std::string& command, int from, int to, int step) {
    std::vector<std::string> words;
    for (int tenths = from; step > 0 ? tenths <= to : tenths >= to; tenths += step) {
        const std::string digits = std::to_string(tenths);
        words.push_back(command + std::string(5 - digits.size(), '0') + digits);
        words.push_back("#IMP?");
    }
    return words;
}

std::size_t Transfers(Rig& rig) {
    const std::string log = rig.wire.Recent();
    return static_cast<std::size_t>(std::count(log.begin(), log.end(), '\n'));
}

OverheardCurve Overhear(Rig& rig, std::size_t from, int order, bool upper) {
    OverheardCurve heard;
    std::istringstream log(rig.wire.Recent());
    int f1 = 0;
    int f2 = 0;
    enum { None, Up, Down } moved = None;
    bool f2JustSet = false;
    std::string command;
    std::size_t line = 0;
    for (std::string text; std::getline(log, text);) {
        const std::size_t at = text.find_first_of("<>");
        if (line++ < from || at == std::string::npos || text.substr(at + 2) == "\\r")
            continue;
        const std::string bytes = text.substr(at + 2);
        if (text[at] == '>') {
            command = bytes;
            const int value = bytes.size() > 4 ? WholeNumberIn(std::string_view(bytes).substr(4)) : 0;
            if (bytes.starts_with("#SFA")) {
                // A tone 1 that falls back is parked; nothing is swept by it.
                moved = value < f1 && !f2JustSet ? None : Up;
                f1 = value;
            } else if (bytes.starts_with("#SFB")) {
                moved = Down;
                f2 = value;
            }
            f2JustSet = bytes.starts_with("#SFB");
        } else if (bytes.find("dBm") != std::string::npos) {
            const auto level = static_cast<float>(NumberIn(std::string_view(bytes).substr(4)));
            const int a = (order + 1) / 2;
            const int b = (order - 1) / 2;
            const int product = upper ? a * f2 - b * f1 : a * f1 - b * f2;
            ++heard.levels;
            heard.trace.push_back(level);
            if (moved != None)
                (moved == Up ? heard.up : heard.down)[product] = level;
        }
    }
    return heard;
}

std::map<int, float> OnGrid(const Curve& curve, std::span<const float> levels) {
    std::map<int, float> places;
    for (std::size_t i = 0; i < levels.size(); ++i)
        if (levels[i] != 0.0f)
            places[static_cast<int>(std::lround(curve.Grid()[i] * 10.0f))] = levels[i];
    return places;
}

} // namespace qor::test
