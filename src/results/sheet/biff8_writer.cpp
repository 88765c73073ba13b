#include "results/sheet/biff8_writer.h"

#include "results/sheet/biff8_records.h"
#include "results/sheet/little_endian.h"
#include "results/sheet/utf.h"

#include <algorithm>
#include <unordered_map>

namespace qor {

namespace {

constexpr unsigned TextFormat = 49; ///< built-in number format "@": a text stays a text when it is edited
constexpr unsigned FirstCellFormat = 15; ///< the fifteen before it belong to styles
constexpr unsigned WideCharacters = 1;   ///< flag of a string: 16 bits each, else 8

void PutRecord(std::string& out, unsigned record, std::string_view body) {
    Put16(out, record);
    Put16(out, static_cast<unsigned>(body.size()));
    out += body;
}

std::string Words(std::initializer_list<unsigned> words) {
    std::string body;
    for (const unsigned word : words)
        Put16(body, word);
    return body;
}

/// Each text of the workbook once, in records of at most 8224 bytes.
class SharedStrings {
public:
    SharedStrings() {
        Begin(BiffSst);
        Put32(m_Records, 0); // texts in cells,
        Put32(m_Records, 0); // and different ones: known at the end
    }

    /// False for a text that is too long for a cell.
    bool Add(std::string_view text, std::uint32_t& index) {
        const auto [known, isNew] = m_Index.try_emplace(text, static_cast<std::uint32_t>(m_Index.size()));
        index = known->second;
        ++m_Uses;
        return !isNew || Write(text);
    }

    void AppendTo(std::string& stream) {
        End();
        std::string counts;
        Put32(counts, m_Uses);
        Put32(counts, static_cast<std::uint32_t>(m_Index.size()));
        m_Records.replace(4, counts.size(), counts);
        stream += m_Records;
    }

private:
    void Begin(unsigned record) {
        Put16(m_Records, record);
        Put16(m_Records, 0);
        m_Body = m_Records.size();
    }
    void End() {
        const std::size_t length = m_Records.size() - m_Body;
        m_Records[m_Body - 2] = static_cast<char>(length & 0xFF);
        m_Records[m_Body - 1] = static_cast<char>(length >> 8);
    }
    [[nodiscard]] std::size_t Room() const { return LongestBiffBody - (m_Records.size() - m_Body); }
    void Continue() {
        End();
        Begin(BiffContinue);
    }

    bool Write(std::string_view text) {
        const bool plain = std::all_of(text.begin(), text.end(), [](char c) { return (c & 0x80) == 0; });
        if (plain) {
            if (text.size() > MostCellCharacters)
                return false;
            Head(text.size(), 0);
            while (!text.empty()) {
                Refill(1, 0);
                const std::size_t count = std::min(Room(), text.size());
                m_Records += text.substr(0, count);
                text.remove_prefix(count);
            }
            return true;
        }
        const std::u16string wide = ToUtf16(text);
        if (wide.size() > MostCellCharacters)
            return false;
        Head(wide.size(), WideCharacters);
        for (const char16_t c : wide) {
            Refill(2, WideCharacters);
            Put16(m_Records, c);
        }
        return true;
    }
    /// Length and flags, which are never divided between two records.
    void Head(std::size_t length, unsigned flags) {
        if (Room() < 5)
            Continue();
        Put16(m_Records, static_cast<unsigned>(length));
        m_Records += static_cast<char>(flags);
    }
    /// A text that is cut inside its characters repeats its flags.
    void Refill(std::size_t wanted, unsigned flags) {
        if (Room() >= wanted)
            return;
        Continue();
        m_Records += static_cast<char>(flags);
    }

