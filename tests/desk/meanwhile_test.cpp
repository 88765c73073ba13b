// What goes on while a question or a dialog is open: timers tick, the line lives and dies.
#include "desk/commands.h"
#include "support/rig.h"

#include <gtest/gtest.h>

namespace qor::test {

namespace {

/// Presses the start button with the port closed; a run is to begin once the instrument has been found.
void AskForRun(Rig& rig) {
    ASSERT_TRUE(rig.PowerOn());
    rig.program.Link().OnButton1();
    rig.time.RunFor(3000);
    rig.program.OnMeasButton();
    rig.time.RunFor(200);
    ASSERT_TRUE(rig.S().run.WaitsForContact() && !rig.S().run.IsOn());
}

class Series : public testing::TestWithParam<int> {};

} // namespace

TEST_P(Series, AsksOnceAtThePressBeforeAnyCarrierIsOn) {
    for (const bool yes : {false, true}) {
        Rig rig;
        ASSERT_TRUE(rig.PowerOn());
        ASSERT_TRUE(rig.program.Select().SelectMethod(GetParam()) && rig.RunUntilIdle());
        rig.S().curve.SetLength(1000);
        rig.S().runs.SetContinuous(true);
        rig.S().runs.SetContinuousTimes(3);
        for (const char* name : {"1.dat", "2.dat", "3.dat"})
            rig.Store().Write(name, "an earlier one");
        rig.user.answer = yes;
        rig.user.whileAsked = [&rig] {
            EXPECT_FALSE(rig.S().run.IsOn());
            EXPECT_EQ(rig.instrument.Settings().carrier1, 0);
        };
        EXPECT_EQ(rig.Measure(), yes);
        EXPECT_EQ(rig.user.questions,
                  std::vector{"The file has already existed. Do you want to replace it?\n\n" +
                              (rig.dir / "1.dat").string()});
        EXPECT_EQ(rig.Stored("2.dat") == "an earlier one", !yes);
        EXPECT_EQ(rig.Stored("3.dat"), "an earlier one") << "three further passes save three files";
        EXPECT_EQ(rig.S().results.list.NextNumber(), yes ? 3 : 0);
    }
}

TEST_P(Series, EndsWithTheFirstFileThatCannotBeWritten) {
    Rig rig;
    ASSERT_TRUE(rig.PowerOn());
    ASSERT_TRUE(rig.program.Select().SelectMethod(GetParam()) && rig.RunUntilIdle());
    rig.S().curve.SetLength(1000);
    rig.S().runs.SetContinuous(true);
    std::filesystem::create_directory(rig.dir / "1.dat");
    ASSERT_TRUE(rig.Measure());
    EXPECT_EQ(rig.user.messages, std::vector{"Speichern file misserfolg\n" + (rig.dir / "1.dat").string() +
                                             ": not a regular file"});
    EXPECT_EQ(rig.S().results.list.Name(0), "0.dat");
    EXPECT_EQ(rig.S().results.list.Name(1), "") << "no entry of a file that is not there";
    EXPECT_EQ(rig.instrument.Settings().carrier1, 0);
}

INSTANTIATE_TEST_SUITE_P(Methods, Series, testing::Values(ModeTwoTone, ModeSweep));

TEST(Meanwhile, ARunAskedForDoesNotBeginOnTheWayOut) {
    for (const bool whileAsked : {true, false}) {
        Rig rig;
        AskForRun(rig);
        if (whileAsked)
            rig.user.whileAsked = [&] {
                EXPECT_TRUE(rig.time.RunUntil([&] { return rig.S().run.IsOn(); }, 10000));
                rig.time.RunFor(1000);
            };
        int code = 0;
        rig.program.SetQuit([&code](int exitCode) { code = exitCode; });
        rig.Sent();
        ASSERT_TRUE(rig.program.OnExitButton());
        ASSERT_TRUE(rig.time.RunUntil([&] { return code != 0; }, 20000));
        EXPECT_FALSE(rig.S().run.IsOn());
        const auto sent = rig.Sent();
        EXPECT_EQ(sent.back(), "#SPA0");
        EXPECT_EQ(std::count(sent.begin(), sent.end(), "#M2T1"), whileAsked ? 1 : 0);
        EXPECT_EQ(rig.instrument.Settings().carrier1, 0);
    }
    Rig waiting({.firmware = "4.2"}); // a start waits for what is queued there
    ASSERT_TRUE(waiting.PowerOn() && waiting.program.Select().SelectOrder(2));
    waiting.program.OnMeasButton();
    ASSERT_FALSE(waiting.S().run.IsOn());
    ASSERT_TRUE(waiting.program.OnExitButton());
    waiting.time.RunFor(20000);
    EXPECT_FALSE(waiting.S().run.IsOn());
}

TEST(Meanwhile, ARunAskedForDoesNotBeginBehindASetUp) {
    NotedDialogs dialogs;
    Rig rig({}, nullptr, nullptr, &dialogs);
    AskForRun(rig);
    dialogs.whileOpen = [&] { rig.time.RunFor(20000); };
    Commands(rig.program, dialogs).Run("run_setup");
    EXPECT_FALSE(rig.S().run.IsOn());
    EXPECT_TRUE(rig.RunUntilReady(1000));
    EXPECT_TRUE(rig.Measure());
}

} // namespace qor::test
