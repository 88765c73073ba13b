// A sweep of 2000 frequencies up and down, 2000 x 4 cells, to the bytes of each sheet form and back.
#include "results/sheet/csv_table.h"
#include "results/sheet/sheet_forms.h"
#include "results/xlsx/xlsx_writer.h"

#include <benchmark/benchmark.h>

namespace {

using namespace qor;

ResultDocument Longest() {
    ResultDocument document;
    document.method = ResultMethod::Sweep;
    document.plan = {0, 0, 925, 937, 960, 960, 946, 925, 1};
    document.model = "RT-DB22";
    document.serial = "SIM01";
    document.date = "20260307";
    document.time = "09:05";
    document.runs.resize(1);
    for (int i = 0; i < 2000; ++i) {
        const auto level = [i](int seed) { return -90.0f - static_cast<float>(i * seed % 5000) / 100.0f; };
        document.runs[0].up.push_back({700.0 + i * 0.2, level(37)});
        document.runs[0].down.push_back({700.0 + i * 0.2, level(41)});
    }
    return document;
}

void WriteSheet(benchmark::State& state) {
    const ResultDocument document = Longest();
    const SheetTemplates forms{state.range(0) != 1, state.range(0) != 0};
    std::string bytes;
    for (auto _ : state)
        benchmark::DoNotOptimize(WriteXls(document, forms, bytes).IsDone());
    state.counters["bytes"] = static_cast<double>(bytes.size());
}
BENCHMARK(WriteSheet)->ArgName("sweep_detail_both")->DenseRange(0, 2)->Unit(benchmark::kMicrosecond);

void ReadSheetBack(benchmark::State& state) {
    std::string bytes;
    if (!WriteXls(Longest(), {state.range(0) == 0, state.range(0) == 1}, bytes))
        state.SkipWithError("not written");
    ResultDocument document;
    for (auto _ : state)
        benchmark::DoNotOptimize(ReadSheet(bytes, document).IsDone());
}
BENCHMARK(ReadSheetBack)->ArgName("sweep_detail")->DenseRange(0, 1)->Unit(benchmark::kMicrosecond);

void Csv(benchmark::State& state) {
    const ResultDocument document = Longest();
    ResultDocument back;
    std::string bytes;
    for (auto _ : state) {
        benchmark::DoNotOptimize(WriteCsv(document, bytes).IsDone());
        benchmark::DoNotOptimize(ReadCsv(bytes, back).IsDone());
    }
}
BENCHMARK(Csv)->Unit(benchmark::kMicrosecond);

void Xlsx(benchmark::State& state) {
    const ResultDocument document = Longest();
    std::string bytes;
    for (auto _ : state)
        benchmark::DoNotOptimize(WriteXlsx(document, bytes).IsDone());
}
BENCHMARK(Xlsx)->Unit(benchmark::kMicrosecond);

} // namespace
