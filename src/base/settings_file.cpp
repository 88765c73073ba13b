#include "base/settings_file.h"

#include "base/setup_store.h"

namespace qor {

namespace {

constexpr std::size_t LongestFile = 16384;

std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view Blank = " \t\r";
    const std::size_t first = text.find_first_not_of(Blank);
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(Blank) - first + 1);
}

} // namespace

std::string SettingOf(const SetupStore& store, std::string_view key) {
    const std::string text = store.Read("qor.ini", LongestFile).value_or("");
    std::string_view rest = text;
    while (!rest.empty()) {
        const std::size_t end = rest.find('\n');
        const std::string_view line = rest.substr(0, end);
        const std::size_t equals = line.find('=');
        if (equals != std::string_view::npos && Trimmed(line.substr(0, equals)) == key)
            return std::string(Trimmed(line.substr(equals + 1)));
        rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    }
    return {};
}

} // namespace qor
