#include "bands/catalogue.h"

#include <gtest/gtest.h>
#include <set>
#include <sstream>

namespace qor {
namespace {

template <class Check> void ForAllPlans(Check check) {
    for (int band = 0; band <= 23; ++band)
        for (int imIndex = 1; imIndex <= 5; ++imIndex)
            for (int bridge = 0; bridge <= 1; ++bridge)
                check(band, imIndex, bridge);
}

TEST(Catalogue, NamesAreUniqueAndFindTheirBand) {
    std::set<std::string_view> prefixes;
    int bands = 0;
    for (int number = -1; number <= 30; ++number) {
        const BandInfo* const band = FindBand(number);
        if (!band)
            continue;
        ++bands;
        EXPECT_EQ(band->number, number);
        EXPECT_TRUE(prefixes.insert(band->prefix).second) << band->prefix;
        EXPECT_EQ(BandText(number), band->bandText);
        EXPECT_EQ(BandByText(band->bandText), number);
    }
    EXPECT_EQ(bands, 20);
    EXPECT_EQ(BandByText("lte700u"), BandLte700U);
    EXPECT_EQ(BandByText("TD-scdma-f"), BandTdScdmaF);
    EXPECT_FALSE(BandByText("EGSM 900").has_value());
    EXPECT_FALSE(BandByText("").has_value());
    EXPECT_EQ(BandText(BandNone), NoBandText);
    EXPECT_EQ(BandText(BandFqC010), "FQ-C010");
}

TEST(Catalogue, EachLossFieldBelongsToOneBand) {
    std::set<int> fields;
    for (int number = 1; number <= 22; ++number)
        if (const BandInfo* const band = FindBand(number); band && band->lossField >= 0) {
            EXPECT_TRUE(fields.insert(band->lossField).second) << band->bandText;
        }
    EXPECT_EQ(fields.size(), 13U);
    EXPECT_EQ(*fields.rbegin(), 12);
    EXPECT_EQ(FindBand(BandTdScdmaA)->lossField, 6);
    EXPECT_EQ(FindBand(BandTdScdmaF)->lossField, 11);
}

// A wrong digit anywhere in the plans, limits and sub-bands changes their sum: whoever changes one on purpose
// has read the whole table once more, and puts the new sum here.
TEST(Catalogue, NoDigitOfThePlansAndLimitsChangesUnseen) {
    std::ostringstream text;
    const auto write = [&text](const std::optional<FrequencyPlan>& p) {
        if (p)
            text << p->f1 << ' ' << p->f2 << ' ' << p->f1Start << ' ' << p->f1Stop << ' ' << p->f2Fix << ' '
                 << p->f2Start << ' ' << p->f2Stop << ' ' << p->f1Fix << ' ' << p->step;
        text << ';';
    };
    ForAllPlans([&](int band, int imIndex, int bridge) {
        write(DefaultPlan(band, imIndex, bridge));
        write(StartPlan(band, imIndex, bridge));
        write(ActivationPlan(band, imIndex, bridge));
    });
    for (int band = 0; band <= 23; ++band) {
        for (int bridge = 0; bridge <= 1; ++bridge)
            if (const auto l = LimitsOf(band, bridge))
                text << l->f1From << ' ' << l->f1To << ' ' << l->f2From << ' ' << l->f2To << ' ' << l->txLow
                     << ' ' << l->txHigh << ' ' << l->rxLow << ' ' << l->rxHigh << ';';
        for (int imIndex = 1; imIndex <= 5; ++imIndex)
            if (const auto s = SubBandsOf(band, imIndex))
                text << s->f1Low << ' ' << s->f1High << ' ' << s->f2Low << ' ' << s->f2High << ';';
    }
    std::uint32_t sum = 2166136261U; // FNV-1a
    for (const char c : text.str())
        sum = (sum ^ static_cast<unsigned char>(c)) * 16777619U;
    EXPECT_EQ(sum, 3593604406U);
}

TEST(Catalogue, TheThreePlansAgreeButForTheirKnownDifferences) {
    ForAllPlans([&](int band, int imIndex, int bridge) {
        SCOPED_TRACE(testing::Message() << BandText(band) << " order index " << imIndex);
        const auto setup = DefaultPlan(band, imIndex, bridge);
        const auto start = StartPlan(band, imIndex, bridge);
        const auto activation = ActivationPlan(band, imIndex, bridge);
        if (band == BandDigDiv) {
            EXPECT_EQ(start, activation);
            EXPECT_NE(start, setup);
        } else if (band == BandTetra390 || band == BandTetra392) {
            EXPECT_EQ(start, imIndex <= 3 ? setup : std::nullopt);
            EXPECT_EQ(activation.has_value(), imIndex <= 3);
        } else if (band == BandTetra422 || band == BandTetra462) {
            EXPECT_EQ(activation.has_value(), imIndex <= 3);
            EXPECT_FALSE(setup || start);
        } else {
            EXPECT_EQ(start, setup);
            EXPECT_EQ(activation, band == BandWifi ? std::nullopt : setup);
        }
        if (activation) {
            EXPECT_EQ(activation->step, 1.0f);
        }
    });
    EXPECT_FALSE(DefaultPlan(BandTdScdmaA, 1, 0) || DefaultPlan(BandTetra390, 5, 0) ||
                 DefaultPlan(BandAmps, 0, 0) || DefaultPlan(BandAmps, 6, 0));
    EXPECT_EQ(DefaultPlan(BandTetra390, 1, 0)->step, 0.5f);
    EXPECT_EQ(ActivationPlan(BandTetra392, 1, 0)->f2Start, 400.5f);
    EXPECT_EQ(ActivationPlan(BandTetra390, 2, 0)->f1Fix, 391.5f);
    EXPECT_EQ(StartPlan(BandDigDiv, 5, 0)->f1, 816.0f);
}

TEST(Catalogue, TheBridgeLetsTonesUseTheWholeBand) {
    EXPECT_EQ(DefaultPlan(BandEgsm, 1, 0)->f2Stop, 946.0f);
    EXPECT_EQ(DefaultPlan(BandEgsm, 1, 1)->f2Stop, 935.0f);
    EXPECT_EQ(LimitsOf(BandAmps, 0)->f1To, 880);
    EXPECT_EQ(SubBandsOf(BandAmps, 1)->f2Low, 885);
    for (int band = 1; band <= 13; ++band) {
        const auto limits = LimitsOf(band, 1);
        ASSERT_TRUE(limits.has_value());
        if (band == BandTdScdmaA)
            continue;
        EXPECT_TRUE(limits->f1From == limits->txLow && limits->f1To == limits->txHigh) << BandText(band);
        EXPECT_TRUE(limits->f2From == limits->txLow && limits->f2To == limits->txHigh) << BandText(band);
    }
    EXPECT_FALSE(LimitsOf(BandWifi, 0) || LimitsOf(BandLte700L, 0) || LimitsOf(BandNone, 0));
    EXPECT_FALSE(SubBandsOf(BandTdScdmaF, 1) || SubBandsOf(BandTetra390, 1) || SubBandsOf(BandWifi, 1));
    EXPECT_EQ(SubBandsOf(BandDigDiv, 1)->f1Low, 791);
    EXPECT_EQ(SubBandsOf(BandDigDiv, 2)->f1Low, 790);
    EXPECT_EQ(SubBandsOf(BandUmts2, 1)->f2High, 2695);
}

TEST(Catalogue, BandsThatReceiveAboveTheCarriersUseTheUpperProduct) {
    EXPECT_EQ(ImFrequency(BandAmps, CoefficientsOf(1), 869, 894), 844.0f);
    EXPECT_EQ(ImFrequency(BandDigDiv, CoefficientsOf(1), 791, 821), 851.0f);
    EXPECT_EQ(ImFrequency(BandLte700U, CoefficientsOf(2), 728, 751), 797.0f);
}

} // namespace
} // namespace qor
