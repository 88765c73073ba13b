#pragma once

#include "bands/band.h"

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

/// Stored tone powers of a band in tenths of dBm, five digits each.
struct PowerSetting {
    std::string tone1 = "00430";
    std::string tone2 = "00430";
};

/// `<prefix>pow_setup.ccz`: 43.0 dBm for what it does not hold.
[[nodiscard]] PowerSetting ReadPowerStore(SetupStore& store, const std::string_view prefix);
/// `<prefix>im<order>_setup.ccz` in the store's order (Fix f1, Fix f2, Anfang f1, Anfang f2, Ende f1, Ende f2,
/// Schritt, sweep Fix f1, sweep Fix f2). A store with fewer than nine values or a step below 0.1 MHz counts
/// as none and is left as it is.
[[nodiscard]] std::optional<FrequencyPlan> ReadPlanStore(SetupStore& store, std::string_view prefix, int imIndex);
/// f1 of TD-SCDMA-A from `tdb_f1.ccz`, 2020.0 MHz when it holds nothing.
[[nodiscard]] float ReadTdScdmaAF1(SetupStore& store);

} // namespace qor
