#include "desk/list_panel.h"

#include "base/setup_store.h"
#include "desk/file_show.h"
#include "desk/session.h"
#include "desk/tell.h"
#include "platform/platform.h"
#include "results/result_files.h"

namespace qor {

bool ListPanel::Idle() const {
    return !m_Session.run.IsOn();
}

/// A run may begin while the question is open.
bool ListPanel::MayReplaceCurve() const {
    return !m_Files.HoldsUnsaved() ||
           (m_Platform.user.Ask("Die Messkurve ist nicht gespeichert. Soll die Datei sie ersetzen?",
                                "Einfuehren Daten") &&
            Idle());
}

void ListPanel::Load(const std::vector<std::filesystem::path>& paths) {
    if (!Idle() || paths.empty() || !MayReplaceCurve())
        return;
    ResultList& list = m_Session.results.list;
    list.Take(paths);
    NoteRows();
    m_Store.Write("LastLoadPath.ccz", list.LastPath());
    Tell(m_Show.CurrentShow(paths.front()), m_Platform.user);
}

void ListPanel::AddNumbered(const std::filesystem::path& path) {
    m_Session.results.list.AddNumbered(path);
    NoteRows();
}

/// The file of the marked row.
void ListPanel::ShowMarked() {
    NoteRows();
    const ResultList& list = m_Session.results.list;
    const std::string& name = list.Row(list.MarkedRow());
    if (!name.empty() && MayReplaceCurve())
        Tell(m_Show.CurrentShow(list.Folder() / name), m_Platform.user);
}

/// What the strip says of a file beside its name, for the rows that have come into view.
void ListPanel::NoteRows() {
    ResultList& list = m_Session.results.list;
    for (int row = 0; row < ResultList::Rows; ++row) {
        if (list.Row(row).empty() || list.IsNoted(row))
            continue;
        ResultDocument document;
        const bool partial = LoadResult(list.Folder() / list.Row(row), document) && IsPartial(document);
        list.Note(row, partial ? std::optional(PartialResult{document.pointsTaken, document.pointsAsked})
                               : std::nullopt);
    }
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
    if (Idle() && m_Session.results.list.Back())
        NoteRows();
}

void ListPanel::Forward() {
    if (Idle() && m_Session.results.list.Forward())
        NoteRows();
}

void ListPanel::Remove() {
    if (Idle() && m_Session.results.list.Remove())
        ShowMarked();
}

} // namespace qor
