#include "display/curve_store.h"
#include "display/paint/plot_painter.h"
#include "support/application.h"

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
    std::unique_ptr<CurveState> curve = std::make_unique<CurveState>();
    PlotFacts facts;
    int width = 700;
    int height = 420;
    double ratio = 1;

    QRegion Tick(PlotPainter& painter) {
        const PlotGeometry plot = ComputeLayout(*curve, width, height);
        UpdateCurveArrays(*curve, true);
        SearchMaxima(*curve);
        return painter.Update(*curve, plot, facts, ratio);
    }
    void BeginSweep(std::size_t steps) {
        ResetCurve(*curve);
        ClearLevels(*curve);
        curve->g_freqGrid.fill(0);
        for (std::size_t i = 0; i < steps; ++i)
            curve->g_freqGrid[i] = 890.0f + static_cast<float>(i);
        curve->g_SweepStep = 1;
        curve->g_pxPerStep = 1;
    }
};

QRgb At(const QImage& image, int x, int y) {
    return image.pixel(x, y) & 0xFFFFFF;
}

TEST(PlotPainter, ColoursStandWhereTheyBelong) {
    test::NeedApplication();
    Screen screen; // L 60, T 30, R 660, B 365
    CurveState& curve = *screen.curve;
    screen.BeginSweep(101); // 6 pixels a step
    for (int run = 0; run <= 10; ++run) {
        curve.g_runIndex = run;
        ClearLevels(curve);
        if (run == 0) // only the first and the eleventh reach into the right half
            curve.g_levelUp[0] = curve.g_levelUp[100] = -80;
        if (run == 1)
            curve.g_levelDown[0] = curve.g_levelDown[100] = -120;
        if (run == 10)
            curve.g_levelUp[0] = curve.g_levelUp[100] = -100;
        PlotPainter unused;
        screen.Tick(unused);
    }
    curve.g_alarmLevel = -70;
    curve.g_MeasVerdict = VerdictPassed;
    PlotPainter painter;
    screen.Tick(painter);
    const QImage& image = painter.Image();
    const auto yOf = [](double level) { return 365 - static_cast<int>((level + 150) * 335 / 90); };
    EXPECT_EQ(At(image, 5, 400), 0x000000U);
    EXPECT_EQ(At(image, 60, 200), 0xFFFF00U) << "frame";
    EXPECT_EQ(At(image, 300, 365), 0xFFFF00U) << "axis";
    EXPECT_EQ(At(image, 400, yOf(-70)), 0xFF0000U) << "limit";
    EXPECT_EQ(At(image, 400, yOf(-140)), 0x808A87U) << "grid";
    EXPECT_EQ(At(image, 401, yOf(-80)), 0xFFFF00U) << "first run";
    EXPECT_EQ(At(image, 401, yOf(-80) - 1), 0xFFFF00U) << "two pixels wide";
    EXPECT_EQ(At(image, 401, yOf(-100)), 0xFFFF00U) << "eleventh run: the colour of the first";
    int dots = 0;
    for (int x = 300; x < 340; ++x)
        dots += At(image, x, yOf(-120)) == 0x0000FFU;
    EXPECT_EQ(dots, 20) << "second run, down";
    EXPECT_EQ(At(image, 496, 40), 0x00FF00U) << "stamp";

    screen.facts.look = PlotLook::Picture;
    screen.facts.m_PrintMode = true;
    const PictureLayout layout(curve, 956, 606);
    const QImage picture = PaintPicture(curve, layout.Plot(), screen.facts);
    EXPECT_EQ(picture.size(), QSize(956, 606));
    EXPECT_EQ(At(picture, 5, 5), 0xFFFFFFU);
    EXPECT_EQ(At(picture, 60, 300), 0xFF00FFU);
    EXPECT_EQ(At(picture, 501, layout.Plot().YOf(-140)), 0x000000U) << "grid of a print";
    EXPECT_EQ(At(picture, 501, layout.Plot().YOf(-80)), 0x000500U) << "first run of a print";
}

TEST(PlotPainter, ATickPaintsOnlyWhatIsNew) {
    test::NeedApplication();
    Screen screen;
    CurveState& curve = *screen.curve;
    PlotPainter painter;
    for (curve.StoreDataPot = 0; curve.StoreDataPot < 20; ++curve.StoreDataPot)
        curve.g_levelUp[static_cast<std::size_t>(curve.StoreDataPot)] = -100;
    EXPECT_EQ(screen.Tick(painter), QRegion(0, 0, 700, 420));
    EXPECT_TRUE(screen.Tick(painter).isEmpty());
    curve.g_levelUp[20] = -101; // 12 pixels on
    EXPECT_LT(screen.Tick(painter).boundingRect().width(), 24);
    curve.g_levelUp[21] = -90; // a new maximum moves its flag
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
        CurveState& curve = *screen.curve;
        const bool sweep = IsSweepCurve(curve);
        switch (Any(0, 24)) {
        case 0:
            if (Any(0, 3) == 0)
                BeginRun(screen);
            break;
        case 1:
            ChangeScale(screen);
            break;
        case 2:
            curve.g_shownRun = Any(0, 2) ? 0 : Any(1, curve.g_runIndex + 1);
            break;
        case 3:
            curve.g_MeasVerdict = std::array{0, 1, 3, 101, 1001}[static_cast<std::size_t>(Any(0, 4))];
            break;
        case 4:
            screen.facts.marks = {{Any(0, 2), Any(0, 1) == 1, Any(0, 700), Any(0, 400), Any(0, 1) == 1,
                                   Any(0, 700), Any(0, 400)}};
            break;
        case 5:
            curve.g_worstText = Any(0, 1) ? "DATEN.dat" : "";
            break;
        case 6:
        case 7:
        case 8: // the end of a run may bring points that no tick has seen
            if (sweep) {
                UpdateCurveArrays(curve, true);
                ++curve.g_runIndex;
                ClearLevels(curve);
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

    void TakePoint(CurveState& curve, bool sweep) {
        const auto index = static_cast<std::size_t>(Any(0, 110));
        if (Any(0, 5) == 0)
            curve.g_levelUp[index] = Level(); // measured again
        else if (sweep && Any(0, 1))
            curve.g_levelDown[index] = Level();
        else
            curve.g_levelUp[m_Next++ % 110] = Level();
    }
    void BeginRun(Screen& screen) {
        screen.BeginSweep(static_cast<std::size_t>(Any(2, 110)));
        m_Next = 0;
        if (Any(0, 2) == 0) {
            screen.curve->g_freqGrid.fill(0);
            screen.curve->g_pxPerStep = 0;
            screen.curve->g_testTimeMs = Any(1, 30) * 1000;
        }
    }
    void ChangeScale(Screen& screen) {
        CurveState& curve = *screen.curve;
        switch (Any(0, 7)) {
        case 0:
            screen.width = Any(60, 900);
            screen.height = Any(60, 500);
            break;
        case 1:
            curve.g_plotBottom = static_cast<float>(Any(-170, -100));
            break;
        case 2:
            curve.g_alarmLevel = Level();
            break;
        case 3:
            curve.g_histogramOn = 1 - curve.g_histogramOn;
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
            screen.curve->g_runCount = 10;
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
