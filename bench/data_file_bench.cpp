// A result of 2000 rows to the bytes of a .dat and back, without the disk, and what the curve costs live.
#include "curve/curve.h"
#include "results/data_file.h"
#include "support/curves.h"

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
    std::vector<float> grid(CurvePoints);
    for (auto _ : state) {
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
    Curve curve;
    curve.SetGrid(test::EvenGrid(890, 0.07f, CurvePoints), 0.1f);
    while (curve.Run() + 1 < state.range(0))
        curve.EndRun();
    for (std::size_t i = 0; i < CurvePoints; ++i) {
        curve.Put(i, -100.0f);
        curve.Put(i, -101.0f, CurveSide::Down);
    }
    for (auto _ : state) {
        curve.Update(true);
        curve.SearchMaxima();
    }
}
BENCHMARK(UpdateAndSearch)->ArgName("runs")->Arg(1)->Arg(10)->Unit(benchmark::kMicrosecond);

} // namespace
