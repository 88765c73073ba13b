// The instrument goes away and comes back, at every moment that matters.
#include "curve/curve.h"
#include "link/recovery.h"

namespace qor::test {
namespace {

/// Everything an operator does first with an instrument that has just come back.
void ExpectUsable(Rig& rig) {
    EXPECT_EQ(rig.S().link.identity.Model(), "RT-DB22");
    EXPECT_EQ(rig.S().link.identity.ModelName(), "RT-DB22");
    EXPECT_EQ(PanelOf(rig.S()).m_Band_sel, "DCS");
    EXPECT_FALSE(rig.time.timers.Runs(scanCommtimer));
    rig.S().curve.SetLength(1000);
    rig.Sent();
    ASSERT_TRUE(rig.Measure(20000));
    const auto sent = rig.Sent();
    EXPECT_EQ(std::count(sent.begin(), sent.end(), "#M2T1"), 1);
    EXPECT_EQ(rig.S().curve.NextPoint(), 12);
    EXPECT_EQ(rig.S().curve.ShownVerdict(), Verdict::Passed);
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
            EXPECT_GT(rig.S().link.connection.Losses(), 0);
            EXPECT_EQ(rig.S().link.identity.Serial(), c.serial);
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
        EXPECT_EQ(PanelOf(rig.S()).lamp, Lamp::NotReady);
        EXPECT_TRUE(rig.Sent().empty()) << "nothing is written to a line that is gone";
        rig.port.Replug();
        ASSERT_TRUE(BecomesReady(rig, 10000));
        EXPECT_EQ(rig.Sent().size(), 31u) << "everything is asked again";
        EXPECT_EQ(rig.S().link.identity.Serial(), "SIM01");
        EXPECT_EQ(rig.S().link.connection.Losses(), 1);
        EXPECT_TRUE(rig.user.messages.empty());
        ExpectUsable(rig);
    }
}

// Positions of the band switch depend on the firmware: without it EGSM would go to another band's filter.
TEST(Contact, IdentifiedInFullTheBandsKeepTheirPositions) {
    Rig rig(AtDcs("6.2"));
    ASSERT_TRUE(rig.PowerOn());
    rig.port.Unplug();
    rig.time.RunFor(5000);
    EXPECT_EQ(PanelOf(rig.S()).lamp, Lamp::NotReady);
    rig.port.Replug();
    ASSERT_TRUE(BecomesReady(rig, 30000));
    EXPECT_NEAR(rig.S().link.identity.Firmware(), 6.2f, 0.01f);
    EXPECT_EQ(rig.S().working.Band(), BandDcs) << "the band it stands at";
    ASSERT_TRUE(rig.SelectBand(BandEgsm));
    EXPECT_EQ(rig.instrument.Settings().position, 3);
}

TEST(Contact, TheHeartbeatNoticesSilenceWhileIdle) {
    Rig rig(AtDcs("6.2"));
    ASSERT_TRUE(rig.PowerOn());
    rig.program.ArmStatusPoll();
    rig.time.RunFor(5000);
    rig.line.Add({sim::FaultKind::Silence, 0});
    ASSERT_TRUE(rig.time.RunUntil([&] { return rig.S().link.connection.Losses() == 1; }, 4100));
    EXPECT_EQ(PanelOf(rig.S()).lamp, Lamp::NotReady);
    rig.time.RunFor(30000);
    EXPECT_FALSE(BecomesReady(rig, 1));
    rig.line.ClearFaults();
    ASSERT_TRUE(BecomesReady(rig, 10000));
    ExpectUsable(rig);
}

/// What its adapter still lets open is not kept open: the instrument before counts for nothing.
TEST(Contact, AnAdapterWhoseInstrumentIsOffIsClosedAgain) {
    Rig rig(AtDcs("6.2"));
    ASSERT_TRUE(rig.PowerOn());
    rig.line.Add({sim::FaultKind::Silence, 0});
    ASSERT_TRUE(rig.time.RunUntil([&] { return rig.S().link.connection.Losses() == 1; }, 10000));
    EXPECT_TRUE(rig.time.RunUntil([&] { return !rig.comm.GetPortOpen(); }, 5000));
    EXPECT_TRUE(rig.S().link.identity.Model().empty());
}

struct RunCase {
    int mode;
    int afterMs; ///< of the run
    sim::FaultKind fault;
    float limit = -90;
};

class ContactInRun : public testing::TestWithParam<RunCase> {};

TEST_P(ContactInRun, ThePartialRunStaysAndNeverPasses) {
    const RunCase c = GetParam();
    const Verdict verdict = c.limit < -100 ? Verdict::Failed : Verdict::None;
    Rig rig(AtDcs("6.2"));
    ASSERT_TRUE(rig.PowerOn());
    rig.S().curve.limit.Take(c.limit);
    ASSERT_TRUE(rig.program.Select().SelectMethod(c.mode));
    rig.program.OnMeasButton();
    rig.time.RunFor(c.afterMs);
    ASSERT_TRUE(rig.S().run.IsOn());
    if (c.fault == sim::FaultKind::Silence)
        rig.line.Add({c.fault, 0});
    else
        rig.port.Unplug();
    ASSERT_TRUE(rig.time.RunUntil([&] { return !rig.S().run.IsOn(); }, 10000));
    const auto up = rig.S().curve.Up();
    const auto grid = rig.S().curve.Grid();
    const auto points = std::count_if(up.begin(), up.end(), [](float level) { return level != 0.0f; });
    EXPECT_GT(points, c.afterMs / 200);
    EXPECT_EQ(rig.S().curve.ShownVerdict(), verdict);
    rig.time.RunFor(5000);
    EXPECT_EQ(PanelOf(rig.S()).lamp, Lamp::NotReady);

    rig.line.ClearFaults();
    rig.port.Replug();
    ASSERT_TRUE(BecomesReady(rig, 20000));
    EXPECT_TRUE(up == rig.S().curve.Up() && grid == rig.S().curve.Grid());
    EXPECT_EQ(rig.S().curve.ShownVerdict(), verdict) << "over the limit stays failed";
    rig.S().curve.limit.Take(-90);
    EXPECT_FALSE(rig.S().run.IsOn()) << "a run is never taken up by itself";
    EXPECT_TRUE(rig.program.Files().DataSave(rig.dir / "partial.dat"));
    EXPECT_EQ(rig.Told(),
              std::vector<std::string>{"contact was lost during the run; the partial curve is kept"});

    if (c.mode == ModeTwoTone) {
        ExpectUsable(rig);
    } else {
        ASSERT_TRUE(rig.Measure());
        EXPECT_EQ(rig.S().curve.ShownVerdict(), Verdict::Passed);
    }
}

INSTANTIATE_TEST_SUITE_P(Runs, ContactInRun,
                         testing::Values(RunCase{ModeTwoTone, 2500, sim::FaultKind::Unplug},
                                         RunCase{ModeTwoTone, 2500, sim::FaultKind::Silence},
                                         RunCase{ModeSweep, 3000, sim::FaultKind::Unplug},
                                         RunCase{ModeSweep, 3000, sim::FaultKind::Silence},
                                         RunCase{ModeTwoTone, 2500, sim::FaultKind::Silence, -150},
                                         RunCase{ModeSweep, 3000, sim::FaultKind::Unplug, -150}));

TEST(Contact, UnpluggedAtAnyCommandOfAStart) {
    for (int at = 0; at < 12; ++at) {
        SCOPED_TRACE(at);
        Rig rig(AtDcs("6.2"));
        ASSERT_TRUE(rig.PowerOn());
        rig.line.Add({sim::FaultKind::Unplug, rig.line.CommandCount() + at});
        rig.line.Add({sim::FaultKind::Replug, 1});
        rig.program.OnMeasButton();
        ASSERT_TRUE(rig.time.RunUntil([&] { return !rig.S().run.IsOn(); }, 10000));
        EXPECT_EQ(rig.S().curve.ShownVerdict(), Verdict::None);
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
    ASSERT_TRUE(rig.time.RunUntil([&] { return rig.S().link.connection.LastPort() == 2; }, 10000))
        << "the port that is not the last one";
    rig.line.ClearFaults();
    ASSERT_TRUE(BecomesReady(rig, 20000));
    EXPECT_EQ(rig.S().link.connection.LastPort(), 1);
    ExpectUsable(rig);
}

} // namespace
} // namespace qor::test
