#include "results/sheet/biff8_reader.h"

#include "results/sheet/biff8_records.h"
#include "results/sheet/biff8_writer.h"
#include "results/sheet/little_endian.h"
#include "results/sheet/utf.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <utility>

namespace qor {

namespace {

constexpr std::size_t MostSheets = 32;
constexpr std::size_t MostCells =
    400000; ///< rows count as one, and cells left empty before another of their row
constexpr std::size_t MostText = 8U << 20;        ///< bytes
constexpr std::size_t LongestWorkbook = 6U << 20; ///< bytes
constexpr std::size_t RecordHead = 4;

enum class Problem { None, Damaged, TooLarge };

struct Record {
    unsigned type = 0;
    std::size_t begin = 0; ///< of the body
    std::size_t end = 0;
};

/// Goes from record to record.
class Records {
public:
    Records(std::string_view stream, std::size_t at) : m_Stream(stream), m_At(at) {}

    /// False at the end of the stream, and where the next record does not fit into it.
    bool Next(Record& record) {
        if (m_At > m_Stream.size() || m_Stream.size() - m_At < RecordHead)
            return false;
        record.type = Get16(m_Stream, m_At);
        record.begin = m_At + RecordHead;
        record.end = record.begin + Get16(m_Stream, m_At + 2);
        m_At = record.end;
        return record.end <= m_Stream.size();
    }

private:
    std::string_view m_Stream;
    std::size_t m_At;
};

/// Reads texts that may go on in CONTINUE records.
class Texts {
public:
    /// `end` is that of the record in which the text begins.
    Texts(std::string_view stream, std::size_t at, std::size_t end)
        : m_Stream(stream), m_At(at), m_End(end) {}

    [[nodiscard]] std::size_t Position() const { return m_At; }
    [[nodiscard]] std::size_t EndOfRecord() const { return m_End; }

    /// The next text, its length in 16 bits; added to `out` unless that is null. What belongs to the text
    /// behind its characters is passed over only when another text is to be read.
    bool Read(std::string* out, bool another) {
        if (m_At > m_End)
            return false;
        if (m_At == m_End && !Continue())
            return false;
        if (m_End - m_At < 3)
            return false;
        std::size_t length = Get16(m_Stream, m_At);
        const unsigned flags = Get8(m_Stream, m_At + 2);
        m_At += 3;
        std::uint32_t high = 0;
        if (flags == 0 && length <= m_End - m_At) { // most texts are plain and whole
            if (out)
                Append(*out, m_Stream.substr(m_At, length), false, high);
            m_At += length;
            return true;
        }
        std::size_t behind = 0; // looks of parts of the text, and how it is spoken
        if (flags & 0x08) {
            behind += 4U * Get16(m_Stream, m_At);
            m_At += 2;
        }
        if (flags & 0x04) {
            behind += Get32(m_Stream, m_At);
            m_At += 4;
        }
        if (m_At > m_End)
            return false;
        bool wide = flags & 0x01;
        while (length > 0) {
            if (m_At == m_End) {
                if (!Continue() || m_At == m_End)
                    return false;
                wide = Get8(m_Stream, m_At++) & 0x01;
            }
            const std::size_t width = wide ? 2 : 1;
            const std::size_t count = std::min(length, (m_End - m_At) / width);
            if (count == 0) // each record brings a character at least, so that no text takes long to read
                return false;
            if (out)
                Append(*out, m_Stream.substr(m_At, count * width), wide, high);
            m_At += count * width;
            length -= count;
        }
        return !another || Skip(behind);
    }

private:
    static void Append(std::string& out, std::string_view bytes, bool wide, std::uint32_t& high) {
        if (!wide) {
            unsigned all = 0;
            for (const char c : bytes)
                all |= static_cast<unsigned char>(c);
            if (all < 0x80)
                out += bytes;
            else
                for (const char c : bytes)
                    AppendUtf8(out, static_cast<unsigned char>(c));
            return;
        }
        for (std::size_t i = 0; i < bytes.size(); i += 2) {
            const std::uint32_t unit = Get16(bytes, i);
            const bool low = unit >= 0xDC00 && unit < 0xE000;
            if (high && low)
                AppendUtf8(out, 0x10000 + ((high - 0xD800) << 10) + (unit - 0xDC00));
            else if (unit < 0xD800 || unit >= 0xE000)
                AppendUtf8(out, unit);
            high = unit >= 0xD800 && unit < 0xDC00 ? unit : 0;
        }
    }