    std::unordered_map<std::string_view, std::uint32_t> m_Index;
    std::uint32_t m_Uses = 0;
    std::string m_Records;
    std::size_t m_Body = 0; ///< where the body of the record being filled begins
};

void PutBof(std::string& out, unsigned kind) {
    PutRecord(out, BiffBof, Words({0x0600, kind, 0x0DBB, 0x07CC, 0x0041, 0, 0x0006, 0}));
}

/// Fonts, formats and the one style, which a reader with an eye for looks asks for.
void PutLooks(std::string& out) {
    constexpr unsigned Bold = 400;
    constexpr unsigned Height = 200; // twentieths of a point
    for (int i = 0; i < 4; ++i) {
        std::string font = Words({Height, 0, 0x7FFF, Bold, 0, 0, 0});
        font += '\5';
        font += '\0';
        PutRecord(out, BiffFont, font + "Arial");
    }
    const auto format = [&out](unsigned number, unsigned kind) {
        PutRecord(out, BiffXf, Words({0, number, kind, 0x0020, 0, 0, 0, 0, 0, 0x20C0}));
    };
    for (unsigned i = 0; i < FirstCellFormat; ++i)
        format(0, 0xFFF5);
    format(TextFormat, 0x0001);
    PutRecord(out, BiffStyle, Words({0x8000, 0xFF00}));
}

bool PutSheet(std::string& out, const SheetRows& rows, bool first, SharedStrings& texts) {
    if (rows.size() > MostSheetRows)
        return false;
    std::size_t columns = 0;
    for (const auto& row : rows)
        columns = std::max(columns, row.size());
    if (columns > MostSheetColumns)
        return false;
    PutBof(out, 0x10);
    std::string area;
    Put32(area, 0);
    Put32(area, static_cast<std::uint32_t>(rows.size()));
    PutRecord(out, BiffDimensions, area + Words({0, static_cast<unsigned>(columns), 0}));
    unsigned rowNumber = 0;
    for (const auto& row : rows) {
        unsigned column = 0;
        for (const std::string& cell : row) {
            if (!cell.empty()) {
                std::uint32_t index = 0;
                if (!texts.Add(cell, index))
                    return false;
                Put16(out, BiffLabelSst);
                Put16(out, 10);
                Put16(out, rowNumber);
                Put16(out, column);
                Put16(out, FirstCellFormat);
                Put32(out, index);
            }
            ++column;
        }
        ++rowNumber;
    }
    PutRecord(out, BiffWindow2, Words({first ? 0x06B6U : 0x00B6U, 0, 0, 0x40, 0, 0, 0, 0, 0}));
    PutRecord(out, BiffEof, {});
    return true;
}

} // namespace

Outcome WriteBiff8(const Workbook& workbook, std::string& stream) {
    SharedStrings texts;
    std::string sheets;
    std::vector<std::size_t> begins;
    std::vector<std::u16string> names;
    for (const Sheet& sheet : workbook) {
        begins.push_back(sheets.size());
        names.push_back(ToUtf16(sheet.name));
        if (names.back().size() > MostSheetNameCharacters ||
            !PutSheet(sheets, sheet.rows, begins.size() == 1, texts))
            return Outcome::Refused("The result is too long for this form.");
    }

    std::string out;
    PutBof(out, 0x05);
    PutRecord(out, BiffCodePage, Words({1200}));
    PutRecord(out, BiffWindow1, Words({0, 0, 0x4000, 0x2000, 0x38, 0, 0, 1, 0x258}));
    PutLooks(out);
    std::vector<std::size_t> places; // of the sheets' offsets
    for (const std::u16string& name : names) {
        places.push_back(out.size() + 4);
        std::string body(6, '\0'); // offset; a visible sheet of cells
        body += static_cast<char>(name.size());
        body += static_cast<char>(WideCharacters);
        for (const char16_t c : name)
            Put16(body, c);
        PutRecord(out, BiffBoundSheet, body);
    }
    texts.AppendTo(out);
    PutRecord(out, BiffEof, {});
    for (std::size_t i = 0; i < places.size(); ++i) {
        std::string offset;
        Put32(offset, static_cast<std::uint32_t>(out.size() + begins[i]));
        out.replace(places[i], offset.size(), offset);
    }
    out += sheets;
    stream = std::move(out);
    return Outcome::Done();
}

} // namespace qor
