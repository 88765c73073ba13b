// An hour of measurement on virtual time, simulated instrument and line included.
#include "support/rig.h"

#include <benchmark/benchmark.h>

namespace qor::test {

namespace {

void Measure(benchmark::State& state, int mode) {
    std::int64_t points = 0;
    for (auto _ : state) {
        Rig rig;
        if (!rig.PowerOn() || !rig.SelectBand(BandEgsm) || !rig.program.Select().SelectMethod(mode) ||
            !rig.RunUntilIdle()) {
            state.SkipWithError("the simulated instrument did not come up");
            return;
        }
        rig.S().curve.scale.SetWidth(2000);
        rig.S().curve.SetLength(199000);
        rig.S().runs.SetContinuous(true);
        rig.S().runs.SetReplacesData(true);
        rig.S().runs.SetContinuousTimes(0);
        const int before = rig.line.CommandCount();
        rig.program.OnMeasButton();
        rig.time.RunFor(3600000);
        points += rig.line.CommandCount() - before;
    }
    state.counters["commands"] = benchmark::Counter(static_cast<double>(points), benchmark::Counter::kIsRate);
}

void BM_HourOfTwoTone(benchmark::State& state) {
    Measure(state, ModeTwoTone);
}
BENCHMARK(BM_HourOfTwoTone)->Unit(benchmark::kMillisecond);

void BM_HourOfSweeps(benchmark::State& state) {
    Measure(state, ModeSweep);
}
BENCHMARK(BM_HourOfSweeps)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace qor::test
