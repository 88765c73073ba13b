#include "results/file_list.h"

#include "bands/setup_store.h"

namespace qor {

namespace {

constexpr int LastRow = static_cast<int>(FileListRows) - 1;

std::string NumberedName(int number) {
    return std::to_string(number) + ".dat";
}

/// A path up to its last separator, whichever kind it is written with.
std::string FolderOf(const std::string& path) {
    const std::size_t at = path.find_last_of("\\/");
    return at == std::string::npos ? std::string() : path.substr(0, at);
}

} // namespace

std::filesystem::path NumberedFile(const ResultState& results, bool twoTone, const SetupStore& store) {
    const std::string name = NumberedName(results.g_FileNo);
    if (twoTone && !results.g_autoSaveFolder.empty())
        return std::filesystem::path(results.g_autoSaveFolder) / (results.g_autoSaveName + name);
    if (const std::string folder = FolderOf(results.g_autoSavePath); twoTone && !folder.empty())
        return std::filesystem::path(folder) / name;
    return store.PathOf(name);
}

void AddToFileList(ResultState& results) {
    results.g_fileList[static_cast<std::size_t>(results.g_FileNo)] = NumberedName(results.g_FileNo);
    results.g_listPanelOpen = true;
    if (results.g_FileNo < LastRow) {
        results.g_FileShown = results.g_FileNo + 1;
        results.g_FileLast = LastRow;
    } else {
        results.g_FileLast = results.g_FileNo;
        results.g_FileShown = LastRow;
    }
    results.g_FileFirst = results.g_FileLast - LastRow;
    for (std::size_t row = 0; row < FileListRows; ++row)
        results.m_FileRow[row] = results.g_fileList[static_cast<std::size_t>(results.g_FileFirst) + row];
    results.g_FileNo = (results.g_FileNo + 1) % static_cast<int>(FileListLength);
}

} // namespace qor
