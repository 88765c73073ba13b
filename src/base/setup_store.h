#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qor {

/// The directory of small text files in which all settings live, one setting or record a file.
///
/// A missing store is no fault and means the default. Nothing is cached.
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
    /// Groups of five characters, each a number divided by 10, at most maxValues of them. A missing store is
    /// made, empty. A last group of fewer than five characters counts as a group.
    [[nodiscard]] std::vector<float> ReadTenths(std::string_view name, std::size_t maxValues);

private:
    std::filesystem::path m_Directory;
};

/// Groups of five characters, each a number divided by 10, at most maxValues of them. A last group of fewer
/// than five characters counts as a group; what is no number reads as 0.
[[nodiscard]] std::vector<float> ParseTenths(std::string_view text, std::size_t maxValues);

/// True for an installation without a second port, by the third character of `Install_info.ccz`.
[[nodiscard]] bool LacksSecondPort(const SetupStore& store);

} // namespace qor
