#include "curve/curve.h"
#include "curve/paint/plot_painter.h"
#include "support/application.h"
#include "support/curves.h"

#include <array>
#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <memory>
#include <random>

namespace qor {
namespace {

using paint::PixelRect;
using paint::TraceColumns;

/// Rows of a small picture, '#' where a pen has painted.
std::vector<std::string> Drawn(const std::vector<paint::TracePoint>& points, const paint::TracePen& pen) {
    constexpr int Width = 16;
    constexpr int Height = 8;
    std::vector<std::uint32_t> pixels(Width * Height);
    TraceColumns trace;
    trace.Reset(Width);
    trace.Draw(points);
    trace.Paint({pixels.data(), Width}, {0, 0, Width, Height}, pen);
    std::vector<std::string> rows;
    for (std::size_t y = 0; y < Height; ++y) {
        std::string row;
        for (std::size_t x = 0; x < Width; ++x)
            row += pixels[y * Width + x] ? '#' : '.';
        rows.push_back(row);
    }
    return rows;
}

TEST(TraceRaster, LinesHaveNoGapsHoweverSteep) {
    EXPECT_EQ(Drawn({{1, 1}, {14, 6}}, {1, 1, 0}),
              (std::vector<std::string>{"................", ".##.............", "...###..........",
                                        "......##........", "........###.....", "...........###..",
                                        "..............#.", "................"}));
    EXPECT_EQ(Drawn({{2, 7}, {4, 0}, {4, 5}, {13, 5}}, {1, 1, 0}),
              (std::vector<std::string>{"....#...........", "....#...........", "....#...........",
                                        "...##...........", "...##...........", "...###########..",
                                        "..#.............", "..#............."}));
    // A pen of two covers the pixel above and to the left too; a lone point is a dot.
    EXPECT_EQ(Drawn({{3, 3}, {9, 3}}, {1, 2, 0})[2], "..########......");
    EXPECT_EQ(Drawn({{5, 5}}, {1, 2, 0}),
              (std::vector<std::string>{"................", "................", "................",
                                        "................", "....##..........", "....##..........",
                                        "................", "................"}));
    // Dots run along a flat line and up a steep one.
    EXPECT_EQ(Drawn({{0, 7}, {15, 7}}, {1, 1, 1})[7], "##..##..##..##..");
    int dots = 0;
    for (const std::string& row : Drawn({{8, 0}, {8, 7}}, {1, 1, 1}))
        dots += row[8] == '#';
    EXPECT_EQ(dots, 4);
}

struct Screen {
    std::unique_ptr<Curve> curve = std::make_unique<Curve>();
    PlotFacts facts;
    int width = 700;
    int height = 420;
    double ratio = 1;

    QRegion Tick(PlotPainter& painter) {
        const PlotGeometry plot = ComputeLayout(*curve, width, height);
        curve->Update(true);
        curve->SearchMaxima();
        return painter.Update(*curve, plot, facts, ratio);
    }
    void BeginSweep(std::size_t steps) {
        curve->Clear();
        curve->SetGrid(test::EvenGrid(890, 1, steps), 1);
    }
};

void PutEnds(Curve& curve, float level, CurveSide side) {
    curve.Put(0, level, side);
    curve.Put(100, level, side);
}

QRgb At(const QImage& image, int x, int y) {
    return image.pixel(x, y) & 0xFFFFFF;
}

TEST(PlotPainter, ColoursOfScreenAndPrint) {
    test::NeedApplication();
    Screen screen; // L 60, T 30, R 660, B 365
    Curve& curve = *screen.curve;
    screen.BeginSweep(101); // 6 pixels a step
    PutEnds(curve, -80, CurveSide::Up);
    PutEnds(curve, -120, CurveSide::Down);
    PlotPainter painter;
    screen.Tick(painter);
    const auto yOf = [](double level) { return 365 - static_cast<int>((level + 150) * 335 / 90); };
    EXPECT_EQ(At(painter.Image(), 401, yOf(-80)), 0xFFFF00U);
    EXPECT_EQ(At(painter.Image(), 401, yOf(-80) - 1), 0xFFFF00U) << "two pixels wide";
    int dots = 0;
    for (int x = 300; x < 340; ++x)
        dots += At(painter.Image(), x, yOf(-120)) == 0xFFFF00U;
    EXPECT_EQ(dots, 20) << "down";

    screen.facts.look = PlotLook::Picture;
    screen.facts.m_PrintMode = true;
    const PlotGeometry plot = ComputeLayout(curve, 956, 606);
    const QImage picture = PaintPicture(curve, plot, screen.facts);
    EXPECT_EQ(At(picture, 5, 5), 0xFFFFFFU);
    EXPECT_EQ(At(picture, 60, 300), 0xFF00FFU) << "frame";
    EXPECT_EQ(At(picture, 501, plot.YOf(-140)), 0x000000U) << "grid";
    EXPECT_EQ(At(picture, 501, plot.YOf(-80)), 0x000500U) << "first run";
}

TEST(PlotPainter, ATickPaintsOnlyWhatIsNew) {
    test::NeedApplication();
    Screen screen;
    Curve& curve = *screen.curve;
    PlotPainter painter;
    for (int i = 0; i < 20; ++i)
        curve.Add(-100);
    EXPECT_EQ(screen.Tick(painter), QRegion(0, 0, 700, 420));
    EXPECT_TRUE(screen.Tick(painter).isEmpty());
    curve.Put(20, -101); // 12 pixels on
    EXPECT_LT(screen.Tick(painter).boundingRect().width(), 24);
    curve.Put(21, -90); // a new maximum moves its flag
    const QRegion moved = screen.Tick(painter);
    EXPECT_FALSE(moved.isEmpty());
    EXPECT_FALSE(moved.contains(QPoint(600, 100)));
    screen.width = 800;
    EXPECT_EQ(screen.Tick(painter), QRegion(0, 0, 800, 420));
}

/// What may happen to the plot between two ticks.
class Events {
public:
    explicit Events(unsigned seed) : m_Random(seed) {}

