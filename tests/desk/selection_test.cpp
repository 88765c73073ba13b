#include "desk/level_unit.h"
#include "support/wire_reading.h"

namespace qor::test {

namespace {

std::string Choices(Rig& rig) {
    const Session& s = rig.S();
    return std::to_string(s.working.Band()) + PanelOf(s).m_Band_sel + std::to_string(s.working.ImIndex()) +
           PanelOf(s).m_IM_sel + std::to_string(s.working.Method()) + PanelOf(s).m_Mode_sel +
           std::to_string(s.working.Path()) + PanelOf(s).m_Path_sel;
}

} // namespace

TEST(Selection, BandOnOffAndNotCarried) {
    Rig rig;
    ASSERT_TRUE(rig.PowerOn());
    EXPECT_EQ(
        Joined(SentDuring(rig, [&] { EXPECT_TRUE(rig.Done(rig.program.Select().SelectBand(BandEgsm))); })),
        "#SAB3 #RECUT1 #SPWA00430 #SPWB00430 ");
    EXPECT_EQ(PanelOf(rig.S()).m_Band_sel, "EGSM");
    // The selected band again: off, and the instrument is not told.
    EXPECT_EQ(
        Joined(SentDuring(rig, [&] { EXPECT_TRUE(rig.Done(rig.program.Select().SelectBand(BandEgsm))); })),
        "");
    EXPECT_EQ(rig.S().working.Band(), BandNone);
    EXPECT_EQ(PanelOf(rig.S()).m_Band_sel, NoBandText);
    EXPECT_TRUE(rig.SelectBand(BandEgsm));
    const std::string before = Choices(rig);
    rig.S().curve.Put(3, -100);
    EXPECT_EQ(
        Joined(SentDuring(rig, [&] { EXPECT_FALSE(rig.Done(rig.program.Select().SelectBand(BandWiMax))); })),
        "");
    EXPECT_TRUE(rig.user.WasTold("Nichts auswaehlen das breite."));
    EXPECT_EQ(Choices(rig), before);
    EXPECT_EQ(rig.S().curve.Up()[3], -100.0f);
}

/// From firmware 6.0 on a band command goes ahead of what waits.
TEST(Selection, BandCommandAndTheQueue) {
    for (const char* const firmware : {"5.9", "6.0"}) {
        Rig rig({.firmware = firmware});
        ASSERT_TRUE(rig.PowerOn());
        const auto sent = SentDuring(rig, [&] {
            rig.S().link.queue.Append("#SMREF");
            EXPECT_TRUE(rig.Done(rig.program.Select().SelectBand(BandEgsm)));
        });
        EXPECT_EQ(std::count(sent.begin(), sent.end(), "#SMREF"), firmware[0] == '5' ? 1 : 0);
    }
}

TEST(Selection, OrderAndPathTellTheInstrument) {
    Rig rig;
    ASSERT_TRUE(rig.PowerOn());
    ASSERT_TRUE(rig.SelectBand(BandEgsm));
    for (const int imIndex : {1, 2, 4, 5, 3}) {
        const auto sent =
            SentDuring(rig, [&] { EXPECT_TRUE(rig.Done(rig.program.Select().SelectOrder(imIndex))); });
        EXPECT_EQ(std::count(sent.begin(), sent.end(), "#USEID" + std::to_string(2 * imIndex + 1)), 1);
    }
    EXPECT_EQ(PanelOf(rig.S()).m_IM_sel, "IM7");
    EXPECT_EQ(PanelOf(rig.S()).m_f1_text + " " + PanelOf(rig.S()).m_f2_text, "939.0 950.0");
    EXPECT_EQ(Joined(SentDuring(rig, [&] { EXPECT_TRUE(rig.Done(rig.program.Select().SelectPath(2))); })),
              "#SMTRA ");
    EXPECT_EQ(Joined(SentDuring(rig, [&] { EXPECT_TRUE(rig.Done(rig.program.Select().SelectPath(2))); })),
              "");
    EXPECT_EQ(rig.program.Stores().Read("reftrans.ccz", 9), "2");
    EXPECT_EQ(Joined(SentDuring(rig, [&] { EXPECT_TRUE(rig.Done(rig.program.Select().SelectPath(1))); })),
              "#SMREF ");
    // With an external receiver the instrument's own is not tuned.
    rig.S().receiver.UseExternal();
    const auto external =
        SentDuring(rig, [&] { EXPECT_TRUE(rig.Done(rig.program.Select().SelectOrder(1))); });
    EXPECT_EQ(std::count(external.begin(), external.end(), "#USEID3"), 0);
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
        rig.S().runs.SetContinuous(c.endless);
        rig.S().runs.SetSaEnclosed(c.enclosed);
        rig.S().curve.SetRuns(c.runs);
        EXPECT_TRUE(rig.Done(rig.program.Select().SelectMethod(c.mode)));
        EXPECT_EQ(PanelOf(rig.S()).m_SweepKind_text, c.text);
        EXPECT_EQ(rig.program.Stores().Read("testmode.ccz", 9), std::to_string(c.mode));
    }
}

} // namespace qor::test
