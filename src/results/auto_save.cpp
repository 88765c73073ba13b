#include "results/result_state.h"

namespace qor {

std::filesystem::path AutoSave::NumberedFile(int number, bool twoTone,
                                             const std::filesystem::path& stores) const {
    const std::string name = NumberedName(number);
    if (twoTone && !g_autoSaveFolder.empty())
        return std::filesystem::path(g_autoSaveFolder) / (g_autoSaveName + name);
    // The path may be written with either kind of separator.
    const std::size_t folder = g_autoSavePath.find_last_of("\\/");
    if (twoTone && folder != std::string::npos && folder > 0)
        return std::filesystem::path(g_autoSavePath.substr(0, folder)) / name;
    return stores / name;
}

} // namespace qor
