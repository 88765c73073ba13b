#include "curve/curve.h"
#include "curve/plot_geometry.h"
#include "support/curves.h"

#include <gtest/gtest.h>
#include <limits>
#include <memory>

namespace qor {
namespace {

TEST(PlotGeometry, APointStandsAtItsTimeOrFrequency) {
    auto curve = std::make_unique<Curve>();
    curve->SetLength(3000);
    PlotGeometry plot = ComputeLayout(*curve, 956, 606);
    EXPECT_EQ(XOfPoint(*curve, plot, 1), 60 + 28); // 28.5 pixels a point
    EXPECT_EQ(XOfPoint(*curve, plot, 30), plot.right);
    EXPECT_EQ(XOfPoint(*curve, plot, 31), plot.right) << "the one more of an external receiver";

    test::MakeSweep(*curve);
    plot =
        ComputeLayout(*curve, 956, 606); // fewer pixels than steps: one pixel a step, the rest lies outside
    EXPECT_EQ(XOfPoint(*curve, plot, 100), 160);
    EXPECT_TRUE(IsOnPlot(*curve, plot, 856));
    EXPECT_FALSE(IsOnPlot(*curve, plot, 857));
    curve->SetGrid(std::vector<float>(curve->Grid().begin(), curve->Grid().end()), 0); // from a file
    EXPECT_EQ(XOfPoint(*curve, plot, 0), 60);
    EXPECT_FALSE(IsOnPlot(*curve, plot, 0));
}

} // namespace
} // namespace qor
