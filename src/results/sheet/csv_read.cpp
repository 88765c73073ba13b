#include "base/tenths.h"
#include "results/read_document.h"
#include "results/sheet/csv_columns.h"
#include "results/sheet/csv_table.h"
#include "results/sheet/stated_values.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <type_traits>

namespace qor {

namespace {

constexpr std::size_t LongestCsv = 24U << 20; ///< bytes
constexpr std::size_t MostRuns = 10000;
constexpr std::size_t MostPoints = 500000;
constexpr double MostValue = 1e7; ///< no frequency, level or time of a result is larger
constexpr std::size_t NoColumn = std::numeric_limits<std::size_t>::max();

/// Goes through a table line by line; a field in quotes may hold line ends.
class CsvLines {
public:
    explicit CsvLines(std::string_view text) : m_Text(text) {}

    /// Fields of the next line; false at the end.
    bool Next(std::vector<std::string>& fields) {
        std::size_t count = 0;
        if (m_At >= m_Text.size())
            return false;
        for (bool more = true; more; ++count) {
            if (count == MostFields) {
                m_At = m_Text.size();
                return false;
            }
            if (fields.size() == count)
                fields.emplace_back();
            fields[count].clear();
            more = Field(fields[count]);
        }
        fields.resize(count);
        return true;
    }

private:
    static constexpr std::size_t MostFields = 256;
    static constexpr std::size_t LongestField = 65536;

    /// True when another field follows in the line.
    bool Field(std::string& out) {
        bool quoted = false;
        for (; m_At < m_Text.size() && out.size() < LongestField; ++m_At) {
            const char c = m_Text[m_At];
            if (c == '"') {
                if (quoted && m_At + 1 < m_Text.size() && m_Text[m_At + 1] == '"')
                    out += m_Text[++m_At];
                else
                    quoted = !quoted;
            } else if (!quoted && c == ',') {
                ++m_At;
                return true;
            } else if (!quoted && c == '\n') {
                ++m_At;
                break;
            } else if (quoted || c != '\r') {
                out += c;
            }
        }
        return false;
    }

    std::string_view m_Text;
    std::size_t m_At = 0;
};

/// A line of the table by the names of its columns.
class Table {
public:
    bool ReadNames(CsvLines& lines) {
        if (!lines.Next(m_Fields))
            return false;
        for (std::size_t i = 0; i < CsvNames.size(); ++i) {
            const auto at = std::find(m_Fields.begin(), m_Fields.end(), CsvNames[i]);
            m_Places[i] = at != m_Fields.end() ? static_cast<std::size_t>(at - m_Fields.begin()) : NoColumn;
        }
        m_Columns = m_Fields.size();
        using enum CsvColumn;
        const auto known = [this](CsvColumn c) { return m_Places[static_cast<std::size_t>(c)] != NoColumn; };
        return known(Half) && known(Level) && known(Unit) && known(Order) && (known(Time) || known(Im));
    }
    bool ReadLine(CsvLines& lines) { return lines.Next(m_Fields); }

    [[nodiscard]] std::string_view Text(CsvColumn column) const {
        const std::size_t place = m_Places[static_cast<std::size_t>(column)];
        return place < m_Fields.size() ? std::string_view(m_Fields[place]) : std::string_view();
    }
    /// False for what is there and no number; `value` stays where the field is empty.
    template <class Number> bool Read(CsvColumn column, Number& value) const {
        const std::string_view text = Text(column);
        if (text.empty())
            return true;
        const auto number = EnteredNumber(text);
        if (!number || std::abs(*number) > MostValue || (std::is_unsigned_v<Number> && *number < 0))
            return false;
        value = static_cast<Number>(*number);
        return true;
    }
    [[nodiscard]] bool IsEmptyLine() const { return m_Fields.size() == 1 && m_Fields.front().empty(); }
    [[nodiscard]] bool IsWholeLine() const { return m_Fields.size() >= m_Columns; }
    /// True as long as all lines state the same of the whole result.
    bool IsOneResult() {
        const bool first = m_Whole.empty();
        m_Whole.resize(CsvNames.size());
        for (auto column = static_cast<std::size_t>(CsvColumn::Unit); column < CsvNames.size(); ++column) {
            const std::string_view text = Text(static_cast<CsvColumn>(column));
            if (first)
                m_Whole[column] = text;
            else if (m_Whole[column] != text)
                return false;
        }
        return true;
    }

private:
    std::vector<std::string> m_Fields;
    std::vector<std::string> m_Whole; ///< of the first line, from the unit on
    std::size_t m_Columns = 0;
    std::array<std::size_t, CsvNames.size()> m_Places{};
};

/// "2026-03-07 09:05"
bool ReadDate(std::string_view text, ResultDocument& document) {
    if (text.empty())
        return true;
    if (text.size() != 16 || text[4] != '-' || text[7] != '-' || text[10] != ' ' || text[13] != ':')
        return false;
    document.date =
        std::string(text.substr(0, 4)) + std::string(text.substr(5, 2)) + std::string(text.substr(8, 2));
    document.time = text.substr(11);
    const std::string digits = document.date + document.time.substr(0, 2) + document.time.substr(3);
    return std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '9'; });
}

