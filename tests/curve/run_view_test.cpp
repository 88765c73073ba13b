#include "curve/curve.h"
#include "curve/plot_range.h"
#include "curve/run_view.h"
#include "support/curves.h"
#include "support/rig.h"

#include <cmath>
#include <gtest/gtest.h>

namespace qor::test {
namespace {

TEST(RunView, OnlyRunsThatCouldBeMade) {
    Rig rig;
    Curve& curve = rig.S().curve;
    for (const auto& [runs, enabled] : {std::pair{1, 0}, {2, 2}, {10, 10}, {1000, 10}}) {
        curve.SetRuns(runs);
        int count = 0;
        for (int run = 1; run <= 10; ++run)
            count += CanShowRun(curve, run) ? 1 : 0;
        EXPECT_EQ(count, enabled) << runs;
    }
    curve.SetRuns(3);
    for (const int wrong : {4, 10, -1})
        EXPECT_FALSE(ShowRun(wrong, curve)) << wrong;
    EXPECT_EQ(curve.ShownRun(), 0);
}

TEST(PlotRange, IsCheckedInDbmAndKept) {
    struct Case {
        double top;
        double bottom;
        bool taken;
    };
    for (const Case& c : {Case{0, -200, true}, Case{-60, -62, true}, Case{1, -150, false},
                          Case{-60, -61.5, false}, Case{-60, -201, false}, Case{-150, -60, false},
                          Case{-0.05, -199.95, true}, Case{std::nan(""), -150, false}}) {
        for (const double carrier : {0.0, 43.0}) {
            SCOPED_TRACE(std::to_string(c.top) + " " + std::to_string(c.bottom));
            Rig rig;
            Curve& curve = rig.S().curve;
            curve.scale.SetUnit(carrier > 0);
            rig.program.Stores().Write("unit.ccz", carrier > 0 ? "1" : "0");
            const PlotRange before = ShownPlotRange(curve);
            EXPECT_EQ(rig.Done(ApplyPlotRange({c.top - carrier, c.bottom - carrier}, curve, rig.Store())),
                      c.taken);
            if (c.taken) {
                EXPECT_NEAR(ShownPlotRange(curve).top, c.top - carrier, 1e-4);
                rig.program.Start(true);
                EXPECT_NEAR(ShownPlotRange(curve).bottom, c.bottom - carrier, 0.051) << "from the store";
            } else {
                EXPECT_EQ(rig.user.messages, std::vector<std::string>{"Falsch, dichtesortierung."});
                EXPECT_EQ(ShownPlotRange(curve).bottom, before.bottom);
                EXPECT_FALSE(rig.program.Stores().Exists("dbmset.ccz"));
            }
        }
    }
}

TEST(PlotRange, IsSteppedUntilItsEndsAndEachStepIsKept) {
    Rig rig;
    Curve& curve = rig.S().curve;
    SetupStore& store = rig.program.Stores();
    for (const auto& [larger, steps, stored] : {std::tuple{false, 5, "-200.0\n-60.0"},
                                                {false, 1, "-200.0\n-60.0"},
                                                {true, 13, "-70.0\n-60.0"},
                                                {true, 1, "-70.0\n-60.0"},
                                                {false, 1, "-80.0\n-60.0"}}) {
        for (int i = 0; i < steps; ++i)
            StepPlotRange(larger, curve, store);
        EXPECT_EQ(FileText(store.PathOf("dbmset.ccz")), stored);
        EXPECT_EQ(curve.scale.Top(), -60.0f);
    }
    EXPECT_EQ(curve.scale.Bottom(), -80.0f);
}

} // namespace
} // namespace qor::test
