#include "link/initialisation.h"
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
    const CurveState& curve = rig.S().curve;
    const OverheardCurve heard = Overhear(rig, from, order, upper);
    EXPECT_FALSE(heard.up.empty());
    EXPECT_EQ(OnGrid(curve, std::span(curve.g_levelUp)), heard.up);
    EXPECT_EQ(OnGrid(curve, std::span(curve.g_levelDown)), heard.down);
    for (std::size_t i = 1; i < curve.g_freqGrid.size() && curve.g_freqGrid[i] != 0.0f; ++i)
        EXPECT_LT(curve.g_freqGrid[i - 1], curve.g_freqGrid[i]);
}

} // namespace

TEST(Sweep, CommandsOfEveryFirmwareStatusAndPath) {
    struct Branch {
        const char* firmware;
        const char* band;
        const char* first; ///< pass selection ahead of the carriers
        const char* recut;
        const char* selector; ///< behind #MSWL1
        const char* turn;     ///< between the halves
    };
    static constexpr Branch Branches[] = {
        {"1.8", "#SAB1", "", "", "#MDNL0", "#MDNL1"},
        {"3.4", "#SAB1", "", "", "#MDNL0", "#MDNL1"},
        {"3.6", "#SAB1", "", "#RECUT1", "#MDNL0", "#MDNL1"},
        {"4.2", "#SAB1", "", "#RECUT1", "", ""},
        {"4.9", "#SAB1", "", "#RECUT1", "", ""},
        {"5.2", "#SAB3", "", "#RECUT1", "", ""},
        {"5.3", "#SAB3", "#MDNL0 #SR*10", "#RECUT1", "", "#SPA0 #SPB0 #MDNL1 #SPA1 #SPB1"},
        {"6.2", "#SAB3", "#MDNL0 #SR*10", "#RECUT1", "", "#SPA0 #SPB0 #MDNL1 #SPA1 #SPB1"},
    };
    for (const Branch& b : Branches) {
        for (const bool prepared : {false, true}) {
            for (const int path : {1, 2}) {
                SCOPED_TRACE(std::string(b.firmware) + (prepared ? " prepared" : "") + " path " +
                             std::to_string(path));
                Rig rig({.firmware = b.firmware});
                ASSERT_TRUE(ReadySweep(rig, BandEgsm));
                EXPECT_TRUE(rig.program.Select().SelectPath(path));
                ASSERT_TRUE(rig.RunUntilIdle());
                rig.S().link.g_InstrStatus = prepared ? 0x64 : 0x60;
                const std::size_t from = Transfers(rig);
                const auto sent = SentDuring(rig, [&] { EXPECT_TRUE(rig.Measure()); });
                const auto end = Chain({EgsmUp(),
                                        Words(b.turn),
                                        {"#SFA09250"},
                                        EgsmDown(),
                                        Words("#SPA0 #SPB0 #MSWL0 #SFB09600 #SMREF #SPA0 #SPB0")});
                const std::string smtra = path == 2 ? "#SMTRA" : "";
                const std::string smref = path == 1 ? "#SMREF" : "";
                const auto start =
                    prepared ? Words(std::string(b.first) + " #SPA1 #SPB1 " + smtra +
                                     " #SFB09600 #SFA09250 #MSWL1 " + b.selector + " #SR")
                             : Words(std::string(b.band) + " " + b.first + " #SPA1 #SPB1 #SR " + smtra + " " +
                                     b.recut + " " + smref + " #SFB09600 #SFA09250 #MSWL1 " + b.selector);
                EXPECT_EQ(Joined(sent), Joined(Chain({start, end})));
                ExpectCurveIsWhatWasHeard(rig, from, 3);
            }
        }
    }
}

