#include "results/auto_save.h"

#include "base/tenths.h"
#include "base/text_format.h"
#include "results/result_list.h"

#include <algorithm>

namespace qor {

std::vector<std::string_view> AutoSaveForms::Endings() const {
    std::vector<std::string_view> endings;
    const std::pair<bool, std::string_view> all[] = {{dat, ".dat"},
                                                     {txt, ".txt"},
                                                     {sweepSheet, "_sweep.xls"},
                                                     {detailSheet, "_detail.xls"},
                                                     {pdf, ".pdf"}};
    for (const auto& [chosen, ending] : all) {
        if (chosen)
            endings.push_back(ending);
    }
    return endings;
}

void AutoSave::SetPath(std::string path) {
    std::replace(path.begin(), path.end(), '\\', '/');
    g_autoSavePath = std::move(path);
}

void AutoSave::SetPrefix(std::string name, std::string_view date, std::string digits) {
    g_snPrefix = name + " " + std::string(date) + " ";
    g_snNumber = WholeNumberIn(digits);
    m_PrefixName = std::move(name);
    m_PrefixNumber = std::move(digits);
}

std::string AutoSave::SerialOf(int number) const {
    return g_snPrefix + " SN " + ZeroPadded(number, 5);
}

std::filesystem::path AutoSave::Folder() const {
    return std::filesystem::path(g_autoSavePath).parent_path();
}

std::filesystem::path AutoSave::FileOf(const std::string& serial, std::string_view ending) const {
    const std::string end(ending);
    if (!g_autoSaveFolder.empty())
        return std::filesystem::path(g_autoSaveFolder) / (serial + g_autoSaveName + end);
    return Folder() / (serial + end);
}

std::filesystem::path AutoSave::NumberedFile(int number, bool twoTone,
                                             const std::filesystem::path& stores) const {
    const std::string name = NumberedName(number);
    if (twoTone && !g_autoSaveFolder.empty())
        return std::filesystem::path(g_autoSaveFolder) / (g_autoSaveName + name);
    return (twoTone && !Folder().empty() ? Folder() : stores) / name;
}

std::string LoweredSerial(const std::string& serial) {
    const std::size_t last = serial.find_last_not_of("0123456789");
    const std::size_t begin = last == std::string::npos ? 0 : last + 1;
    const std::string digits = serial.substr(begin);
    if (digits.empty())
        return serial;
    const int number = WholeNumberIn(digits) - 1;
    return serial.substr(0, begin) + (number < 0 ? "0" : ZeroPadded(number, static_cast<int>(digits.size())));
}

} // namespace qor
