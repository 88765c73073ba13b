#include "display/curve_store.h"
#include "display/plot_geometry.h"

#include <gtest/gtest.h>
#include <limits>
#include <memory>

namespace qor {
namespace {

TEST(PlotGeometry, TheMarginsFollowTheWindowWithinLimits) {
    struct Case {
        int width, height, histogram;
        int left, top, right, axis, plotWidth;
    };
    for (const Case& c : {Case{956, 606, 0, 60, 30, 916, 551, 856}, Case{956, 606, 1, 130, 30, 916, 551, 786},
                          Case{2500, 900, 0, 60, 30, 2460, 845, 2000}, Case{150, 80, 0, 45, 24, 120, 27, 75},
                          Case{120, 200, 0, 36, 30, 96, 145, 60}, Case{10, 10, 1, 100, 15, 101, 17, 1},
                          Case{0, 0, 0, 30, 15, 31, 17, 1}}) {
        auto curve = std::make_unique<CurveState>();
        curve->g_histogramOn = c.histogram;
        const PlotGeometry plot = ComputeLayout(*curve, c.width, c.height);
        EXPECT_EQ(plot.left, c.left) << c.width;
        EXPECT_EQ(plot.top, c.top) << c.height;
        EXPECT_EQ(plot.right, c.right) << c.width;
        EXPECT_EQ(plot.axis, c.axis) << c.height;
        EXPECT_EQ(curve->g_plotWidth, c.plotWidth) << c.width;
    }
}

TEST(PlotGeometry, LevelsKeepOffTheFrame) {
    auto curve = std::make_unique<CurveState>();
    const PlotGeometry plot = ComputeLayout(*curve, 956, 606); // 521 pixels for 90 dB
    struct Case {
        float level;
        int height;
    };
    for (const Case& c : {Case{-150, 1}, Case{-151, 1}, Case{-149.9f, 1}, Case{-105, 260}, Case{-60, 520},
                          Case{-20, 520}, Case{std::numeric_limits<float>::infinity(), 520},
                          Case{std::numeric_limits<float>::quiet_NaN(), 1}})
        EXPECT_EQ(plot.HeightOf(c.level), c.height) << c.level;
    EXPECT_EQ(plot.YOf(-60), plot.top + 1);
    EXPECT_EQ(plot.FreeHeightOf(-160), -57);

    curve->g_plotTop = curve->g_plotBottom; // a scale that no dialog lets through
    EXPECT_EQ(ComputeLayout(*curve, 956, 606).HeightOf(-20), 1);
}

TEST(PlotGeometry, APictureLeavesTheScaleOfTheWindow) {
    auto curve = std::make_unique<CurveState>();
    curve->g_pxPerStep = 1;
    curve->g_freqGrid[0] = 890;
    curve->g_freqGrid[1] = 895;
    (void)ComputeLayout(*curve, 600, 400); // 500 pixels for 5 steps
    {
        const PictureLayout picture(*curve, 1100, 400);
        EXPECT_EQ(curve->g_pxPerStep, 200.0f);
        EXPECT_EQ(XOfPoint(*curve, picture.Plot(), 1), 1060);
    }
    EXPECT_EQ(curve->g_pxPerStep, 100.0f);
    EXPECT_EQ(curve->g_plotWidth, 500);
}

TEST(PlotGeometry, APointStandsAtItsTimeOrFrequency) {
    auto curve = std::make_unique<CurveState>();
    curve->g_testTimeMs = 3000;
    curve->tone2SetTimes = 100;
    PlotGeometry plot = ComputeLayout(*curve, 956, 606);
    EXPECT_EQ(XOfPoint(*curve, plot, 1), 60 + 28); // 28.5 pixels a point
    EXPECT_EQ(XOfPoint(*curve, plot, 30), plot.right);
    EXPECT_EQ(XOfPoint(*curve, plot, 31), plot.right) << "the one more of an external receiver";

    curve->g_pxPerStep = 1;
    for (std::size_t i = 0; i < CurvePoints; ++i)
        curve->g_freqGrid[i] = 800.0f + static_cast<float>(i);
    plot =
        ComputeLayout(*curve, 956, 606); // fewer pixels than steps: one pixel a step, the rest lies outside
    EXPECT_EQ(XOfPoint(*curve, plot, 100), 160);
    EXPECT_TRUE(IsOnPlot(*curve, plot, 856));
    EXPECT_FALSE(IsOnPlot(*curve, plot, 857));
    curve->g_SweepStep = 0; // from a file
    EXPECT_EQ(XOfPoint(*curve, plot, 0), 60);
    EXPECT_FALSE(IsOnPlot(*curve, plot, 0));
}

} // namespace
} // namespace qor
