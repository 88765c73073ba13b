// The plot at 1600 x 900: all of it anew, and a live tick. The yardstick is what an image costs that is only
// cleared and copied; the rival is the toolkit's own polyline with the same pens.
#include "curve/curve.h"
#include "curve/paint/plot_painter.h"
#include "support/curves.h"

#include <QGuiApplication>
#include <QPainter>

#include <benchmark/benchmark.h>
#include <cmath>
#include <cstring>
#include <memory>
#include <random>

namespace {

using namespace qor;

constexpr int Width = 1600;
constexpr int Height = 900;

void NeedApplication() {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    static int count = 1;
    static char name[] = "qor";
    static char* arguments[] = {name, nullptr};
    static QGuiApplication application(count, arguments);
}

/// A sweep of 2000 grid frequencies, up and down, with a slow wave and noise of half a dB.
struct Sweep {
    std::unique_ptr<Curve> curve = std::make_unique<Curve>();
    std::mt19937 random{1};
    PlotFacts facts;
    PlotGeometry plot;

    explicit Sweep(int runs) {
        NeedApplication();
        facts.power1 = facts.power2 = 43;
        curve->limit.Take(-60);
        // Two frequencies lie on each pixel column: the plot shows a pixel a step, or more.
        curve->SetGrid(test::EvenGrid(890, 0.07f, CurvePoints), 0.1f);
        for (;; curve->EndRun()) {
            Fill(CurvePoints);
            plot = ComputeLayout(*curve, Width, Height);
            curve->Update(true);
            if (curve->Run() + 1 == runs)
                break;
        }
        curve->SearchMaxima();
    }
    float LevelAt(std::size_t i, float offset) {
        std::normal_distribution<float> noise(0, 0.5f);
        return -110.0f + offset + 8.0f * std::sin(static_cast<float>(i) / 90.0f) + noise(random);
    }
    void Fill(std::size_t points) {
        const float offset = static_cast<float>(curve->Run() % 10) * 2.0f;
        for (std::size_t i = 0; i < CurvePoints; ++i) {
            curve->Put(i, i < points ? LevelAt(i, offset) : 0);
            curve->Put(i, i < points ? LevelAt(i, offset - 12) : 0, CurveSide::Down);
        }
    }
};

void ClearAndCopyImage(benchmark::State& state) {
    QImage image(Width, Height, QImage::Format_RGB32);
    QImage screen(Width, Height, QImage::Format_RGB32);
    for (auto _ : state) {
        image.fill(Qt::black);
        std::memcpy(screen.bits(), image.constBits(), static_cast<std::size_t>(image.sizeInBytes()));
        benchmark::DoNotOptimize(screen.bits());
    }
}
BENCHMARK(ClearAndCopyImage)->Unit(benchmark::kMicrosecond);

/// A change of scale: everything is painted anew.
void RebuildPlot(benchmark::State& state) {
    Sweep sweep(static_cast<int>(state.range(0)));
    PlotPainter painter;
    for (auto _ : state) {
        sweep.curve->scale.SetRange(sweep.curve->scale.Top(),
                                    sweep.curve->scale.Bottom() == -150.0f ? -151.0f : -150.0f);
        sweep.plot = ComputeLayout(*sweep.curve, Width, Height);
        benchmark::DoNotOptimize(painter.Update(*sweep.curve, sweep.plot, sweep.facts));
    }
}
BENCHMARK(RebuildPlot)->Arg(10)->Arg(1000)->Unit(benchmark::kMicrosecond);

/// One point more of the run in progress; the engine's share of the tick is in it.
void LiveTick(benchmark::State& state) {
    Sweep sweep(static_cast<int>(state.range(0)));
    Curve& curve = *sweep.curve;
    std::size_t next = CurvePoints;
    PlotPainter painter;
    painter.Update(curve, sweep.plot, sweep.facts);
    for (auto _ : state) {
        if (next == CurvePoints) { // the next pass begins
            state.PauseTiming();
            sweep.Fill(100);
            curve.Update(true);
            curve.SearchMaxima();
            painter.Update(curve, sweep.plot, sweep.facts);
            next = 100;
            state.ResumeTiming();
        }
        curve.Put(next, sweep.LevelAt(next, 0));
        ++next;
        sweep.plot = ComputeLayout(curve, Width, Height);
        curve.Update(true);
        curve.SearchMaxima();
        benchmark::DoNotOptimize(painter.Update(curve, sweep.plot, sweep.facts));
    }
}
BENCHMARK(LiveTick)->Arg(10)->Arg(1000)->Unit(benchmark::kMicrosecond);

/// The traces of the same curve alone, without ground and texts, by QPainter.
void PolylinesOfTheToolkit(benchmark::State& state) {
    const Sweep sweep(static_cast<int>(state.range(0)));
    const Curve& curve = *sweep.curve;
    QImage image(Width, Height, QImage::Format_RGB32);
    QVector<QPoint> points;
    for (auto _ : state) {
        image.fill(Qt::black);
        QPainter painter(&image);
        for (const bool down : {false, true}) {
            for (std::size_t run = 0; run < static_cast<std::size_t>(curve.Run()) + 1; ++run) {
                const auto row = down ? curve.ShownDown(run) : curve.ShownUp(run);
                points.clear();
                for (std::size_t i = 0; i < CurvePoints; ++i)
                    points.append(QPoint(XOfPoint(curve, sweep.plot, i), sweep.plot.YOf(row[i])));
                painter.setPen(QPen(QColor::fromRgb(TraceColour(run, false)), down ? 1 : 2,
                                    down ? Qt::DotLine : Qt::SolidLine));
                painter.drawPolyline(points.data(), static_cast<int>(points.size()));
            }
        }
    }
}
BENCHMARK(PolylinesOfTheToolkit)->Arg(10)->Unit(benchmark::kMicrosecond);

} // namespace