    void Next(Screen& screen) {
        Curve& curve = *screen.curve;
        const bool sweep = curve.IsSweep();
        switch (Any(0, 24)) {
        case 0:
            if (Any(0, 3) == 0)
                BeginRun(screen);
            break;
        case 1:
            ChangeScale(screen);
            break;
        case 2:
            curve.ShowRun(Any(0, 2) ? 0 : Any(1, curve.Run() + 1));
            break;
        case 3:
            curve.tally.NoteError(std::max(Any(-8, 4), 0));
            curve.tally.EndWithin(static_cast<RunEnd>(Any(0, 3)), {Any(0, 3), 2}, 0, false);
            break;
        case 4:
            screen.facts.marks = {{Any(0, 2), Any(0, 1) == 1, Any(0, 700), Any(0, 400), Any(0, 1) == 1,
                                   Any(0, 700), Any(0, 400)}};
            break;
        case 5:
            if (Any(0, 1)) {
                curve.WatchWorst();
                curve.NoteShown(static_cast<float>(Any(-120, -60)));
            }
            break;
        case 6:
        case 7:
        case 8: // the end of a run may bring points that no tick has seen
            if (sweep) {
                curve.Update(true);
                curve.EndRun();
                curve.BeginSweep();
                for (int i = Any(0, 30); i > 0; --i)
                    TakePoint(curve, true);
                m_Next = 0;
            }
            break;
        default:
            TakePoint(curve, sweep);
            break;
        }
    }

private:
    int Any(int low, int high) { return std::uniform_int_distribution<int>(low, high)(m_Random); }
    float Level() { return static_cast<float>(Any(-1600, -500)) / 10.0f; }

    void TakePoint(Curve& curve, bool sweep) {
        const auto index = static_cast<std::size_t>(Any(0, 110));
        if (Any(0, 5) == 0)
            curve.Put(index, Level()); // measured again
        else if (sweep && Any(0, 1))
            curve.Put(index, Level(), CurveSide::Down);
        else
            curve.Put(m_Next++ % 110, Level());
    }
    void BeginRun(Screen& screen) {
        screen.BeginSweep(static_cast<std::size_t>(Any(2, 110)));
        m_Next = 0;
        if (Any(0, 2) == 0) {
            screen.curve->SetTimeAxis();
            screen.curve->SetLength(Any(1, 30) * 1000);
        }
    }
    void ChangeScale(Screen& screen) {
        Curve& curve = *screen.curve;
        switch (Any(0, 7)) {
        case 0:
            screen.width = Any(60, 900);
            screen.height = Any(60, 500);
            break;
        case 1:
            curve.scale.SetRange(curve.scale.Top(), static_cast<float>(Any(-170, -100)));
            break;
        case 2:
            curve.limit.Take(Level());
            break;
        case 3:
            curve.scale.ShowBar(1 - curve.scale.ShowsBar());
            break;
        default:
            break;
        }
    }

    std::mt19937 m_Random;
    std::size_t m_Next = 0; ///< point of the up curve
};

/// Copies what was reported from one image to the other; both in pixels of the image.
void Blit(QImage& to, const QImage& from, const QRegion& reported, double ratio) {
    const auto device = [ratio](int edge) { return static_cast<int>(std::lround(edge * ratio)); };
    for (const QRect& area : reported) {
        const int left = std::max(device(area.left()), 0);
        const int right = std::min(device(area.right() + 1), to.width());
        for (int y = std::max(device(area.top()), 0); y < std::min(device(area.bottom() + 1), to.height());
             ++y)
            std::memcpy(to.scanLine(y) + 4 * left, from.constScanLine(y) + 4 * left,
                        static_cast<std::size_t>(std::max(right - left, 0)) * 4);
    }
}

/// Whatever happens, an image that was kept up to date is the one painted afresh, and a window that shows
/// only what was reported as changed shows it all.
TEST(PlotPainter, KeptUpToDateIsPaintedAfresh) {
    test::NeedApplication();
    for (const double ratio : {1.0, 1.5, 2.0}) {
        for (unsigned seed = 1; seed <= 4; ++seed) {
            Events events(seed);
            Screen screen;
            screen.ratio = ratio;
            screen.BeginSweep(100);
            screen.curve->SetRuns(10);
            PlotPainter kept;
            QImage shown;
            for (int step = 0; step < 150; ++step) {
                events.Next(screen);
                const QRegion reported = screen.Tick(kept);
                PlotPainter afresh;
                screen.Tick(afresh);
                ASSERT_EQ(kept.Image(), afresh.Image())
                    << "seed " << seed << " step " << step << " x" << ratio;
                if (shown.size() != kept.Image().size())
                    shown = kept.Image().copy();
                Blit(shown, kept.Image(), reported, ratio);
                ASSERT_EQ(shown, kept.Image()) << "seed " << seed << " step " << step << " x" << ratio;
            }
        }
    }
}

} // namespace
} // namespace qor
