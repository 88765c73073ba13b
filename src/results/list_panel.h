#pragma once

#include <filesystem>
#include <vector>

namespace qor {

class ResultFiles;
class SetupStore;
struct Session;

/// The strip under the plot with the files of a series: seven rows of a list, and five buttons. Nothing of it
/// does anything during a run.
class ListPanel {
public:
    ListPanel(Session& session, ResultFiles& files, SetupStore& store)
        : m_Session(session), m_Files(files), m_Store(store) {}

    /// Files the operator has chosen become the list, and the first is shown. A single one needs no panel.
    void Load(const std::vector<std::filesystem::path>& paths);

    void ClickRow(int row); ///< 0 to 6
    void First();           ///< "|<"
    void Back();            ///< "<<": the marked file stays marked, none is loaded
    void Forward();         ///< ">>"
    void Last();            ///< ">|"
    void Remove();          ///< "X": out of the list; the file stays on the disk

private:
    [[nodiscard]] bool Idle() const;
    void ShowMarked();
    void Show(const std::filesystem::path& path);

    Session& m_Session;
    ResultFiles& m_Files;
    SetupStore& m_Store;
};

} // namespace qor
