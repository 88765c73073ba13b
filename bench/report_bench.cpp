// The report page: painted, compressed, and written as a PDF. The PDF holds the same JPEG, so painting and
// compressing is what it cannot do without.
#include "curve/curve.h"
#include "results/paint/qt_page_forms.h"
#include "support/curves.h"

#include <QGuiApplication>

#include <benchmark/benchmark.h>
#include <cmath>
#include <memory>

namespace {

using namespace qor;

/// A sweep of 200 frequencies up and down, passed, with a full page of texts.
struct Page {
    std::unique_ptr<Curve> curve = std::make_unique<Curve>();
    ResultDocument document;
    ReportPage page;
    QtPageForms forms;

    Page() {
        setenv("QT_QPA_PLATFORM", "offscreen", 0);
        static int count = 1;
        static char name[] = "qor";
        static char* arguments[] = {name, nullptr};
        static QGuiApplication application(count, arguments);
        document.method = ResultMethod::Sweep;
        document.runs.emplace_back();
        curve->SetGrid(test::EvenGrid(890, 1, 200), 1);
        for (std::size_t i = 0; i < 200; ++i) {
            const float level = -110.0f + 8.0f * std::sin(static_cast<float>(i) / 9.0f);
            curve->Put(i, level);
            curve->Put(i, level - 3, CurveSide::Down);
            document.runs[0].up.push_back({890.0 + static_cast<double>(i), level});
        }
        curve->Update(true);
        curve->SearchMaxima();
        curve->tally.Count({1, 1});
        curve->tally.EndByItself();
        document.limit = -97.0f;
        for (int row = 0; row < 8; ++row)
            document.comment += "a row of a comment of the operator    \r\n";
        ReportExtras extras;
        extras.keepSerial = true;
        page = LayOutPage(document, extras);
    }
    [[nodiscard]] PaintedPage Paint() { return forms.PaintPage(page, {*curve, {}, {}}, nullptr); }
};

void PaintReportPage(benchmark::State& state) {
    Page page;
    for (auto _ : state)
        benchmark::DoNotOptimize(page.Paint());
}
BENCHMARK(PaintReportPage)->Unit(benchmark::kMillisecond);

void ReportPageAsJpeg(benchmark::State& state) {
    Page page;
    for (auto _ : state)
        benchmark::DoNotOptimize(page.forms.Jpeg(page.Paint().picture));
}
BENCHMARK(ReportPageAsJpeg)->Unit(benchmark::kMillisecond);

void ReportPageAsPdf(benchmark::State& state) {
    Page page;
    for (auto _ : state) {
        const PaintedPage painted = page.Paint();
        benchmark::DoNotOptimize(page.forms.Pdf(page.forms.Jpeg(painted.picture), painted.texts));
    }
}
BENCHMARK(ReportPageAsPdf)->Unit(benchmark::kMillisecond);

} // namespace
