#include "bands/setup_store.h"

#include "bands/tenths.h"

#include <fstream>
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

std::string PowerStoreName(std::string_view prefix) {
    return std::string(prefix) + "pow_setup.ccz";
}

std::string PlanStoreName(std::string_view prefix, int imIndex) {
    return std::string(prefix) + "im" + std::to_string(2 * imIndex + 1) + "_setup.ccz";
}

std::string DefaultPlanStoreName(std::string_view prefix, int imIndex) {
    return std::string(prefix) + "im" + std::to_string(2 * imIndex + 1) + "_setup_default.ccz";
}

bool LacksSecondPort(const SetupStore& store) {
    const std::string info = store.Read("Install_info.ccz", 3).value_or("");
    return info.size() > 2 && WholeNumberIn(std::string_view(info).substr(2)) == 0;
}

PowerSetting ReadPowerStore(SetupStore& store, std::string_view prefix) {
    return ParsePower(store.ReadTenths(PowerStoreName(prefix), 2));
}

std::optional<FrequencyPlan> ReadPlanStore(SetupStore& store, std::string_view prefix, int imIndex) {
    return ParsePlan(store.ReadTenths(PlanStoreName(prefix, imIndex), 9));
}

float ReadTdScdmaAF1(SetupStore& store) {
    const auto text = store.Read("tdb_f1.ccz", 6);
    return text && !text->empty() ? static_cast<float>(NumberIn(*text)) : 2020.0f;
}

} // namespace qor
