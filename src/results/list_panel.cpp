#include "results/list_panel.h"

#include "bands/path_loss.h"
#include "bands/setup_store.h"
#include "core/session.h"
#include "results/result_files.h"

#include <algorithm>

namespace qor {

namespace {

constexpr int LastRow = static_cast<int>(FileListRows) - 1;

} // namespace

bool ListPanel::Idle() const {
    return !m_Session.run.runOn;
}

void ListPanel::FillRows() {
    ResultState& results = m_Session.results;
    for (std::size_t row = 0; row < FileListRows; ++row)
        results.m_FileRow[row] = results.g_fileList[static_cast<std::size_t>(results.g_FileFirst) + row];
}

void ListPanel::Load(const std::vector<std::filesystem::path>& paths) {
    if (!Idle() || paths.empty())
        return;
    ResultState& results = m_Session.results;
    results.LastLoadPath = paths.front().string();
    m_Store.Write("LastLoadPath.ccz", results.LastLoadPath);
    for (std::size_t n = 0; n < results.g_fileList.size(); ++n)
        results.g_fileList[n] = n < paths.size() ? paths[n].filename().string() : std::string();
    results.g_FileFirst = 0;
    results.g_FileShown = 0;
    results.g_FileLast = std::max(static_cast<int>(std::min(paths.size(), FileListLength)) - 1, LastRow);
    results.g_listPanelOpen = paths.size() > 1;
    FillRows();
    Show(paths.front());
}

void ListPanel::Show(const std::filesystem::path& path) {
    DropPathLoss(m_Session);
    if (!m_Files.CurrentShow(path) && m_Session.curve.g_fromFile == 0)
        RestorePathLoss(m_Session, m_Store); // a refused file leaves the curve that was measured
}

void ListPanel::ShowRow(int row) {
    ResultState& results = m_Session.results;
    results.g_FileShown = row;
    const std::string& name = results.m_FileRow[static_cast<std::size_t>(row)];
    if (name.empty())
        return;
    const std::size_t separator = results.LastLoadPath.find_last_of("\\/");
    const std::string folder =
        separator == std::string::npos ? std::string() : results.LastLoadPath.substr(0, separator + 1);
    Show(folder + name);
}

void ListPanel::ClickRow(int row) {
    if (Idle() && row >= 0 && row <= LastRow)
        ShowRow(row);
}

void ListPanel::First() {
    ResultState& results = m_Session.results;
    if (!Idle() || results.g_FileFirst < 1)
        return;
    results.g_FileFirst = 0;
    FillRows();
    ShowRow(0);
}

void ListPanel::Last() {
    ResultState& results = m_Session.results;
    if (!Idle() || results.g_FileFirst + LastRow >= results.g_FileLast)
        return;
    results.g_FileFirst = results.g_FileLast - LastRow;
    FillRows();
    ShowRow(0);
}

void ListPanel::Back() {
    ResultState& results = m_Session.results;
    if (!Idle() || results.g_FileFirst < 1)
        return;
    --results.g_FileFirst;
    ++results.g_FileShown;
    FillRows();
}

void ListPanel::Forward() {
    ResultState& results = m_Session.results;
    if (!Idle() || results.g_FileFirst + LastRow >= results.g_FileLast)
        return;
    ++results.g_FileFirst;
    --results.g_FileShown;
    FillRows();
}

void ListPanel::Remove() {
    ResultState& results = m_Session.results;
    if (!Idle() || results.g_FileShown < 0 || results.g_FileShown > LastRow)
        return;
    const int place = results.g_FileFirst + results.g_FileShown;
    const auto gone = results.g_fileList.begin() + place;
    std::move(gone + 1, results.g_fileList.end(), gone);
    results.g_fileList.back().clear();
    results.g_FileLast = std::max(results.g_FileLast - 1, LastRow);
    results.g_FileFirst = std::min(results.g_FileFirst, results.g_FileLast - LastRow);
    FillRows();
    // The next file has moved up to the place, though the rows may stand elsewhere now.
    ShowRow(std::min(place, results.g_FileLast) - results.g_FileFirst);
}

} // namespace qor
