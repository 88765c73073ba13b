#include "bands/catalogue.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace qor {
namespace {

const std::vector<std::string> Models = {"RT-C010", "RT-E010", "RT-DB22", "RT-DA10", "RT-K022", "RT-L027",
                                         "RT-T000", "RT-S036", "RT-P000", "RT-M027", "RT-N026"};

/// Firmware as the banner search yields it.
float Stepped(int tenths) {
    float version = 1.0f;
    for (int t = 10; t < tenths; ++t)
        version += 0.1f;
    return version;
}

TEST(BandSwitch, TheThresholdsOfSelecting) {
    EXPECT_EQ(BandPosition(BandUmts, "RT-K022", 4.99f), 2);
    EXPECT_EQ(BandPosition(BandUmts, "RT-K022", 5.98f), 3);
    EXPECT_EQ(BandPosition(BandUmts, "RT-K022", 5.99f), 2);
    EXPECT_EQ(BandPosition(BandEgsm, "RT-DA10", 5.6f), 3);
    EXPECT_EQ(BandPosition(BandEgsm, "RT-DA10", Stepped(56)), 3);
    EXPECT_EQ(BandPosition(BandEgsm, "RT-DA10", 5.61f), 1);
    EXPECT_EQ(BandPosition(BandTdScdmaE, "RT-N026", 5.98f), std::nullopt);
    EXPECT_EQ(BandPosition(BandTdScdmaE, "RT-N026", 5.99f), 2);
    EXPECT_EQ(BandPosition(BandAws, "RT-DB22", 5.98f), std::nullopt);
    EXPECT_EQ(BandPosition(BandAws, "RT-DB22", Stepped(60)), 5);
    EXPECT_EQ(BandPosition(BandDigDiv, "RT-E010", Stepped(49)), 3);
    EXPECT_EQ(BandPosition(BandDigDiv, "RT-E010", Stepped(50)), 1);
    EXPECT_EQ(BandPosition(BandAmps, "RT-DB22", 2.0f + 10.0f), 2)
        << "an \"ev\" banner is the newest firmware";
}

TEST(BandSwitch, OnlyTheModelsOfABandAreAccepted) {
    for (const std::string& model : Models) {
        EXPECT_EQ(BandPosition(BandTetra390, model, 6.2f).has_value(), model == "RT-C010") << model;
        EXPECT_EQ(BandPosition(BandWifi, model, 6.2f).has_value(), model == "RT-N026") << model;
        for (const int band : {0, -1, BandNone + 0, BandTetra422 + 0, BandTetra462 + 0, BandFqC010 + 0})
            EXPECT_FALSE(BandPosition(band, model, 6.2f).has_value()) << model << band;
    }
    for (const char* model : {"RT-TETRA", "", "RT-", "RT-C010X", "C010", "rt-c010"}) {
        EXPECT_FALSE(BandPosition(BandAmps, model, 6.2f).has_value()) << model;
        EXPECT_FALSE(BandOfPosition(0, model, 6.2f, true).has_value()) << model;
    }
}

TEST(BandSwitch, TheMeaningOfAnEcho) {
    const auto band = [](int position, const char* model, int tenths, bool aws = true) {
        const auto meaning = BandOfPosition(position, model, Stepped(tenths), aws);
        return meaning ? meaning->band : -1;
    };
    EXPECT_EQ(band(10, "RT-DB22", 62), BandTdScdmaF);
    EXPECT_EQ(band(8, "RT-DB22", 59), BandTdScdmaF);
    EXPECT_EQ(band(8, "RT-DB22", 60), BandLte700L);
    EXPECT_EQ(band(11, "RT-DB22", 58), BandTdScdmaE);
    EXPECT_EQ(band(11, "RT-DB22", 59), -1);
    EXPECT_EQ(band(8, "RT-C010", 59), -1);
    EXPECT_EQ(band(5, "RT-DB22", 62, true), BandAws);
    EXPECT_EQ(band(5, "RT-DB22", 62, false), BandPcs);
    EXPECT_EQ(band(4, "RT-K022", 59, false), BandAws);
    EXPECT_EQ(band(0, "RT-DA10", 56), BandLte);
    EXPECT_EQ(band(0, "RT-DA10", 57), BandAmps);
    EXPECT_EQ(band(10, "RT-C010", 62), BandFqC010);
    EXPECT_EQ(band(12, "RT-DB22", 62), -1);
    EXPECT_EQ(band(-1, "RT-DB22", 62), -1);

    EXPECT_TRUE(BandOfPosition(2, "RT-K022", Stepped(50), true)->forcesTwoToneIm3);
    EXPECT_TRUE(BandOfPosition(3, "RT-K022", Stepped(57), true)->forcesTwoToneIm3);
    EXPECT_FALSE(BandOfPosition(6, "RT-DB22", Stepped(57), true)->forcesTwoToneIm3);
}

// What was selected and what its echo is taken for. The firmwares kept below have both, each in its own way:
// who commanded the band has to remember which it was.
TEST(BandSwitch, AnEchoNamesTheBandThatWasSelected) {
    struct Exception {
        const char* model;
        int band;
        int from, to; // firmware, tenths
        int echoed;   // -1: no meaning
    };
    const std::vector<Exception> exceptions = {
        {"RT-C010", BandLte700L, 10, 59, -1},        {"RT-DB22", BandLte700L, 10, 59, BandTdScdmaF},
        {"RT-DB22", BandDigDiv, 10, 49, BandEgsm},   {"RT-DB22", BandLte, 10, 49, BandAmps},
        {"RT-DB22", BandTdScdmaE, 59, 59, -1},       {"RT-E010", BandEgsm, 60, 199, BandDigDiv},
        {"RT-K022", BandTdScdmaF, 10, 59, BandAws},  {"RT-K022", BandUmts, 57, 59, BandTdScdmaA},
        {"RT-N026", BandWifi, 10, 59, BandTdScdmaE},
    };
    for (const std::string& model : Models)
        for (int tenths = 10; tenths <= 199; ++tenths)
            for (int band = 1; band <= 22; ++band) {
                const auto position = BandPosition(band, model, Stepped(tenths));
                if (!position)
                    continue;
                ASSERT_TRUE(*position >= 0 && *position <= 11);
                const auto found =
                    std::find_if(exceptions.begin(), exceptions.end(), [&](const Exception& e) {
                        return model == e.model && band == e.band && tenths >= e.from && tenths <= e.to;
                    });
                const auto meaning = BandOfPosition(*position, model, Stepped(tenths), band == BandAws);
                EXPECT_EQ(meaning ? meaning->band : -1, found == exceptions.end() ? band : found->echoed)
                    << model << " " << tenths << " " << BandText(band);
            }
}

} // namespace
} // namespace qor
