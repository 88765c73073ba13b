#pragma once

#include <array>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace qor {

/// "n of m points".
struct PartialResult {
    std::size_t taken = 0;
    std::size_t asked = 0;
    bool operator==(const PartialResult&) const = default;
};

/// The files of a series, as the strip under the plot shows them: seven rows of a list of 2048, one row
/// marked.
class ResultList {
public:
    static constexpr int Length = 2048;
    static constexpr int Rows = 7;

    [[nodiscard]] bool IsOpen() const { return g_listPanelOpen; }
    /// Text of a row of the strip, 0 to 6.
    [[nodiscard]] const std::string& Row(int row) const { return m_FileRow[static_cast<std::size_t>(row)]; }
    /// The row in use; outside of 0 to 6 none is marked.
    [[nodiscard]] int MarkedRow() const { return g_FileShown; }
    /// Points of the row's file, where they are not all there; nothing for a whole one.
    [[nodiscard]] std::optional<PartialResult> RowNote(int row) const {
        return m_Notes[Entry(row)].value_or(std::nullopt);
    }
    [[nodiscard]] bool IsNoted(int row) const { return m_Notes[Entry(row)].has_value(); }
    /// Name of an entry, 0 to 2047; empty behind the last one.
    [[nodiscard]] const std::string& Name(int entry) const {
        return g_fileList[static_cast<std::size_t>(entry)];
    }
    [[nodiscard]] int FirstEntry() const { return g_FileFirst; } ///< the one in the top row
    [[nodiscard]] int LastEntry() const { return g_FileLast; }   ///< at least 6
    [[nodiscard]] int NextNumber() const { return g_FileNo; } ///< of the next file of a repeated measurement
    /// The path that was loaded or numbered last; its folder is that of all entries.
    [[nodiscard]] const std::string& LastPath() const { return LastLoadPath; }
    [[nodiscard]] std::filesystem::path Folder() const;

    /// The path as it was found in its store.
    void RememberPath(std::string path) { LastLoadPath = std::move(path); }
    /// Files that the operator has chosen become the list; a single one needs no strip.
    void Take(const std::vector<std::filesystem::path>& paths);
    /// A measurement begins: no files, and the strip is closed.
    void Clear();
    /// Puts a numbered file just written at its place, moves the rows to the end and counts on.
    void AddNumbered(const std::filesystem::path& path);
    void Mark(int row) { g_FileShown = row; }
    /// What is known of the row's file from now on.
    void Note(int row, std::optional<PartialResult> partial) { m_Notes[Entry(row)].emplace(partial); }
    /// The strip's buttons: false where the list goes no further. First and last mark the top row; back and
    /// forward leave the mark on its file.
    bool ToFirst();
    bool ToLast();
    bool Back();
    bool Forward();
    /// Takes the marked entry out; the row that holds the next one is marked. False when none is marked.
    bool Remove();

private:
    [[nodiscard]] std::size_t Entry(int row) const { return static_cast<std::size_t>(g_FileFirst + row); }
    void FillRows();

    std::array<std::string, Length> g_fileList; ///< names without their folder
    /// Of each entry; the outer one is empty as long as nobody has looked.
    std::array<std::optional<std::optional<PartialResult>>, Length> m_Notes;
    std::array<std::string, Rows> m_FileRow; ///< the rows of the strip
    int g_FileNo = 0;                        ///< number of the next file of a repeated measurement
    int g_FileFirst = 0;                     ///< entry in the top row
    int g_FileShown = 0;                     ///< row in use
    int g_FileLast = Rows - 1;               ///< last entry, at least 6
    bool g_listPanelOpen = false;            ///< the strip is shown
    std::string LastLoadPath;                ///< `LastLoadPath.ccz`
};

/// Name of a file of a repeated measurement: "12.dat".
[[nodiscard]] std::string NumberedName(int number);

} // namespace qor