/// A port that has come back is served as firmware 1.7 until the instrument is identified anew.
TEST(Sweep, FirmwareNotYetIdentified) {
    Rig rig;
    ASSERT_TRUE(ReadySweep(rig, BandEgsm));
    rig.program.Link().ScanComm();
    ASSERT_TRUE(rig.RunUntilReady());
    ASSERT_FLOAT_EQ(rig.S().link.FirmVersion, 1.7f);
    rig.S().link.g_InstrStatus = 0x60;
    const auto sent = SentDuring(rig, [&] { EXPECT_TRUE(rig.Measure()); });
    EXPECT_EQ(Joined(sent),
              Joined(Chain({Words("#SAB3 #SPA1 #SPB1 #SR #SMREF #SFB09600 #SFA09250 #MSWL1 #MDNL0 #MUPL1"),
                            EgsmUp(), Words("#MDNL1 #MUPL0 #SFA09250"), EgsmDown(),
                            Words("#SPA0 #SPB0 #MSWL0 #SFB09600 #SMREF #SPA0 #SPB0")})));
}

TEST(Sweep, PanelAndReportOfARun) {
    Rig rig;
    ASSERT_TRUE(ReadySweep(rig, BandEgsm));
    rig.program.OnMeasButton();
    const Panel& panel = rig.S().panel;
    EXPECT_EQ(panel.lamp, Lamp::Running);
    EXPECT_EQ(panel.m_f1_text + " " + panel.m_f2_text + " " + panel.m_fIM_text, "925.0 960.0 890.0");
    ASSERT_TRUE(rig.time.RunUntil([&] { return rig.S().curve.g_levelDown[12] != 0.0f; }, 60000));
    EXPECT_EQ(panel.m_f1_text, "925.0");
    ASSERT_TRUE(rig.RunUntilRunIsOver());
    const CurveState& curve = rig.S().curve;
    const float highest =
        std::max(curve.g_maxUpLevel,
                 curve.g_maxDownLevel > curve.g_maxUpLevel + 0.05f ? curve.g_maxDownLevel : -999.0f);
    EXPECT_NEAR(std::stof(panel.m_WorstLevelText), highest, 0.051);
    EXPECT_EQ(panel.m_ReadingText, panel.m_WorstLevelText);
    EXPECT_EQ(panel.m_fIM_text, panel.m_WorstFreqText);
    EXPECT_EQ(panel.m_f2_text, "960.0");
    EXPECT_EQ(curve.g_MeasVerdict, VerdictPassed);
    const auto& lines = rig.S().results.g_reportLines;
    EXPECT_EQ(lines[ReportMode], "Scannen Modell");
    EXPECT_EQ(lines[ReportFix], "925.0MHz       960.0MHz");
    EXPECT_EQ(lines[ReportStart], "925.0MHz       960.0MHz");
    EXPECT_EQ(lines[ReportStop], "937.0MHz       946.0MHz");
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
        {"RT-DB22", BandEgsm, 5, nullptr, nullptr, 6, 8},
        {"RT-DB22", BandDigDiv, 1, nullptr, nullptr, 21, 11},
        {"RT-DB22", BandDigDiv, 2, nullptr, nullptr, 16, 11},
        {"RT-DB22", BandLte700U, 1, nullptr, nullptr, 17, 9},
        {"RT-DB22", BandLte700U, 5, nullptr, nullptr, 4, 4},
        {"RT-DB22", BandEgsm, 1, "egsm_im3_setup.ccz", "093500960009250096000937009460000050925009600", 25,
         29},
        {"RT-DB22", BandEgsm, 1, "egsm_im3_setup.ccz", "093500960009250096000937009460000010925009600", 121,
         141},
        {"RT-DB22", BandEgsm, 2, "egsm_im5_setup.ccz", "093400960009340094700939009460000010925009600", 51,
         11},
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
        EXPECT_EQ(rig.S().curve.g_MeasVerdict >= VerdictFailed, true);
    }
}

