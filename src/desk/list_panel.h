#pragma once

#include "base/outcome.h"

#include <filesystem>
#include <vector>

namespace qor {

class FileShow;
class ResultFiles;
class SetupStore;
struct Platform;
struct Session;

/// The files the operator loads, and the strip under the plot that shows those of a series: seven rows of a
/// list, and five buttons. Nothing of it does anything during a run. He is asked before a curve goes that no
/// file holds.
class ListPanel {
public:
    ListPanel(Session& session, const Platform& platform, SetupStore& store, const ResultFiles& files,
              FileShow& show)
        : m_Session(session), m_Platform(platform), m_Store(store), m_Files(files), m_Show(show) {}

    /// Files the operator has chosen become the list, and the first is shown. A single one needs no panel.
    void Load(const std::vector<std::filesystem::path>& paths);
    /// A pass of a series has been saved: it stands in the list.
    void AddNumbered(const std::filesystem::path& path);

    void ClickRow(int row); ///< 0 to 6
    void First();           ///< "|<"
    void Back();            ///< "<<": the marked file stays marked, none is loaded
    void Forward();         ///< ">>"
    void Last();            ///< ">|"
    void Remove();          ///< "X": out of the list; the file stays on the disk

private:
    [[nodiscard]] bool Idle() const;
    [[nodiscard]] bool MayReplaceCurve() const;
    void ShowMarked();
    void NoteRows();

    Session& m_Session;
    const Platform& m_Platform;
    SetupStore& m_Store;
    const ResultFiles& m_Files;
    FileShow& m_Show;
};

} // namespace qor
