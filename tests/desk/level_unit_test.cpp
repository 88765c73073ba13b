#include "base/setup_store.h"
#include "curve/curve.h"
#include "desk/level_unit.h"
#include "support/rig.h"

#include <gtest/gtest.h>

namespace qor {
namespace {

/// A program with EGSM selected, a curve over its limit and level texts on its panel.
struct UnitDesk : test::Rig {
    UnitDesk() {
        Session& s = S();
        s.working.SelectBand(BandEgsm);
        s.curve.Put(3, -89.5f);
        s.curve.Update(true);
        s.curve.SearchMaxima();
        EXPECT_TRUE(s.readout.ShowLevel(-101.2f));
    }
    bool Set(bool dbc) { return Done(SetLevelUnit(dbc, S(), Store())); }
    [[nodiscard]] std::string Texts() {
        const Panel panel = PanelOf(S());
        return panel.m_WorstLevelText + ' ' + panel.m_ReadingText + ' ' + panel.m_AlarmText;
    }
};

TEST(LevelUnit, TheTextsAndTheLimitMoveByTheCarrierAndTheCurveStays) {
    UnitDesk desk;
    Curve& curve = desk.S().curve;
    desk.Store().Write("egsm_pow_setup.ccz", "0042500425");
    desk.S().working.SetPathLosses(1.5f, 0);
    ASSERT_TRUE(desk.Set(true));
    EXPECT_EQ(curve.scale.Carrier(), 41.0f) << "what reaches the device";
    EXPECT_EQ(desk.Texts(), "-130.5 -142.2 -131.0");
    EXPECT_EQ(curve.limit.Level(), -131.0f);
    EXPECT_EQ(desk.Store().Read("unit.ccz", 9), "1");
    ASSERT_TRUE(desk.Set(true)) << "a second time changes nothing";
    EXPECT_EQ(desk.Texts(), "-130.5 -142.2 -131.0");

    curve.Update(true);
    curve.SearchMaxima();
    EXPECT_EQ(curve.ShownUp(0)[3], -89.5f);
    EXPECT_EQ(curve.ShownVerdict(), Verdict::Failed);
    EXPECT_EQ(ShownWorstLevel(curve), -130.5f);

    ASSERT_TRUE(desk.Set(false));
    EXPECT_EQ(desk.Texts(), "-89.5 -101.2 -90.0");
    EXPECT_EQ(curve.limit.Level(), -90.0f);
    EXPECT_EQ(desk.Store().Read("unit.ccz", 9), "0");
}

TEST(LevelUnit, WithoutALevelNoneAppearsButTheLimitMoves) {
    UnitDesk desk;
    desk.S().curve.Clear();
    desk.S().readout.ClearLevel();
    desk.S().curve.limit.Take(0);
    ASSERT_TRUE(desk.Set(true));
    EXPECT_EQ(desk.Texts(), "  -43.0");
}

TEST(LevelUnit, DbcNeedsABandAndTwoEqualPowers) {
    struct Case {
        int band;
        const char* powers;
        const char* told; ///< empty when dBc is granted
    };
    constexpr const char* Unequal = "The power of Tone 1 and Tone 2 is not the same, can not use dBc.";
    for (const Case& c : {Case{BandNone, "", "Auswaehlen Breite"}, Case{BandEgsm, "0043000431", Unequal},
                          Case{BandEgsm, "0043100430", Unequal}, Case{BandEgsm, "00400", ""},
                          Case{BandEgsm, "0040000400", ""}, Case{BandEgsm, "", ""}}) {
        UnitDesk desk;
        desk.S().working.SelectBand(c.band);
        desk.Store().Write("egsm_pow_setup.ccz", c.powers);
        const bool granted = *c.told == '\0';
        EXPECT_EQ(desk.Set(true), granted) << c.powers;
        EXPECT_EQ(desk.S().curve.scale.InDbc(), granted) << c.powers;
        EXPECT_EQ(desk.user.messages,
                  granted ? std::vector<std::string>{} : std::vector<std::string>{c.told});
        if (!granted) {
            EXPECT_EQ(desk.Texts(), "-89.5 -101.2 -90.0");
            EXPECT_FALSE(desk.Store().Exists("unit.ccz"));
        }
    }
}

} // namespace
/// The unit kept from the last session, and a change of band: the reference is the power of the band.
TEST(LevelUnit, TheReferenceFollowsTheBand) {
    test::Rig rig;
    rig.Store().Write("unit.ccz", "1");
    rig.Store().Write("egsm_pow_setup.ccz", "0040000400");
    rig.Store().Write("dcs_pow_setup.ccz", "0038000380");
    rig.Store().Write("umts_pow_setup.ccz", "0038000390");
    rig.program.Start(true);
    ASSERT_TRUE(rig.RunUntilReady());
    ASSERT_TRUE(rig.SelectBand(BandEgsm));
    const Curve& curve = rig.S().curve;
    EXPECT_EQ(curve.scale.Carrier(), 40.0f);
    EXPECT_FLOAT_EQ(curve.limit.Level(), -130.0f) << "-90 dBm as before";
    rig.S().curve.SetLength(1000);
    ASSERT_TRUE(rig.Measure());
    EXPECT_NEAR(*ShownWorstLevel(curve), curve.MaxUp().level - 40.0f, 0.01);
    EXPECT_EQ(rig.S().run.Record().carrier, 40.0f);

    ASSERT_TRUE(rig.SelectBand(BandDcs));
    EXPECT_EQ(curve.scale.Carrier(), 38.0f);
    EXPECT_FLOAT_EQ(curve.limit.Level(), -128.0f);
    static_cast<void>(rig.Told());
    ASSERT_TRUE(rig.SelectBand(BandUmts));
    EXPECT_FALSE(curve.scale.InDbc());
    EXPECT_FLOAT_EQ(curve.limit.Level(), -90.0f);
    EXPECT_EQ(rig.Told(),
              (std::vector<std::string>{"The power of Tone 1 and Tone 2 is not the same, can not use dBc."}));
    EXPECT_EQ(rig.Stored("unit.ccz"), "0");
}

} // namespace qor
