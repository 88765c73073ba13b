#include "results/sheet/spread_sheet.h"

#include "base/atomic_write.h"
#include "results/sheet/biff8_reader.h"
#include "results/sheet/biff8_writer.h"
#include "results/sheet/compound_file.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <unordered_set>

namespace qor {

namespace {

constexpr std::string_view WorkbookStream = "Workbook";
constexpr std::string_view WorkbookSeparator = ",;.?";
constexpr std::size_t LongestFile = 8U << 20;
constexpr std::size_t LongestText = 4U << 20; ///< of the text form
constexpr std::string_view RowBeyondEnd = "Desired row is greater than total number of rows in spreadsheet\n";

bool IsWorkbookName(const std::filesystem::path& file) {
    std::string name = file.filename().string();
    std::string ending = name.size() < 4 ? name : name.substr(name.size() - 4);
    for (char& c : ending)
        c = static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
    return ending == ".xls";
}

/// Nothing when the file cannot be read, or is longer than any sheet.
bool ReadFile(const std::filesystem::path& path, std::string& bytes) {
    std::error_code unknown;
    if (!std::filesystem::is_regular_file(path, unknown)) // reading a pipe would wait for ever
        return false;
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rbe"), &std::fclose);
    if (!file)
        return false;
    const auto size = std::filesystem::file_size(path, unknown);
    if (unknown || size > LongestFile)
        return false;
    bytes.resize(static_cast<std::size_t>(size));
    bytes.resize(std::fread(bytes.data(), 1, bytes.size(), file.get()));
    return std::ferror(file.get()) == 0;
}

Outcome ReadWorkbook(std::string_view bytes, Workbook& workbook) {
    const CompoundStream stream = ReadCompoundStream(bytes, WorkbookStream);
    if (stream.problem == CompoundProblem::NoSuchStream)
        return Outcome::Refused("There is no workbook in the file, or it is of an older form.");
    if (stream.problem != CompoundProblem::None)
        return Outcome::Refused("The workbook is damaged.");
    return ReadBiff8(stream.bytes, workbook);
}

Workbook::iterator FindSheet(Workbook& book, std::string_view name) {
    return std::find_if(book.begin(), book.end(), [&](const Sheet& s) { return s.name == name; });
}

/// The lines of a text; more than a sheet has rows are not gathered.
std::vector<std::string_view> LinesOf(std::string_view bytes) {
    std::vector<std::string_view> lines;
    while (!bytes.empty() && lines.size() <= MostSheetRows) {
        const std::size_t end = std::min(bytes.find('\n'), bytes.size());
        std::string_view line = bytes.substr(0, end);
        bytes.remove_prefix(std::min(end + 1, bytes.size()));
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        lines.push_back(line);
    }
    return lines;
}

} // namespace

SheetCells SplitRowText(std::string_view row, std::string_view separator) {
    const std::string between = '"' + std::string(separator) + '"';
    if (row.starts_with('"'))
        row.remove_prefix(1);
    if (row.ends_with('"'))
        row.remove_suffix(1);
    SheetCells cells;
    for (std::size_t at = row.find(between); at != std::string_view::npos; at = row.find(between)) {
        cells.emplace_back(row.substr(0, at));
        row.remove_prefix(at + between.size());
    }
    cells.emplace_back(row);
    return cells;
}

CSpreadSheet::CSpreadSheet(std::filesystem::path file, std::string sheetOrSeparator, bool backup)
    : m_IsExcel(IsWorkbookName(file)), m_SheetName(m_IsExcel ? sheetOrSeparator : std::string()),
      m_File(std::move(file)), m_Separator(m_IsExcel ? std::string(WorkbookSeparator) : sheetOrSeparator) {
    if (Open() && backup && m_SheetExists)
        KeepCopy();
}

CSpreadSheet::CSpreadSheet(bool isExcel, std::string_view sheetOrSeparator)
    : m_IsExcel(isExcel), m_SheetName(isExcel ? sheetOrSeparator : std::string_view()),
      m_Separator(isExcel ? WorkbookSeparator : sheetOrSeparator) {}

bool CSpreadSheet::Fail(std::string text) {
    m_LastError = std::move(text);
    return false;
}

std::string CSpreadSheet::RowText(const SheetCells& cells) const {
    std::string text;
    for (const std::string& cell : cells) {
        if (!text.empty())
            text += m_Separator;
        text += '"';
        text += cell;
        text += '"';
    }
    return text;
}

bool CSpreadSheet::AddHeaders(const SheetCells& cells, bool replace) {
    if (!m_SheetExists) {
        if (!AddRow(cells, 1, true))
            return false;
        m_TotalColumns = cells.size();
        return true;
    }
    if (replace)
        return AddRow(cells, 1, true);
    SheetCells names = m_FieldNames;
    for (const std::string& cell : cells) {
        if (std::find(names.begin(), names.end(), cell) != names.end())
            return Fail("Duplicate header row field:" + cell + "\n");
        names.push_back(cell);
    }
    if (!AddRow(names, 1, true))
        return Fail("Problems with adding headers\n");
    m_TotalColumns = std::max(m_TotalColumns, names.size());
    return true;
}

bool CSpreadSheet::MayBeHeader(const SheetCells& cells) {
    std::unordered_set<std::string_view> seen;
    for (const std::string& cell : cells) {
        if (!seen.insert(cell).second)
            return Fail("Duplicate header row field:" + cell + "\n");
    }
    if (cells.size() < m_FieldNames.size())
        return Fail("Number of columns in new header row cannot be less than the number of columns in "
                    "previous header row");
    return true;
}

bool CSpreadSheet::AddRow(const SheetCells& cells, std::size_t row, bool replace) {
    if (m_IsExcel) {
        if (row == 1) {
            if (!MayBeHeader(cells))
                return false;
        } else if (m_FieldNames.empty()) {
            return Fail("No header row. Add header row first\n");
        } else if (cells.size() > m_FieldNames.size()) {
            return Fail("Number of columns to be added cannot be greater than the number of fields\n");
        }
    }
    SetRow(cells, row, replace);
    return Changed();
}

void CSpreadSheet::AddBlankRows(std::size_t upTo) {
    const std::string blank = RowText(SheetCells(m_TotalColumns, m_IsExcel ? " " : ""));
    while (m_Rows.size() < upTo)
        m_Rows.push_back(blank);
}

void CSpreadSheet::SetRow(const SheetCells& cells, std::size_t row, bool replace) {
    if (row == 1 || !m_IsExcel)
        m_TotalColumns = std::max(m_TotalColumns, cells.size());
    if (row == 1)
        m_FieldNames = cells;
    if (row == 0)
        row = m_Rows.size() + 1;
    if (row > m_Rows.size()) {
        AddBlankRows(row - 1);
        m_Rows.push_back(RowText(cells));
    } else if (replace) {
        m_Rows[row - 1] = RowText(cells);
    } else {
        m_Rows.insert(m_Rows.begin() + static_cast<std::ptrdiff_t>(row - 1), RowText(cells));
    }
}

bool CSpreadSheet::AddCell(std::string_view text, std::size_t column, std::size_t row) {
    if (column == 0)
        return Fail("Column cannot be zero\n");
    if (m_IsExcel && column > m_FieldNames.size())
        return Fail("Cell column to be added cannot be greater than the number of fields\n");
    if (row == 0)
        row = std::max<std::size_t>(m_Rows.size(), 1);
    const std::size_t before = m_CurrentRow;
    SheetCells cells;
    if (row > m_Rows.size())
        cells.assign(m_TotalColumns, m_IsExcel ? " " : "");
    else if (!ReadRow(cells, row))
        return false;
    m_CurrentRow = before;
    if (cells.size() < column)
        cells.resize(column);
    cells[column - 1] = text;
    return AddRow(cells, row, true);
}

bool CSpreadSheet::ReadRow(SheetCells& cells, std::size_t row) {
    if (row == 0)
        row = m_CurrentRow;
    if (row > m_Rows.size())
        return Fail(std::string(RowBeyondEnd));
    cells = SplitRowText(m_Rows[row - 1], m_Separator);
    m_CurrentRow = row + 1;
    return true;
}

bool CSpreadSheet::Open() {
    std::string bytes;
    if (m_File.empty() || !ReadFile(m_File, bytes))
        return Fail("Error in opening file\n");
    m_SheetExists = m_IsExcel ? OpenWorkbook(bytes) : OpenText(bytes);
    return m_SheetExists;
}

bool CSpreadSheet::OpenWorkbook(std::string_view bytes) {
    Workbook book;
    if (const Outcome read = ReadWorkbook(bytes, book); !read)
        return Fail("Error reading row\n");
    m_Book = std::move(book);
    const auto sheet = FindSheet(m_Book, m_SheetName);
    if (sheet == m_Book.end() || sheet->rows.empty())
        return Fail("Error in opening file\n");
    m_FieldNames = sheet->rows.front();
    m_TotalColumns = m_FieldNames.size();
    m_Rows.clear();
    for (const SheetCells& row : sheet->rows)
        m_Rows.push_back(RowText(row));
    return true;
}

bool CSpreadSheet::OpenText(std::string_view bytes) {
    m_Rows.clear();
    m_TotalColumns = 0;
    for (const std::string_view line : LinesOf(bytes)) {
        m_Rows.emplace_back(line);
        const SheetCells cells = SplitRowText(line, m_Separator);
        m_TotalColumns = std::max(m_TotalColumns, cells.size());
        if (m_Rows.size() == 1)
            m_FieldNames = cells;
    }
    return true;
}

/// A copy that fails leaves the sheet as it was.
void CSpreadSheet::KeepCopy() {
    if (!m_IsExcel) {
        std::filesystem::path copy = m_File;
        copy += ".bak";
        std::error_code failed;
        std::filesystem::copy_file(m_File, copy, std::filesystem::copy_options::overwrite_existing, failed);
        return;
    }
    const std::string name = std::exchange(m_SheetName, std::string(BackupSheetName));
    m_SheetExists = false;
    Commit();
    m_SheetName = name;
    m_SheetExists = true;
    m_LastError.clear();
}

bool CSpreadSheet::RenderWorkbook(Workbook& book) {
    Sheet sheet{m_SheetName, {}};
    sheet.rows.reserve(m_Rows.size());
    for (const std::string& row : m_Rows)
        sheet.rows.push_back(SplitRowText(row, m_Separator));
    const auto at = FindSheet(book, m_SheetName);
    if (at == book.end())
        book.push_back(std::move(sheet));
    else if (m_SheetExists)
        *at = std::move(sheet);
    else
        return Fail("Table '" + m_SheetName + "' already exists.");
    std::string stream;
    if (const Outcome written = WriteBiff8(book, stream); !written)
        return Fail(written.Text());
    m_Bytes = PackCompoundFile(WorkbookStream, stream);
    return true;
}

bool CSpreadSheet::Commit() {
    Workbook book = m_Book;
    if (m_IsExcel) {
        if (!RenderWorkbook(book))
            return false;
    } else {
        m_Bytes.clear();
        for (const std::string& row : m_Rows)
            m_Bytes += row + "\r\n";
    }
    if (!m_File.empty()) {
        const std::string problem = WriteAtomically(m_File, m_Bytes);
        if (!problem.empty())
            return Fail(m_IsExcel ? problem : "Error writing file\n");
    }
    m_Book = std::move(book);
    m_SheetExists = true;
    m_InTransaction = false;
    return true;
}

bool IsSheetText(std::string_view bytes) {
    const std::string between = '"' + std::string(SheetNameOfResults) + '"';
    return bytes.starts_with('"') &&
           bytes.substr(0, bytes.find('\n')).find(between) != std::string_view::npos;
}

Outcome ReadSheetRows(std::string_view bytes, SheetRows& rows) {
    if (IsCompoundFile(bytes)) {
        Workbook book;
        Outcome read = ReadWorkbook(bytes, book);
        if (!read)
            return read;
        const auto sheet = FindSheet(book, SheetNameOfResults);
        if (sheet == book.end())
            return Outcome::Refused("The workbook has no sheet \"QOR_Test\": it is not a result.");
        rows = std::move(sheet->rows);
        return Outcome::Done();
    }
    if (!IsSheetText(bytes))
        return Outcome::Refused("This is not a result file.");
    if (bytes.size() > LongestText)
        return Outcome::Refused("The file is too large for a result.");
    const std::vector<std::string_view> lines = LinesOf(bytes);
    if (lines.size() > MostSheetRows)
        return Outcome::Refused("The file is too large for a result.");
    rows.clear();
    for (const std::string_view line : lines)
        rows.push_back(SplitRowText(line, SheetNameOfResults));
    return Outcome::Done();
}

} // namespace qor
