// The fatigue test: the start button pressed in the operator's stead, again and again.
#include "desk/commands.h"
#include "support/rig.h"

#include <cmath>
#include <gtest/gtest.h>
#include <sstream>

namespace qor::test {
namespace {

/// Ready on the test page, with a 2-tone run of so many seconds.
struct FatigueRig : Rig {
    explicit FatigueRig(int twoToneSeconds) : commands(program, dialogs) {
        EXPECT_TRUE(ReadyFor(ModeSweep, twoToneSeconds));
        S().factory.Enter("740261", 0);
        EXPECT_TRUE(program.Service().PressPage(ServicePage::Test));
        EXPECT_TRUE(time.RunUntil([this] { return !S().factory.IsBusy() && program.LineIsIdle(); }, 60000));
    }
    bool PressButton(const FatigueSettings& settings) {
        Test().Enter(settings);
        return commands.Try("fatigue_test").IsDone();
    }
    [[nodiscard]] FatigueTest& Test() { return program.Fatigue(); }
    [[nodiscard]] bool CarriersAreOn() {
        return instrument.Settings().carrier1 != 0 || instrument.Settings().carrier2 != 0;
    }
    /// When runs begin and end until so many seconds have gone, in whole seconds: "8-13 16-21".
    std::string RunsWithin(int seconds) {
        std::string runs;
        bool was = false;
        for (int tick = 0; tick <= seconds * 10; ++tick) {
            if (S().run.IsOn() != was) {
                was = !was;
                runs += (was ? (runs.empty() ? "" : " ") : "-") + std::to_string(tick / 10);
            }
            time.RunFor(100);
        }
        return runs;
    }
    /// Lines of the protocol behind its head.
    std::vector<std::string> Cycles() {
        std::istringstream text(FileText(Test().Protocol()));
        std::vector<std::string> lines;
        bool inHead = true;
        for (std::string row; std::getline(text, row);) {
            if (!inHead)
                lines.push_back(row);
            inHead = inHead && !row.starts_with("cycle,");
        }
        return lines;
    }

