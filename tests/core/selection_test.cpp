#include "display/level_unit.h"
#include "support/wire_reading.h"

namespace qor::test {

namespace {

std::string Choices(Rig& rig) {
    const Session& s = rig.S();
    return std::to_string(s.select.m_BandId) + s.panel.m_Band_sel + std::to_string(s.select.m_IMIndex) +
           s.panel.m_IM_sel + std::to_string(s.run.g_TestMode) + s.panel.m_Mode_sel +
           std::to_string(s.select.m_PathMode) + s.panel.m_Path_sel;
}

} // namespace

TEST(Selection, BandOnOffAndNotCarried) {
    Rig rig;
    ASSERT_TRUE(rig.PowerOn());
    EXPECT_EQ(Joined(SentDuring(rig, [&] { EXPECT_TRUE(rig.program.Select().SelectBand(BandEgsm)); })),
              "#SAB3 #RECUT1 #SPWA00430 #SPWB00430 ");
    EXPECT_EQ(rig.S().panel.m_Band_sel, "EGSM");
    // The selected band again: off, and the instrument is not told.
    EXPECT_EQ(Joined(SentDuring(rig, [&] { EXPECT_TRUE(rig.program.Select().SelectBand(BandEgsm)); })), "");
    EXPECT_EQ(rig.S().select.m_BandId, BandNone);
    EXPECT_EQ(rig.S().panel.m_Band_sel, NoBandText);
    EXPECT_TRUE(rig.SelectBand(BandEgsm));
    const std::string before = Choices(rig);
    rig.S().curve.g_levelUp[3] = -100;
    EXPECT_EQ(Joined(SentDuring(rig, [&] { EXPECT_FALSE(rig.program.Select().SelectBand(BandWiMax)); })), "");
    EXPECT_TRUE(rig.user.WasTold("Nichts auswaehlen das breite."));
    EXPECT_EQ(Choices(rig), before);
    EXPECT_EQ(rig.S().curve.g_levelUp[3], -100.0f);
}

/// From firmware 6.0 on a band command goes ahead of what waits.
TEST(Selection, BandCommandAndTheQueue) {
    for (const char* const firmware : {"5.9", "6.0"}) {
        Rig rig({.firmware = firmware});
        ASSERT_TRUE(rig.PowerOn());
        const auto sent = SentDuring(rig, [&] {
            rig.S().link.queue.Append("#SMREF");
            EXPECT_TRUE(rig.program.Select().SelectBand(BandEgsm));
        });
        EXPECT_EQ(std::count(sent.begin(), sent.end(), "#SMREF"), firmware[0] == '5' ? 1 : 0);
    }
}

TEST(Selection, NothingChangesDuringARun) {
    Rig rig;
    ASSERT_TRUE(rig.PowerOn());
    ASSERT_TRUE(rig.SelectBand(BandEgsm));
    rig.program.OnMeasButton();
    rig.time.RunFor(1000);
    const std::string before = Choices(rig);
    Selection& select = rig.program.Select();
    for (int act = 0; act < 5; ++act) {
        rig.user.messages.clear();
        EXPECT_FALSE(act == 0   ? select.SelectBand(BandLte)
                     : act == 1 ? select.SelectBand(BandEgsm)
                     : act == 2 ? select.SelectOrder(2)
                     : act == 3 ? select.SelectMethod(ModeSweep)
                                : select.SelectPath(2));
        EXPECT_TRUE(rig.user.WasTold("\nHalten Messung erst!")) << act;
    }
    EXPECT_EQ(Choices(rig), before);
    ASSERT_TRUE(rig.RunUntilRunIsOver());
    EXPECT_EQ(rig.S().curve.StoreDataPot, 52);
}

TEST(Selection, OrderAndPathTellTheInstrument) {
    Rig rig;
    ASSERT_TRUE(rig.PowerOn());
    ASSERT_TRUE(rig.SelectBand(BandEgsm));
    const auto sent = SentDuring(rig, [&] { EXPECT_TRUE(rig.program.Select().SelectOrder(3)); });
    EXPECT_EQ(std::count(sent.begin(), sent.end(), "#USEID7"), 1);
    EXPECT_EQ(rig.S().panel.m_IM_sel, "IM7");
    EXPECT_EQ(rig.S().panel.m_f1_text + " " + rig.S().panel.m_f2_text, "939.0 950.0");
    EXPECT_EQ(Joined(SentDuring(rig, [&] { EXPECT_TRUE(rig.program.Select().SelectPath(2)); })), "#SMTRA ");
    EXPECT_EQ(Joined(SentDuring(rig, [&] { EXPECT_TRUE(rig.program.Select().SelectPath(2)); })), "");
    EXPECT_EQ(rig.program.Stores().Read("reftrans.ccz", 9), "2");
    EXPECT_EQ(Joined(SentDuring(rig, [&] { EXPECT_TRUE(rig.program.Select().SelectPath(1)); })), "#SMREF ");
    // With an external receiver the instrument's own is not tuned.
    rig.S().receiver.tagReceiver = 0;
    const auto external = SentDuring(rig, [&] { EXPECT_TRUE(rig.program.Select().SelectOrder(1)); });
    EXPECT_EQ(std::count(external.begin(), external.end(), "#USEID3"), 0);
}

TEST(Selection, ClosedPortChangesThePanelAndSendsNothing) {
    Rig rig;
    ASSERT_TRUE(rig.PowerOn());
    ASSERT_TRUE(rig.SelectBand(BandEgsm));
    rig.program.Link().OnButton1(); // reads "close"
    rig.time.RunFor(4000);
    ASSERT_FALSE(rig.comm.GetPortOpen());
    rig.Sent();
    EXPECT_FALSE(rig.program.Select().SelectOrder(2));
    EXPECT_TRUE(rig.user.WasTold("Oeffnen port erst!"));
    EXPECT_EQ(rig.S().panel.m_IM_sel, "IM5");
    EXPECT_FALSE(rig.program.Select().SelectPath(2));
    EXPECT_EQ(rig.S().select.m_PathMode, 1);
    EXPECT_TRUE(rig.program.Select().SelectMethod(ModeSweep));
    rig.time.RunFor(3000);
    EXPECT_EQ(Joined(rig.Sent()), "");
    EXPECT_FALSE(rig.comm.GetPortOpen());
}

TEST(Selection, MethodNamesItsRepetition) {
    Rig rig;
    ASSERT_TRUE(rig.PowerOn());
    ASSERT_TRUE(rig.SelectBand(BandEgsm));
    static constexpr struct {
        int mode;
        bool endless, enclosed;
        int runs;
        const char* text;
    } Cases[] = {
        {ModeSweep, false, false, 1, "Single"},      {ModeTwoTone, false, false, 5, "Single"},
        {ModeSweep, false, false, 5, "Multi-times"}, {ModeTwoTone, true, true, 1, "Endless"},
        {ModeSweep, false, true, 2, "SA Enclosed"},  {ModeSpectrum, false, false, 1, "Endless"},
        {ModeSweep, true, true, 2, "Endless"},       {ModeTwoTone, false, true, 2, "Single"},
    };
    for (const auto& c : Cases) {
        rig.S().run.tagEndless = c.endless;
        rig.S().run.g_bSaEnclosed = c.enclosed;
        rig.S().curve.g_runCount = c.runs;
        EXPECT_TRUE(rig.program.Select().SelectMethod(c.mode));
        EXPECT_EQ(rig.S().panel.m_SweepKind_text, c.text);
        EXPECT_EQ(rig.program.Stores().Read("testmode.ccz", 9), std::to_string(c.mode));
    }
}

/// The unit moves texts and limit, never a stored level or the verdict.
TEST(Unit, DbcAndBack) {
    Rig rig;
    ASSERT_TRUE(rig.PowerOn());
    ASSERT_TRUE(rig.SelectBand(BandEgsm));
    ASSERT_TRUE(rig.Measure());
    Session& s = rig.S();
    const auto levels = s.curve.g_levelUp;
    const std::string worst = s.panel.m_WorstLevelText;
    EXPECT_TRUE(SetLevelUnit(true, s, rig.program.Parts(), rig.program.Stores()));
    EXPECT_EQ(s.panel.m_AlarmText, "-133.0");
    EXPECT_FLOAT_EQ(s.curve.g_alarmLevel, -133.0f);
    EXPECT_NEAR(std::stod(s.panel.m_WorstLevelText), std::stod(worst) - 43.0, 0.01);
    EXPECT_EQ(rig.program.Stores().Read("unit.ccz", 9), "1");
    EXPECT_EQ(s.curve.g_levelUp, levels);
    EXPECT_TRUE(SetLevelUnit(false, s, rig.program.Parts(), rig.program.Stores()));
    EXPECT_EQ(s.panel.m_WorstLevelText, worst);
    EXPECT_EQ(s.panel.m_AlarmText, "-90.0");
    // Tones of different power have no common reference.
    rig.program.Stores().Write("egsm_pow_setup.ccz", "0430000429");
    EXPECT_FALSE(SetLevelUnit(true, s, rig.program.Parts(), rig.program.Stores()));
    EXPECT_TRUE(rig.user.WasTold("The power of Tone 1 and Tone 2 is not the same, can not use dBc."));
    s.select.m_BandId = BandNone;
    EXPECT_FALSE(SetLevelUnit(true, s, rig.program.Parts(), rig.program.Stores()));
    EXPECT_TRUE(rig.user.WasTold("Auswaehlen Breite"));
    EXPECT_EQ(s.curve.g_UnitDbc, 0);
}

} // namespace qor::test
