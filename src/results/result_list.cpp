#include "results/result_list.h"

#include <algorithm>

namespace qor {

namespace {

constexpr int LastRow = ResultList::Rows - 1;

} // namespace

std::string NumberedName(int number) {
    return std::to_string(number) + ".dat";
}

std::filesystem::path ResultList::Folder() const {
    const std::size_t separator = LastLoadPath.find_last_of("\\/");
    return separator == std::string::npos ? std::string() : LastLoadPath.substr(0, separator + 1);
}

void ResultList::FillRows() {
    std::copy_n(g_fileList.begin() + g_FileFirst, Rows, m_FileRow.begin());
}

void ResultList::Take(const std::vector<std::filesystem::path>& paths) {
    LastLoadPath = paths.front().string();
    for (std::size_t n = 0; n < g_fileList.size(); ++n)
        g_fileList[n] = n < paths.size() ? paths[n].filename().string() : std::string();
    m_Notes.fill({});
    g_FileFirst = 0;
    g_FileShown = 0;
    g_FileLast = std::max(static_cast<int>(std::min(paths.size(), g_fileList.size())) - 1, LastRow);
    g_listPanelOpen = paths.size() > 1;
    FillRows();
}

void ResultList::Clear() {
    g_listPanelOpen = false;
    for (std::string& name : g_fileList)
        name.clear();
    m_Notes.fill({});
    g_FileNo = 0;
}

void ResultList::AddNumbered(const std::filesystem::path& path) {
    LastLoadPath = path.string();
    g_fileList[static_cast<std::size_t>(g_FileNo)] = path.filename().string();
    m_Notes[static_cast<std::size_t>(g_FileNo)].reset();
    g_listPanelOpen = true;
    if (g_FileNo < LastRow) {
        g_FileShown = g_FileNo + 1;
        g_FileLast = LastRow;
    } else {
        g_FileLast = g_FileNo;
        g_FileShown = LastRow;
    }
    g_FileFirst = g_FileLast - LastRow;
    FillRows();
    g_FileNo = (g_FileNo + 1) % Length;
}

bool ResultList::ToFirst() {
    if (g_FileFirst < 1)
        return false;
    g_FileFirst = 0;
    g_FileShown = 0;
    FillRows();
    return true;
}

bool ResultList::ToLast() {
    if (g_FileFirst + LastRow >= g_FileLast)
        return false;
    g_FileFirst = g_FileLast - LastRow;
    g_FileShown = 0;
    FillRows();
    return true;
}

bool ResultList::Back() {
    if (g_FileFirst < 1)
        return false;
    --g_FileFirst;
    ++g_FileShown;
    FillRows();
    return true;
}

bool ResultList::Forward() {
    if (g_FileFirst + LastRow >= g_FileLast)
        return false;
    ++g_FileFirst;
    --g_FileShown;
    FillRows();
    return true;
}

bool ResultList::Remove() {
    if (g_FileShown < 0 || g_FileShown > LastRow)
        return false;
    const int place = g_FileFirst + g_FileShown;
    const auto gone = g_fileList.begin() + place;
    std::move(gone + 1, g_fileList.end(), gone);
    g_fileList.back().clear();
    std::move(m_Notes.begin() + place + 1, m_Notes.end(), m_Notes.begin() + place);
    m_Notes.back().reset();
    g_FileLast = std::max(g_FileLast - 1, LastRow);
    g_FileFirst = std::min(g_FileFirst, g_FileLast - LastRow);
    FillRows();
    // The next file has moved up to the place, though the rows may stand elsewhere now.
    g_FileShown = std::min(place, g_FileLast) - g_FileFirst;
    return true;
}

} // namespace qor
