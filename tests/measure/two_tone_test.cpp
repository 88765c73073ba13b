#include "support/rig.h"

namespace qor::test {

TEST(TwoTone, FiveSecondsGiveFiftyTwoPointsAndAVerdict) {
    Rig rig;
    ASSERT_TRUE(rig.PowerOn());
    ASSERT_TRUE(rig.SelectBand(BandEgsm));
    rig.Sent();
    rig.S().curve.g_testTimeMs = 5000;
    ASSERT_TRUE(rig.Measure());
    EXPECT_EQ(rig.S().curve.StoreDataPot, 52);
    EXPECT_EQ(rig.S().curve.g_MeasVerdict, VerdictPassed);
    const auto sent = rig.Sent();
    const std::vector<std::string> start{"#SAB3", "#M2T1", "#SR", "#RECUT1", "#SMREF", "#SFA09350", "#SFB09600", "#IMP?"};
    ASSERT_GT(sent.size(), 60u);
    EXPECT_EQ(std::vector<std::string>(sent.begin(), sent.begin() + 8), start);
    EXPECT_EQ(std::vector<std::string>(sent.end() - 2, sent.end()), (std::vector<std::string>{"#M2T0", "#SMREF"}));
}

} // namespace qor::test
