#include "base/text_format.h"
#include "results/read_document.h"
#include "results/sheet/csv_columns.h"
#include "results/sheet/csv_table.h"
#include "results/sheet/stated_values.h"

#include <algorithm>
#include <cstddef>

namespace qor {

namespace {

/// A field in double quotes where its text needs them.
std::string Field(std::string_view text) {
    if (text.find_first_of("\",\r\n") == std::string_view::npos)
        return std::string(text);
    std::string field = "\"";
    for (const char c : text) {
        if (c == '"')
            field += '"';
        field += c;
    }
    return field + '"';
}

std::string Mhz(float frequency) {
    return Fixed(static_cast<double>(frequency), 3);
}

std::string_view MethodText(ResultMethod method) {
    return method == ResultMethod::TwoTone ? "2-tone" : method == ResultMethod::Sweep ? "sweep" : "spectrum";
}

/// In 2-tone a missing level has a line, too.
bool HasLine(const ResultDocument& document, const ResultPoint& point) {
    return document.method == ResultMethod::TwoTone || point.HasLevel();
}

std::ptrdiff_t RowsOf(const ResultDocument& document) {
    std::ptrdiff_t count = 0;
    for (const ResultRun& run : document.runs) {
        for (const auto* points : {&run.up, &run.down})
            count += std::count_if(points->begin(), points->end(),
                                   [&](const ResultPoint& point) { return HasLine(document, point); });
    }
    return count;
}

/// The fields of the columns from the unit on.
std::string WholeResult(const ResultDocument& document) {
    const FrequencyPlan& plan = document.plan;
    const bool timed = document.method == ResultMethod::TwoTone;
    const auto dbm = [](float power) { return Fixed(static_cast<double>(power), 2); };
    std::string out;
    const auto add = [&out](std::string_view text) { out += ',' + Field(text); };
    add(UnitText(document));
    add(dbm(document.power1));
    add(dbm(document.power2));
    add(BandName(document));
    add(document.interBand);
    add(std::to_string(document.order));
    add(MethodText(document.method));
    for (const float frequency : {timed ? plan.f1 : plan.f1Fix, plan.f1Start, plan.f1Stop,
                                  timed ? plan.f2 : plan.f2Fix, plan.f2Start, plan.f2Stop})
        add(Mhz(frequency));
    add(document.model);
    add(document.serial);
    add(document.deviceSerial);
    add(DateText(document));
    add(document.limit ? dbm(InUnit(document, *document.limit)) : std::string());
    add(VerdictWord(VerdictOfAllRuns(document)));
    add(std::to_string(document.pointsTaken));
    add(std::to_string(document.pointsAsked));
    add(document.receiver);
    add(document.floor ? dbm(*document.floor) : std::string());
    add(std::to_string(RowsOf(document)));
    return out + "\r\n";
}

} // namespace

Outcome WriteCsv(const ResultDocument& document, std::string& bytes) {
    std::string out;
    for (const std::string_view name : CsvNames) {
        out += out.empty() ? "" : ",";
        out += name;
    }
    out += "\r\n";
    const std::string whole = WholeResult(document);
    const bool timed = document.method == ResultMethod::TwoTone;
    std::size_t number = 0;
    const auto add = [&](const std::vector<ResultPoint>& points, bool down) {
        for (const ResultPoint& point : points) {
            if (!HasLine(document, point))
                continue;
            out += std::to_string(number) + (timed ? ",time," : down ? ",down," : ",up,");
            if (timed)
                AppendFixed(out, point.x, 3);
            const ResultTones tones = TonesAt(document, point, down);
            out += ',' + Mhz(tones.f1) + ',' + Mhz(tones.f2) + ',';
            AppendFixed(out, timed ? static_cast<double>(TwoToneProduct(document)) : point.x, 3);
            out += ',';
            if (point.HasLevel())
                AppendFixed(out, static_cast<double>(StatedLevel(document, point.level)), 2);
            out += whole;
        }
    };
    for (const ResultRun& run : document.runs) {
        ++number;
        add(run.up, false);
        add(run.down, true);
    }
    bytes = std::move(out);
    return Outcome::Done();
}

} // namespace qor
