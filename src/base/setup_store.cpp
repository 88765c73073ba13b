#include "base/setup_store.h"

#include "base/tenths.h"

#include <cmath>
#include <fstream>
#include <limits>
#include <system_error>
#include <utility>

namespace qor {

SetupStore::SetupStore(std::filesystem::path directory) : m_Directory(std::move(directory)) {
    std::error_code ignored; // without the directory every setting has its default
    std::filesystem::create_directories(m_Directory, ignored);
}

std::filesystem::path SetupStore::PathOf(std::string_view name) const {
    return m_Directory / name;
}

std::optional<std::string> SetupStore::Read(std::string_view name, std::size_t maxChars) const {
    std::ifstream file(PathOf(name), std::ios::binary);
    if (!file)
        return std::nullopt;
    std::string text(maxChars, '\0');
    file.read(text.data(), static_cast<std::streamsize>(maxChars));
    text.resize(static_cast<std::size_t>(file.gcount()));
    return text;
}

bool SetupStore::Write(std::string_view name, std::string_view text) {
    std::ofstream file(PathOf(name), std::ios::binary | std::ios::trunc);
    file.write(text.data(), static_cast<std::streamsize>(text.size()));
    file.close(); // a full disk may show only here
    return file.good();
}

void SetupStore::Remove(std::string_view name) {
    std::error_code ignored;
    std::filesystem::remove(PathOf(name), ignored);
}

bool SetupStore::Exists(std::string_view name) const {
    std::error_code ignored;
    return std::filesystem::exists(PathOf(name), ignored);
}

std::vector<float> SetupStore::ReadTenths(std::string_view name, std::size_t maxValues) {
    const auto text = Read(name, maxValues * 5);
    if (!text && !Exists(name))
        Write(name, {});
    return ParseTenths(text.value_or(""), maxValues);
}

std::vector<float> ParseTenths(std::string_view text, std::size_t maxValues) {
    constexpr std::size_t GroupLength = 5;
    std::vector<float> values;
    for (std::size_t at = 0; at < text.size() && values.size() < maxValues; at += GroupLength) {
        const double value = NumberIn(text.substr(at, GroupLength)) / 10.0;
        values.push_back(std::abs(value) <= std::numeric_limits<float>::max() ? static_cast<float>(value)
                                                                              : 0.0f);
    }
    return values;
}

bool LacksSecondPort(const SetupStore& store) {
    const std::string info = store.Read("Install_info.ccz", 3).value_or("");
    return info.size() > 2 && WholeNumberIn(std::string_view(info).substr(2)) == 0;
}

} // namespace qor
