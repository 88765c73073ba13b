#include "core/timer_ids.h"
#include "support/wire_reading.h"

namespace qor::test {

namespace {

struct Branch {
    const char* firmware;
    const char* band;  ///< command that selects the band again
    const char* recut; ///< what firmware from 3.5 on gets besides
};

constexpr Branch Branches[] = {
    {"1.8", "#SAB1", ""},        {"3.4", "#SAB1", ""},        {"3.6", "#SAB1", "#RECUT1"},
    {"4.2", "#SAB1", "#RECUT1"}, {"4.9", "#SAB1", "#RECUT1"}, {"5.2", "#SAB3", "#RECUT1"},
    {"5.3", "#SAB3", "#RECUT1"}, {"6.2", "#SAB3", "#RECUT1"},
};

} // namespace

TEST(TwoTone, CommandsOfEveryFirmwareAndPath) {
    for (const Branch& branch : Branches) {
        for (const int path : {1, 2}) {
            SCOPED_TRACE(std::string(branch.firmware) + " path " + std::to_string(path));
            Rig rig({.firmware = branch.firmware});
            ASSERT_TRUE(rig.PowerOn());
            ASSERT_TRUE(rig.SelectBand(BandEgsm));
            rig.S().curve.g_testTimeMs = 1000;
            EXPECT_TRUE(rig.program.Select().SelectPath(path));
            ASSERT_TRUE(rig.RunUntilIdle());
            const auto sent = SentDuring(rig, [&] { EXPECT_TRUE(rig.Measure()); });
            EXPECT_EQ(Joined(sent),
                      Joined(Chain({{branch.band, "#M2T1", "#SR"},
                                    Words(branch.recut),
                                    {path == 2 ? "#SMTRA" : "#SMREF", "#SFA09350", "#SFB09600"},
                                    Times(13, "#IMP?"), // one to prime the receiver, 1000 / 100 + 2 points
                                    {"#M2T0", "#SMREF"}})));
            EXPECT_EQ(rig.S().curve.StoreDataPot, 12);
        }
    }
}

TEST(TwoTone, PointsAreTheLevelsOnTheLineWithBothCorrections) {
    Rig rig;
    rig.program.Stores().Write("pathloss2.ccz", "0007"); // 0.7 dB
    rig.program.Stores().Write("loss.conf", "00.0 00.0 00.0 01.5 00.0 00.0 00.0 00.0 00.0 ");
    ASSERT_TRUE(rig.PowerOn());
    ASSERT_TRUE(rig.SelectBand(BandEgsm));
    const std::size_t from = Transfers(rig);
    ASSERT_TRUE(rig.Measure());

    const CurveState& curve = rig.S().curve;
    const OverheardCurve heard = Overhear(rig, from, 3, false);
    ASSERT_EQ(heard.levels, 53);
    ASSERT_EQ(curve.StoreDataPot, 52);
    float highest = -200;
    for (std::size_t i = 0; i < 52; ++i) {
        EXPECT_EQ(curve.g_levelUp[i], heard.trace[i + 1] + 0.7f + 1.5f) << i;
        highest = std::max(highest, curve.g_levelUp[i]);
    }
    EXPECT_EQ(curve.g_levelUp[52], 0.0f);
    EXPECT_EQ(curve.g_freqGrid[0], 0.0f);

    const Panel& panel = rig.S().panel;
    EXPECT_EQ(panel.m_f1_text, "935.0");
    EXPECT_EQ(panel.m_f2_text, "960.0");
    EXPECT_EQ(panel.m_fIM_text, "910.0");
    EXPECT_EQ(panel.m_WorstFreqText, "910.0");
    EXPECT_NEAR(std::stof(panel.m_WorstLevelText), highest, 0.1);
    EXPECT_EQ(panel.m_ReadingText, panel.m_WorstLevelText);
    EXPECT_EQ(panel.lamp, Lamp::Ready);
    const auto& lines = rig.S().results.g_reportLines;
    EXPECT_EQ(lines[ReportBand], "EGSM 900/RT-DB22/SIM01");
    EXPECT_EQ(lines[ReportPower], "43.0dBm        43.0dBm");
    EXPECT_EQ(lines[ReportFix], "935.0MHz       960.0MHz");
    EXPECT_EQ(lines[ReportStart] + lines[ReportStop], "");
    EXPECT_EQ(rig.S().curve.g_MeasVerdict, VerdictPassed);
}

TEST(TwoTone, DbcShowsLevelsBelowTheCarrierAndStoresThemInDbm) {
    Rig rig;
    ASSERT_TRUE(rig.PowerOn());
    ASSERT_TRUE(rig.SelectBand(BandEgsm));
    rig.S().curve.g_UnitDbc = 1;
    rig.S().curve.g_alarmLevel -= 43.0f;
    rig.program.OnMeasButton();
    ASSERT_TRUE(rig.time.RunUntil([&] { return rig.S().curve.StoreDataPot == 20; }, 60000));
    EXPECT_NEAR(std::stof(rig.S().panel.m_ReadingText), rig.S().curve.g_levelUp[19] - 43.0f, 0.051);
    ASSERT_TRUE(rig.RunUntilRunIsOver());
    const CurveState& curve = rig.S().curve;
    EXPECT_LT(curve.g_maxUpLevel, -100.0f);
    EXPECT_GT(curve.g_maxUpLevel, -150.0f);
    EXPECT_NEAR(std::stof(rig.S().panel.m_WorstLevelText), curve.g_maxUpLevel - 43.0f, 0.051);
    EXPECT_EQ(curve.g_MeasVerdict, VerdictPassed);
}

/// Time per point and count of points by length of the run, width of the plot and speed of the line.
TEST(TwoTone, LengthOfARun) {
    static constexpr struct {
        int seconds, width, realReceiveTime, perPoint, points;
    } Cases[] = {
        {1, 20, 20, 100, 12},     {5, 800, 20, 100, 52},        {5, 800, 250, 250, 22},
        {600, 800, 20, 751, 800}, {1999, 2000, 20, 1000, 2001},
    };
    for (const auto& c : Cases) {
        SCOPED_TRACE(std::to_string(c.seconds) + " s on " + std::to_string(c.width));
        Rig rig;
        ASSERT_TRUE(rig.PowerOn());
        ASSERT_TRUE(rig.SelectBand(BandEgsm));
        CurveState& curve = rig.S().curve;
        curve.g_testTimeMs = c.seconds * 1000;
        curve.g_plotWidth = c.width;
        curve.RealReceiveTime = c.realReceiveTime;
        const std::int64_t begin = rig.time.NowMs();
        ASSERT_TRUE(rig.Measure(4000000));
        EXPECT_EQ(curve.tone2SetTimes, c.perPoint);
        EXPECT_EQ(curve.StoreDataPot, c.points);
        EXPECT_NE(curve.g_levelUp[static_cast<std::size_t>(c.points) - 1], 0.0f);
        EXPECT_NEAR(static_cast<double>(rig.time.NowMs() - begin), (c.points + 1.0) * c.perPoint, 150.0);
        EXPECT_EQ(curve.g_MeasVerdict, VerdictPassed);
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
        EXPECT_FALSE(rig.program.Select().SelectMethod(ModeSweep));
        rig.S().curve.g_testTimeMs = 1000;
        const auto sent = SentDuring(rig, [&] { ASSERT_TRUE(rig.Measure()); });
        EXPECT_NE(std::find(sent.begin(), sent.end(), stored ? "#SFA20185" : "#SFA20200"), sent.end());
        EXPECT_NE(std::find(sent.begin(), sent.end(), "#SFB20250"), sent.end());
        EXPECT_EQ(rig.S().panel.m_f1_text, stored ? "2018.5" : "2020.0");
        EXPECT_EQ(rig.S().curve.StoreDataPot, 12);
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
        rig.S().curve.g_testTimeMs = 1000;
        const auto sent = SentDuring(rig, [&] { ASSERT_TRUE(rig.Measure()); });
        ASSERT_FALSE(sent.empty());
        EXPECT_EQ(sent[0].starts_with("#SAB"), c.again) << sent[0];
    }
}

} // namespace qor::test
