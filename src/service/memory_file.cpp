#include "service/memory_file.h"

#include "base/text_format.h"

#include <algorithm>
#include <charconv>

namespace qor {

namespace {

constexpr std::string_view Head = "QOR instrument memory";
constexpr std::size_t DateLength = 10;

std::string_view TakeLine(std::string_view& text) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return line;
}

/// The word behind `key` in the next line; nothing when the line says something else.
std::optional<std::string> TakeWord(std::string_view& text, std::string_view key) {
    const std::string_view line = TakeLine(text);
    if (!line.starts_with(key) || line.size() <= key.size() || line[key.size()] != ' ')
        return {};
    return std::string(line.substr(key.size() + 1));
}

/// A byte in three digits, and the blank behind it: one that is cut is none.
std::optional<int> TakeByte(std::string_view& line) {
    constexpr std::size_t Digits = 3;
    int value = -1;
    const std::string_view digits = line.substr(0, Digits);
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    const bool whole = error == std::errc() && end == digits.data() + Digits;
    if (!whole || value < 0 || value > 255 || (line.size() > Digits && line[Digits] != ' '))
        return {};
    line.remove_prefix(std::min(Digits + 1, line.size()));
    return value;
}

} // namespace

std::string TimeText(const LocalTime& time) {
    return ZeroPadded(time.year, 4) + '-' + ZeroPadded(time.month, 2) + '-' + ZeroPadded(time.day, 2) + ' ' +
           ZeroPadded(time.hour, 2) + ':' + ZeroPadded(time.minute, 2) + ':' + ZeroPadded(time.second, 2);
}

std::string MemoryFileName(const MemoryFile& file) {
    std::string name = "memory-" + (file.model.empty() ? "unknown" : file.model) + '-' + file.serial + '-' +
                       file.read.substr(0, DateLength);
    const auto isPlain = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-';
    };
    std::replace_if(
        name.begin(), name.end(), [&](char c) { return !isPlain(c); }, '_');
    return name + ".txt";
}

std::string MemoryFileText(const MemoryFile& file) {
    std::string text = std::string(Head) + "\nmodel " + file.model + "\nserial " + file.serial +
                       "\nfirmware " + file.firmware + "\nread " + file.read + "\nbytes " +
                       std::to_string(file.cells.size()) + '\n';
    for (const auto& [place, value] : file.cells)
        text += ZeroPadded(place.first, 3) + ' ' + ZeroPadded(place.second, 3) + ' ' + ZeroPadded(value, 3) +
                '\n';
    return text;
}

std::optional<MemoryFile> ParseMemoryFile(std::string_view text) {
    if (TakeLine(text) != Head)
        return {};
    const auto model = TakeWord(text, "model");
    const auto serial = TakeWord(text, "serial");
    const auto firmware = TakeWord(text, "firmware");
    const auto read = TakeWord(text, "read");
    const auto count = TakeWord(text, "bytes");
    if (!model || !serial || !firmware || !read || !count)
        return {};
    MemoryFile file{*model, *serial, *firmware, *read, {}};
    while (!text.empty()) {
        std::string_view line = TakeLine(text);
        if (line.empty())
            continue;
        const auto page = TakeByte(line);
        const auto address = page ? TakeByte(line) : page;
        const auto value = address ? TakeByte(line) : page;
        if (!page || !address || !value || !line.empty() ||
            !file.cells.emplace(std::pair(*page, *address), *value).second)
            return {};
    }
    if (std::to_string(file.cells.size()) != *count) // its end was cut off
        return {};
    return file;
}

std::vector<MemoryCell> OwnPlaces(int page) {
    std::vector<MemoryCell> places;
    for (const auto& [first, last] : {std::pair(95, 121), std::pair(154, 177), std::pair(200, 221)})
        for (int address = first; address <= last; ++address)
            places.push_back({page, address, 0});
    return places;
}

} // namespace qor
