// A sheet of a result back into the result, by the columns that our writer fills.
#include "base/tenths.h"
#include "base/text_format.h"
#include "results/read_document.h"
#include "results/sheet/sheet_forms.h"
#include "results/sheet/spread_sheet.h"
#include "results/sheet/stated_values.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace qor {

namespace {

constexpr double MostValue = 1e7; ///< no frequency, level or time of a result is larger

std::string_view Trimmed(std::string_view text) {
    const std::size_t begin = text.find_first_not_of(' ');
    if (begin == std::string_view::npos)
        return {};
    return text.substr(begin, text.find_last_not_of(' ') - begin + 1);
}

std::string_view CellAt(const SheetCells& row, std::size_t column) {
    return column < row.size() ? Trimmed(row[column]) : std::string_view();
}

bool ReadNumber(std::string_view text, double& value) {
    const auto number = EnteredNumber(text);
    if (!number || std::abs(*number) > MostValue)
        return false;
    value = *number;
    return true;
}

/// The number behind `label`, up to `end`; the cell goes on behind it.
bool TakeNumber(std::string_view& cell, std::string_view label, char end, float& value) {
    const std::size_t at = cell.find(label);
    if (at == std::string_view::npos)
        return false;
    cell.remove_prefix(at + label.size());
    const std::size_t length = cell.find(end);
    double number = 0;
    if (length == std::string_view::npos || !ReadNumber(cell.substr(0, length), number))
        return false;
    value = static_cast<float>(number);
    cell.remove_prefix(length);
    return true;
}

struct ToneHead {
    float fix = 0;
    float start = 0;
    float stop = 0;
    float power = 0;
    bool known = false;
};

bool ReadTone(std::string_view cell, ToneHead& tone) {
    tone.known = TakeNumber(cell, ":", 'M', tone.fix) && TakeNumber(cell, "START:", 'M', tone.start) &&
                 TakeNumber(cell, "STOP:", 'M', tone.stop) && TakeNumber(cell, "POWER: +", 'd', tone.power);
    return tone.known;
}

/// "IM3" to "IM11".
bool ReadOrder(std::string_view text, int& order) {
    if (!text.starts_with("IM"))
        return false;
    order = WholeNumberIn(text.substr(2));
    return order >= 3 && order <= 11 && order % 2 == 1;
}

/// "2026-3-7-9-5"
bool ReadDate(std::string_view cell, ResultDocument& document) {
    int parts[5] = {};
    for (int& part : parts) {
        const std::size_t end = std::min(cell.find('-'), cell.size());
        const std::string_view digits = cell.substr(0, end);
        const bool number =
            !digits.empty() && digits.size() <= 4 &&
            std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '9'; });
        if (!number)
            return false;
        part = WholeNumberIn(digits);
        cell.remove_prefix(std::min(end + 1, cell.size()));
    }
    const auto [year, month, day, hour, minute] = parts;
    if (month > 12 || day > 31 || hour > 23 || minute > 59 || !cell.empty())
        return false;
    document.date = ZeroPadded(year, 4) + ZeroPadded(month, 2) + ZeroPadded(day, 2);
    document.time = ZeroPadded(hour, 2) + ":" + ZeroPadded(minute, 2);
    return true;
}

/// "12 of 28 points: none", "RECEIVER: R&S,FSV"
void ReadMark(std::string_view cell, ResultDocument& document) {
    if (cell.starts_with(ReceiverCell))
        document.receiver = cell.substr(ReceiverCell.size());
    double floor = 0;
    if (cell.starts_with(FloorCell) && ReadNumber(cell.substr(FloorCell.size()), floor))
        document.floor = static_cast<float>(floor);
    constexpr std::string_view Of = " of ";
    constexpr std::string_view Points = " points: ";
    const std::size_t of = cell.find(Of);
    const std::size_t points = cell.find(Points);
    if (of == std::string_view::npos || points == std::string_view::npos || points < of)
        return;
    document.marked = true;
    document.verdict = VerdictOfWord(cell.substr(points + Points.size())).value_or(ResultVerdict::None);
    document.pointsTaken = static_cast<std::size_t>(std::max(WholeNumberIn(cell.substr(0, of)), 0));
    document.pointsAsked = static_cast<std::size_t>(std::max(WholeNumberIn(cell.substr(of + Of.size())), 0));
}

