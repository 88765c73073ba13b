#include "support/wire_reading.h"

namespace qor::test {

TEST(TwoTone, ARunOnTheWire) {
    Rig rig;
    ASSERT_TRUE(rig.ReadyFor(ModeTwoTone, 1));
    const auto sent = SentDuring(rig, [&] { EXPECT_TRUE(rig.Measure()); });
    // One reading to prime the receiver, 1000 / 100 + 2 points.
    EXPECT_EQ(Joined(sent),
              Joined(Words("#SAB3 #M2T1 #SR #RECUT1 #SMREF #SFA09350 #SFB09600 #IMP?*13 #M2T0 #SMREF")));
    EXPECT_EQ(rig.S().curve.NextPoint(), 12);
}

TEST(TwoTone, PointsAreTheLevelsOnTheLineWithBothCorrections) {
    Rig rig;
    rig.program.Stores().Write("pathloss2.ccz", "0007"); // 0.7 dB
    rig.program.Stores().Write("loss.conf", "00.0 00.0 00.0 01.5 00.0 00.0 00.0 00.0 00.0 ");
    ASSERT_TRUE(rig.PowerOn());
    ASSERT_TRUE(rig.SelectBand(BandEgsm));
    const std::size_t from = Transfers(rig);
    rig.program.OnMeasButton();
    const Curve& curve = rig.S().curve;
    ASSERT_TRUE(rig.time.RunUntil([&] { return curve.NextPoint() == 20; }, 60000));
    EXPECT_NEAR(std::stof(PanelOf(rig.S()).m_ReadingText), curve.Up()[19], 0.051) << "both corrections shown";
    ASSERT_TRUE(rig.RunUntilRunIsOver());

    const OverheardCurve heard = Overhear(rig, from, 3, false);
    ASSERT_EQ(heard.levels, 53);
    ASSERT_EQ(curve.NextPoint(), 52);
    float highest = -200;
    for (std::size_t i = 0; i < 52; ++i) {
        EXPECT_EQ(curve.Up()[i], heard.trace[i + 1] + 0.7f + 1.5f) << i;
        highest = std::max(highest, curve.Up()[i]);
    }
    EXPECT_EQ(curve.Up()[52], 0.0f);
    EXPECT_EQ(curve.Grid()[0], 0.0f);

    const Panel panel = PanelOf(rig.S());
    EXPECT_EQ(panel.m_f1_text, "935.0");
    EXPECT_EQ(panel.m_f2_text, "960.0");
    EXPECT_EQ(panel.m_fIM_text, "910.0");
    EXPECT_EQ(panel.m_WorstFreqText, "910.0");
    EXPECT_NEAR(std::stof(panel.m_WorstLevelText), highest, 0.1);
    EXPECT_EQ(panel.m_ReadingText, panel.m_WorstLevelText);
    EXPECT_EQ(panel.lamp, Lamp::Ready);
    const RunRecord& record = rig.S().run.Record();
    EXPECT_EQ(record.model + "/" + record.serial, "RT-DB22/SIM01");
    EXPECT_EQ(record.power.tone1 + record.power.tone2, "0043000430");
    EXPECT_EQ(record.plan.f1, 935.0f);
    EXPECT_EQ(rig.S().curve.ShownVerdict(), Verdict::Passed);
}

TEST(TwoTone, DbcShowsLevelsBelowTheCarrierAndStoresThemInDbm) {
    Rig rig;
    rig.Store().Write("pathloss2.ccz", "0007"); // what is shown is corrected as what is stored
    rig.Store().Write("loss.conf", "00.0 00.0 00.0 01.5 00.0 00.0 00.0 00.0 00.0 ");
    ASSERT_TRUE(rig.PowerOn());
    ASSERT_TRUE(rig.SelectBand(BandEgsm));
    rig.S().curve.scale.SetUnit(1);
    rig.S().curve.limit.Take(-133.0f);
    rig.program.OnMeasButton();
    ASSERT_TRUE(rig.time.RunUntil([&] { return rig.S().curve.NextPoint() == 20; }, 60000));
    EXPECT_NEAR(std::stof(PanelOf(rig.S()).m_ReadingText), rig.S().curve.Up()[19] - 43.0f, 0.051);
    ASSERT_TRUE(rig.RunUntilRunIsOver());
    const Curve& curve = rig.S().curve;
    EXPECT_LT(curve.MaxUp().level, -95.0f);
    EXPECT_GT(curve.MaxUp().level, -150.0f);
    EXPECT_NEAR(std::stof(PanelOf(rig.S()).m_WorstLevelText), curve.MaxUp().level - 43.0f, 0.051);
    EXPECT_EQ(curve.ShownVerdict(), Verdict::Passed);
}

/// Time per point and count of points by length of the run, width of the plot and speed of the line.
TEST(TwoTone, LengthOfARun) {
    static constexpr struct {
        int seconds, width, realReceiveTime, perPoint, points;
    } Cases[] = {
        {1, 20, 20, 100, 12},     {5, 800, 20, 100, 52},        {5, 800, 250, 250, 22},
        {600, 800, 20, 751, 800}, {1999, 2000, 20, 1000, 2001}, {1999, 5000, 20, 1000, 2001},
    };
    for (const auto& c : Cases) {
        SCOPED_TRACE(std::to_string(c.seconds) + " s on " + std::to_string(c.width));
        Rig rig;
        ASSERT_TRUE(rig.PowerOn());
        ASSERT_TRUE(rig.SelectBand(BandEgsm));
        Curve& curve = rig.S().curve;
        curve.SetLength(c.seconds * 1000);
        curve.scale.SetWidth(c.width);
        curve.NoteReplyTime(c.realReceiveTime);
        const std::int64_t begin = rig.time.NowMs();
        ASSERT_TRUE(rig.Measure(4000000));
        EXPECT_EQ(curve.TimePerPoint(), c.perPoint);
        EXPECT_EQ(curve.NextPoint(), c.points);
        EXPECT_NE(curve.Up()[static_cast<std::size_t>(c.points) - 1], 0.0f);
        EXPECT_NEAR(static_cast<double>(rig.time.NowMs() - begin), (c.points + 1.0) * c.perPoint, 150.0);
        EXPECT_EQ(curve.ShownVerdict(), Verdict::Passed);
    }
}

/// TD-SCDMA-A has no plan: tone 1 comes from a store of its own.
TEST(TwoTone, TdScdmaAMeasuresAtItsTwoFixedTones) {
    for (const bool stored : {false, true}) {
        Rig rig;
        if (stored)
            rig.program.Stores().Write("tdb_f1.ccz", "2018.5");
        ASSERT_TRUE(rig.PowerOn());
        ASSERT_TRUE(rig.SelectBand(BandTdScdmaA));
        EXPECT_FALSE(rig.Done(rig.program.Select().SelectMethod(ModeSweep)));
        rig.S().curve.SetLength(1000);
        const auto sent = SentDuring(rig, [&] { ASSERT_TRUE(rig.Measure()); });
        EXPECT_NE(std::find(sent.begin(), sent.end(), stored ? "#SFA20185" : "#SFA20200"), sent.end());
        EXPECT_NE(std::find(sent.begin(), sent.end(), "#SFB20250"), sent.end());
        EXPECT_EQ(PanelOf(rig.S()).m_f1_text, stored ? "2018.5" : "2020.0");
        EXPECT_EQ(rig.S().curve.NextPoint(), 12);
    }
}

/// The band is selected again at a press of the button unless the installation has one port and the firmware
/// keeps the band by itself.
TEST(TwoTone, BandIsSelectedAgainUnlessTheInstallationHasOnePort) {
    static constexpr struct {
        const char* store;
        const char* firmware;
        bool again;
    } Cases[] = {{"0100", "6.2", false}, {"01", "6.2", true}, {"0110", "6.2", true}, {"0100", "3.4", true}};
    for (const auto& c : Cases) {
        SCOPED_TRACE(std::string(c.store) + " " + c.firmware);
        Rig rig({.firmware = c.firmware});
        ASSERT_TRUE(rig.PowerOn());
        ASSERT_TRUE(rig.SelectBand(BandEgsm));
        rig.program.Stores().Write("Install_info.ccz", c.store);
        rig.S().curve.SetLength(1000);
        const auto sent = SentDuring(rig, [&] { ASSERT_TRUE(rig.Measure()); });
        ASSERT_FALSE(sent.empty());
        EXPECT_EQ(sent[0].starts_with("#SAB"), c.again) << sent[0];
    }
}

} // namespace qor::test
