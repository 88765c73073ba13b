#include "support/rig.h"

namespace qor::test {

TEST(BandSelection, TheBandChosenSurvivesAReconnectionThatDoesNotKnowTheFirmware) {
    Rig rig; // RT-DB22 6.2: position 0 is LTE, which the oldest firmware takes for AMPS
    ASSERT_TRUE(rig.PowerOn());
    ASSERT_TRUE(rig.SelectBand(BandLte));
    rig.port.Unplug();
    rig.time.RunFor(500);
    rig.port.Replug();
    ASSERT_TRUE(rig.RunUntilReady());
    EXPECT_EQ(rig.S().select.m_BandId, BandLte);
}

} // namespace qor::test
