#include "base/setup_store.h"

#include "base/tenths.h"

#include <fstream>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace qor {

SetupStore::SetupStore(std::filesystem::path directory) : m_Directory(std::move(directory)) {
    std::error_code ignored; // without the directory every setting has its default
    std::filesystem::create_directories(m_Directory, ignored);
    if (::access(m_Directory.c_str(), W_OK | X_OK) != 0)
        m_Unwritten = m_Directory.string();
}

std::filesystem::path SetupStore::PathOf(std::string_view name) const {
    return m_Directory / name;
}

std::optional<std::string> SetupStore::Read(std::string_view name, std::size_t maxChars) const {
    if (IsOtherThanFile(name))
        return std::nullopt;
    std::ifstream file(PathOf(name), std::ios::binary);
    if (!file)
        return std::nullopt;
    std::string text(maxChars, '\0');
    file.read(text.data(), static_cast<std::streamsize>(maxChars));
    text.resize(static_cast<std::size_t>(file.gcount()));
    return text;
}

bool SetupStore::Write(std::string_view name, std::string_view text) {
    if (IsOtherThanFile(name)) {
        m_Unwritten = PathOf(name).string();
        return false;
    }
    std::ofstream file(PathOf(name), std::ios::binary | std::ios::trunc);
    file.write(text.data(), static_cast<std::streamsize>(text.size()));
    file.close(); // a full disk may show only here
    m_Unwritten = file.good() ? std::string() : PathOf(name).string();
    if (file.good())
        Found(name, true);
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

std::string SetupStore::ReadOrMake(std::string_view name, std::size_t maxChars) {
    const auto text = Read(name, maxChars);
    if (!text && !Exists(name))
        Write(name, {});
    return text.value_or("");
}

std::optional<double> SetupStore::ReadNumber(std::string_view name, std::size_t maxChars, double low,
                                             double high) {
    const std::string text = Read(name, maxChars).value_or("");
    const auto number = EnteredNumber(text);
    const bool sound = number && *number >= low && *number <= high;
    Found(name, sound || text.empty());
    return sound ? number : std::nullopt;
}

/// A folder, a device, or a pipe, which would be waited for.
bool SetupStore::IsOtherThanFile(std::string_view name) const {
    std::error_code ignored;
    return Exists(name) && !std::filesystem::is_regular_file(PathOf(name), ignored);
}

bool SetupStore::IsUnreadable(std::string_view name) const {
    return IsOtherThanFile(name) || (Exists(name) && ::access(PathOf(name).c_str(), R_OK) != 0);
}

void SetupStore::Found(std::string_view name, bool sound) {
    if (!sound || IsUnreadable(name))
        m_Damaged.emplace(name);
    else if (const auto known = m_Damaged.find(name); known != m_Damaged.end())
        m_Damaged.erase(known);
}

bool LacksSecondPort(const SetupStore& store) {
    const std::string info = store.Read("Install_info.ccz", 3).value_or("");
    return info.size() > 2 && WholeNumberIn(std::string_view(info).substr(2)) == 0;
}

} // namespace qor
