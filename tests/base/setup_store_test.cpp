#include "bands/records.h"
#include "bands/rx_loss.h"
#include "base/setup_store.h"
#include "support/temp_dir.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace qor {
namespace {

using test::FileText;
using test::TempDir;

constexpr std::string_view AmpsPlan = "086900894008690089400871008890000100869008940";

struct StoreTest : testing::Test {
    TempDir dir;
    SetupStore store{dir / "new" / "setup"};
};

TEST_F(StoreTest, WritesWholeFilesAndReadsThemBounded) {
    EXPECT_TRUE(std::filesystem::is_directory(store.Directory()));
    EXPECT_FALSE(store.Read("unit.ccz", 1).has_value());
    EXPECT_FALSE(store.Exists("unit.ccz"));
    EXPECT_TRUE(store.Write("unit.ccz", "12345"));
    EXPECT_TRUE(store.Write("unit.ccz", std::string_view("1\0\n", 3)));
    EXPECT_EQ(store.Read("unit.ccz", 100), std::string("1\0\n", 3));
    EXPECT_EQ(store.Read("unit.ccz", 1), "1");
    store.Remove("unit.ccz");
    EXPECT_FALSE(store.Exists("unit.ccz"));
    store.Remove("unit.ccz");
}

TEST_F(StoreTest, AFailedWriteIsTold) {
    std::filesystem::create_symlink("/dev/full", store.PathOf("full.ccz"));
    EXPECT_FALSE(store.Write("full.ccz", "1"));
    std::filesystem::create_directory(store.PathOf("taken.ccz"));
    EXPECT_FALSE(store.Write("taken.ccz", "1"));
}

TEST_F(StoreTest, WithoutADirectoryEverythingHasItsDefault) {
    ASSERT_TRUE(store.Write("file", ""));
    SetupStore lost(store.PathOf("file") / "below");
    EXPECT_FALSE(lost.Write("unit.ccz", "1"));
    EXPECT_FALSE(lost.Read("unit.ccz", 1).has_value());
    EXPECT_EQ(lost.ReadOrMake("a.ccz", 9), "");
    EXPECT_EQ(ReadPowerStore(lost, "amps_").tone1, "00430");
    EXPECT_EQ(ReadTdScdmaAF1(lost), 2020.0f);
}

TEST_F(StoreTest, APowerStoreIsTwoPowersOrNone) {
    EXPECT_EQ(ReadPowerStore(store, "egsm_").tone1, "00430");
    EXPECT_EQ(FileText(store.PathOf("egsm_pow_setup.ccz")), "") << "made, empty";
    EXPECT_TRUE(store.Damaged().empty());
    for (const char* text : {"0020000460", "0040500399 behind it"}) {
        store.Write("egsm_pow_setup.ccz", text);
        const PowerSetting power = ReadPowerStore(store, "egsm_");
        EXPECT_EQ(power.tone1 + power.tone2, std::string(text, 10));
        EXPECT_TRUE(store.Damaged().empty());
    }
    for (const char* text : {"00200", "004000", "004000040", "0019900430", "0043000461", "  40000400",
                             "abcdefghij", "-040000400", "0043.00430"}) {
        store.Write("egsm_pow_setup.ccz", text);
        const PowerSetting power = ReadPowerStore(store, "egsm_");
        EXPECT_EQ(power.tone1 + power.tone2, "0043000430") << text;
        EXPECT_EQ(store.Damaged().count("egsm_pow_setup.ccz"), 1U) << text;
        EXPECT_EQ(FileText(store.PathOf("egsm_pow_setup.ccz")), text) << "left as it is";
    }
    store.Write("egsm_pow_setup.ccz", "0040000400");
    EXPECT_TRUE(store.Damaged().empty()) << "written anew";
}

TEST_F(StoreTest, AFailedWriteIsRemembered) {
    EXPECT_EQ(store.Unwritten(), "");
    std::filesystem::create_directory(store.PathOf("taken.ccz"));
    store.Write("taken.ccz", "1");
    EXPECT_EQ(store.Unwritten(), store.PathOf("taken.ccz"));
    store.Write("free.ccz", "1");
    EXPECT_EQ(store.Unwritten(), "");
    EXPECT_EQ(SetupStore(store.PathOf("free.ccz") / "below").Unwritten(), store.PathOf("free.ccz") / "below");
}

/// Nor is one waited for that is no file.
TEST_F(StoreTest, WhatCannotBeReadIsDamaged) {
    std::filesystem::create_directory(store.PathOf("AlarmUp.ccz"));
    ASSERT_EQ(::mkfifo(store.PathOf("egsm_pow_setup.ccz").c_str(), 0600), 0);
    EXPECT_FALSE(store.ReadNumber("AlarmUp.ccz", 7));
    EXPECT_EQ(ReadPowerStore(store, "egsm_").tone1, "00430");
    EXPECT_EQ(store.Damaged().size(), 2U);
    EXPECT_FALSE(store.Write("egsm_pow_setup.ccz", "0040000400"));
    std::filesystem::remove(store.PathOf("AlarmUp.ccz"));
    store.Write("AlarmUp.ccz", "-110");
    EXPECT_EQ(store.ReadNumber("AlarmUp.ccz", 7), -110);
    EXPECT_EQ(store.Damaged().count("AlarmUp.ccz"), 0U);
}

TEST_F(StoreTest, PlansAreReadInTheStoresOrder) {
    EXPECT_FALSE(ReadPlanStore(store, "amps_", 1).has_value());
    store.Write("amps_im3_setup.ccz", std::string(AmpsPlan) + "99999");
    const FrequencyPlan expected{869, 894, 869, 871, 894, 894, 889, 869, 1};
    EXPECT_EQ(ReadPlanStore(store, "amps_", 1), expected);
    EXPECT_FALSE(ReadPlanStore(store, "amps_", 5).has_value());
    EXPECT_TRUE(store.Exists("amps_im11_setup.ccz"));
}

TEST_F(StoreTest, AnUnusablePlanCountsAsNoneAndStays) {
    const auto with = [](std::size_t group, const char* digits) {
        return std::string(AmpsPlan).replace(5 * group, 5, digits);
    };
    for (const std::string& text : {std::string(AmpsPlan.substr(0, 40)), with(6, "00000"), with(0, "86900"),
                                    with(0, "869.0"), with(8, "rubbi")}) {
        const bool sound = text == with(0, "86900");
        store.Write("amps_im5_setup.ccz", text);
        EXPECT_EQ(ReadPlanStore(store, "amps_", 2).has_value(), sound) << text;
        EXPECT_EQ(store.Damaged().empty(), sound) << text;
        EXPECT_EQ(FileText(store.PathOf("amps_im5_setup.ccz")), text);
    }
    std::string smallest(AmpsPlan);
    smallest.replace(30, 5, "00001");
    store.Write("amps_im5_setup.ccz", smallest);
    EXPECT_TRUE(ReadPlanStore(store, "amps_", 2).has_value());
}

TEST_F(StoreTest, TdScdmaAToneIsADecimal) {
    EXPECT_EQ(ReadTdScdmaAF1(store), 2020.0f);
    store.Write("tdb_f1.ccz", "");
    EXPECT_EQ(ReadTdScdmaAF1(store), 2020.0f);
    store.Write("tdb_f1.ccz", "2018.59");
    EXPECT_EQ(ReadTdScdmaAF1(store), 2018.5f);
    for (const char* text : {"f1", "0.0", "-2018", "20 18"}) {
        store.Write("tdb_f1.ccz", text);
        EXPECT_EQ(ReadTdScdmaAF1(store), 2020.0f) << text;
        EXPECT_EQ(store.Damaged().count("tdb_f1.ccz"), 1U) << text;
    }
}

TEST(RxLoss, NineFieldsAreEnoughAndEightAreNot) {
    std::string text;
    for (int i = 1; i <= 9; ++i)
        text += "00" + std::to_string(i) + (i == 5 ? ".5\r\n" : ".5");
    EXPECT_TRUE(ParseRxLoss(text.substr(0, 46)).isShort);
    EXPECT_EQ(ParseRxLoss(text.substr(0, 46)).losses, (std::array<float, 13>{}));
    const RxLossFile nine = ParseRxLoss(text);
    EXPECT_FALSE(nine.IsDamaged());
    EXPECT_EQ(nine.losses, (std::array<float, 13>{1.5f, 2.5f, 3.5f, 4.5f, 5.5f, 6.5f, 7.5f, 8.5f, 9.5f}));
    EXPECT_EQ(ParseRxLoss(text + "-01.5000.0000.0002.5" + std::string(200, 'x')).losses[12], 2.5f);
    using Fields = std::vector<std::size_t>;
    for (const auto& [field, loss, isNumber, isInside] : {std::tuple{"-01.5", -1.5f, true, true},
                                                          {"009.9", 9.9f, true, true},
                                                          {"010.0", 0.0f, true, false},
                                                          {"-99.9", -99.9f, true, true},
                                                          {"-100.", 0.0f, true, false},
                                                          {"loss!", 0.0f, false, true},
                                                          {"2.5", 2.5f, true, true},
                                                          {"1.0-2", 0.0f, false, true}}) {
        const RxLossFile table = ParseRxLoss(text + field);
        EXPECT_EQ(table.losses[9], loss) << field;
        EXPECT_EQ(table.noNumber, isNumber ? Fields{} : Fields{9}) << field;
        EXPECT_EQ(table.outside, isInside ? Fields{} : Fields{9}) << field;
    }
}

} // namespace
} // namespace qor