struct Head {
    ToneHead tone1;
    ToneHead tone2;
    bool hasOrder = false;
    bool hasUnit = false;
    bool hasMethod = false;
};

/// Each cell tells by its own text what it is, wherever it stands.
bool ReadHeadCell(std::string_view cell, Head& head, ResultDocument& document) {
    if (cell.starts_with("f1:"))
        return ReadTone(cell, head.tone1);
    if (cell.starts_with("f2:"))
        return ReadTone(cell, head.tone2);
    if (cell.starts_with("MEAS "))
        return head.hasOrder = ReadOrder(cell.substr(5), document.order);
    if (cell.starts_with("UNIT") || cell.starts_with("Units")) {
        document.inDbc = cell.ends_with("dBc");
        return head.hasUnit = cell.ends_with("dBc") || cell.ends_with("dBm");
    }
    if (cell == "2-TON" || cell == "SWEEP") {
        document.method = cell == "2-TON" ? ResultMethod::TwoTone : ResultMethod::Sweep;
        head.hasMethod = true;
    } else if (cell.starts_with("Model Nr")) {
        document.model = Trimmed(cell.substr(8));
    } else if (cell.starts_with("SERIAL:")) {
        document.serial = Trimmed(cell.substr(7));
    } else if (!ReadDate(cell, document)) {
        ReadMark(cell, document);
    }
    return true;
}

bool ReadHead(const SheetCells& row, ResultDocument& document) {
    Head head;
    for (std::size_t i = 0; i < row.size(); ++i) {
        if (!ReadHeadCell(CellAt(row, i), head, document))
            return false;
    }
    if (!head.tone1.known || !head.tone2.known || !head.hasOrder || !head.hasUnit || !head.hasMethod)
        return false;
    FrequencyPlan& plan = document.plan;
    const bool timed = document.method == ResultMethod::TwoTone;
    (timed ? plan.f1 : plan.f1Fix) = head.tone1.fix;
    (timed ? plan.f2 : plan.f2Fix) = head.tone2.fix;
    plan.f1Start = head.tone1.start;
    plan.f1Stop = head.tone1.stop;
    plan.f2Start = head.tone2.start;
    plan.f2Stop = head.tone2.stop;
    document.power1 = head.tone1.power;
    document.power2 = head.tone2.power;
    return true;
}

/// A pair of cells. An empty pair is no point and no fault; false for half of one, or for no numbers.
bool ReadPair(const SheetCells& row, std::size_t column, std::vector<ResultPoint>& points) {
    const std::string_view x = CellAt(row, column);
    const std::string_view level = CellAt(row, column + 1);
    if (x.empty() && level.empty())
        return true;
    ResultPoint point;
    double number = 0;
    if (!ReadNumber(x, point.x) || point.x < 0 || !ReadNumber(level, number))
        return false;
    point.level = static_cast<float>(number);
    points.push_back(point);
    return true;
}

bool ReadTwoToneRows(const SheetRows& rows, ResultRun& run) {
    for (std::size_t i = 2; i < rows.size(); ++i) {
        if (!ReadPair(rows[i], 0, run.up))
            return false;
    }
    return TimesGoOn(run.up);
}

/// A level of 0.00 is one that was not measured. False for a product that no plan has.
bool DropGaps(std::vector<ResultPoint>& points) {
    std::erase_if(points, [](const ResultPoint& point) { return !point.HasLevel() || point.x <= 0.1; });
    return std::all_of(points.begin(), points.end(),
                       [](const ResultPoint& point) { return point.x >= LeastFrequency; });
}

bool ReadSweepRows(const SheetRows& rows, ResultRun& run) {
    for (std::size_t i = 2; i < rows.size(); ++i) {
        if (CellAt(rows[i], 5).starts_with("IM")) // the details stand behind the curve
            break;
        if (!ReadPair(rows[i], 0, run.up) || !ReadPair(rows[i], 2, run.down))
            return false;
    }
    std::reverse(run.up.begin(), run.up.end());
    return DropGaps(run.up) && DropGaps(run.down);
}