/// What stands in every line, from the first one.
bool ReadWhole(const Table& table, ResultDocument& document) {
    using enum CsvColumn;
    const std::string_view unit = table.Text(Unit);
    const std::string_view method = table.Text(Method);
    document.inDbc = unit == "dBc";
    document.method = table.Text(Half) == "time" ? ResultMethod::TwoTone
                      : method == "spectrum"     ? ResultMethod::Spectrum
                                                 : ResultMethod::Sweep;
    FrequencyPlan& plan = document.plan;
    const bool timed = document.method == ResultMethod::TwoTone;
    float limit = 0;
    const bool good = (unit == "dBm" || unit == "dBc") && table.Read(Power1, document.power1) &&
                      table.Read(Power2, document.power2) && table.Read(Order, document.order) &&
                      table.Read(F1Held, timed ? plan.f1 : plan.f1Fix) &&
                      table.Read(F2Held, timed ? plan.f2 : plan.f2Fix) && table.Read(F1Start, plan.f1Start) &&
                      table.Read(F1Stop, plan.f1Stop) && table.Read(F2Start, plan.f2Start) &&
                      table.Read(F2Stop, plan.f2Stop) && ReadDate(table.Text(Date), document) &&
                      table.Read(Limit, limit) && table.Read(PointsTaken, document.pointsTaken) &&
                      table.Read(PointsAsked, document.pointsAsked);
    if (!good || document.order < 3 || document.order > 11 || document.order % 2 == 0)
        return false;
    if (!table.Text(Limit).empty())
        document.limit = limit;
    document.model = table.Text(Model);
    document.serial = table.Text(Serial);
    document.deviceSerial = table.Text(DeviceSerial);
    document.receiver = table.Text(Receiver);
    float floor = 0;
    if (!table.Read(Floor, floor))
        return false;
    if (!table.Text(Floor).empty())
        document.floor = floor;
    document.verdict = VerdictOfWord(table.Text(Verdict)).value_or(ResultVerdict::None);
    return true;
}

/// Runs are numbered from 1 without a gap.
bool ReadPoint(const Table& table, ResultDocument& document) {
    using enum CsvColumn;
    const bool timed = document.method == ResultMethod::TwoTone;
    const std::string_view half = table.Text(Half);
    std::size_t run = 1;
    ResultPoint point;
    if ((half == "time") != timed || (!timed && half != "up" && half != "down") ||
        table.Text(timed ? Time : Im).empty() || !table.Read(timed ? Time : Im, point.x) ||
        point.x < (timed ? 0.0 : LeastFrequency) || !table.Read(Level, point.level) || !table.Read(Run, run))
        return false;
    if (run == document.runs.size() + 1 && run <= MostRuns)
        document.runs.emplace_back();
    if (run == 0 || run != document.runs.size())
        return false;
    if (timed || point.HasLevel()) // a sweep states no gaps
        (half == "down" ? document.runs.back().down : document.runs.back().up).push_back(point);
    return true;
}

} // namespace

Outcome ReadCsv(std::string_view bytes, ResultDocument& document) {
    constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
    if (bytes.starts_with(ByteOrderMark))
        bytes.remove_prefix(ByteOrderMark.size());
    if (bytes.size() > LongestCsv)
        return Outcome::Refused("The file is too large for a result.");
    CsvLines lines(bytes);
    Table table;
    if (!table.ReadNames(lines))
        return Outcome::Refused("This is not a result file.");
    ResultDocument found;
    std::size_t points = 0;
    std::size_t rows = 0; // that it says it has; 0: it does not
    while (table.ReadLine(lines)) {
        if (table.IsEmptyLine())
            continue;
        if (++points > MostPoints)
            return Outcome::Refused("The file is too large for a result.");
        if (!table.Text(CsvColumn::InterBand).empty())
            return Outcome::Refused("A result between bands cannot be shown.");
        if (!table.IsOneResult())
            return Outcome::Refused("The table holds several results.");
        const bool first = points == 1;
        if (!table.IsWholeLine() ||
            (first && !(ReadWhole(table, found) && table.Read(CsvColumn::Rows, rows))) ||
            !ReadPoint(table, found))
            return Outcome::Refused("One of its data rows is damaged.");
    }
    if (rows != 0 && rows != points)
        return Outcome::Refused("The table is cut short.");
    if (found.runs.empty() || PointsOf(found) == 0)
        return Outcome::Refused("The file holds no measured level.");
    const auto goesOn = [](const ResultRun& run) { return TimesGoOn(run.up); };
    if (found.method == ResultMethod::TwoTone && !std::all_of(found.runs.begin(), found.runs.end(), goesOn))
        return Outcome::Refused("One of its data rows is damaged.");
    // The verdict that is stated counts where the rows would be taken for a better one.
    const ResultVerdict verdict = found.verdict;
    const std::size_t taken = found.pointsTaken;
    const std::size_t asked = found.pointsAsked;
    CompleteRead(found);
    ResultDocument stated;
    stated.verdict = verdict;
    stated.pointsTaken = taken;
    stated.pointsAsked = asked;
    if (DistanceFromPass(stated) > DistanceFromPass(found)) {
        found.marked = true;
        found.verdict = verdict;
        found.pointsTaken = taken;
        found.pointsAsked = asked;
    }
    found.genuine = false;
    found.statesRemarks = false;
    document = std::move(found);
    return Outcome::Done();
}

} // namespace qor
