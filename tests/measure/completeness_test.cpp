#include "measure/inter_band.h"
#include "support/wire_reading.h"

#include <limits>

namespace qor::test {

namespace {

/// The answer holds no number.
constexpr double SpoiltLevel = std::numeric_limits<double>::quiet_NaN();

RunFacts FactsOf(Rig& rig) {
    return rig.S().curve.tally.OfAll();
}

std::string Count(Rig& rig) {
    return std::to_string(FactsOf(rig).taken) + " of " + std::to_string(FactsOf(rig).asked);
}

Verdict VerdictIn(Rig& rig) {
    return rig.S().curve.ShownVerdict();
}

} // namespace

/// A step whose answer is spoilt is asked again with the tones where they are, at most three times.
TEST(Completeness, ARunOfSpoiltReadingsEndsWithoutAVerdict) {
    for (const int method : {ModeTwoTone, ModeSweep}) {
        SCOPED_TRACE(method);
        Rig rig;
        ASSERT_TRUE(rig.ReadyFor(method));
        rig.instrument.FeedSignal(SpoiltLevel);
        const std::int64_t begin = rig.time.NowMs();
        const auto sent = SentDuring(rig, [&] { ASSERT_TRUE(rig.Measure(20000)); });
        EXPECT_LT(rig.time.NowMs() - begin, 9000) << "by its time";
        EXPECT_EQ(VerdictIn(rig), Verdict::None);
        EXPECT_EQ(Count(rig), method == ModeTwoTone ? "0 of 52" : "0 of 28");
        if (method == ModeSweep) {
            EXPECT_EQ(std::count(sent.begin(), sent.end(), "#IMP?"), 4 * 28);
            const std::string step = "#SFA09300 #IMP? #IMP? #IMP? #IMP? #SFA09310 ";
            EXPECT_NE(Joined(sent).find(step), std::string::npos) << Joined(sent);
        }
        EXPECT_EQ(rig.instrument.Settings().carrier1 + rig.instrument.Settings().carrier2, 0);
        rig.instrument.FeedSignal({});
        ASSERT_TRUE(rig.Measure());
        EXPECT_EQ(VerdictIn(rig), Verdict::Passed);
        EXPECT_EQ(Count(rig), method == ModeTwoTone ? "52 of 52" : "28 of 28");
    }
}

/// A gap in the middle: lasting readings of a sweep are there, a 2-tone run takes longer, by half at most.
TEST(Completeness, SpoiltForAWhile) {
    Rig sweep;
    ASSERT_TRUE(sweep.ReadyFor(ModeSweep));
    sweep.program.OnMeasButton();
    ASSERT_TRUE(sweep.time.RunUntil([&] { return sweep.S().curve.Up()[8] != 0.0f; }, 20000));
    sweep.instrument.FeedSignal(SpoiltLevel);
    sweep.time.RunFor(700);
    sweep.instrument.FeedSignal({});
    ASSERT_TRUE(sweep.RunUntilRunIsOver());
    EXPECT_EQ(VerdictIn(sweep), Verdict::None);
    EXPECT_LT(FactsOf(sweep).taken, 28);
    EXPECT_GT(FactsOf(sweep).taken, 20);

    for (const int spoiltMs : {1500, 4000}) {
        SCOPED_TRACE(spoiltMs);
        Rig rig;
        ASSERT_TRUE(rig.ReadyFor(ModeTwoTone));
        const std::int64_t begin = rig.time.NowMs();
        rig.program.OnMeasButton();
        rig.time.RunFor(1000);
        rig.instrument.FeedSignal(SpoiltLevel);
        rig.time.RunFor(spoiltMs);
        rig.instrument.FeedSignal({});
        ASSERT_TRUE(rig.RunUntilRunIsOver());
        EXPECT_LT(rig.time.NowMs() - begin, 8600);
        EXPECT_EQ(VerdictIn(rig), spoiltMs < 2000 ? Verdict::Passed : Verdict::None);
    }
}

/// What the operator stops is judged by what he has seen, and says how much that is.
TEST(Completeness, AStopIsJudgedByWhatHasCome) {
    Rig rig;
    ASSERT_TRUE(rig.ReadyFor(ModeSweep));
    rig.program.OnMeasButton();
    rig.program.OnMeasButton();
    EXPECT_EQ(VerdictIn(rig), Verdict::None) << "without a point there is nothing to judge";
    EXPECT_EQ(Count(rig), "0 of 28");

    rig.S().curve.SetRuns(3);
    rig.program.OnMeasButton();
    ASSERT_TRUE(
        rig.time.RunUntil([&] { return rig.S().curve.Run() == 1 && rig.S().curve.Up()[2] != 0.0f; }, 60000));
    EXPECT_EQ(VerdictIn(rig), Verdict::None) << "nothing has passed while a run is on";
    rig.program.OnMeasButton();
    EXPECT_EQ(VerdictIn(rig), Verdict::Passed);
    EXPECT_FALSE(FactsOf(rig).IsComplete());
    EXPECT_EQ(FactsOf(rig).asked, 3 * 28);
    EXPECT_GE(FactsOf(rig).taken, 29);
    EXPECT_LT(FactsOf(rig).taken, 40);
}

/// What repeats until it is stopped is complete with one whole pass.
TEST(Completeness, AWholePassOfWhatRepeatsIsComplete) {
    Rig rig;
    ASSERT_TRUE(rig.ReadyFor(ModeSpectrum));
    rig.program.OnMeasButton();
    ASSERT_TRUE(rig.time.RunUntil([&] { return rig.S().run.Passes() == 1; }, 60000));
    rig.time.RunFor(500);
    rig.program.OnMeasButton();
    EXPECT_TRUE(FactsOf(rig).IsComplete());
    EXPECT_EQ(Count(rig), "13 of 13");
    EXPECT_EQ(VerdictIn(rig), Verdict::Passed);

    rig.program.OnMeasButton();
    rig.time.RunFor(800);
    rig.program.OnMeasButton();
    EXPECT_FALSE(FactsOf(rig).IsComplete());
    EXPECT_EQ(VerdictIn(rig), Verdict::Passed) << "the operator's stop";
}

/// Frequencies that the steps ask for and the two lists of the grid lack.
TEST(Completeness, EveryStepHasItsPlaceOnTheGrid) {
    Rig rig;
    rig.Store().Write("dig-div_im3_setup.ccz", "079200822007920082200812008120000300792008220");
    ASSERT_TRUE(rig.PowerOn());
    ASSERT_TRUE(rig.SelectBand(BandDigDiv));
    ASSERT_TRUE(rig.program.Select().SelectMethod(ModeSweep));
    ASSERT_TRUE(rig.RunUntilIdle());
    rig.instrument.FeedSignal(-60);
    ASSERT_TRUE(rig.Measure());
    EXPECT_TRUE(FactsOf(rig).IsComplete()) << Count(rig);
    EXPECT_GT(FactsOf(rig).taken, 9);
    EXPECT_EQ(VerdictIn(rig), Verdict::Failed);

    Rig inter;
    ASSERT_TRUE(inter.PowerOn());
    ASSERT_TRUE(inter.SelectBand(BandAmps));
    InterBandSetup setup = OpenInterBand(inter.S().working, inter.S().interBand);
    setup.plan.step = 2;
    ASSERT_TRUE(SwitchInterBandOn(setup, inter.S().working, inter.S().interBand));
    ASSERT_TRUE(inter.program.Select().SelectMethod(ModeSweep));
    ASSERT_TRUE(inter.RunUntilIdle());
    inter.instrument.FeedSignal(-60);
    ASSERT_TRUE(inter.Measure());
    EXPECT_TRUE(FactsOf(inter).IsComplete()) << Count(inter);
    EXPECT_EQ(VerdictIn(inter), Verdict::Failed);
}

/// The receiver listens at IM3 in spectrum only.
TEST(Completeness, BehindASpectrumTheReceiverListensAtTheOperatorsOrder) {
    Rig rig;
    ASSERT_TRUE(rig.ReadyFor(ModeTwoTone));
    ASSERT_TRUE(rig.program.Select().SelectOrder(2));
    ASSERT_TRUE(rig.program.Select().SelectMethod(ModeSpectrum));
    ASSERT_TRUE(rig.RunUntilIdle());
    rig.program.OnMeasButton();
    EXPECT_EQ(rig.S().run.Record().order, 3);
    EXPECT_EQ(PanelOf(rig.S()).m_IM_sel, "IM3");
    ASSERT_TRUE(rig.time.RunUntil([&] { return rig.S().run.Passes() == 1; }, 60000));
    EXPECT_EQ(Joined(SentDuring(rig, [&] { rig.program.OnMeasButton(); })), "#SMREF #USEID5 ");
    EXPECT_EQ(rig.S().working.ImIndex(), 2);
    ASSERT_TRUE(rig.program.Select().SelectMethod(ModeSweep));
    EXPECT_EQ(PanelOf(rig.S()).m_IM_sel, "IM5");
}

/// A start that is refused leaves the curve and its verdict; so does the wait for the instrument.
TEST(Completeness, ARefusedStartTouchesNothing) {
    Rig rig;
    ASSERT_TRUE(rig.ReadyFor(ModeTwoTone, 1));
    ASSERT_TRUE(rig.Measure());
    const float first = rig.S().curve.Up()[0];
    rig.S().working.SelectPath(0);
    rig.program.OnMeasButton();
    EXPECT_FALSE(rig.S().run.IsOn());
    EXPECT_EQ(rig.S().curve.Up()[0], first);
    EXPECT_EQ(rig.S().curve.ShownUp(0)[0], first);
    EXPECT_EQ(VerdictIn(rig), Verdict::Passed);
    EXPECT_EQ(Count(rig), "12 of 12");
}

/// Old firmware makes a start wait for its turn: the second press begins it anew, and one run comes of both.
TEST(Completeness, TwoPressesWhileAStartWaitsAreOneRun) {
    Rig rig({.firmware = "4.2"});
    ASSERT_TRUE(rig.ReadyFor(ModeTwoTone, 1));
    rig.Sent();
    ASSERT_TRUE(rig.program.Select().SelectOrder(1));
    rig.program.OnMeasButton();
    rig.time.RunFor(200);
    rig.program.OnMeasButton();
    ASSERT_TRUE(rig.time.RunUntil([&] { return rig.S().run.IsOn(); }, 3000));
    ASSERT_TRUE(rig.RunUntilRunIsOver());
    rig.time.RunFor(3000);
    const auto sent = rig.Sent();
    EXPECT_EQ(std::count(sent.begin(), sent.end(), "#M2T1"), 1);
    EXPECT_EQ(VerdictIn(rig), Verdict::Passed);
}

/// What was measured is what the run says, whatever is set afterwards.
TEST(Completeness, TheRecordOfARunStands) {
    Rig rig;
    ASSERT_TRUE(rig.ReadyFor(ModeTwoTone, 1));
    ASSERT_TRUE(rig.Measure());
    rig.Store().Write("egsm_pow_setup.ccz", "0020000200");
    ASSERT_TRUE(rig.program.Select().SelectOrder(3));
    ASSERT_TRUE(rig.RunUntilIdle());
    const RunRecord& record = rig.S().run.Record();
    EXPECT_EQ(record.power.tone1, "00430");
    EXPECT_EQ(record.order, 3);
    EXPECT_EQ(record.plan.f1, 935.0f);
}

} // namespace qor::test
