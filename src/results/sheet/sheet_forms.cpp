#include "results/sheet/sheet_forms.h"

#include "base/tenths.h"
#include "base/text_format.h"
#include "results/read_document.h"
#include "results/sheet/spread_sheet.h"
#include "results/sheet/stated_values.h"

#include <algorithm>
#include <iterator>

namespace qor {

namespace {

std::string Decimals(float value, int decimals) {
    return Fixed(static_cast<double>(value), decimals);
}

/// "%.2f" in the unit of the result, filled up behind its sign to seven characters.
std::string LevelCell(const ResultDocument& document, float level) {
    std::string text = Decimals(StatedLevel(document, level), 2);
    if (text.size() < 7)
        text.insert(text.starts_with('-') ? 1 : 0, 7 - text.size(), '0');
    return text;
}

std::string ToneCell(std::string_view name, float fix, float start, float stop, float power) {
    return std::string(name) + ": " + Decimals(fix, 0) + "MHz START: " + Decimals(start, 0) +
           "MHz STOP: " + Decimals(stop, 0) + "MHz POWER: +" + Decimals(power, 0) + "dBm";
}

/// "2026-3-7-9-5"; a result that came from a file keeps that file's digits.
std::string DateCell(const ResultDocument& document) {
    if (document.date.size() != 8 || document.time.size() != 5)
        return {};
    const std::string_view date = document.date;
    const std::string_view time = document.time;
    std::string text;
    for (const std::string_view part :
         {date.substr(0, 4), date.substr(4, 2), date.substr(6), time.substr(0, 2), time.substr(3)}) {
        if (!text.empty())
            text += '-';
        text += document.source.empty() ? std::to_string(WholeNumberIn(part)) : std::string(part);
    }
    return text;
}

std::string ModelCell(const ResultDocument& document) {
    const bool known = document.model.find("RT") != std::string::npos || !document.source.empty();
    return known && !document.model.empty() ? "Model Nr " + document.model : "Model Nr";
}

std::string SerialCell(const ResultDocument& document) {
    const std::string& serial = document.serial;
    return "SERIAL: " + std::string(serial.size() < 5 ? 5 - serial.size() : 0, '0') + serial;
}

/// A result that is not whole, or was ended by an error, says so behind the other cells of the first row: its
/// rows alone would be taken for a better one. So does one that the instrument did not measure itself.
void AddMarks(SheetCells& cells, const ResultDocument& document) {
    if (IsPartial(document) || document.verdict == ResultVerdict::Error || RowsFlatter(document))
        cells.push_back(std::to_string(document.pointsTaken) + " of " + std::to_string(document.pointsAsked) +
                        " points: " + std::string(VerdictWord(document.verdict)));
    if (!document.receiver.empty())
        cells.push_back(std::string(ReceiverCell) + document.receiver);
    if (document.floor)
        cells.push_back(std::string(FloorCell) + Decimals(*document.floor, 1));
}

SheetCells Head(const ResultDocument& document) {
    const FrequencyPlan& plan = document.plan;
    const bool timed = document.method == ResultMethod::TwoTone;
    const std::string unit(UnitText(document));
    SheetCells cells{ToneCell("f1", timed ? plan.f1 : plan.f1Fix, plan.f1Start, plan.f1Stop, document.power1),
                     ToneCell("f2", timed ? plan.f2 : plan.f2Fix, plan.f2Start, plan.f2Stop, document.power2),
                     "MEAS IM" + std::to_string(document.order),
                     timed ? "UNIT " + unit : (document.inDbc ? "Units " : "Units") + unit,
                     timed ? "2-TON" : "SWEEP",
                     ModelCell(document),
                     SerialCell(document),
                     DateCell(document)};
    AddMarks(cells, document);
    return cells;
}

bool AddTwoToneForm(CSpreadSheet& sheet, const ResultDocument& document) {
    bool good = sheet.AddHeaders(Head(document)) && sheet.AddRow({"Time", "Level"});
    const std::vector<ResultPoint>& points = document.runs.back().up;
    std::size_t count = points.size();
    while (count > 0 && !points[count - 1].HasLevel()) // a run that was stopped has no level behind its last
        --count;
    for (std::size_t i = 0; good && i < count; ++i)
        good = sheet.AddRow({Fixed(points[i].x, 3), LevelCell(document, points[i].level)});
    return good;
}

std::vector<ResultPoint> Measured(const std::vector<ResultPoint>& points) {
    std::vector<ResultPoint> measured;
    std::copy_if(points.begin(), points.end(), std::back_inserter(measured),
                 [](const ResultPoint& point) { return point.HasLevel(); });
    return measured;
}

/// The up curve stands from its last frequency to its first, the down curve beside it from first to last.
bool AddSweepForm(CSpreadSheet& sheet, const ResultDocument& document) {
    const std::vector<ResultPoint> up = Measured(document.runs.back().up);
    const std::vector<ResultPoint> down = Measured(document.runs.back().down);
    const SheetCells head = Head(document);
    bool good = sheet.AddHeaders(head) && sheet.AddRow({"fIM", "Level"});
    for (std::size_t i = 0; good && i < std::max(up.size(), down.size()); ++i) {
        SheetCells row;
        if (i < up.size()) {
            const ResultPoint& point = up[up.size() - 1 - i];
            row = {Fixed(point.x, 1), LevelCell(document, point.level)};
        } else {
            row.assign(head.size(), " "); // a row that is put in for the down curve alone
        }
        if (i < down.size()) {
            row.resize(std::max<std::size_t>(row.size(), 4));
            row[2] = Fixed(down[i].x, 1);
            row[3] = LevelCell(document, down[i].level);
        }
        good = sheet.AddRow(row);
    }
    return good;
}

bool AddDetailForm(CSpreadSheet& sheet, const ResultDocument& document) {
    SheetCells titles(std::begin(DetailTitles), std::end(DetailTitles));
    if (sheet.TotalRows() == 0)
        AddMarks(titles, document);
    const FrequencyPlan& plan = document.plan;
    const std::string power1 = Decimals(document.power1, 1);
    const std::string power2 = Decimals(document.power2, 1);
    const std::string order = "IM" + std::to_string(document.order);
    const std::string unit(UnitText(document));
    const auto add = [&](float f1, float f2, const ResultPoint& point) {
        return sheet.AddRow({Decimals(f1, 1), Decimals(f2, 1), power1, power2, "dBm", order,
                             Fixed(point.x, 1), LevelCell(document, point.level), unit});
    };
    bool good = sheet.AddHeaders(titles);
    float moving = plan.f2Start + 1;
    for (const ResultPoint& point : Measured(document.runs.back().down)) {
        moving -= plan.step;
        good = good && add(plan.f1Fix, moving, point);
    }
    moving = plan.f1Start - 1;
    for (const ResultPoint& point : Measured(document.runs.back().up)) {
        moving += plan.step;
        good = good && add(moving, plan.f2Fix, point);
    }
    return good;
}

Outcome Write(const ResultDocument& document, SheetTemplates templates, bool isExcel, std::string& bytes) {
    if (!document.interBand.empty() || !document.hasHead || document.runs.empty())
        return Outcome::Refused("Does not support the current selection!");
    CSpreadSheet sheet(isExcel, SheetNameOfResults);
    const auto add = [&](bool (*form)(CSpreadSheet&, const ResultDocument&)) {
        sheet.BeginTransaction(); // which ends with each Commit; without it every row would be one
        return form(sheet, document) && sheet.Commit();
    };
    bool good = true;
    if (document.method == ResultMethod::TwoTone) {
        good = add(AddTwoToneForm);
    } else {
        if (templates.sweep || !templates.detail)
            good = add(AddSweepForm);
        if (good && templates.detail)
            good = add(AddDetailForm);
    }
    if (!good)
        return Outcome::Refused("Save ERR");
    bytes = sheet.Bytes();
    return Outcome::Done();
}

} // namespace

Outcome WriteXls(const ResultDocument& document, SheetTemplates templates, std::string& bytes) {
    return Write(document, templates, true, bytes);
}

Outcome WriteSheetText(const ResultDocument& document, SheetTemplates templates, std::string& bytes) {
    return Write(document, templates, false, bytes);
}

} // namespace qor
