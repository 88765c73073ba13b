#include "bands/catalogue.h"
#include "sim/models.h"

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

/// The band behind a position of the simulated instrument; `wanted` where two share a filter.
int BandBehind(int position, const std::string& model, int tenths, int wanted) {
    const sim::BandHardware* const hardware = sim::BandAt(model, {tenths}, position);
    if (!hardware)
        return BandNone;
    const bool shared = hardware->name == "AWS/PCS" && (wanted == BandAws || wanted == BandPcs);
    return shared ? wanted : BandByText(hardware->name).value_or(BandFqC010);
}

// Selected, behind the switch, and echoed: three times the same band, on every model and firmware. Where it
// is not, who commanded the band has to remember which it was.
TEST(BandSwitch, TheBandSelectedIsBehindThePositionAndInItsEcho) {
    struct Exception {
        const char* model;
        int band;
        int from, to; // firmware, tenths
        int behind;   // BandNone: nothing
    };
    const std::vector<Exception> exceptions = {
        {"RT-C010", BandLte700L, 10, 59, BandNone},  {"RT-DB22", BandLte700L, 10, 59, BandTdScdmaF},
        {"RT-DB22", BandDigDiv, 10, 49, BandEgsm},   {"RT-DB22", BandLte, 10, 49, BandAmps},
        {"RT-DB22", BandTdScdmaE, 59, 59, BandNone}, {"RT-E010", BandEgsm, 60, 199, BandDigDiv},
        {"RT-K022", BandTdScdmaF, 10, 59, BandAws},  {"RT-K022", BandUmts, 57, 59, BandTdScdmaA},
        {"RT-N026", BandWifi, 10, 59, BandTdScdmaE},
    };
    int pairs = 0;
    for (const std::string& model : Models)
        for (int tenths = 10; tenths <= 199; ++tenths)
            for (int band = 1; band <= 22; ++band) {
                const auto position = BandPosition(band, model, Stepped(tenths));
                if (!position)
                    continue;
                ++pairs;
                const auto found =
                    std::find_if(exceptions.begin(), exceptions.end(), [&](const Exception& e) {
                        return model == e.model && band == e.band && tenths >= e.from && tenths <= e.to;
                    });
                const int expected = found == exceptions.end() ? band : found->behind;
                const auto echoed = BandOfPosition(*position, model, Stepped(tenths), band == BandAws);
                SCOPED_TRACE(model + " " + std::to_string(tenths) + " " + std::string(BandText(band)));
                EXPECT_EQ(BandBehind(*position, model, tenths, band), expected);
                EXPECT_EQ(echoed ? echoed->band : BandNone, expected);
                EXPECT_EQ(echoed && echoed->forcesTwoToneIm3, expected == BandTdScdmaA && model == "RT-K022");
            }
    EXPECT_EQ(pairs, 8600);
}

} // namespace
} // namespace qor
