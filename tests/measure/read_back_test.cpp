// Powers that are read back: what is said to the instrument, what stands in the plot, and whose settings are
// in force afterwards.
#include "bands/catalogue.h"
#include "curve/curve.h"
#include "support/calibration_bench.h"

#include <gtest/gtest.h>

namespace qor::test {
namespace {

const sim::InstrumentConfig Da10{.model = "RT-DA10", .firmware = "6.0", .position = 1};

TEST(ReadBack, GoesThroughTonesAndLevelsAndLeavesTheOperatorsSettings) {
    CalibrationBench bench(Da10);
    bench.rig.Store().Write("AlarmUp.ccz", "-97.0");
    ASSERT_TRUE(bench.Open(BandEgsm));
    bench.Shorten(2, 40, 41);
    Session& s = bench.S();
    s.curve.SetRuns(3);
    s.runs.SetContinuous(true);
    const float top = s.curve.scale.Top();
    const auto sent = SentDuring(bench.rig, [&] { ASSERT_TRUE(bench.ReadBack()); });
    EXPECT_EQ(sent, Words("#RECUT1 #SAB1 "
                          "#SPA1 #SFA09250 #SPWA00400 #SFA09260 #SPWA00400 "
                          "#SFA09250 #SFB09460 #SPA0 #SPB1 #SPWB00400 #SFB09470 #SPWB00400 #SFB09460 "
                          "#SPA1 #SPB0 #SFA09250 #SPWA00410 #SFA09260 #SPWA00410 "
                          "#SFA09250 #SFB09460 #SPA0 #SPB1 #SPWB00410 #SFB09470 #SPWB00410 "
                          "#SPA0 #SPB0 #MSWL0 #SFB09460 #SMREF #SPA0 #SPB0"));
    EXPECT_TRUE(s.curve.powers.IsOn());
    EXPECT_EQ(s.curve.scale.Top(), 41 - 149);
    EXPECT_EQ(s.curve.scale.Bottom(), 40 - 151);
    EXPECT_EQ(s.curve.ShownVerdict(), Verdict::None);
    EXPECT_EQ(PanelOf(s).m_ReadingText.substr(0, 2), "41");
    EXPECT_EQ(PanelOf(s).m_ReadingText.size(), 5U); // two decimals
    const auto up = OnGrid(s.curve, s.curve.KeptUp(0));
    ASSERT_EQ(up.size(), 2U);
    EXPECT_NEAR(up.at(9250) + 150, 40, 0.05);
    EXPECT_EQ(OnGrid(s.curve, std::span(s.curve.Down())).size(), 2U);
    EXPECT_FALSE(bench.rig.program.Files().DataSave(bench.rig.dir / "no.txt"));
    EXPECT_FALSE(s.factory.IsOpen(ServicePage::Calibration));

    // The operator's next run is his own again.
    bench.rig.program.Receiver().UseInternal();
    s.runs.SetContinuous(false);
    bench.rig.program.OnMeasButton();
    ASSERT_TRUE(bench.rig.RunUntilRunIsOn());
    EXPECT_FALSE(s.curve.powers.IsOn());
    EXPECT_EQ(s.curve.limit.Level(), -97.0f);
    EXPECT_TRUE(s.curve.limit.AlarmOn());
    EXPECT_EQ(s.curve.scale.Top(), top);
    EXPECT_EQ(s.curve.Runs(), 3);
}

TEST(ReadBack, ALostSensorAndAStopSwitchBothCarriersOff) {
    for (const bool stop : {true, false}) {
        CalibrationBench bench(Da10);
        ASSERT_TRUE(bench.Open(BandEgsm));
        bench.Shorten(4, 40, 41);
        ASSERT_TRUE(bench.rig.Done(bench.Desk().PressRead()));
        bench.rig.time.RunFor(1500);
        ASSERT_TRUE(bench.CarriersAreOn());
        if (stop)
            bench.rig.program.StopMeas();
        else
            bench.LoseReceiver();
        bench.rig.time.RunFor(stop ? 1000 : 20000);
        EXPECT_FALSE(bench.S().run.IsOn()) << stop;
        EXPECT_FALSE(bench.CarriersAreOn()) << stop;
    }
    // One that never answers: the tones were on, and the run is over.
    CalibrationBench bench(Da10);
    ASSERT_TRUE(bench.Open(BandEgsm));
    bench.Shorten(4, 40, 41);
    bench.LoseReceiver();
    ASSERT_TRUE(bench.rig.Done(bench.Desk().PressRead()));
    ASSERT_TRUE(bench.rig.RunUntilRunIsOver(30000));
    EXPECT_TRUE(bench.rig.user.WasTold("Receiver Error! \r\nCheck power meter sensor."));
    EXPECT_FALSE(bench.CarriersAreOn());
}

} // namespace
} // namespace qor::test