    bool Skip(std::size_t count) {
        while (count > m_End - m_At) {
            count -= m_End - m_At;
            if (!Continue())
                return false;
        }
        m_At += count;
        return true;
    }

    bool Continue() {
        Records records(m_Stream, m_End);
        Record next;
        if (!records.Next(next) || next.type != BiffContinue)
            return false;
        m_At = next.begin;
        m_End = next.end;
        return true;
    }

    std::string_view m_Stream;
    std::size_t m_At;
    std::size_t m_End;
};

class Reader {
public:
    explicit Reader(std::string_view stream) : m_Stream(stream) {}

    Outcome Read(Workbook& workbook) {
        Records records(m_Stream, 0);
        Record record;
        if (!records.Next(record) || record.type != BiffBof)
            return Damaged();
        if (Get16(m_Stream, record.begin) != 0x0600)
            return Outcome::Refused("The workbook is of an older form; please save it as Excel 97 or newer.");
        std::vector<std::pair<std::size_t, std::string>> sheets; // where they begin, and their names
        while (records.Next(record) && record.type != BiffEof) {
            if (record.type == BiffFilePass)
                return Outcome::Refused("The workbook is encrypted.");
            if (record.type == BiffSst && !IndexTexts(record))
                return Damaged();
            if (record.type == BiffBoundSheet && Get8(m_Stream, record.begin + 5) == 0) {
                if (sheets.size() == MostSheets)
                    return TooLarge();
                sheets.emplace_back(Get32(m_Stream, record.begin), SheetName(record));
            }
        }
        Workbook found;
        for (auto& [begin, name] : sheets) {
            found.push_back({std::move(name), {}});
            const Problem problem = ReadSheet(begin, found.back().rows);
            if (problem != Problem::None)
                return problem == Problem::TooLarge ? TooLarge() : Damaged();
        }
        workbook = std::move(found);
        return Outcome::Done();
    }

private:
    static Outcome Damaged() { return Outcome::Refused("The workbook is damaged."); }
    static Outcome TooLarge() { return Outcome::Refused("The file is too large for a result."); }

    [[nodiscard]] std::string SheetName(const Record& record) const {
        const std::string_view body = m_Stream.substr(record.begin, record.end - record.begin);
        const bool wide = Get8(body, 7) & 0x01;
        std::string name;
        for (std::size_t i = 0; i < Get8(body, 6); ++i)
            AppendUtf8(name, wide ? Get16(body, 8 + 2 * i) : Get8(body, 8 + i));
        return name;
    }

    /// Remembers where each shared text begins.
    bool IndexTexts(const Record& record) {
        const std::size_t count = Get32(m_Stream, record.begin + 4);
        m_Shared.clear();
        if (count > m_Stream.size() / 3 || record.end - record.begin < 8)
            return false;
        m_Shared.reserve(count);
        Texts texts(m_Stream, record.begin + 8, record.end);
        for (std::size_t i = 0; i < count; ++i) {
            m_Shared.push_back({static_cast<std::uint32_t>(texts.Position()),
                                static_cast<std::uint32_t>(texts.EndOfRecord())});
            if (!texts.Read(nullptr, true))
                return false;
        }
        return true;
    }

    Problem ReadSheet(std::size_t begin, SheetRows& rows);
    Problem ReadCell(const Record& record, SheetRows& rows);
    Problem PutNumber(const Record& record, std::size_t column, double value, SheetRows& rows);
    Problem Put(const Record& record, std::size_t column, std::string text, SheetRows& rows);

    struct Place {
        std::uint32_t at;
        std::uint32_t end; ///< of the record it begins in
    };

