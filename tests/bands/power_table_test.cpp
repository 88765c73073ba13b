#include "bands/power_table.h"

#include <gtest/gtest.h>

namespace qor {
namespace {

using List = std::vector<int>;

CalibrationPlan Plan(ToneRange f1, ToneRange f2, int from = 36, int delta = 1, int to = 46) {
    CalibrationPlan plan;
    plan.f1 = f1;
    plan.f2 = f2;
    plan.powStart = from;
    plan.powDelta = delta;
    plan.powStop = to;
    plan.useF1 = plan.useF2 = true;
    return plan;
}

TEST(PowerTable, FieldsBeginWithTheRowOfTheBand) {
    const auto amps = CalibrationRowOf(BandAmps, "RT-DB22", 0);
    ASSERT_TRUE(amps);
    EXPECT_EQ(amps->delta, 2);
    EXPECT_EQ((List{amps->f1Start, amps->f1Stop, amps->f2Start, amps->f2Stop}), (List{869, 880, 885, 894}));
    const auto pcs = CalibrationRowOf(BandPcs, "RT-K022", 1);
    EXPECT_EQ(pcs->delta, 1);
    EXPECT_EQ((List{pcs->f1Stop, pcs->f2Start, pcs->rxF1, pcs->rxF2}), (List{1990, 1930, 1935, 1990}));
    const auto umts2 = CalibrationRowOf(BandUmts2, "RT-P000", 0);
    EXPECT_EQ((List{umts2->f1Stop, umts2->txHigh, umts2->rxLow, umts2->rxF1}),
              (List{2695, 2695, 2545, 2629}));
    EXPECT_FALSE(CalibrationRowOf(BandLte700U, "RT-DB22", 0)); // receives above: no row
    for (const int none : {int{BandWifi}, int{BandTetra390}, int{BandLte700L}, int{BandLte700U}})
        EXPECT_FALSE(HasPowerTable(none));
}

TEST(PowerTable, StartsStandOnTheGridAndTheEdgeBesideItHasItsRow) {
    const auto tones = [](int band, const char* model, ToneRange f1, ToneRange f2, int tone) {
        return FrequenciesOf(Plan(f1, f2), tone, {band, model, 6.2f});
    };
    // RT-DB22: odd but for five bands, and low LTE.
    EXPECT_EQ(tones(BandAmps, "RT-DB22", {888, 2, 894}, {869, 2, 871}, 1), (List{889, 891, 893, 894}));
    EXPECT_EQ(tones(BandAmps, "RT-DB22", {888, 2, 893}, {869, 2, 871}, 1), (List{889, 891, 893}));
    EXPECT_EQ(tones(BandAmps, "RT-DB22", {889, 4, 894}, {869, 2, 871}, 1), (List{889, 893}));
    EXPECT_EQ(tones(BandPcs, "RT-DB22", {1931, 2, 1935}, {1930, 2, 1932}, 1), (List{1932, 1934}));
    EXPECT_EQ(tones(BandPcs, "RT-DB22", {1931, 2, 1935}, {1930, 2, 1932}, 2), (List{1930, 1932}));
    EXPECT_EQ(tones(BandTdScdmaA, "RT-DB22", {2020, 2, 2020}, {2025, 2, 2025}, 2),
              (List{2025})); // above the stop
    EXPECT_EQ(tones(BandLte, "RT-DB22", {746, 2, 749}, {745, 2, 747}, 1), (List{747, 749}));
    EXPECT_EQ(tones(BandLte, "RT-DB22", {747, 2, 750}, {743, 2, 747}, 1), (List{748, 750}));
    // RT-L027 is even everywhere; the others take what is typed.
    EXPECT_EQ(tones(BandAws, "RT-L027", {2151, 2, 2155}, {1930, 2, 1930}, 1), (List{2152, 2154, 2155}));
    EXPECT_EQ(tones(BandAmps, "RT-DA10", {870, 3, 877}, {869, 1, 869}, 1), (List{870, 873, 876}));
}

TEST(PowerTable, PlansThatWouldWriteElsewhereAreNone) {
    const ToneRange good{869, 1, 894};
    EXPECT_TRUE(FitsTables(Plan(good, good, 20, 1, 46), 5.0f));
    EXPECT_FALSE(FitsTables(Plan(good, good, 20, 1, 46), 4.899998f));
    EXPECT_TRUE(FitsTables(Plan(good, good, 33, 13, 46), 4.899998f));
    for (const CalibrationPlan& plan :
         {Plan({869, 0, 894}, good), Plan(good, {894, 1, 869}), Plan(good, {1, 1, 1001}),
          Plan(good, good, 19), Plan(good, good, 36, 0), Plan(good, good, 36, 1, 47),
          Plan(good, good, 40, 1, 39)})
        EXPECT_FALSE(FitsTables(plan, 6.2f));
    CalibrationPlan one = Plan(good, {0, 0, 0}); // what is not ticked does not count
    one.useF2 = false;
    EXPECT_TRUE(FitsTables(one, 6.2f));
    EXPECT_EQ(LevelsOf(Plan(good, good, 36, 3, 46)), (List{36, 39, 42, 45}));
    EXPECT_TRUE(CrossesRanges(Plan(good, good, 33, 1, 34)));
    EXPECT_FALSE(CrossesRanges(Plan(good, good, 30, 5, 33)));
    EXPECT_FALSE(CrossesRanges(Plan(good, good, 34, 1, 46)));
}

TEST(PowerTable, PagesFollowToneLevelAndFirmware) {
    const CalibrationPlan plan = Plan({869, 1, 894}, {869, 1, 894});
    const auto at = [&](float firmware, int tone, int dBm) {
        return PlaceOf(plan, {BandAmps, "RT-DA10", firmware}, tone, 871, dBm);
    };
    EXPECT_EQ(at(6.2f, 1, 20), (TablePlace{0, 27, 2}));
    EXPECT_EQ(at(5.0f, 1, 46), (TablePlace{26, 53, 2}));
    EXPECT_EQ(at(5.0f, 2, 20), (TablePlace{54, 81, 2}));
    EXPECT_EQ(at(6.2f, 2, 46), (TablePlace{80, 107, 2}));
    EXPECT_EQ(at(4.899998f, 1, 33), (TablePlace{0, 14, 2}));
    EXPECT_EQ(at(4.899998f, 2, 46), (TablePlace{41, 55, 2}));
}

// A few entries of each row, counted out on paper.
TEST(PowerTable, AddressesOfEachBand) {
    struct Row {
        int band;
        const char* model;
        float firmware;
        int mhz;
        int address;
    };
    for (const Row& row :
         {Row{BandAmps, "RT-DB22", 6.2f, 869, 0},      {BandAmps, "RT-DB22", 6.2f, 894, 13},
          {BandAmps, "RT-DA10", 6.2f, 894, 25},        {BandDcs, "RT-DB22", 6.2f, 1880, 138},
          {BandDcs, "RT-K022", 6.2f, 1880, 75},        {BandWiMax, "RT-T000", 6.2f, 3594, 84},
          {BandUmts2, "RT-P000", 6.2f, 2695, 75},      {BandEgsm, "RT-DB22", 6.2f, 960, 32},
          {BandEgsm, "RT-DA10", 3.899999f, 925, 80},   {BandEgsm, "RT-DA10", 4.0f, 925, 30},
          {BandPcs, "RT-DB22", 6.2f, 1990, 169},       {BandPcs, "RT-L027", 6.2f, 1990, 160},
          {BandPcs, "RT-K022", 6.2f, 1990, 140},       {BandLte, "RT-DB22", 6.2f, 793, 81},
          {BandLte, "RT-DA10", 3.899999f, 745, 197},   {BandLte, "RT-DA10", 4.0f, 793, 165},
          {BandUmts, "RT-DB22", 6.2f, 2170, 201},      {BandUmts, "RT-K022", 5.0f, 2110, 160},
          {BandUmts, "RT-K022", 4.899998f, 2110, 150}, {BandTdScdmaA, "RT-DB22", 6.2f, 2025, 211},
          {BandTdScdmaA, "RT-K022", 5.0f, 2020, 235},  {BandTdScdmaA, "RT-K022", 4.899998f, 2020, 230},
          {BandDigDiv, "RT-DB22", 6.2f, 822, 98},      {BandDigDiv, "RT-DA10", 6.2f, 790, 180},
          {BandTdScdmaF, "RT-DB22", 6.2f, 1920, 222},  {BandTdScdmaE, "RT-P000", 5.0f, 2350, 80},
          {BandAws, "RT-L027", 6.2f, 2155, 112},       {BandAws, "RT-K022", 6.2f, 1932, 1}})
        EXPECT_EQ(
            TableAddress(Plan({745, 1, 793}, {745, 1, 793}), {row.band, row.model, row.firmware}, row.mhz),
            row.address)
            << row.band << row.model << row.mhz;
    // Low LTE has a grid of its own, and takes the upper part with it.
    EXPECT_EQ(TableAddress(Plan({698, 2, 793}, {745, 2, 793}), {BandLte, "RT-DB22", 6.2f}, 698), 33);
    EXPECT_EQ(TableAddress(Plan({698, 2, 793}, {745, 2, 793}), {BandLte, "RT-DB22", 6.2f}, 746), 57);
}

TEST(PowerTable, BandsWhoseEntriesArePartlyTheSameAreNamed) {
    const CalibrationPlan aws = Plan({1930, 2, 2155}, {1930, 2, 2155});
    EXPECT_EQ(BandsOverwritten(aws, {BandAws, "RT-DB22", 6.2f}),
              (List{BandAmps, BandEgsm, BandLte, BandDcs, BandDigDiv}));
    EXPECT_EQ(BandsOverwritten(aws, {BandAws, "RT-L027", 6.2f}), List{});
    const CalibrationPlan amps = Plan({869, 2, 894}, {869, 2, 894});
    EXPECT_EQ(BandsOverwritten(amps, {BandAmps, "RT-DB22", 6.2f}), (List{BandAws}));
    EXPECT_EQ(BandsOverwritten(amps, {BandAmps, "RT-DB22", 5.0f}), List{}); // carries no AWS yet
}

} // namespace
} // namespace qor
