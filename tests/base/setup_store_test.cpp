#include "bands/records.h"
#include "bands/rx_loss.h"
#include "base/setup_store.h"
#include "support/temp_dir.h"

#include <filesystem>
#include <gtest/gtest.h>

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
    EXPECT_TRUE(lost.ReadTenths("a.ccz", 9).empty());
    EXPECT_EQ(ReadPowerStore(lost, "amps_").tone1, "00430");
    EXPECT_EQ(ReadTdScdmaAF1(lost), 2020.0f);
}

TEST_F(StoreTest, TenthsAreGroupsOfFiveAndAMissingStoreIsMade) {
    EXPECT_TRUE(store.ReadTenths("amps_pow_setup.ccz", 2).empty());
    EXPECT_TRUE(store.Exists("amps_pow_setup.ccz"));
    EXPECT_EQ(FileText(store.PathOf("amps_pow_setup.ccz")), "");

    store.Write("t.ccz", "0043119900x12341");
    EXPECT_EQ(store.ReadTenths("t.ccz", 9), (std::vector<float>{43.1f, 1990.0f, 0.0f, 0.1f}));
    EXPECT_EQ(store.ReadTenths("t.ccz", 2).size(), 2U);
    EXPECT_EQ(ParseTenths("1e99912345", 9), (std::vector<float>{0.0f, 1234.5f}))
        << "too large for any quantity";
    EXPECT_EQ(ParseTenths("9e300", 9), std::vector<float>{0.0f});
}

TEST_F(StoreTest, PowersFallBackOneByOne) {
    store.Write("egsm_pow_setup.ccz", "00405");
    EXPECT_EQ(ReadPowerStore(store, "egsm_").tone1, "00405");
    EXPECT_EQ(ReadPowerStore(store, "egsm_").tone2, "00430");
    store.Write("egsm_pow_setup.ccz", "  400abcde00999");
    EXPECT_EQ(ReadPowerStore(store, "egsm_").tone1, "00400");
    EXPECT_EQ(ReadPowerStore(store, "egsm_").tone2, "00000");
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
    std::string noStep(AmpsPlan);
    noStep.replace(30, 5, "00000");
    for (const std::string& text : {std::string(AmpsPlan.substr(0, 40)), noStep}) {
        store.Write("amps_im5_setup.ccz", text);
        EXPECT_FALSE(ReadPlanStore(store, "amps_", 2).has_value());
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
}

TEST(RxLoss, NineFieldsAreEnoughAndEightAreNot) {
    std::string text;
    for (int i = 1; i <= 9; ++i)
        text += "00" + std::to_string(i) + ".5";
    EXPECT_EQ(ParseRxLoss(text.substr(0, 44)), (std::array<float, 13>{}));
    const auto nine = ParseRxLoss(text);
    EXPECT_EQ(nine[0], 1.5f);
    EXPECT_EQ(nine[8], 9.5f);
    EXPECT_EQ(nine[9], 0.0f);
    EXPECT_EQ(ParseRxLoss(text + "-01.5000.0000.0002.5" + std::string(200, '7'))[12], 2.5f);
    EXPECT_EQ(ParseRxLoss(text + "-01.5")[9], -1.5f);
    EXPECT_EQ(ParseRxLoss(text + "009.9")[9], 9.9f);
    EXPECT_EQ(ParseRxLoss(text + "010.0")[9], 0.0f);
    EXPECT_EQ(ParseRxLoss(text + "-99.9")[9], -99.9f);
    EXPECT_EQ(ParseRxLoss(text + "-100.")[9], 0.0f);
    EXPECT_EQ(ParseRxLoss(text + "loss!")[9], 0.0f);
    EXPECT_EQ(ParseRxLoss(text + "2.5")[9], 2.5f) << "a field cut short";
}

} // namespace
} // namespace qor
