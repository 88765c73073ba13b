#include "support/wire_reading.h"

namespace qor::test {

namespace {

float Highest(const Curve& curve) {
    float highest = -999;
    for (const auto& levels :
         {std::span(curve.Up()).first(CurvePoints), std::span(curve.Down()).first(CurvePoints)})
        for (const float level : levels)
            if (level != 0.0f)
                highest = std::max(highest, level);
    return highest;
}

} // namespace

/// The simulated device repeats exactly: a first run tells the level against which the second is judged.
TEST(Verdict, LimitIsExceededByMoreThanAHundredth) {
    for (const int mode : {ModeTwoTone, ModeSweep}) {
        Rig first;
        ASSERT_TRUE(first.ReadyFor(mode, 1));
        ASSERT_TRUE(first.Measure());
        const float highest = Highest(first.S().curve);
        static constexpr struct {
            float below;
            bool alarmOff, dbc;
            Verdict verdict;
        } Cases[] = {
            {0.0f, false, false, Verdict::Passed},  {0.01f, false, false, Verdict::Passed},
            {0.02f, false, false, Verdict::Failed}, {0.01f, false, true, Verdict::Passed},
            {0.02f, false, true, Verdict::Failed},  {20.0f, true, false, Verdict::None},
            {-0.1f, false, false, Verdict::Passed},
        };
        for (const auto& c : Cases) {
            SCOPED_TRACE(std::to_string(c.below) + " below " + std::to_string(highest) +
                         (c.dbc ? " dBc" : ""));
            Rig rig;
            ASSERT_TRUE(rig.ReadyFor(mode, 1));
            Curve& curve = rig.S().curve;
            curve.limit.SetAlarm(!(c.alarmOff));
            curve.scale.SetUnit(c.dbc);
            curve.limit.Take(highest - c.below - (c.dbc ? curve.scale.Carrier() : 0.0f));
            ASSERT_TRUE(rig.Measure());
            ASSERT_EQ(Highest(curve), highest);
            EXPECT_EQ(curve.ShownVerdict(), c.verdict);
        }
    }
}

TEST(Verdict, LastPointCountsLikeAnyOther) {
    for (const int mode : {ModeTwoTone, ModeSweep}) {
        for (const char* const firmware : {"4.2", "6.2"}) {
            Rig rig({.firmware = firmware});
            ASSERT_TRUE(rig.ReadyFor(mode, 1));
            rig.program.OnMeasButton();
            const auto lastReading = [&] {
                return mode == ModeTwoTone ? rig.S().curve.NextPoint() == 11
                                           : rig.instrument.Settings().frequency1 == 9250 &&
                                                 rig.instrument.Settings().frequency2 == 9460;
            };
            ASSERT_TRUE(rig.time.RunUntil(lastReading, 60000));
            rig.instrument.FeedSignal(-60);
            ASSERT_TRUE(rig.RunUntilRunIsOver());
            EXPECT_GT(Highest(rig.S().curve), -61.0f);
            EXPECT_EQ(rig.S().curve.ShownVerdict(), Verdict::Failed);
            EXPECT_NEAR(std::stof(PanelOf(rig.S()).m_WorstLevelText), -60.0f, 0.5f);
            if (mode == ModeSweep) {
                EXPECT_EQ(PanelOf(rig.S()).m_WorstFreqText, "904.0");
            }
        }
    }
}

/// Everything the receiver can read is a level: the run fails, and so does its file.
TEST(Verdict, LevelsAroundZeroAreLevels) {
    for (const int mode : {ModeTwoTone, ModeSweep}) {
        for (const double level : {5.0, 0.0, -0.5}) {
            SCOPED_TRACE(std::to_string(mode) + " at " + std::to_string(level));
            Rig rig;
            ASSERT_TRUE(rig.ReadyFor(mode, 1));
            rig.instrument.FeedSignal(level);
            ASSERT_TRUE(rig.Measure());
            const RunFacts facts = rig.S().curve.Facts();
            EXPECT_EQ(facts.taken, mode == ModeTwoTone ? 12 : 28);
            EXPECT_TRUE(facts.IsComplete());
            EXPECT_EQ(rig.S().curve.ShownVerdict(), Verdict::Failed);
            EXPECT_NEAR(std::stod(PanelOf(rig.S()).m_WorstLevelText), level, 0.2);
            EXPECT_TRUE(PanelOf(rig.S()).overLimit);
            ASSERT_TRUE(rig.program.Files().DataSave(rig.dir / "loud.dat"));
            ASSERT_TRUE(rig.program.Show().CurrentShow(rig.dir / "loud.dat"));
            EXPECT_EQ(rig.S().curve.Facts().taken, facts.taken);
            EXPECT_EQ(rig.S().curve.ShownVerdict(), Verdict::Failed);
        }
    }
}

TEST(Verdict, OneRunAboveTheLimitFailsAllRuns) {
    Rig rig;
    ASSERT_TRUE(rig.ReadyFor(ModeSweep, 1));
    rig.S().curve.SetRuns(2);
    rig.instrument.FeedSignal(-60);
    rig.program.OnMeasButton();
    ASSERT_TRUE(rig.time.RunUntil([&] { return rig.S().curve.Run() == 1; }, 60000));
    rig.instrument.FeedSignal({});
    ASSERT_TRUE(rig.RunUntilRunIsOver());
    EXPECT_EQ(rig.S().curve.ShownVerdict(), Verdict::Failed);
    EXPECT_NEAR(std::stof(PanelOf(rig.S()).m_WorstLevelText), -60.0f, 0.5f);
}

/// An error the instrument reports outranks the limit, ends the readings of its run and leaves the next
/// alone.
TEST(Verdict, ErrorRepliesAndTheRunAfter) {
    static constexpr struct {
        sim::FaultKind kind;
        int error;
    } Cases[] = {{sim::FaultKind::SyntaxError, 2}, {sim::FaultKind::OutOfRange, 3}, {sim::FaultKind::Pll, 4}};
    for (const auto& c : Cases) {
        for (const int mode : {ModeTwoTone, ModeSweep}) {
            for (const int at : {0, 3, 20, 50}) { // during the start, in the up half, in the down half
                SCOPED_TRACE(std::to_string(c.error) + " mode " + std::to_string(mode) + " at " +
                             std::to_string(at));
                Rig rig;
                ASSERT_TRUE(rig.ReadyFor(mode, 1));
                rig.S().curve.SetLength(5000);
                rig.S().curve.limit.Take(-150); // everything is above it
                rig.line.Add({c.kind, rig.line.CommandCount() + at});
                rig.program.OnMeasButton();
                ASSERT_TRUE(rig.RunUntilRunIsOver(10000)); // by itself, though levels have stopped counting
                if (mode == ModeTwoTone) {
                    EXPECT_LT(rig.S().curve.NextPoint(), 52);
                }
                EXPECT_EQ(rig.S().curve.ShownVerdict(), Verdict::Error);
                EXPECT_EQ(rig.S().curve.Facts().error, c.error);
                rig.S().curve.limit.Take(-90);
                ASSERT_TRUE(rig.Measure());
                EXPECT_EQ(rig.S().curve.ShownVerdict(), Verdict::Passed);
                const std::size_t points = OnGrid(rig.S().curve, std::span(rig.S().curve.Up())).size();
                EXPECT_EQ(mode == ModeSweep ? static_cast<int>(points) : rig.S().curve.NextPoint(),
                          mode == ModeSweep ? 13 : 52);
            }
        }
    }
}

} // namespace qor::test
