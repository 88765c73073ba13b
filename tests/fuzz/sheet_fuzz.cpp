// Any bytes as a sheet or a table: refused, or read as a result that every form takes and gives back.
#include "fuzz.h"
#include "results/sheet/csv_table.h"
#include "results/sheet/sheet_forms.h"

#include <cmath>

namespace {

using namespace qor;
using test::Require;

void CheckPoints(const ResultDocument& document) {
    Require(!document.runs.empty() && PointsOf(document) > 0);
    for (const ResultRun& run : document.runs) {
        for (const auto* points : {&run.up, &run.down}) {
            for (const ResultPoint& point : *points)
                Require(std::isfinite(point.x) && point.x >= 0 && std::isfinite(point.level));
        }
    }
}

void CheckForms(const ResultDocument& document) {
    std::string bytes;
    ResultDocument back;
    Require(WriteCsv(document, bytes) && ReadCsv(bytes, back));
    Require(back.runs.size() == document.runs.size() && PointsOf(back) == PointsOf(document));
    for (const SheetTemplates forms : {SheetTemplates{true, false}, {false, true}, {true, true}}) {
        if (WriteXls(document, forms, bytes) && bytes.size() < 4'000'000)
            Require(ReadSheet(bytes, back) && PointsOf(back) <= PointsOf(document));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    ResultDocument document;
    if (ReadSheet(bytes, document) || ReadCsv(bytes, document)) {
        CheckPoints(document);
        CheckForms(document);
    }
    return 0;
}
