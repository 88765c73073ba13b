// A line that spoils, cuts, delays or floods what the instrument says. The program comes to ready or keeps
// searching, and is ready soon after the line is good again.
#include "curve/curve.h"
#include "link/recovery.h"

namespace qor::test {
namespace {

using sim::FaultKind;

constexpr const char* Firmwares[] = {"3.4", "4.9", "6.1", "6.2"};

/// Tries a run of some seconds, whatever state the line has left the program in.
void TryARun(Rig& rig) {
    rig.S().curve.SetLength(1000);
    rig.program.OnMeasButton();
    rig.time.RunUntil([&] { return !rig.S().run.IsOn(); }, 20000);
    if (!rig.S().curve.HoldsPoints()) {
        EXPECT_NE(rig.S().curve.ShownVerdict(), Verdict::Passed) << "nothing was measured";
    }
    if (rig.S().run.IsOn())
        rig.program.StopMeas();
}

/// The line is good again: the program comes to ready by itself.
void ExpectRecovery(Rig& rig) {
    rig.line.ClearFaults();
    ASSERT_TRUE(BecomesReady(rig, 90000))
        << "g_init " << rig.S().link.chain.Step() << ", heard " << rig.S().link.chain.HasBeenHeard() << ", "
        << rig.S().link.identity.Model() << ", " << PanelOf(rig.S()).m_Band_sel << "\n"
        << rig.wire.Recent();
}

TEST(BadLine, SingleBytesChangeNothing) {
    for (const char* firmware : Firmwares) {
        SCOPED_TRACE(firmware);
        std::vector<std::vector<std::string>> sent;
        std::vector<std::array<float, CurvePoints + 1>> curves;
        for (const bool pieces : {false, true}) {
            Rig rig(AtDcs(firmware));
            if (pieces)
                rig.line.Add({FaultKind::Pieces, 0});
            ASSERT_TRUE(rig.PowerOn());
            rig.S().curve.NoteReplyTime(50);
            ASSERT_TRUE(rig.SelectBand(BandUmts));
            sent.push_back(rig.Sent());
            ASSERT_TRUE(rig.Measure());
            EXPECT_EQ(rig.S().curve.ShownVerdict(), Verdict::Passed);
            EXPECT_EQ(rig.S().curve.NextPoint(), 52);
            curves.push_back(rig.S().curve.Up());
        }
        EXPECT_EQ(sent[0], sent[1]);
        for (std::size_t i = 0; i < 52; ++i)
            EXPECT_NEAR(curves[0][i], curves[1][i], 3.0f);
    }
}

// From power-on, and from the middle of the chain, of an idle link, of a run.
TEST(BadLine, WhateverHappensItRecovers) {
    for (const FaultKind kind :
         {FaultKind::Garble, FaultKind::EarlyEnd, FaultKind::Endless, FaultKind::Silence}) {
        for (const char* firmware : Firmwares) {
            for (int at = 0; at < 44; at += kind == FaultKind::Garble ? 1 : 3) {
                SCOPED_TRACE(std::string(sim::Faults[static_cast<std::size_t>(kind)].name) + " " + firmware +
                             " from command " + std::to_string(at));
                Rig rig(AtDcs(firmware, static_cast<std::uint64_t>(at) + 1));
                rig.line.Add({kind, at});
                rig.program.Start(false);
                if (BecomesReady(rig, 40000))
                    TryARun(rig);
                ExpectRecovery(rig);
                if (testing::Test::HasFatalFailure())
                    return;
            }
        }
    }
}

// Half of a reading is no level, whatever number can be read out of it.
TEST(BadLine, ACutReadingMakesNoPoint) {
    Rig rig(AtDcs("6.2"));
    ASSERT_TRUE(rig.PowerOn());
    ASSERT_TRUE(rig.SelectBand(BandUmts));
    rig.line.Add({FaultKind::EarlyEnd, rig.line.CommandCount()});
    TryARun(rig);
    EXPECT_FALSE(rig.S().curve.HoldsPoints());
    ExpectRecovery(rig);
}

// One error reply at any command of the chain: the instrument did not understand one command, once.
TEST(BadLine, AnErrorReplyInTheChainDoesNotStopIt) {
    for (const FaultKind kind : {FaultKind::SyntaxError, FaultKind::Pll}) {
        for (const char* firmware : Firmwares) {
            const int commands = CommandsToReady(firmware);
            for (int at = 0; at < commands; ++at) {
                SCOPED_TRACE(std::string(firmware) + " at command " + std::to_string(at));
                Rig rig(AtDcs(firmware));
                rig.line.Add({kind, at});
                rig.program.Start(false);
                ASSERT_TRUE(BecomesReady(rig, 80000));
                EXPECT_EQ(rig.S().curve.ShownVerdict(), Verdict::None);
                const std::string& serial = rig.S().link.identity.Serial();
                if (firmware == std::string("4.9")) {
                    EXPECT_TRUE(serial == "00001" || serial == "00000" || serial == "0") << serial;
                }
                rig.S().curve.SetLength(500);
                ASSERT_TRUE(rig.Measure(20000));
                EXPECT_EQ(rig.S().curve.ShownVerdict(), Verdict::Passed);
            }
        }
    }
}

TEST(BadLine, ASlowLineIsWaitedForOrSearchedAgain) {
    struct Case {
        int slowMs;
        bool ready; ///< the identity is there within its second
    };
    for (const Case& c : {Case{100, true}, Case{300, true}, Case{700, false}, Case{2500, false},
                          Case{4100, false}, Case{7000, false}}) {
        for (const char* firmware : {"3.4", "5.7", "6.2"}) {
            SCOPED_TRACE(std::string(firmware) + " " + std::to_string(c.slowMs) + " ms");
            Rig rig(AtDcs(firmware));
            rig.line.Add({FaultKind::Slow, c.slowMs});
            rig.program.Start(false);
            EXPECT_EQ(BecomesReady(rig, c.ready ? 60000 : 15000), c.ready);
            if (c.ready) {
                ASSERT_TRUE(rig.SelectBand(BandUmts));
                ASSERT_TRUE(rig.Measure());
                EXPECT_EQ(rig.S().curve.ShownVerdict(), Verdict::Passed);
                EXPECT_LE(rig.S().curve.NextPoint(), 52 * 100 / c.slowMs + 1)
                    << "the time of a point follows the line";
            }
            ExpectRecovery(rig);
            TryARun(rig);
            EXPECT_EQ(rig.S().curve.ShownVerdict(), Verdict::Passed);
        }
    }
}

// The line becomes slow, or silent for a while, on a ready link: a late reply must not count for the next
// command.
TEST(BadLine, LateRepliesDoNotCutTheNextChainShort) {
    for (const int slowMs : {2100, 2600, 3900, 4300, 4900, 6000}) {
        SCOPED_TRACE(slowMs);
        Rig rig(AtDcs("5.7"));
        ASSERT_TRUE(rig.PowerOn());
        rig.program.ArmStatusPoll();
        rig.time.RunFor(5000);
        rig.line.Add({FaultKind::Slow, slowMs});
        rig.time.RunFor(30000);
        ExpectRecovery(rig);
        EXPECT_EQ(PanelOf(rig.S()).m_Band_sel, "DCS");
        EXPECT_EQ(rig.S().link.identity.Model(), "RT-DB22");
        TryARun(rig);
        EXPECT_EQ(rig.S().curve.ShownVerdict(), Verdict::Passed);
        EXPECT_EQ(rig.S().link.identity.Serial(), "00001");
    }
}

} // namespace
} // namespace qor::test
