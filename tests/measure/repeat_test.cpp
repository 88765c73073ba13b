#include "support/wire_reading.h"

#include <filesystem>

namespace qor::test {

namespace {

const std::vector<std::string>
    Sweep = // the steps of the built-in EGSM plan without what stands between the halves
    Chain({{"#IMP?"}, Steps("#SFA", 9260, 9370, 10)});

std::vector<std::string> Halves(const char* turn) {
    return Chain({Sweep, Words(turn), {"#SFA09250"}, Steps("#SFB", 9600, 9460, -10), {"#SFB09600"}});
}

/// All but the closing "#SFB" of the last run, in front of which the carriers go off.
std::vector<std::string> LastHalves(const char* turn) {
    auto words = Halves(turn);
    words.pop_back();
    return Chain({words, Words("#SPA0 #SPB0 #MSWL0 #SFB09600 #SMREF #SPA0 #SPB0")});
}

constexpr const char* Turn = "#SPA0 #SPB0 #MDNL1 #SPA1 #SPB1"; // firmware 5.3 and later

std::vector<float> Levels(std::span<const float> row) {
    std::vector<float> levels;
    std::copy_if(row.begin(), row.end(), std::back_inserter(levels),
                 [](float level) { return level != 0.0f; });
    return levels;
}

} // namespace

TEST(SweepRuns, TwoRunsWithAndWithoutPause) {
    struct Case {
        const char* firmware;
        int path;
        std::uint8_t status;
        int interval;
        const char* firstStart;
        const char* between;
        const char* turn;
    };
    static const Case Cases[] = {
        {"6.2", 2, 0x60, 0, "#SAB3 #MDNL0 #SR*10 #SPA1 #SPB1 #SR #SMTRA #RECUT1 #SFB09600 #SFA09250 #MSWL1",
         "#SPA0 #SPB0 #SR*10 #MDNL0 #SR*10 #SPA1 #SPB1 #SR #SMTRA #SFB09600 #SFA09250 #MSWL1", Turn},
        {"3.6", 1, 0x64, 3, "#SPA1 #SPB1 #SFB09600 #SFA09250 #MSWL1 #MDNL0 #SR",
         "#MSWL0 #SPA0 #SPB0 #SPA1 #SPB1 #SFB09600 #SFA09250 #MSWL1 #MDNL0 #SR", "#MDNL1"},
    };
    for (const Case& c : Cases) {
        SCOPED_TRACE(std::string(c.firmware) + " interval " + std::to_string(c.interval));
        Rig rig({.firmware = c.firmware});
        ASSERT_TRUE(rig.ReadyFor(ModeSweep, 1));
        ASSERT_TRUE(rig.program.Select().SelectPath(c.path));
        ASSERT_TRUE(rig.RunUntilIdle());
        rig.S().link.chain.TakeStatus(c.status);
        rig.S().curve.SetRuns(2);
        rig.S().runs.SetInterval(c.interval);
        rig.Sent();
        rig.program.OnMeasButton();
        if (c.interval > 0) {
            ASSERT_TRUE(rig.time.RunUntil([&] { return rig.S().run.IsInPause(); }, 60000));
            const std::int64_t begin = rig.time.NowMs();
            ASSERT_TRUE(rig.time.RunUntil([&] { return rig.S().curve.Run() == 1; }, 60000));
            EXPECT_NEAR(static_cast<double>(rig.time.NowMs() - begin), (c.interval + 1) * 1000.0, 20.0);
        } else {
            ASSERT_TRUE(rig.time.RunUntil([&] { return rig.S().curve.Run() == 1; }, 60000));
        }
        EXPECT_TRUE(rig.S().run.IsOn());
        const auto first = Levels(rig.S().curve.KeptUp(0));
        ASSERT_TRUE(rig.RunUntilRunIsOver());
        EXPECT_EQ(Joined(rig.Sent()),
                  Joined(Chain({Words(c.firstStart), Halves(c.turn), Words(c.between), LastHalves(c.turn)})));
        const Curve& curve = rig.S().curve;
        EXPECT_EQ(first.size(), 13U);
        EXPECT_EQ(Levels(curve.KeptUp(0)), first);
        EXPECT_EQ(Levels(curve.KeptUp(1)), Levels(std::span(curve.Up())));
        EXPECT_EQ(Levels(curve.KeptDown(1)).size(), 15U);
        EXPECT_NE(Levels(curve.KeptUp(1)), first);
        EXPECT_EQ(rig.S().run.Passes(), 2);
        EXPECT_EQ(curve.ShownVerdict(), Verdict::Passed);
    }
}

/// The first run listens with the carriers off and makes one curve of both halves.
TEST(SweepRuns, SpectrumAnalyzeEnclosed) {
    for (const bool sixTwo : {true, false}) {
        Rig rig({.firmware = sixTwo ? "6.2" : "4.2"});
        ASSERT_TRUE(rig.ReadyFor(ModeSweep, 1));
        rig.S().runs.SetSaEnclosed(true);
        rig.S().curve.SetRuns(2);
        const char* const turn = sixTwo ? Turn : "";
        rig.Sent();
        ASSERT_TRUE(rig.Measure());
        EXPECT_EQ(Joined(rig.Sent()),
                  Joined(Chain({Words(sixTwo ? "#MDNL0" : ""), Words("#SFB09600 #SFA09250 #MSWL1 #SR"),
                                Halves(turn), Words("#SPA1 #SPB1 #SFB09600 #SFA09250 #MSWL1 #SR"),
                                LastHalves(turn)})));
        const Curve& curve = rig.S().curve;
        // 890 to 914 by 2 MHz and 890 to 904 by 1 MHz
        EXPECT_EQ(Levels(curve.KeptUp(0)).size(), 20U);
        EXPECT_EQ(Levels(curve.KeptDown(0)).size(), 0U);
        EXPECT_EQ(Levels(curve.KeptUp(1)).size(), 13U);
        EXPECT_EQ(Levels(curve.KeptDown(1)).size(), 15U);
    }
}

TEST(SweepRuns, StopInThePauseIsTheEnd) {
    Rig rig;
    ASSERT_TRUE(rig.ReadyFor(ModeSweep, 1));
    rig.S().curve.SetRuns(3);
    rig.S().runs.SetInterval(5);
    rig.program.OnMeasButton();
    ASSERT_TRUE(rig.time.RunUntil([&] { return rig.S().run.IsInPause(); }, 60000));
    rig.time.RunFor(2500);
    EXPECT_EQ(Joined(SentDuring(rig, [&] { rig.program.OnMeasButton(); })), "#MSWL0 #SPA0 #SPB0 #SMREF ");
    rig.time.RunFor(20000);
    EXPECT_FALSE(rig.S().run.IsOn());
    EXPECT_EQ(rig.S().curve.Run(), 0);
    for (const std::string& command : rig.Sent())
        EXPECT_EQ(command, "#SST?");
    // The next press has its whole pause again.
    ASSERT_TRUE(rig.Measure());
    EXPECT_EQ(rig.S().run.Passes(), 3);
}

TEST(SweepRuns, ACablePulledInThePauseIsTheEndToo) {
    Rig rig;
    ASSERT_TRUE(rig.ReadyFor(ModeSweep, 1));
    rig.S().curve.SetRuns(2);
    rig.S().runs.SetInterval(30);
    rig.program.OnMeasButton();
    ASSERT_TRUE(rig.time.RunUntil([&] { return rig.S().run.IsInPause(); }, 60000));
    ASSERT_TRUE(rig.RunUntilIdle());
    rig.port.Unplug();
    rig.time.RunFor(3000);
    EXPECT_FALSE(rig.S().run.IsOn());
    EXPECT_EQ(rig.S().curve.ShownVerdict(), Verdict::None);
    rig.port.Replug();
    ASSERT_TRUE(rig.RunUntilReady());
    rig.time.RunFor(60000);
    EXPECT_FALSE(rig.S().run.IsOn());
    EXPECT_EQ(rig.S().curve.Run(), 0);
}

TEST(Endless, PassesFilesAndCommands) {
    struct Case {
        int mode;
        const char* firmware;
        bool replace;
        int times;         ///< 0: until it is stopped
        const char* again; ///< what a further pass begins with
    };
    static const Case Cases[] = {
        {ModeTwoTone, "6.2", false, 3, "#M2T1 #SR #SFA09350 #SFB09600"},
        {ModeTwoTone, "6.2", true, 0, ""},
        {ModeSweep, "6.2", true, 2, "#SFB09600 #SFA09250 #SPA0 #SPB0 #SR*10 #MDNL0 #SR*10 #SPA1 #SPB1 #SR*4"},
        {ModeSweep, "4.2", false, 0, "#SPA1 #SPB1 #SFB09600 #SFA09250 #MSWL1 #SR"},
    };
    for (const Case& c : Cases) {
        SCOPED_TRACE(std::string(c.mode == ModeSweep ? "sweep " : "2-tone ") + c.firmware +
                     (c.replace ? " replace " : " files ") + std::to_string(c.times));
        Rig rig({.firmware = c.firmware});
        ASSERT_TRUE(rig.ReadyFor(c.mode, 1));
        const qor::Run& run = rig.S().run;
        RunSettings& runs = rig.S().runs;
        Curve& curve = rig.S().curve;
        runs.SetContinuous(true);
        runs.SetContinuousTimes(c.times);
        runs.SetReplacesData(c.replace);
        rig.program.OnMeasButton();
        EXPECT_FALSE(curve.WorstShown());
        ASSERT_TRUE(rig.time.RunUntil([&] { return run.Passes() == 1; }, 60000));
        // The second pass, from its first command on.
        rig.Sent();
        ASSERT_TRUE(rig.time.RunUntil([&] { return run.Passes() == 2 || !run.IsOn(); }, 60000));
        const char* const turn = c.mode == ModeTwoTone  ? ""
                                 : c.firmware[0] == '6' ? Turn
                                 : c.firmware[0] == '3' ? "#MDNL1"
                                                        : "";
        const auto pass = c.mode == ModeTwoTone ? Times(13, "#IMP?") : Halves(turn);
        EXPECT_EQ(Joined(rig.Sent()), Joined(Chain({Words(c.again), pass})));
        if (c.replace) { // the pass under way covers the one before it from the left
            EXPECT_EQ(Levels(std::span(curve.Up())).size(), c.mode == ModeTwoTone ? 12U : 13U);
        }
        const int passes = c.times == 0 ? 5 : c.times + (c.replace ? 1 : 0);
        if (c.times == 0) {
            ASSERT_TRUE(rig.time.RunUntil([&] { return run.Passes() == 5; }, 60000));
            rig.program.OnMeasButton();
        }
        ASSERT_TRUE(rig.RunUntilRunIsOver());
        EXPECT_EQ(run.Passes(), passes);
        const int files = c.replace ? 0 : passes;
        EXPECT_EQ(rig.S().results.list.NextNumber(), files);
        for (int i = 0; i < passes + 1; ++i)
            EXPECT_EQ(std::filesystem::exists(rig.dir / (std::to_string(i) + ".dat")), i < files) << i;
        EXPECT_LT(curve.WorstShown(), -90.0f);
        EXPECT_GT(curve.WorstShown(), -200.0f);
        EXPECT_EQ(curve.ShownVerdict(), Verdict::Passed);
    }
}

/// The highest level of a continuous run is kept over its passes.
TEST(Endless, HighestLevelIsKeptOverPasses) {
    Rig rig;
    ASSERT_TRUE(rig.ReadyFor(ModeTwoTone, 1));
    const qor::Run& run = rig.S().run;
    RunSettings& runs = rig.S().runs;
    runs.SetContinuous(true);
    runs.SetReplacesData(true);
    runs.SetContinuousTimes(2);
    rig.program.OnMeasButton();
    rig.instrument.FeedSignal(-70);
    ASSERT_TRUE(rig.time.RunUntil([&] { return run.Passes() == 1; }, 60000));
    rig.instrument.FeedSignal({});
    ASSERT_TRUE(rig.RunUntilRunIsOver());
    EXPECT_NEAR(rig.S().curve.WorstShown().value_or(0), -70.0f, 0.5f);
    EXPECT_LT(rig.S().curve.MaxUp().level, -90.0f);
    EXPECT_EQ(rig.S().curve.ShownVerdict(), Verdict::Failed)
        << "one pass above the limit fails the measurement";
}

/// The first reading of a further pass makes no point, but the carriers are on and the operator sees it.
TEST(Endless, AReadingBetweenTwoPassesIsJudged) {
    Rig rig;
    ASSERT_TRUE(rig.ReadyFor(ModeTwoTone, 1));
    RunSettings& runs = rig.S().runs;
    runs.SetContinuous(true);
    runs.SetReplacesData(true);
    runs.SetContinuousTimes(2);
    rig.program.OnMeasButton();
    ASSERT_TRUE(rig.time.RunUntil([&] { return rig.S().run.Passes() == 1; }, 60000));
    rig.instrument.FeedSignal(-70);
    const auto isSeen = [&] { return PanelOf(rig.S()).m_ReadingText.starts_with("-7"); };
    ASSERT_TRUE(rig.time.RunUntil(isSeen, 1000));
    rig.instrument.FeedSignal({});
    ASSERT_TRUE(rig.RunUntilRunIsOver());
    EXPECT_LT(rig.S().curve.MaxUp().level, -90.0f) << "it is no point";
    EXPECT_EQ(rig.S().curve.ShownVerdict(), Verdict::Failed);
}

} // namespace qor::test