    NotedDialogs dialogs;
    Commands commands;
};

TEST(Fatigue, PressesAtFixedTimesAndCountsWhatItBegins) {
    FatigueRig rig(60);
    ASSERT_TRUE(rig.PressButton({.on = 5, .off = 3, .times = 1}));
    EXPECT_EQ(rig.S().working.Method(), ModeTwoTone);
    EXPECT_EQ(rig.Test().SecondsLeft(), 21);
    EXPECT_EQ(rig.RunsWithin(60), "8-13 16-21") << "asked for one, begun twice";
    EXPECT_FALSE(rig.Test().IsOn() || rig.S().factory.IsBusy());
    EXPECT_EQ(rig.Test().Begun(), 2);
    EXPECT_EQ(rig.Test().Finished(), 2);
    EXPECT_FALSE(rig.CarriersAreOn());
    const auto lines = rig.Cycles();
    ASSERT_EQ(lines.size(), 2u);
    const RunFacts& facts = rig.Test().Last()->facts;
    EXPECT_EQ(facts.end, RunEnd::Stopped) << "as the operator's stop";
    EXPECT_TRUE(facts.taken > 10 && facts.IsPartial());
    EXPECT_NE(
        lines[1].find(",5,passed," + std::to_string(facts.taken) + "," + std::to_string(facts.asked) + ",-"),
        std::string::npos)
        << lines[1];
    EXPECT_TRUE(rig.Told().empty());
}

TEST(Fatigue, OnTimeBelowAtAndAboveTheLengthOfTheRun) {
    const std::pair<int, std::string> expected[] = {
        {3, "6-9 12-15 18-21 24-27"},
        {5, "8-13 16-21 24-29"},
        {8, "11-16 19-22 30-33"}, // its end comes first, and on-time and pause change places
    };
    for (const auto& [on, runs] : expected) {
        FatigueRig rig(5);
        ASSERT_TRUE(rig.PressButton({.on = on, .off = 3, .times = 50}));
        EXPECT_EQ(rig.RunsWithin(on == 8 ? 36 : 29), runs) << on;
    }
}

TEST(Fatigue, AThousandCycles) {
    FatigueRig rig(10);
    ASSERT_TRUE(rig.PressButton({.on = 2, .off = 1, .times = 999}));
    ASSERT_TRUE(rig.time.RunUntil([&] { return !rig.Test().IsOn(); }, 3010000));
    EXPECT_EQ(rig.Test().Begun(), 1000);
    EXPECT_EQ(rig.Test().Finished(), 1000);
    const auto lines = rig.Cycles();
    EXPECT_EQ(lines.size(), 1000u);
    EXPECT_TRUE(std::all_of(lines.begin(), lines.end(), [](const std::string& line) {
        return line.find(",passed,") != std::string::npos;
    }));
    EXPECT_TRUE(rig.RunUntilIdle());
    EXPECT_FALSE(rig.CarriersAreOn());
    EXPECT_TRUE(rig.Told().empty());
}

TEST(Fatigue, ARefusedPressEndsIt) {
    FatigueRig rig(5);
    rig.S().working.SelectPath(0);
    ASSERT_TRUE(rig.PressButton({.on = 5, .off = 3, .times = 3}));
    EXPECT_EQ(rig.RunsWithin(60), "");
    EXPECT_FALSE(rig.Test().IsOn() || rig.S().factory.IsBusy());
    EXPECT_EQ(rig.Told(), (std::vector<std::string>{"Auswaehlen Uebergeben modell oder reflex modell."}));
    EXPECT_EQ(rig.Test().Begun(), 1);
    EXPECT_TRUE(rig.Cycles().empty());
}

TEST(Fatigue, WhatIsOutOfRangeDoesNothing) {
    FatigueRig rig(5);
    for (const FatigueSettings& wrong :
         {FatigueSettings{0, 3, 1}, {101, 3, 1}, {5, 0, 1}, {5, 101, 1}, {5, 3, 0}, {5, 3, 100001}})
        EXPECT_FALSE(rig.PressButton(wrong) || rig.Test().IsOn());
    EXPECT_TRUE(rig.Told().empty());
    EXPECT_TRUE(FatigueSettings({100, 100, 100000}).IsInRange() && FatigueSettings({1, 1, 1}).IsInRange());
}

TEST(Fatigue, WithThePortClosedIsRefused) {
    FatigueRig rig(5);
    rig.program.Link().OnButton1();
    rig.time.RunFor(3000);
    EXPECT_FALSE(rig.PressButton({.on = 5, .off = 3, .times = 1}));
    EXPECT_FALSE(rig.comm.GetPortOpen() || rig.Test().IsOn());
}

TEST(Fatigue, TheOperatorStopsAndDoesNotStart) {
    FatigueRig rig(60);
    ASSERT_TRUE(rig.PressButton({.on = 5, .off = 3, .times = 9}));
    rig.time.RunFor(1000);
    EXPECT_EQ(rig.program.PressStart().Text(), "\nHalten Messung erst!");
    ASSERT_TRUE(rig.time.RunUntil([&] { return rig.CarriersAreOn(); }, 10000));
    EXPECT_TRUE(rig.program.PressStart());
    EXPECT_FALSE(rig.Test().IsOn() || rig.S().run.IsOn());
    EXPECT_EQ(rig.RunsWithin(30), "");
    EXPECT_EQ(rig.Cycles().size(), 1u);
}

class FatigueEnds : public testing::TestWithParam<const char*> {};

/// However it is ended in its on-time, both carriers are off within two seconds, and stay so.
TEST_P(FatigueEnds, WithTheCarriersOff) {
    const std::string how = GetParam();
    FatigueRig rig(60);
    ASSERT_TRUE(rig.PressButton({.on = 50, .off = 3, .times = 9}));
    ASSERT_TRUE(rig.time.RunUntil([&] { return rig.CarriersAreOn(); }, 60000));
    rig.time.RunFor(2000);
    if (how == "button")
        EXPECT_TRUE(rig.PressButton({.on = 50, .off = 3, .times = 9}));
    else if (how == "page")
        EXPECT_TRUE(rig.program.Service().PressPage(ServicePage::Test));
    else if (how == "port")
        rig.program.Link().OnButton1();
    else if (how == "end of the program")
        rig.program.Leave();
    else
        rig.port.Unplug();
    rig.time.RunFor(2000);
    EXPECT_FALSE(rig.Test().IsOn());
    EXPECT_FALSE(rig.S().factory.IsBusy());
    if (how == "loss") {
        rig.port.Replug();
        ASSERT_TRUE(rig.RunUntilReady());
    }
    EXPECT_FALSE(rig.CarriersAreOn());
    EXPECT_EQ(rig.RunsWithin(120), "") << "it does not begin again by itself";
    const auto lines = rig.Cycles();
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].find(",none,") != std::string::npos, how == "loss" || how == "port" || how[0] == 'e')
        << lines[0];
}

INSTANTIATE_TEST_SUITE_P(How, FatigueEnds,
                         testing::Values("button", "page", "port", "end of the program", "loss"));

} // namespace
} // namespace qor::test
