#pragma once

#include "base/outcome.h"
#include "results/sheet/workbook.h"

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace qor {

/// Name of the sheet of every workbook of this program, and the separator of its text form.
inline constexpr std::string_view SheetNameOfResults = "QOR_Test";
inline constexpr std::string_view BackupSheetName = "QOR_Test_Backup";

using SheetCells = std::vector<std::string>;

/// A sheet as an array of row texts, the first of which is the header row; rows and columns count from 1.
///
/// It lives in a workbook (.xls), or in a text file whose lines are the row texts. A row text is its cells,
/// each between two double quotes, with the separator between them. Every operation answers false when it
/// refuses, with the reason in GetLastError(); a change that could only not be written stays in memory.
class CSpreadSheet {
public:
    /// Opens the sheet of a file; a file that is not there is a new sheet. A name ending in ".xls" is a
    /// workbook and the second argument the name of its sheet; else that is the separator of the cells. With
    /// `backup` a sheet that is there is copied first: into the sheet "QOR_Test_Backup" of the same workbook,
    /// or to "<name>.bak".
    CSpreadSheet(std::filesystem::path file, std::string sheetOrSeparator, bool backup);
    /// A new sheet without a file: Commit leaves in Bytes() what the file would hold.
    CSpreadSheet(bool isExcel, std::string_view sheetOrSeparator);

    /// Changes wait for Commit. Without it each of them commits at once.
    void BeginTransaction() { m_InTransaction = true; }
    bool AddHeaders(const SheetCells& cells, bool replace = false);
    /// Row 0 appends; a row beyond the end follows blank rows. Within the sheet the row is put in before the
    /// one that stands there, or takes its place.
    bool AddRow(const SheetCells& cells, std::size_t row = 0, bool replace = false);
    /// Row 0 is the last row.
    bool AddCell(std::string_view text, std::size_t column, std::size_t row = 0);
    /// Row 0 is the row behind the one read last.
    bool ReadRow(SheetCells& cells, std::size_t row = 0);
    bool Commit();
    /// Reads the sheet of the file; false when there is none.
    bool Open();

    [[nodiscard]] const std::string& GetLastError() const { return m_LastError; }
    [[nodiscard]] std::size_t TotalRows() const { return m_Rows.size(); }
    [[nodiscard]] std::size_t TotalColumns() const { return m_TotalColumns; }
    /// What the last Commit wrote.
    [[nodiscard]] const std::string& Bytes() const { return m_Bytes; }

private:
    bool Fail(std::string text);
    bool Changed() { return m_InTransaction || Commit(); }
    [[nodiscard]] std::string RowText(const SheetCells& cells) const;
    [[nodiscard]] bool MayBeHeader(const SheetCells& cells);
    void AddBlankRows(std::size_t upTo);
    void SetRow(const SheetCells& cells, std::size_t row, bool replace);
    bool OpenWorkbook(std::string_view bytes);
    bool OpenText(std::string_view bytes);
    bool RenderWorkbook(Workbook& book);
    void KeepCopy();

    bool m_SheetExists = false;   ///< the sheet is already in the file
    bool m_IsExcel = false;       ///< a workbook; else a text file
    bool m_InTransaction = false; ///< changes wait for Commit
    std::size_t m_CurrentRow = 1; ///< to be read next
    std::size_t m_TotalColumns = 0;
    std::string m_SheetName;
    std::filesystem::path m_File; ///< empty: in memory alone
    std::string m_Separator;      ///< between the cells of a row text
    std::string m_LastError;
    SheetCells m_FieldNames; ///< the header row
    std::vector<std::string> m_Rows;
    Workbook m_Book; ///< the sheets of the file, others than this one too
    std::string m_Bytes;
};

/// The cells of a row text.
[[nodiscard]] SheetCells SplitRowText(std::string_view row, std::string_view separator);

/// True for the text form of a sheet: cells between double quotes, and the separator between them.
[[nodiscard]] bool IsSheetText(std::string_view bytes);

/// The cells of a workbook's sheet of results, or of the text form, whichever the bytes are. Refused when
/// they are neither, or damaged.
Outcome ReadSheetRows(std::string_view bytes, SheetRows& rows);

} // namespace qor
