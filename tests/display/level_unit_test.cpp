#include "bands/setup_store.h"
#include "display/curve_store.h"
#include "display/level_unit.h"
#include "support/rig.h"

#include <gtest/gtest.h>

namespace qor {
namespace {

/// A program with EGSM selected, a curve over its limit and level texts on its panel.
struct UnitDesk : test::Rig {
    UnitDesk() {
        Session& s = S();
        s.select.m_BandId = BandEgsm;
        s.curve.g_levelUp[3] = -89.5f;
        s.panel.m_WorstLevelText = "-89.5";
        s.panel.m_ReadingText = "-101.2";
    }
    bool Set(bool dbc) {
        return SetLevelUnit(dbc, S(), {comm, ports, time.timers, time.clock, user}, store());
    }
    SetupStore& store() { return program.Stores(); }
    [[nodiscard]] std::string Texts() {
        const Panel& panel = S().panel;
        return panel.m_WorstLevelText + ' ' + panel.m_ReadingText + ' ' + panel.m_AlarmText;
    }
};

TEST(LevelUnit, TheTextsAndTheLimitMoveByTheCarrierAndTheCurveStays) {
    UnitDesk desk;
    CurveState& curve = desk.S().curve;
    desk.store().Write("egsm_pow_setup.ccz", "0042500425");
    desk.S().plan.g_powerOffset = 1.5f;
    ASSERT_TRUE(desk.Set(true));
    EXPECT_EQ(curve.g_CarrierDbm, 41.0f) << "what reaches the device";
    EXPECT_EQ(desk.Texts(), "-130.5 -142.2 -131.0");
    EXPECT_EQ(curve.g_alarmLevel, -131.0f);
    EXPECT_EQ(desk.store().Read("unit.ccz", 9), "1");
    ASSERT_TRUE(desk.Set(true)) << "a second time changes nothing";
    EXPECT_EQ(desk.Texts(), "-130.5 -142.2 -131.0");

    UpdateCurveArrays(curve, true);
    SearchMaxima(curve);
    EXPECT_EQ(curve.m_LevelUp.Row(0)[3], -89.5f);
    EXPECT_EQ(curve.g_MeasVerdict, VerdictOverLimit);
    EXPECT_EQ(curve.g_worstLevel, -130.5f);

    ASSERT_TRUE(desk.Set(false));
    EXPECT_EQ(desk.Texts(), "-89.5 -101.2 -90.0");
    EXPECT_EQ(curve.g_alarmLevel, -90.0f);
    EXPECT_EQ(desk.store().Read("unit.ccz", 9), "0");
}

TEST(LevelUnit, ATextWithoutALevelStaysButTheLimitAlwaysMoves) {
    UnitDesk desk;
    desk.S().panel.m_WorstLevelText = "";
    desk.S().panel.m_ReadingText = "-0.1";
    desk.S().panel.m_AlarmText = "0.0";
    ASSERT_TRUE(desk.Set(true));
    EXPECT_EQ(desk.Texts(), " -0.1 -43.0");
}

TEST(LevelUnit, DbcNeedsABandAndTwoEqualPowers) {
    struct Case {
        int band;
        const char* powers;
        const char* told; ///< empty when dBc is granted
    };
    constexpr const char* Unequal = "The power of Tone 1 and Tone 2 is not the same, can not use dBc.";
    for (const Case& c : {Case{BandNone, "", "Auswaehlen Breite"}, Case{BandEgsm, "0043000431", Unequal},
                          Case{BandEgsm, "0043100430", Unequal}, Case{BandEgsm, "00400", Unequal},
                          Case{BandEgsm, "0040000400", ""}, Case{BandEgsm, "", ""}}) {
        UnitDesk desk;
        desk.S().select.m_BandId = c.band;
        desk.store().Write("egsm_pow_setup.ccz", c.powers);
        const bool granted = *c.told == '\0';
        EXPECT_EQ(desk.Set(true), granted) << c.powers;
        EXPECT_EQ(desk.S().curve.g_UnitDbc, granted) << c.powers;
        EXPECT_EQ(desk.user.messages,
                  granted ? std::vector<std::string>{} : std::vector<std::string>{c.told});
        if (!granted) {
            EXPECT_EQ(desk.Texts(), "-89.5 -101.2 -90.0");
            EXPECT_FALSE(desk.store().Exists("unit.ccz"));
        }
    }
}

} // namespace
} // namespace qor
