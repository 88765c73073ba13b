#include "measure/run_setup.h"
#include "support/rig.h"

namespace qor::test {

TEST(RunSetup, NumbersAreHeldKeptAndExcludeEachOther) {
    Rig rig;
    const auto apply = [&](const RunSetup& setup, bool administrator) {
        return ApplyRunSetup(setup, administrator, rig.S(), rig.program.Parts(), rig.program.Stores());
    };
    ASSERT_TRUE(
        apply({.seconds = 12, .runs = 10, .interval = 3, .saEnclosed = false, .continuous = false}, false));
    EXPECT_EQ(FileText(rig.dir / "2tone_time.ccz"), "0000012");
    EXPECT_EQ(FileText(rig.dir / "Sweeptime.ccz"), "0000010");
    EXPECT_EQ(FileText(rig.dir / "SweepInter.ccz"), "0000003");

    EXPECT_FALSE(
        apply({.seconds = 1, .runs = 11, .interval = 0, .saEnclosed = false, .continuous = false}, false));
    EXPECT_TRUE(rig.user.WasTold("Einbauen misserfolg"));
    EXPECT_EQ(rig.S().curve.g_runCount, 10);
    EXPECT_TRUE(
        apply({.seconds = 0, .runs = 5000, .interval = -1, .saEnclosed = false, .continuous = false}, true));
    const RunSetup held = CurrentRunSetup(rig.S());
    EXPECT_EQ(held.runs, 1000);
    EXPECT_EQ(held.seconds, 1);
    EXPECT_EQ(held.interval, 0);

    ASSERT_TRUE(
        apply({.seconds = 5, .runs = 1, .interval = 9, .saEnclosed = true, .continuous = false}, false));
    EXPECT_EQ(rig.S().curve.g_runCount, 2);
    EXPECT_EQ(rig.S().run.g_SweepInterval, 0);
    ASSERT_TRUE(
        apply({.seconds = 5, .runs = 4, .interval = 9, .saEnclosed = true, .continuous = true}, false));
    EXPECT_TRUE(rig.S().run.tagEndless);
    EXPECT_FALSE(rig.S().run.g_bSaEnclosed);
}

} // namespace qor::test