/// Steps come faster than a slow line takes them; none may be lost on the way.
TEST(Sweep, SlowLineLosesNoStep) {
    Rig rig;
    rig.program.Stores().Write("umts_im3_setup.ccz", "211002170021100217002150021300000012110021700");
    ASSERT_TRUE(ReadySweep(rig, BandUmts));
    rig.line.Add({sim::FaultKind::Slow, 400});
    ASSERT_TRUE(rig.Measure(3000000));
    const CurveState& curve = rig.S().curve;
    EXPECT_EQ(OnGrid(curve, std::span(curve.g_levelUp)).size(), 401U);
    EXPECT_EQ(OnGrid(curve, std::span(curve.g_levelDown)).size(), 401U);
}

TEST(Spectrum, CommandsOfAPassAndItsRepeats) {
    struct Branch {
        const char* firmware;
        const char* start;
    };
    static constexpr Branch Branches[] = {
        {"1.8", "#USEID3 #SAB1 #SR"},
        {"3.6", "#USEID3 #SAB1 #SR #RECUT1"},
        {"6.2", "#USEID3 #SAB3 #SR #RECUT1"},
    };
    for (const Branch& b : Branches) {
        for (const int path : {1, 2}) {
            SCOPED_TRACE(std::string(b.firmware) + " path " + std::to_string(path));
            Rig rig({.firmware = b.firmware});
            ASSERT_TRUE(rig.PowerOn());
            ASSERT_TRUE(rig.SelectBand(BandEgsm));
            EXPECT_TRUE(rig.program.Select().SelectPath(path));
            EXPECT_TRUE(rig.program.Select().SelectMethod(ModeSpectrum));
            EXPECT_EQ(rig.S().panel.m_SweepKind_text, "Endless");
            ASSERT_TRUE(rig.RunUntilIdle());
            const std::size_t from = Transfers(rig);
            rig.Sent();
            rig.program.OnMeasButton();
            ASSERT_TRUE(rig.time.RunUntil([&] { return rig.S().run.passes == 2; }, 60000));
            const auto sent = rig.Sent();
            const auto steps = Chain({EgsmUp(), Words("#SFA09250 #IMP? #SPA0 #SPB0 #MSWL0 #SFB09600")});
            EXPECT_EQ(Joined(sent), Joined(Chain({Words(b.start),
                                                  {"#SFB09600", "#SFA09250"},
                                                  steps,
                                                  {"#SFB09600", "#SFA09250", "#SR"},
                                                  steps})));
            EXPECT_TRUE(rig.S().run.runOn);
            EXPECT_EQ(rig.instrument.Settings().carrier1 + rig.instrument.Settings().carrier2, 0);
            const CurveState& curve = rig.S().curve;
            EXPECT_EQ(OnGrid(curve, std::span(curve.g_levelUp)), Overhear(rig, from, 3, false).up);
            EXPECT_TRUE(OnGrid(curve, std::span(curve.g_levelDown)).empty());
        }
    }
}

/// Spectrum is always IM3, above the carriers where the band receives there.
TEST(Spectrum, UpperProductLandsOnTheGridInAscendingOrder) {
    for (const int band : {BandDigDiv, BandLte700U}) {
        Rig rig;
        ASSERT_TRUE(rig.PowerOn());
        ASSERT_TRUE(rig.SelectBand(band));
        EXPECT_TRUE(rig.program.Select().SelectMethod(ModeSpectrum));
        ASSERT_TRUE(rig.RunUntilIdle());
        const std::size_t from = Transfers(rig);
        rig.program.OnMeasButton();
        ASSERT_TRUE(rig.time.RunUntil([&] { return rig.S().run.passes == 1; }, 60000));
        const CurveState& curve = rig.S().curve;
        const OverheardCurve heard = Overhear(rig, from, 3, true);
        EXPECT_EQ(OnGrid(curve, std::span(curve.g_levelUp)), heard.up);
        EXPECT_EQ(heard.up.size(), band == BandDigDiv ? 21U : 17U);
    }
}

} // namespace qor::test
