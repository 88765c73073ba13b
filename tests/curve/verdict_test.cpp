#include "curve/run_tally.h"

#include <gtest/gtest.h>
#include <optional>
#include <string>

namespace qor {
namespace {

/// Every combination of what the facts can be, against what each verdict means.
TEST(Judge, EveryCombinationOfFacts) {
    int passes = 0;
    for (const RunEnd end : {RunEnd::None, RunEnd::ByItself, RunEnd::Stopped, RunEnd::CutShort})
        for (const auto& [taken, asked] : {std::pair{0, 0}, {0, 3}, {1, 3}, {3, 3}, {4, 3}})
            for (const auto highest : {std::optional<float>(), std::optional(-120.0f), std::optional(-89.99f),
                                       std::optional(-89.98f), std::optional(-0.5f), std::optional(5.0f)})
                for (const int error : {0, 1, 2, 3, 4})
                    for (const bool hasFailed : {false, true})
                        for (const bool watched : {false, true}) {
                            const Verdict verdict =
                                Judge({asked, taken, highest, end, error, hasFailed, -90.0, watched});
                            const bool over = highest == -89.98f || highest == -0.5f || highest == 5.0f;
                            EXPECT_EQ(verdict == Verdict::Error, error != 0);
                            if (error != 0)
                                continue;
                            EXPECT_EQ(verdict == Verdict::Failed, watched && (over || hasFailed));
                            const bool all = taken >= asked && taken > 0;
                            const bool passed =
                                watched && !over && !hasFailed &&
                                ((end == RunEnd::ByItself && all) || (end == RunEnd::Stopped && taken > 0));
                            EXPECT_EQ(verdict == Verdict::Passed, passed) << taken << " of " << asked;
                            passes += passed ? 1 : 0;
                        }
    EXPECT_EQ(passes, 3 * (2 + 3)) << "three levels that are not over, five ways to have earned it";
}

TEST(Judge, ALimitBelowWhatTheReceiverHearsTellsNothing) {
    for (const double limit : {-73.0, -73.1})
        EXPECT_EQ(Judge({.asked = 3,
                         .taken = 3,
                         .highest = -60.0f,
                         .end = RunEnd::ByItself,
                         .limit = limit,
                         .floor = -73.0f}),
                  limit < -73 ? Verdict::None : Verdict::Failed);
}

std::string Told(const RunFacts& facts) {
    return std::to_string(facts.taken) + "/" + std::to_string(facts.asked) +
           (facts.IsPartial() ? " part" : "");
}

TEST(RunTally, TheRunsOfASeriesAreCountedTogetherAndEachForItself) {
    RunTally tally;
    EXPECT_EQ(Told(tally.OfAll()), "0/0");
    tally.Begin(0);
    tally.Take(-80);
    tally.Count({28, 28});
    tally.Begin(1);
    tally.Take(-100);
    tally.Count({28, 27});
    EXPECT_EQ(tally.OfAll().end, RunEnd::None);
    EXPECT_EQ(tally.OfRow(0).end, RunEnd::None) << "no run is judged while one is on";
    EXPECT_EQ(tally.OfLast().end, RunEnd::ByItself) << "its file is written while the next is on";
    tally.Begin(2);
    tally.Take(-110);
    tally.EndWithin(RunEnd::Stopped, {28, 5}, 2, false);
    EXPECT_EQ(Told(tally.OfAll()), "60/140 part") << "two runs were not begun";
    EXPECT_EQ(tally.OfAll().highest, -80.0f);
    EXPECT_EQ(Told(tally.OfRow(0)), "28/28");
    EXPECT_EQ(tally.OfRow(0).end, RunEnd::ByItself);
    EXPECT_EQ(Told(tally.OfRow(1)), "27/28 part");
    EXPECT_EQ(tally.OfRow(1).highest, -100.0f);
    EXPECT_EQ(Told(tally.OfRow(2)), "5/28 part");
    EXPECT_EQ(Told(tally.OfLast()), "5/28 part");
    EXPECT_EQ(Told(tally.OfRow(3)), "0/0") << "a run never made";
    EXPECT_EQ(tally.OfRow(3).end, RunEnd::None);
}

TEST(RunTally, OfWhatRepeatsAWholePassIsEnoughForAStop) {
    for (const RunEnd end : {RunEnd::Stopped, RunEnd::CutShort}) {
        RunTally tally;
        tally.Begin(0);
        tally.Count({13, 12});
        tally.Count({13, 13});
        tally.EndWithin(end, {13, 4}, 0, true);
        EXPECT_EQ(Told(tally.OfAll()), end == RunEnd::Stopped ? "13/13" : "29/39 part");
    }
    RunTally none;
    none.Begin(0);
    none.Count({13, 12});
    none.EndWithin(RunEnd::Stopped, {13, 4}, 0, true);
    EXPECT_EQ(Told(none.OfAll()), "16/26 part");
}

TEST(RunTally, APassThatHasGoneFromThePlotStaysKnown) {
    RunTally tally;
    tally.Begin(0);
    tally.Take(-60);
    tally.Count({13, 13});
    tally.Begin(0); // each pass is filed, and the next begins with an empty plot
    tally.Take(-110);
    tally.Count({13, 13});
    tally.EndByItself();
    EXPECT_EQ(Told(tally.OfAll()), "26/26");
    EXPECT_EQ(tally.OfAll().highest, -60.0f);
    EXPECT_EQ(tally.OfRow(0).highest, -60.0f) << "the only run in view holds them all";
    EXPECT_EQ(tally.OfLast().highest, -110.0f) << "the file holds the last";
}

TEST(RunTally, AFileBringsItsOwnFacts) {
    RunTally tally;
    tally.Take(-50);
    tally.NoteError(3);
    tally.Load({28, 12, -100.0f, RunEnd::Stopped, 0, false, 0, true});
    for (const RunFacts& facts : {tally.OfAll(), tally.OfRow(0), tally.OfLast()}) {
        EXPECT_EQ(Told(facts), "12/28 part");
        EXPECT_EQ(facts.highest, -100.0f);
        EXPECT_EQ(facts.error, 0);
    }
    EXPECT_EQ(Told(tally.OfRow(1)), "0/0");
    tally.NoteError(4);
    EXPECT_EQ(tally.OfAll().error, 4) << "an error behind the load is the instrument's own";
}

} // namespace
} // namespace qor