    std::string_view m_Stream;
    std::vector<Place> m_Shared;
    Record m_FormulaCell; ///< its text is yet to come
    std::size_t m_Cells = 0;
    std::size_t m_Text = 0;
};

/// A number of 30 bits: whole, or the upper part of a double; either may stand for hundredths.
double RkValue(std::uint32_t rk) {
    double value = 0;
    if (rk & 2)
        value = static_cast<std::int32_t>(rk) >> 2;
    else
        value = std::bit_cast<double>(static_cast<std::uint64_t>(rk & ~3U) << 32);
    return rk & 1 ? value / 100 : value;
}

double DoubleAt(std::string_view bytes, std::size_t at) {
    return std::bit_cast<double>(static_cast<std::uint64_t>(Get32(bytes, at + 4)) << 32 | Get32(bytes, at));
}

Problem Reader::ReadSheet(std::size_t begin, SheetRows& rows) {
    Records records(m_Stream, begin);
    Record record;
    if (!records.Next(record) || record.type != BiffBof)
        return Problem::Damaged;
    for (std::size_t depth = 1; depth > 0;) { // a chart lies inside its sheet
        if (!records.Next(record))
            return Problem::Damaged;
        if (record.type == BiffBof) {
            ++depth;
        } else if (record.type == BiffEof) {
            --depth;
        } else if (depth == 1) {
            // The text of a formula follows it, sometimes behind a record of its shared expression.
            if (record.type == BiffFormula)
                m_FormulaCell = record;
            const Problem problem = ReadCell(record, rows);
            if (problem != Problem::None)
                return problem;
        }
    }
    return Problem::None;
}

Problem Reader::ReadCell(const Record& record, SheetRows& rows) {
    const std::size_t at = record.begin;
    const std::size_t length = record.end - record.begin;
    const std::size_t column = Get16(m_Stream, at + 2);
    std::string text;
    switch (record.type) {
    case BiffLabelSst: {
        const std::size_t index = Get32(m_Stream, at + 6);
        if (length < 10 || index >= m_Shared.size())
            return Problem::Damaged;
        const Place& place = m_Shared[index];
        Texts texts(m_Stream, place.at, place.end);
        if (!texts.Read(&text, false))
            return Problem::Damaged;
        return Put(record, column, std::move(text), rows);
    }
    case BiffLabel:
    case BiffRString: {
        Texts texts(m_Stream, at + 6, record.end);
        if (length < 6 || !texts.Read(&text, false))
            return Problem::Damaged;
        return Put(record, column, std::move(text), rows);
    }
    case BiffString: {
        Texts texts(m_Stream, at, record.end);
        if (!texts.Read(&text, false))
            return Problem::Damaged;
        if (m_FormulaCell.type != BiffFormula)
            return Problem::None;
        const Record cell = std::exchange(m_FormulaCell, {});
        return Put(cell, Get16(m_Stream, cell.begin + 2), std::move(text), rows);
    }
    case BiffFormula:
        if (length < 14)
            return Problem::Damaged;
        if (Get16(m_Stream, at + 12) == 0xFFFF) // a text, a truth, an error: no number
            return Problem::None;
        return PutNumber(record, column, DoubleAt(m_Stream, at + 6), rows);
    case BiffNumber:
        return length < 14 ? Problem::Damaged : PutNumber(record, column, DoubleAt(m_Stream, at + 6), rows);
    case BiffRk:
        return length < 10 ? Problem::Damaged
                           : PutNumber(record, column, RkValue(Get32(m_Stream, at + 6)), rows);
    case BiffMulRk: {
        // row, first column, then format and number for each, last column
        for (std::size_t i = 0; 4 + 6 * i + 6 + 2 <= length; ++i) {
            const Problem problem =
                PutNumber(record, column + i, RkValue(Get32(m_Stream, at + 6 + 6 * i)), rows);
            if (problem != Problem::None)
                return problem;
        }
        return Problem::None;
    }
    default:
        return Problem::None;
    }
}

Problem Reader::PutNumber(const Record& record, std::size_t column, double value, SheetRows& rows) {
    if (!std::isfinite(value))
        return Problem::Damaged;
    char text[32];
    const auto end = std::to_chars(text, text + sizeof text, value);
    return Put(record, column, std::string(text, end.ptr), rows);
}

Problem Reader::Put(const Record& record, std::size_t column, std::string text, SheetRows& rows) {
    const std::size_t row = Get16(m_Stream, record.begin);
    if (column >= MostSheetColumns)
        return Problem::Damaged;
    if (text.empty())
        return Problem::None;
    if (row >= rows.size()) {
        m_Cells += row + 1 - rows.size();
        rows.resize(row + 1);
    }
    std::vector<std::string>& cells = rows[row];
    m_Text += text.size();
    if (column >= cells.size()) {
        m_Cells += column + 1 - cells.size();
        cells.resize(column + 1);
    }
    if (m_Cells > MostCells || m_Text > MostText)
        return Problem::TooLarge;
    cells[column] = std::move(text);
    return Problem::None;
}

} // namespace

Outcome ReadBiff8(std::string_view stream, Workbook& workbook) {
    if (stream.size() > LongestWorkbook)
        return Outcome::Refused("The file is too large for a result.");
    return Reader(stream).Read(workbook);
}

} // namespace qor
