#pragma once

#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace qor {

/// The directory of small text files in which all settings live, one setting or record a file.
///
/// A missing or empty store is no fault and means the default. One with something else in it than its record,
/// or that cannot be read, counts as none: its reader says so, and it stays on the list of the damaged until
/// it is read or written sound. Nothing else is cached.
class SetupStore {
public:
    explicit SetupStore(std::filesystem::path directory);

    [[nodiscard]] const std::filesystem::path& Directory() const { return m_Directory; }
    [[nodiscard]] std::filesystem::path PathOf(std::string_view name) const;

    /// Up to maxChars characters; nothing when the file cannot be opened.
    [[nodiscard]] std::optional<std::string> Read(std::string_view name, std::size_t maxChars) const;
    /// Replaces the whole file; false when it cannot be written.
    bool Write(std::string_view name, std::string_view text);
    void Remove(std::string_view name);
    [[nodiscard]] bool Exists(std::string_view name) const;
    /// The same, empty for one that was missing: it is made, empty.
    [[nodiscard]] std::string ReadOrMake(std::string_view name, std::size_t maxChars);
    /// The number that is all of a store's text, `low` to `high`; nothing when it is missing, empty or
    /// damaged.
    [[nodiscard]] std::optional<double> ReadNumber(std::string_view name, std::size_t maxChars,
                                                   double low = -1e9, double high = 1e9);

    /// What a reader has found in a store: its record, or something that counts as none.
    void Found(std::string_view name, bool sound);
    /// Names of the stores that count as none because of what is in them.
    [[nodiscard]] const std::set<std::string, std::less<>>& Damaged() const { return m_Damaged; }
    /// What could not be written last, the directory or a store in it; empty while everything can be.
    [[nodiscard]] const std::string& Unwritten() const { return m_Unwritten; }

private:
    [[nodiscard]] bool IsOtherThanFile(std::string_view name) const;
    [[nodiscard]] bool IsUnreadable(std::string_view name) const;

    std::filesystem::path m_Directory;
    std::set<std::string, std::less<>> m_Damaged;
    std::string m_Unwritten;
};

/// True for an installation without a second port, by the third character of `Install_info.ccz`.
[[nodiscard]] bool LacksSecondPort(const SetupStore& store);

} // namespace qor
