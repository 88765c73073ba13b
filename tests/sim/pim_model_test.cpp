#include "sim/instrument.h"
#include "sim/pim_model.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace qor::sim {
namespace {

constexpr BandHardware Egsm{"EGSM", 925, 960, false};

Excitation TwoTones(double f1, double f2, double dbm = 43) {
    Excitation at;
    at.tone1 = {f1, dbm, true};
    at.tone2 = {f2, dbm, true};
    at.band = &Egsm;
    return at;
}

TEST(PimModel, EachOrderIsWeakerAndSteeperThanTheOneBefore) {
    const PimModel model(1);
    double levelBefore = 0;
    double slopeBefore = 0;
    for (const int order : {3, 5, 7, 9, 11}) {
        Excitation at = TwoTones(935, 960);
        at.transmission = true; // no ripple
        at.order = order;
        const double level = model.ProductDbm(at);
        at.tone1.dbm += 1;
        const double slope1 = model.ProductDbm(at) - level;
        at.tone2.dbm += 1;
        const double slope = model.ProductDbm(at) - level;
        EXPECT_LT(level, levelBefore - 4) << order;
        EXPECT_GT(slope, slopeBefore + 0.5) << order;
        EXPECT_LT(slope, order) << order;
        EXPECT_NEAR(slope1 / slope, (order + 1) / 2.0 / order, 1e-9) << order;
        levelBefore = level;
        slopeBefore = slope;
    }
}

TEST(PimModel, AnOrdinaryMeasurementPassesWhateverTheSeed) {
    for (std::uint64_t seed = 0; seed < 300; ++seed) {
        PimModel model(seed);
        for (int f1 = 925; f1 <= 937; ++f1) {
            model.Advance(20, true);
            const double level = model.Read(TwoTones(f1, 960));
            EXPECT_GT(level, -110.5) << seed;
            EXPECT_LT(level, -99.5) << seed;
        }
    }
}

TEST(PimModel, TwoSourcesRippleInReflectionOnly) {
    const PimModel model(7);
    const auto spread = [&](bool transmission) {
        double lowest = 0;
        double highest = -300;
        for (int halfMhz = 1850; halfMhz <= 1882; ++halfMhz) {
            Excitation at = TwoTones(halfMhz / 2.0, 960);
            at.transmission = transmission;
            lowest = std::min(lowest, model.ProductDbm(at));
            highest = std::max(highest, model.ProductDbm(at));
        }
        return highest - lowest;
    };
    EXPECT_GT(spread(false), 5);
    EXPECT_LT(spread(true), 1e-9);
}

TEST(PimModel, OnlyTwoCarriersInsideTheBandMakeAProduct) {
    PimModel model(3);
    Excitation one = TwoTones(935, 960);
    one.tone2.on = false;
    Excitation outside = TwoTones(1805, 1880);
    Excitation nowhere = TwoTones(935, 960);
    nowhere.band = nullptr;
    for (const Excitation& at : {one, outside, nowhere})
        EXPECT_NEAR(model.Read(at), -140, 3.5);
}

TEST(PimModel, UpperBandsTakeTheProductAboveTheCarriers) {
    constexpr BandHardware DigDiv{"DIG-DIV", 790, 822, true};
    Excitation at = TwoTones(792, 822);
    EXPECT_DOUBLE_EQ(PimModel::ProductMhz(at), 762);
    at.band = &DigDiv;
    EXPECT_DOUBLE_EQ(PimModel::ProductMhz(at), 852);
    at.order = 5;
    EXPECT_DOUBLE_EQ(PimModel::ProductMhz(at), 3 * 822 - 2 * 792);
}

TEST(PimModel, WarmsUpWhileTheCarriersAreOnAndCoolsDownAgain) {
    PimModel model(1);
    const Excitation at = TwoTones(935, 960);
    const double cold = model.ProductDbm(at);
    model.Advance(60, true);
    const double warm = model.ProductDbm(at);
    EXPECT_GT(warm, cold + 0.5);
    EXPECT_LT(warm, cold + 2);
    model.Advance(600, false);
    EXPECT_NEAR(model.ProductDbm(at), cold, 0.01);
}

TEST(PimModel, ALooseContactJumpsOverTheLimitAndRestsBetween) {
    for (std::uint64_t seed = 0; seed < 50; ++seed) {
        PimModel model(seed);
        model.SetLooseContact(true);
        int over = 0;
        int rest = 0;
        for (int i = 0; i < 50; ++i) {
            const double level = model.Read(TwoTones(935, 960));
            over += level > -90;
            rest += level < -99;
        }
        EXPECT_GT(over, 0) << seed;
        EXPECT_GT(rest, 5) << seed;
    }
}

TEST(PimModel, ASeedRepeatsExactlyAndAnotherDiffers) {
    const auto readings = [](std::uint64_t seed) {
        InstrumentConfig config;
        config.seed = seed;
        config.position = 3;
        Instrument instrument(config);
        std::string all;
        std::int64_t time = 0;
        for (const char* command : {"#SFA09350", "#SFB09600", "#M2T1"})
            (void)instrument.Execute(command);
        for (int i = 0; i < 40; ++i) {
            instrument.SetTime(time += 100'000);
            all += instrument.Execute("#IMP?");
        }
        return all;
    };
    EXPECT_EQ(readings(5), readings(5));
    EXPECT_NE(readings(5), readings(6));
}

} // namespace
} // namespace qor::sim
