#include "bands/catalogue.h"
#include "bands/plan_check.h"

#include <gtest/gtest.h>
#include <limits>
#include <map>

namespace qor {
namespace {

using Plan = FrequencyPlan;

constexpr int AllBands[] = {1, 2, 3, 4, 5, 6, 7, 9, 10, 11, 12, 13, 15, 16, 17, 20, 21};

Plan Default(int band, int imIndex, int bridge = 0) {
    return DefaultPlan(band, imIndex, bridge).value_or(Plan{});
}

Plan With(Plan plan, PlanValue value, float mhz) {
    plan.*value = mhz;
    return plan;
}

/// The faults of a verdict in one line.
std::string FaultsIn(const PlanVerdict& verdict) {
    std::string faults = verdict.text.substr(0, verdict.text.find("----"));
    for (std::size_t at = 0; (at = faults.find(" falsch!!!\r\n")) != std::string::npos;)
        faults.replace(at, 12, ";");
    const auto fimFault = [&](std::string_view head) {
        std::string_view line = std::string_view(verdict.text).substr(verdict.text.find(head));
        line = line.substr(std::min(line.find("\r\n"), line.size()));
        return line.starts_with("\r\nfalsch!!!\r\n");
    };
    faults += fimFault("<<Oben") ? "rising;" : "";
    faults += fimFault("<Unter") ? "falling;" : "";
    faults += fimFault("<<<2-Ton") ? "2-tone;" : "";
    EXPECT_EQ(verdict.fits, faults.empty());
    EXPECT_EQ(verdict.wrong.empty(), faults.empty());
    return faults;
}

TEST(PlanCheck, TheBuiltInPlansFitButForFourWithABridgeAtIm11) {
    const std::map<std::pair<int, int>, std::string> faulty = {
        {{BandAmps, 1}, "rising;"},
        {{BandDcs, 1}, "rising;"},
        {{BandUmts, 1}, "Anfang/Ende f2;rising;falling;"},
        {{BandPcs, 1}, "Anfang/Ende f2;rising;falling;"},
    };
    int plans = 0;
    for (const int band : AllBands)
        for (int imIndex = 1; imIndex <= 5; ++imIndex)
            for (const int bridge : {0, 1}) {
                const auto plan = DefaultPlan(band, imIndex, bridge);
                if (!plan)
                    continue;
                ++plans;
                const auto fault = imIndex == 5 ? faulty.find({band, bridge}) : faulty.end();
                const std::string expected = fault != faulty.end() ? fault->second : "";
                EXPECT_EQ(FaultsIn(CheckPlan(*plan, band, imIndex)), expected) << band << ' ' << imIndex;
                for (const bool forDefault : {false, true})
                    EXPECT_EQ(SaveTest(*plan, band, imIndex, forDefault), expected.empty())
                        << band << ' ' << imIndex << ' ' << forDefault;
                // Without a bridge the tones keep to their sub-bands, but not at IM11 where these are apart.
                const bool apart =
                    imIndex == 5 && (band == BandAmps || (band != BandLte && band <= BandWiMax));
                EXPECT_EQ(bridge == 1 || SubBandTest(*plan, band, imIndex, false), bridge == 1 || !apart)
                    << band << ' ' << imIndex;
            }
    EXPECT_EQ(plans, 2 * (17 * 5 - 2));
}

TEST(PlanCheck, TheTextNamesFaultsAndFrequencies) {
    EXPECT_EQ(CheckPlan(Default(BandAmps, 1), BandAmps, 1).text,
              "-------------fIM-------------\r\n<<Oben Scannen>> 844.0 - 848.0\r\n"
              "<Unter Scannen> 844.0 - 849.0\r\n<<<2-Ton>>> 844.0");
    const PlanVerdict wrong = CheckPlan(Plan{868, 895, 880, 870, 0, 888, 895, 900, 0.05f}, BandAmps, 1);
    EXPECT_EQ(wrong.text,
              "Fix f1 falsch!!!\r\nFix f2 falsch!!!\r\nAnfang/Ende f1 falsch!!!\r\n"
              "Anfang/Ende f2 falsch!!!\r\nScannen Fix f1 falsch!!!\r\nScannen Fix f2 falsch!!!\r\n"
              "Schritt falsch!!!\r\n-------------fIM-------------\r\n"
              "<<Oben Scannen>> 1760.0 - 1740.0\r\nfalsch!!!\r\n"
              "<Unter Scannen> 912.0 - 905.0\r\nfalsch!!!\r\n<<<2-Ton>>> 841.0");
    EXPECT_FALSE(wrong.fits);
}

TEST(PlanCheck, TheProductLiesBelowOrAboveTheCarriers) {
    struct Case {
        int band, imIndex;
        Plan plan;
        float twoTone, risingFrom, risingTo, fallingFrom, fallingTo;
    };
    for (const Case& c : {Case{BandDigDiv, 1, Default(BandDigDiv, 1), 851, 832, 851, 833, 851},
                          Case{BandLte700U, 2, Default(BandLte700U, 2), 797, 776, 798, 776, 797},
                          Case{BandLte700L, 3, Default(BandLte700L, 3), 700, 700, 716, 698, 716},
                          Case{BandAmps, 5, Default(BandAmps, 5), 840, 828, 846, 824, 849}}) {
        const FimFrequencies fim = FimRange(c.plan, c.band, c.imIndex);
        EXPECT_EQ(fim.twoTone, c.twoTone) << c.band;
        EXPECT_EQ(fim.rising.from, c.risingFrom) << c.band;
        EXPECT_EQ(fim.rising.to, c.risingTo) << c.band;
        EXPECT_EQ(fim.falling.from, c.fallingFrom) << c.band;
        EXPECT_EQ(fim.falling.to, c.fallingTo) << c.band;
    }
    // The rising sweep is judged under its own line where the product lies above.
    EXPECT_EQ(FaultsIn(CheckPlan(With(Default(BandDigDiv, 1), &Plan::f1Stop, 815), BandDigDiv, 1)),
              "rising;");
}

/// One value of a default plan changed: what the live check says, and whether it may be saved.
struct Change {
    int band, imIndex;
    PlanValue value;
    double mhz;
    const char* live;
    bool save, saveDefault;
};

TEST(PlanCheck, BoundsAreValidAndSavingHasItsOwn) {
    for (const Change& c : {
             Change{BandAmps, 1, &Plan::step, 0.1, "", true, true},
             Change{BandAmps, 1, &Plan::step, 0.05, "Schritt;", false, false},
             Change{BandAmps, 1, &Plan::step, 5, "", true, true}, // of f2, the longer sweep
             Change{BandAmps, 1, &Plan::step, 5.1, "Schritt;", false, false},
             Change{BandAmps, 1, &Plan::f1Stop, 869, "", true, true},
             Change{BandAmps, 1, &Plan::f1Stop, 868.9, "Anfang/Ende f1;", false, false},
             Change{BandAmps, 1, &Plan::f1, 871.5, "", true, true},
             Change{BandAmps, 1, &Plan::f1, 871.6, "2-tone;", false, false},
             Change{BandDigDiv, 1, &Plan::f1, 790, "", false, false},
             Change{BandUmts2, 1, &Plan::f2Start, 2695, "", false, false},
             Change{BandUmts2, 1, &Plan::f2Start, 2695.1, "Anfang/Ende f2;", false, false},
             Change{BandUmts2, 2, &Plan::f2Start, 2695, "falling;", false, false},
             Change{BandUmts2, 2, &Plan::f2Start, 2691, "falling;", false, false},
             Change{BandUmts2, 2, &Plan::f2, 2658, "", false, true},
             Change{BandUmts2, 2, &Plan::f2, 2657, "", true, true},
             Change{BandUmts2, 1, &Plan::f2, 2690, "", true, true},
             Change{BandAws, 1, &Plan::f2, 1946, "", true, true}, // the product may be at 1920
             Change{BandTetra390, 1, &Plan::f1, 380, "", false, false},
             Change{BandTetra390, 1, &Plan::step, 9, "Schritt;", false, false},
             Change{BandTetra390, 4, &Plan::f2Fix, 394.4, "", false, false},
             Change{BandTetra392, 1, &Plan::f1Stop, 394.1, "", false, false},
             Change{BandTetra392, 1, &Plan::f2Stop, 395.9, "", false, false},
             Change{BandTetra392, 3, &Plan::f2Start, 396.1, "", false, false},
         }) {
        const Plan plan = With(Default(c.band, c.imIndex), c.value, static_cast<float>(c.mhz));
        const auto what = testing::Message() << c.band << " IM" << 2 * c.imIndex + 1 << ' ' << c.mhz;
        EXPECT_EQ(FaultsIn(CheckPlan(plan, c.band, c.imIndex)), c.live) << what;
        EXPECT_EQ(SaveTest(plan, c.band, c.imIndex, false), c.save) << what;
        EXPECT_EQ(SaveTest(plan, c.band, c.imIndex, true), c.saveDefault) << what;
    }
    // Steps and products are those of the decimals entered, not of the floats beside them.
    const Plan narrow{869.4f, 889.8f, 869.2f, 869.3f, 889.6f, 890, 890, 869, 0.1f};
    EXPECT_EQ(FaultsIn(CheckPlan(narrow, BandAmps, 1)), "");
    EXPECT_TRUE(SaveTest(narrow, BandAmps, 1, false));
    Plan flat = Default(BandAmps, 1);
    flat.f1Stop = flat.f1Start;
    flat.f2Stop = flat.f2Start;
    EXPECT_EQ(FaultsIn(CheckPlan(flat, BandAmps, 1)), "Schritt;") << "no step fits into no sweep";
}

TEST(PlanCheck, OnlyUmts2AtIm11MayStartBeyondItsBandWhenStored) {
    Plan plan = Default(BandUmts2, 5);
    plan.f1Fix = 2665;
    plan.f2Start = 2695;
    plan.f2Stop = 2682;
    EXPECT_TRUE(SaveTest(plan, BandUmts2, 5, false));
    EXPECT_FALSE(SaveTest(plan, BandUmts2, 5, true));
    EXPECT_EQ(FaultsIn(CheckPlan(plan, BandUmts2, 5)), "Anfang/Ende f2;");
}

TEST(PlanCheck, WhatIsNoNumberAndWhatHasNoPlansNeverPasses) {
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const float infinity = std::numeric_limits<float>::infinity();
    for (const PlanValue value : PlanStoreOrder)
        for (const float wrong : {nan, infinity, -infinity}) {
            const Plan plan = With(Default(BandAmps, 1), value, wrong);
            EXPECT_FALSE(CheckPlan(plan, BandAmps, 1).fits);
            EXPECT_FALSE(SaveTest(plan, BandAmps, 1, false));
            EXPECT_FALSE(SubBandTest(plan, BandAmps, 1, false) && value != &Plan::step);
        }
    for (const int band :
         std::initializer_list<int>{BandTdScdmaA, BandNone, BandTetra422, BandTetra462, 0, 99})
        EXPECT_FALSE(SaveTest(Default(BandAmps, 1), band, 1, false)) << band;
    EXPECT_FALSE(SaveTest(Plan{}, BandTetra390, 5, false));
}

TEST(PlanCheck, SubBandsOfAnInstrumentWithoutABridge) {
    const Plan amps = Default(BandAmps, 1);
    EXPECT_FALSE(SubBandTest(With(amps, &Plan::f1, 880.1f), BandAmps, 1, false));
    EXPECT_FALSE(SubBandTest(With(amps, &Plan::f2Stop, 884.9f), BandAmps, 1, false));
    EXPECT_TRUE(SubBandTest(With(amps, &Plan::f2Stop, 885), BandAmps, 1, false));
    const Plan wide = With(Default(BandUmts2, 1), &Plan::f2Start, 2695);
    for (int imIndex = 1; imIndex <= 5; ++imIndex) {
        EXPECT_TRUE(SubBandTest(wide, BandUmts2, imIndex, false));
        EXPECT_EQ(SubBandTest(wide, BandUmts2, imIndex, true), imIndex != 1 && imIndex != 3);
    }
    const Plan digDiv = With(Default(BandDigDiv, 2), &Plan::f1, 790);
    EXPECT_TRUE(SubBandTest(digDiv, BandDigDiv, 2, false));
    EXPECT_FALSE(SubBandTest(digDiv, BandDigDiv, 1, false));
    EXPECT_TRUE(SubBandTest(Plan{}, BandTetra390, 1, false)) << "has none";
}

} // namespace
} // namespace qor
