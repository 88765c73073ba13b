#include "results/list_panel.h"

#include "base/setup_store.h"
#include "desk/session.h"
#include "desk/setup/path_loss.h"
#include "results/result_files.h"

namespace qor {

bool ListPanel::Idle() const {
    return !m_Session.run.IsOn();
}

void ListPanel::Load(const std::vector<std::filesystem::path>& paths) {
    if (!Idle() || paths.empty())
        return;
    ResultList& list = m_Session.results.list;
    list.Take(paths);
    m_Store.Write("LastLoadPath.ccz", list.LastPath());
    Show(paths.front());
}

void ListPanel::Show(const std::filesystem::path& path) {
    DropPathLoss(m_Session);
    if (!m_Files.CurrentShow(path) && !m_Session.curve.IsFromFile())
        RestorePathLoss(m_Session, m_Store); // a refused file leaves the curve that was measured
}

/// The file of the marked row.
void ListPanel::ShowMarked() {
    const ResultList& list = m_Session.results.list;
    if (const std::string& name = list.Row(list.MarkedRow()); !name.empty())
        Show(list.Folder() / name);
}

void ListPanel::ClickRow(int row) {
    if (!Idle() || row < 0 || row >= ResultList::Rows)
        return;
    m_Session.results.list.Mark(row);
    ShowMarked();
}

void ListPanel::First() {
    if (Idle() && m_Session.results.list.ToFirst())
        ShowMarked();
}

void ListPanel::Last() {
    if (Idle() && m_Session.results.list.ToLast())
        ShowMarked();
}

void ListPanel::Back() {
    if (Idle())
        static_cast<void>(m_Session.results.list.Back());
}

void ListPanel::Forward() {
    if (Idle())
        static_cast<void>(m_Session.results.list.Forward());
}

void ListPanel::Remove() {
    if (Idle() && m_Session.results.list.Remove())
        ShowMarked();
}

} // namespace qor