struct DetailRow {
    float f1 = 0;
    float f2 = 0;
    ResultPoint point;
};

bool ReadDetailRow(const SheetCells& row, ResultDocument& document, DetailRow& detail) {
    double f1 = 0;
    double f2 = 0;
    double power1 = 0;
    double power2 = 0;
    double level = 0;
    const std::string_view unit = CellAt(row, 8);
    if (!ReadNumber(CellAt(row, 0), f1) || !ReadNumber(CellAt(row, 1), f2) ||
        !ReadNumber(CellAt(row, 2), power1) || !ReadNumber(CellAt(row, 3), power2) ||
        !ReadOrder(CellAt(row, 5), document.order) || !ReadNumber(CellAt(row, 6), detail.point.x) ||
        !ReadNumber(CellAt(row, 7), level) || (unit != "dBm" && unit != "dBc"))
        return false;
    detail.f1 = static_cast<float>(f1);
    detail.f2 = static_cast<float>(f2);
    detail.point.level = static_cast<float>(level);
    document.power1 = static_cast<float>(power1);
    document.power2 = static_cast<float>(power2);
    document.inDbc = unit == "dBc";
    return true;
}

/// The down curve stands first: tone 1 is held and tone 2 falls from row to row, while the product rises.
/// Where that ends the up curve begins, in which tone 2 is held. A single row counts as up.
std::size_t DownRows(const std::vector<DetailRow>& rows) {
    std::size_t count = 1;
    while (count < rows.size() && rows[count].f1 == rows[count - 1].f1 &&
           rows[count].f2 <= rows[count - 1].f2 && rows[count].point.x > rows[count - 1].point.x)
        ++count;
    if (count > 1 || rows.size() < 2)
        return rows.size() < 2 ? 0 : count;
    const bool bothUp =
        rows[1].f2 == rows[0].f2 && rows[1].f1 >= rows[0].f1 && rows[1].point.x > rows[0].point.x;
    return bothUp ? 0 : 1;
}

bool ReadDetailForm(const SheetRows& rows, ResultDocument& document) {
    for (const std::string& cell : rows.front())
        ReadMark(Trimmed(cell), document);
    std::vector<DetailRow> details;
    for (std::size_t i = 1; i < rows.size(); ++i) {
        DetailRow detail;
        if (rows[i].empty())
            continue;
        if (!ReadDetailRow(rows[i], document, detail))
            return false;
        details.push_back(detail);
    }
    if (details.empty())
        return false;
    document.method = ResultMethod::Sweep;
    ResultRun& run = document.runs.front();
    const std::size_t down = DownRows(details);
    for (std::size_t i = 0; i < details.size(); ++i)
        (i < down ? run.down : run.up).push_back(details[i].point);
    // The tone that is held is stated by its own half; where there is none, any carrier of it tells the band.
    document.plan.f1Fix = details.front().f1;
    document.plan.f2Fix = details.back().f2;
    return DropGaps(run.up) && DropGaps(run.down);
}

bool ReadForm(const SheetRows& rows, ResultDocument& document) {
    if (CellAt(rows.front(), 0) == DetailTitles[0])
        return ReadDetailForm(rows, document);
    if (!ReadHead(rows.front(), document))
        return false;
    ResultRun& run = document.runs.front();
    return document.method == ResultMethod::TwoTone ? ReadTwoToneRows(rows, run) : ReadSweepRows(rows, run);
}

} // namespace

Outcome ReadSheet(std::string_view bytes, ResultDocument& document) {
    SheetRows rows;
    if (Outcome read = ReadSheetRows(bytes, rows); !read)
        return read;
    ResultDocument found;
    found.runs.resize(1);
    const std::string_view first = rows.empty() ? std::string_view() : CellAt(rows.front(), 0);
    if (!first.starts_with("f1:") && first != DetailTitles[0])
        return Outcome::Refused("This is not a result file.");
    if (!ReadForm(rows, found))
        return Outcome::Refused("One of its cells is damaged.");
    if (PointsOf(found) == 0)
        return Outcome::Refused("The file holds no measured level.");
    CompleteRead(found);
    found.genuine = false;
    found.statesRemarks = false;
    document = std::move(found);
    return Outcome::Done();
}

} // namespace qor
