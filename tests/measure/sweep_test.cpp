#include "support/wire_reading.h"

namespace qor::test {

namespace {

bool ReadySweep(Rig& rig, int band, int imIndex = 1) {
    return rig.PowerOn() && rig.SelectBand(band) && rig.program.Select().SelectOrder(imIndex) &&
           rig.RunUntilIdle() && rig.program.Select().SelectMethod(ModeSweep) && rig.RunUntilIdle();
}

/// The two halves of the built-in EGSM plan at IM3, the first step's reading first.
std::vector<std::string> EgsmUp() {
    return Chain({{"#IMP?"}, Steps("#SFA", 9260, 9370, 10)});
}
std::vector<std::string> EgsmDown() {
    return Steps("#SFB", 9600, 9460, -10);
}

void ExpectCurveIsWhatWasHeard(Rig& rig, std::size_t from, int order, bool upper = false) {
    const Curve& curve = rig.S().curve;
    const OverheardCurve heard = Overhear(rig, from, order, upper);
    EXPECT_FALSE(heard.up.empty());
    EXPECT_EQ(OnGrid(curve, std::span(curve.Up())), heard.up);
    EXPECT_EQ(OnGrid(curve, std::span(curve.Down())), heard.down);
    for (std::size_t i = 1; i < curve.Grid().size() && curve.Grid()[i] != 0.0f; ++i)
        EXPECT_LT(curve.Grid()[i - 1], curve.Grid()[i]);
}

} // namespace

TEST(Sweep, ARunOnTheWire) {
    struct Branch {
        const char* firmware;
        const char* start;
        const char* turn; ///< between the halves
    };
    static constexpr Branch Branches[] = {
        {"3.6", "#SAB1 #SPA1 #SPB1 #SR #RECUT1 #SMREF #SFB09600 #SFA09250 #MSWL1 #MDNL0", "#MDNL1"},
        {"4.2", "#SAB1 #SPA1 #SPB1 #SR #RECUT1 #SMREF #SFB09600 #SFA09250 #MSWL1", ""},
        {"6.2", "#SAB3 #MDNL0 #SR*10 #SPA1 #SPB1 #SR #RECUT1 #SMREF #SFB09600 #SFA09250 #MSWL1",
         "#SPA0 #SPB0 #MDNL1 #SPA1 #SPB1"},
    };
    for (const Branch& b : Branches) {
        SCOPED_TRACE(b.firmware);
        Rig rig({.firmware = b.firmware});
        ASSERT_TRUE(ReadySweep(rig, BandEgsm));
        rig.S().link.chain.TakeStatus(0x60);
        const std::size_t from = Transfers(rig);
        const auto sent = SentDuring(rig, [&] { EXPECT_TRUE(rig.Measure()); });
        EXPECT_EQ(Joined(sent), Joined(Chain({Words(b.start),
                                              EgsmUp(),
                                              Words(b.turn),
                                              {"#SFA09250"},
                                              EgsmDown(),
                                              Words("#SPA0 #SPB0 #MSWL0 #SFB09600 #SMREF #SPA0 #SPB0")})));
        ExpectCurveIsWhatWasHeard(rig, from, 3);
    }
}

TEST(Sweep, PanelAndReportOfARun) {
    Rig rig;
    ASSERT_TRUE(ReadySweep(rig, BandEgsm));
    rig.program.OnMeasButton();
    Panel panel = PanelOf(rig.S());
    EXPECT_EQ(panel.lamp, Lamp::Running);
    EXPECT_EQ(panel.m_f1_text + " " + panel.m_f2_text + " " + panel.m_fIM_text, "925.0 960.0 890.0");
    ASSERT_TRUE(rig.time.RunUntil([&] { return rig.S().curve.Down()[12] != 0.0f; }, 60000));
    EXPECT_EQ(PanelOf(rig.S()).m_f1_text, "925.0");
    ASSERT_TRUE(rig.RunUntilRunIsOver());
    panel = PanelOf(rig.S());
    const Curve& curve = rig.S().curve;
    const float highest =
        std::max(curve.MaxUp().level,
                 curve.MaxDown().level > curve.MaxUp().level + 0.05f ? curve.MaxDown().level : -999.0f);
    EXPECT_NEAR(std::stof(panel.m_WorstLevelText), highest, 0.051);
    EXPECT_EQ(panel.m_ReadingText, panel.m_WorstLevelText);
    EXPECT_EQ(panel.m_fIM_text, panel.m_WorstFreqText);
    EXPECT_EQ(panel.m_f2_text, "960.0");
    EXPECT_EQ(curve.ShownVerdict(), Verdict::Passed);
    const RunRecord& record = rig.S().run.Record();
    EXPECT_EQ(record.method, ModeSweep);
    EXPECT_EQ(record.plan.f1Stop, 937.0f);
    EXPECT_EQ(record.plan.f2Stop, 946.0f);
}

/// Bands, orders and steps: every grid frequency is measured once and lands at its place.
TEST(Sweep, EveryStepLandsAtItsPlace) {
    static constexpr struct {
        const char* model;
        int band;
        int imIndex;
        const char* store; ///< name of the plan store, null: built-in plan
        const char* plan;  ///< f1, f2, f1Start, f2Start, f1Stop, f2Stop, step, f1Fix, f2Fix
        int up, down;      ///< steps of the two halves
    } Cases[] = {
        {"RT-DB22", BandDigDiv, 1, nullptr, nullptr, 21, 11},
        {"RT-DB22", BandLte700U, 5, nullptr, nullptr, 4, 4},
        {"RT-DB22", BandEgsm, 1, "egsm_im3_setup.ccz", "093500960009250096000937009460000010925009600", 121,
         141},
        // A plan that ends where it begins is one step a half.
        {"RT-DB22", BandEgsm, 1, "egsm_im3_setup.ccz", "093500960009250096000925009600000100925009600", 1, 1},
        // A step that does not divide its range: no step beyond the stop.
        {"RT-DB22", BandEgsm, 1, "egsm_im3_setup.ccz", "093500960009250096000937009460000070925009600", 18,
         21},
    };
    for (const auto& c : Cases) {
        SCOPED_TRACE(std::string(BandText(c.band)) + " IM " + std::to_string(c.imIndex) + " " +
                     (c.plan ? c.plan : ""));
        Rig rig({.model = c.model});
        if (c.store)
            rig.program.Stores().Write(c.store, c.plan);
        ASSERT_TRUE(ReadySweep(rig, c.band, c.imIndex));
        const std::size_t from = Transfers(rig);
        ASSERT_TRUE(rig.Measure());
        const OverheardCurve heard = Overhear(rig, from, OrderOf(c.imIndex), UsesUpperProduct(c.band));
        EXPECT_EQ(heard.levels, c.up + c.down);
        EXPECT_EQ(static_cast<int>(heard.up.size()), c.up);
        EXPECT_EQ(static_cast<int>(heard.down.size()), c.down);
        ExpectCurveIsWhatWasHeard(rig, from, OrderOf(c.imIndex), UsesUpperProduct(c.band));
        EXPECT_NE(rig.S().curve.ShownVerdict(), Verdict::None);
    }
}

/// Steps come faster than a slow line takes them; none may be lost on the way.
TEST(Sweep, SlowLineLosesNoStep) {
    Rig rig;
    rig.program.Stores().Write("umts_im3_setup.ccz", "211002170021100217002150021300000012110021700");
    ASSERT_TRUE(ReadySweep(rig, BandUmts));
    rig.line.Add({sim::FaultKind::Slow, 400});
    ASSERT_TRUE(rig.Measure(3000000));
    const Curve& curve = rig.S().curve;
    EXPECT_EQ(OnGrid(curve, std::span(curve.Up())).size(), 401U);
    EXPECT_EQ(OnGrid(curve, std::span(curve.Down())).size(), 401U);
}

TEST(Spectrum, APassAndItsRepeatOnTheWire) {
    Rig rig;
    ASSERT_TRUE(rig.ReadyFor(ModeSpectrum));
    EXPECT_EQ(PanelOf(rig.S()).m_SweepKind_text, "Endless");
    const std::size_t from = Transfers(rig);
    rig.Sent();
    rig.program.OnMeasButton();
    ASSERT_TRUE(rig.time.RunUntil([&] { return rig.S().run.Passes() == 2; }, 60000));
    const auto steps = Chain({EgsmUp(), Words("#SFA09250 #IMP? #SPA0 #SPB0 #MSWL0 #SFB09600")});
    EXPECT_EQ(Joined(rig.Sent()), Joined(Chain({Words("#USEID3 #SAB3 #SR #RECUT1 #SFB09600 #SFA09250"), steps,
                                                Words("#SFB09600 #SFA09250 #SR"), steps})));
    EXPECT_TRUE(rig.S().run.IsOn());
    EXPECT_EQ(rig.instrument.Settings().carrier1 + rig.instrument.Settings().carrier2, 0);
    const Curve& curve = rig.S().curve;
    EXPECT_EQ(OnGrid(curve, std::span(curve.Up())), Overhear(rig, from, 3, false).up);
    EXPECT_TRUE(OnGrid(curve, std::span(curve.Down())).empty());
}

/// Spectrum is always IM3, above the carriers where the band receives there.
TEST(Spectrum, UpperProductLandsOnTheGridInAscendingOrder) {
    for (const int band : {BandDigDiv, BandLte700U}) {
        Rig rig;
        ASSERT_TRUE(rig.PowerOn());
        ASSERT_TRUE(rig.SelectBand(band));
        EXPECT_TRUE(rig.Done(rig.program.Select().SelectMethod(ModeSpectrum)));
        ASSERT_TRUE(rig.RunUntilIdle());
        const std::size_t from = Transfers(rig);
        rig.program.OnMeasButton();
        ASSERT_TRUE(rig.time.RunUntil([&] { return rig.S().run.Passes() == 1; }, 60000));
        const Curve& curve = rig.S().curve;
        const OverheardCurve heard = Overhear(rig, from, 3, true);
        EXPECT_EQ(OnGrid(curve, std::span(curve.Up())), heard.up);
        EXPECT_EQ(heard.up.size(), band == BandDigDiv ? 21U : 17U);
    }
}

} // namespace qor::test
