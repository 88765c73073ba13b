// The instrument goes away and comes back, at every moment that matters.
#include "core/timer_ids.h"
#include "display/curve_store.h"
#include "link/recovery.h"

namespace qor::test {
namespace {

/// Everything an operator does first with an instrument that has just come back.
void ExpectUsable(Rig& rig) {
    EXPECT_EQ(rig.S().link.m_Type, "RT-DB22");
    EXPECT_EQ(rig.S().link.g_ModelName, "RT-DB22");
    EXPECT_EQ(rig.S().panel.m_Band_sel, "DCS");
    EXPECT_FALSE(rig.time.timers.Runs(scanCommtimer));
    rig.S().curve.g_testTimeMs = 1000;
    rig.Sent();
    ASSERT_TRUE(rig.Measure(20000));
    const auto sent = rig.Sent();
    EXPECT_EQ(std::count(sent.begin(), sent.end(), "#M2T1"), 1);
    EXPECT_EQ(rig.S().curve.StoreDataPot, 12);
    EXPECT_EQ(rig.S().curve.g_MeasVerdict, VerdictPassed);
    EXPECT_EQ(rig.instrument.Settings().carrier1, 0);
}

TEST(Contact, UnpluggedAtAnyCommandOfTheChain) {
    struct Case {
        const char* firmware;
        const char* serial;
    };
    for (const Case& c :
         {Case{"3.4", "00000"}, Case{"4.9", "00001"}, Case{"6.1", "SIM01"}, Case{"6.2", "SIM01"}}) {
        const char* const firmware = c.firmware;
        const int commands = CommandsToReady(firmware);
        for (int at = 0; at < commands; ++at) {
            SCOPED_TRACE(std::string(firmware) + " at command " + std::to_string(at));
            Rig rig(AtDcs(firmware));
            rig.line.Add({sim::FaultKind::Unplug, at});
            rig.line.Add({sim::FaultKind::Replug, 3});
            rig.program.Start(false);
            ASSERT_TRUE(BecomesReady(rig, 120000));
            EXPECT_GT(rig.S().link.contactLosses, 0);
            EXPECT_EQ(rig.S().link.g_DeviceSN, c.serial);
            if (at % 5 == 0)
                ExpectUsable(rig);
        }
    }
}

// The instrument is switched off and on with its cable in: only the wait timer tells.
TEST(Contact, SilentFromAnyCommandOfTheChain) {
    for (const char* firmware : {"3.4", "4.9", "6.1", "6.2"}) {
        const int commands = CommandsToReady(firmware);
        for (int at = 0; at < commands; ++at) {
            SCOPED_TRACE(std::string(firmware) + " from command " + std::to_string(at));
            Rig rig(AtDcs(firmware));
            rig.line.Add({sim::FaultKind::Silence, at});
            rig.program.Start(false);
            rig.time.RunFor(20000 + at * 500);
            rig.line.ClearFaults();
            ASSERT_TRUE(BecomesReady(rig, 120000));
            if (at % 5 == 0)
                ExpectUsable(rig);
        }
    }
}

TEST(Contact, SilentAgainWhenTheIdentityIsAskedTheSecondTime) {
    Rig rig(AtDcs("6.2"));
    rig.line.Add({sim::FaultKind::Unplug, 5}); // the model is known by then
    rig.line.Add({sim::FaultKind::Replug, 1});
    rig.line.Add({sim::FaultKind::Silence, 7}); // the second #IDN?
    rig.program.Start(false);
    ASSERT_TRUE(rig.time.RunUntil([&] { return rig.line.CommandCount() == 8; }, 20000));
    rig.time.RunFor(15000);
    rig.line.ClearFaults();
    EXPECT_TRUE(BecomesReady(rig, 120000));
    ExpectUsable(rig);
}

TEST(Contact, UnpluggedWhileIdle) {
    for (const int awayMs : {10, 1900, 2100, 60000}) {
        SCOPED_TRACE(awayMs);
        Rig rig(AtDcs("6.2"));
        ASSERT_TRUE(rig.PowerOn());
        rig.program.ArmStatusPoll();
        rig.time.RunFor(7000);
        rig.Sent();
        rig.port.Unplug();
        rig.time.RunFor(awayMs);
        EXPECT_EQ(rig.S().panel.lamp, Lamp::NotReady);
        EXPECT_TRUE(rig.Sent().empty()) << "nothing is written to a line that is gone";
        rig.port.Replug();
        ASSERT_TRUE(BecomesReady(rig, 10000));
        EXPECT_EQ(rig.Sent(),
                  (std::vector<std::string>{"#SR", "#SMREF", "#SAB?", "#USEID3", "#SPWA00430", "#SPWB00430"}))
            << "the short chain of a reconnection";
        EXPECT_EQ(rig.S().link.g_DeviceSN, "SIM01");
        EXPECT_EQ(rig.S().link.contactLosses, 1);
        EXPECT_TRUE(rig.user.messages.empty());
        ExpectUsable(rig);
    }
}

// Positions of the band switch depend on the firmware: without it EGSM would go to another band's filter.
TEST(Contact, IdentifiedInFullTheBandsKeepTheirPositions) {
    Rig rig(AtDcs("6.2"));
    rig.program.IdentifyAfterLoss();
    ASSERT_TRUE(rig.PowerOn());
    rig.port.Unplug();
    rig.time.RunFor(5000);
    EXPECT_EQ(rig.S().panel.lamp, Lamp::NotReady);
    rig.port.Replug();
    ASSERT_TRUE(BecomesReady(rig, 30000));
    EXPECT_NEAR(rig.S().link.FirmVersion, 6.2f, 0.01f);
    EXPECT_EQ(rig.S().select.m_BandId, BandDcs) << "the band it stands at";
    ASSERT_TRUE(rig.SelectBand(BandEgsm));
    EXPECT_EQ(rig.instrument.Settings().position, 3);
}

TEST(Contact, TheHeartbeatNoticesSilenceWhileIdle) {
    Rig rig(AtDcs("6.2"));
    ASSERT_TRUE(rig.PowerOn());
    rig.program.ArmStatusPoll();
    rig.time.RunFor(5000);
    rig.line.Add({sim::FaultKind::Silence, 0});
    ASSERT_TRUE(rig.time.RunUntil([&] { return rig.S().link.contactLosses == 1; }, 4100));
    EXPECT_EQ(rig.S().panel.lamp, Lamp::NotReady);
    rig.time.RunFor(30000);
    EXPECT_FALSE(BecomesReady(rig, 1));
    rig.line.ClearFaults();
    ASSERT_TRUE(BecomesReady(rig, 10000));
    ExpectUsable(rig);
}

struct RunCase {
    int mode;
    int afterMs; ///< of the run
    sim::FaultKind fault;
};

class ContactInRun : public testing::TestWithParam<RunCase> {};

TEST_P(ContactInRun, ThePartialRunStaysAndNeverPasses) {
    const RunCase c = GetParam();
    Rig rig(AtDcs("6.2"));
    ASSERT_TRUE(rig.PowerOn());
    ASSERT_TRUE(rig.program.Select().SelectMethod(c.mode));
    rig.program.OnMeasButton();
    rig.time.RunFor(c.afterMs);
    ASSERT_TRUE(rig.S().run.runOn);
    if (c.fault == sim::FaultKind::Silence)
        rig.line.Add({c.fault, 0});
    else
        rig.port.Unplug();
    ASSERT_TRUE(rig.time.RunUntil([&] { return !rig.S().run.runOn; }, 10000));
    const auto up = rig.S().curve.g_levelUp;
    const auto grid = rig.S().curve.g_freqGrid;
    const auto points = std::count_if(up.begin(), up.end(), [](float level) { return level != 0.0f; });
    EXPECT_GT(points, c.afterMs / 200);
    EXPECT_EQ(rig.S().curve.g_MeasVerdict, VerdictNone);
    rig.time.RunFor(5000);
    EXPECT_EQ(rig.S().panel.lamp, Lamp::NotReady);

    rig.line.ClearFaults();
    rig.port.Replug();
    ASSERT_TRUE(BecomesReady(rig, 20000));
    EXPECT_TRUE(up == rig.S().curve.g_levelUp && grid == rig.S().curve.g_freqGrid);
    EXPECT_EQ(rig.S().curve.g_MeasVerdict, VerdictNone);
    EXPECT_FALSE(rig.S().run.runOn) << "a run is never taken up by itself";
    EXPECT_TRUE(rig.program.Files().DataSave(rig.dir / "partial.dat"));
    EXPECT_TRUE(rig.user.messages.empty());

    if (c.mode == ModeTwoTone) {
        ExpectUsable(rig);
    } else {
        ASSERT_TRUE(rig.Measure());
        EXPECT_EQ(rig.S().curve.g_MeasVerdict, VerdictPassed);
    }
}

INSTANTIATE_TEST_SUITE_P(Runs, ContactInRun,
                         testing::Values(RunCase{ModeTwoTone, 2500, sim::FaultKind::Unplug},
                                         RunCase{ModeTwoTone, 2500, sim::FaultKind::Silence},
                                         RunCase{ModeSweep, 3000, sim::FaultKind::Unplug},
                                         RunCase{ModeSweep, 3000, sim::FaultKind::Silence}));

TEST(Contact, UnpluggedAtAnyCommandOfAStart) {
    for (int at = 0; at < 12; ++at) {
        SCOPED_TRACE(at);
        Rig rig(AtDcs("6.2"));
        ASSERT_TRUE(rig.PowerOn());
        rig.line.Add({sim::FaultKind::Unplug, rig.line.CommandCount() + at});
        rig.line.Add({sim::FaultKind::Replug, 1});
        rig.program.OnMeasButton();
        ASSERT_TRUE(rig.time.RunUntil([&] { return !rig.S().run.runOn; }, 10000));
        EXPECT_EQ(rig.S().curve.g_MeasVerdict, VerdictNone);
        ASSERT_TRUE(BecomesReady(rig, 10000));
        ExpectUsable(rig);
    }
}

TEST(Contact, WithTwoPortsTheOtherIsTriedAndTheInstrumentFoundAgain) {
    Rig rig(AtDcs("6.2"));
    ASSERT_TRUE(rig.PowerOn());
    sim::Instrument deaf{{}};
    sim::Line deafLine(deaf);
    deafLine.Add({sim::FaultKind::Silence, 0});
    rig.ports.Add(deafLine, "/dev/ttySIM1");
    rig.program.ArmStatusPoll();
    rig.line.Add({sim::FaultKind::Silence, 0});
    ASSERT_TRUE(rig.time.RunUntil([&] { return rig.S().link.g_LastPort == 2; }, 10000))
        << "the port that is not the last one";
    rig.line.ClearFaults();
    ASSERT_TRUE(BecomesReady(rig, 20000));
    EXPECT_EQ(rig.S().link.g_LastPort, 1);
    ExpectUsable(rig);
}

} // namespace
} // namespace qor::test
