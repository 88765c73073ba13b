// A result of 2000 rows to the bytes of a .dat and back, without the disk, and what the curve costs live.
#include "display/curve_store.h"
#include "results/data_file.h"

#include <benchmark/benchmark.h>

namespace {

using namespace qor;

ResultFile Longest(bool twoTone) {
    ResultFile file;
    file.tone1 = {935, 925, 937, 43};
    file.tone2 = {960, 960, 946, 43};
    file.twoTone = twoTone;
    file.model = "RT-DB22";
    file.serial = "SIM01";
    file.date = "20260307";
    file.time = "09:05";
    file.limitText = "-90.0";
    for (int i = 0; i < 2000; ++i) {
        const float level = -90.0f - static_cast<float>(i * 37 % 5000) / 100.0f;
        if (twoTone)
            file.up.push_back({i * 0.1, level});
        else
            (i < 1000 ? file.up : file.down).push_back({700.0 + i % 1000 * 0.2, level});
    }
    return file;
}

void Format(benchmark::State& state) {
    const ResultFile file = Longest(state.range(0) == 0);
    for (auto _ : state)
        benchmark::DoNotOptimize(EncodeResult(FormatResult(file), true));
}
BENCHMARK(Format)->ArgName("sweep")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

void Parse(benchmark::State& state) {
    const std::string bytes = EncodeResult(FormatResult(Longest(state.range(0) == 0)), true);
    for (auto _ : state)
        benchmark::DoNotOptimize(ParseResult(bytes));
}
BENCHMARK(Parse)->ArgName("sweep")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

void Grid(benchmark::State& state) {
    const ResultFile file = Longest(false);
    CurveState curve;
    for (auto _ : state) {
        const std::span<float> grid(curve.g_freqGrid.data(), CurvePoints);
        curve.g_freqGrid.fill(0);
        std::size_t length = 0;
        for (const auto* rows : {&file.down, &file.up}) {
            for (const ResultFile::Row& row : *rows)
                length = InsertIntoGrid(grid, length, static_cast<float>(row.x));
        }
        benchmark::DoNotOptimize(length);
    }
}
BENCHMARK(Grid)->Unit(benchmark::kMicrosecond);

void UpdateAndSearch(benchmark::State& state) {
    CurveState curve;
    curve.g_pxPerStep = 1;
    curve.g_runIndex = static_cast<int>(state.range(0)) - 1;
    curve.g_levelUp.fill(-100.0f);
    curve.g_levelDown.fill(-101.0f);
    for (auto _ : state) {
        UpdateCurveArrays(curve, true);
        SearchMaxima(curve);
    }
}
BENCHMARK(UpdateAndSearch)->ArgName("runs")->Arg(1)->Arg(10)->Unit(benchmark::kMicrosecond);

} // namespace
