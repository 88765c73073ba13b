// The port button, the list of several ports, and the connection that the start button asks for.
#include "support/rig.h"

#include <deque>

namespace qor::test {
namespace {

/// A rig whose machine has more ports than one, each with its own instrument.
struct PortsRig : Rig {
    explicit PortsRig(std::initializer_list<const char*> models) {
        for (const char* model : models) {
            sim::InstrumentConfig config;
            config.model = model;
            lines.emplace_back(instruments.emplace_back(config));
            ports.Add(lines.back(), "/dev/ttySIM" + std::to_string(lines.size()));
        }
    }
    ~PortsRig() { port.SetPortOpen(false); } // the lines below go before the port does
    std::deque<sim::Instrument> instruments;
    std::deque<sim::Line> lines;

    std::vector<std::string> PortTexts() {
        std::vector<std::string> texts;
        for (const PortEntry& entry : S().link.connection.Ports())
            texts.push_back(entry.text);
        return texts;
    }
    void Choose(const std::string& text) {
        S().link.connection.Choose(text);
        program.Link().OnButton1();
    }
};

TEST(Ports, OneIsOpenedWithoutTheOperator) {
    Rig rig;
    rig.program.Start(false);
    rig.time.RunFor(1900);
    EXPECT_FALSE(rig.comm.GetPortOpen());
    ASSERT_TRUE(rig.RunUntilReady());
    EXPECT_FALSE(PanelOf(rig.S()).portButtonShown || PanelOf(rig.S()).portListShown);
    EXPECT_EQ(rig.S().link.connection.Button(), PortButton::Close);
}

TEST(Ports, NoneIsSearchedForUntilOneComes) {
    Rig rig;
    rig.port.SetCommPort(1);
    rig.port.Unplug();
    rig.program.Start(false);
    rig.time.RunFor(60000);
    EXPECT_EQ(PanelOf(rig.S()).lamp, Lamp::NotReady);
    EXPECT_EQ(rig.S().link.connection.Button(), PortButton::Scan);
    EXPECT_TRUE(rig.user.messages.empty() && rig.Sent().empty());
    rig.port.Replug();
    EXPECT_TRUE(rig.RunUntilReady(5000));
}

TEST(Ports, SeveralAreProbedAndTheOperatorChooses) {
    PortsRig rig({"RT-K022", "RT-L027"});
    rig.program.Start(false);
    rig.time.RunFor(15000);
    EXPECT_TRUE(PanelOf(rig.S()).portListShown && PanelOf(rig.S()).portButtonShown);
    EXPECT_EQ(rig.S().link.connection.Button(), PortButton::Open);
    // The identity handling takes the answer of the first port.
    EXPECT_EQ(rig.PortTexts(),
              (std::vector<std::string>{"COM1 (/dev/ttySIM0)", "COM2 (/dev/ttySIM1): RT-K022",
                                        "COM3 (/dev/ttySIM2): RT-L027"}));
    EXPECT_FALSE(rig.time.timers.Runs(ReadEachType));
    rig.Sent();

    rig.Choose("COM2 (/dev/ttySIM1): RT-K022");
    ASSERT_TRUE(rig.RunUntilReady());
    EXPECT_EQ(rig.S().link.identity.Model(), "RT-K022");
    EXPECT_EQ(rig.Sent().size(), 31u);
    EXPECT_EQ(rig.S().link.connection.Button(), PortButton::Close);
    EXPECT_TRUE(PanelOf(rig.S()).portButtonShown && !PanelOf(rig.S()).portListShown);
    EXPECT_LT(rig.S().curve.ReplyTime(), 100) << "of the first command, not of the search before it";
}

/// Nobody is connected while the operator chooses: no instrument is shown, and the way out writes to none.
TEST(Ports, AreOnlyLookedAtUntilOneIsChosen) {
    for (const int ms : {4000, 18000}) { // on the way, and behind it
        PortsRig rig({"RT-K022", "RT-L027"});
        rig.lines[1].Add({sim::FaultKind::Silence, 0});
        rig.program.Start(false);
        rig.time.RunFor(ms);
        if (ms == 18000) {
            EXPECT_EQ(rig.S().link.identity.Model() + rig.S().link.identity.ModelName(), "");
        }
        rig.Sent();
        bool over = false;
        rig.program.SetQuit([&over](int) { over = true; });
        rig.program.Leave();
        rig.time.RunFor(2000);
        EXPECT_TRUE(over);
        EXPECT_EQ(rig.Sent(), std::vector<std::string>()) << ms;
    }
}

/// Chosen for him, pressed by him.
TEST(Ports, TheOnlyOneThatAnswersIsProposed) {
    for (const bool second : {false, true}) {
        PortsRig rig({"RT-K022", "RT-L027"});
        rig.lines[1].Add({sim::FaultKind::Silence, 0});
        if (!second)
            rig.lines[0].Add({sim::FaultKind::Silence, 0});
        rig.program.Start(false);
        for (const int ms : {2500, 600}) {
            rig.time.RunFor(ms);
            EXPECT_FALSE(rig.S().link.connection.AwaitsChoice()) << "it is being looked what hangs on them";
        }
        rig.time.RunFor(15000);
        EXPECT_TRUE(rig.S().link.connection.AwaitsChoice());
        EXPECT_EQ(rig.S().link.connection.Chosen(), second ? "" : "COM1 (/dev/ttySIM0)");
        rig.user.messages.clear();
        rig.program.Link().OnButton1();
        EXPECT_EQ(rig.Told(), second ? std::vector<std::string>{"Bitte zuerst einen Port auswaehlen."}
                                     : std::vector<std::string>());
        EXPECT_EQ(rig.RunUntilReady(), !second);
        EXPECT_EQ(PanelOf(rig.S()).portListShown, second) << "nothing was opened, the choice stands";
    }
}

TEST(Ports, AfterALossTheyAreLabelledUpToTheFirstThatStaysSilent) {
    PortsRig rig({"RT-K022"});
    rig.program.Start(false);
    rig.time.RunFor(5000);
    rig.Choose("COM2 (/dev/ttySIM1)");
    ASSERT_TRUE(rig.RunUntilReady());
    sim::Instrument third{{}};
    sim::Line thirdLine(third);
    rig.ports.Add(thirdLine, "/dev/ttySIM2");
    rig.lines[0].Add({sim::FaultKind::Silence, 0});
    rig.program.ArmStatusPoll();
    rig.time.RunFor(10000);
    EXPECT_EQ(rig.PortTexts(), (std::vector<std::string>{"COM1 (/dev/ttySIM0): RT-DB22",
                                                         "COM2 (/dev/ttySIM1)", "COM3 (/dev/ttySIM2)"}))
        << "behind the first that stays silent only the other speed is tried";
}

TEST(Ports, WithTwoAndALastOneTheOtherIsOpened) {
    PortsRig rig({"RT-K022"});
    rig.program.Link().Opened(1);
    ASSERT_TRUE(rig.PowerOn());
    EXPECT_EQ(rig.S().link.identity.Model(), "RT-K022");
    EXPECT_TRUE(PanelOf(rig.S()).portButtonShown);
}

TEST(Ports, AboveSixteenIsRefused) {
    PortsRig rig({});
    for (int number = 2; number <= 17; ++number)
        rig.ports.Add(rig.line, "/dev/tty" + std::to_string(number));
    rig.program.Start(false);
    rig.time.RunFor(2100);
    ASSERT_EQ(rig.PortTexts().size(), 17u);
    rig.Choose("COM17 (/dev/tty17)");
    EXPECT_EQ(rig.user.messages,
              (std::vector<std::string>{"Port muessen kleiner als 17\nCOM17 (/dev/tty17)"}));
    EXPECT_FALSE(rig.comm.GetPortOpen());
    EXPECT_EQ(rig.S().link.connection.Button(), PortButton::Scan);
    rig.program.Link().OnButton1(); // "Scannen Port": the list again
    EXPECT_EQ(rig.S().link.connection.Button(), PortButton::Open);
    rig.Choose("COM16 (/dev/tty16)");
    EXPECT_TRUE(rig.RunUntilReady());
}

TEST(Ports, OneThatCannotBeOpenedIsNamedAndTriedAgain) {
    Rig rig;
    OnePort ports; // of the two only one can be opened, as without the rights to the other
    const auto lock = [&ports](bool locked) {
        ports.number = locked ? 9 : 1;
        ports.device = locked ? "/dev/ttyS9" : "/dev/ttySIM0";
    };
    lock(true);
    Program program({rig.comm, ports, rig.time.timers, rig.time.clock, rig.user}, rig.dir / "stores");
    program.Start(false);
    rig.time.RunFor(6100);
    ASSERT_EQ(rig.user.messages.size(), 3u);
    EXPECT_EQ(rig.user.messages[0],
              "Cannot connect to device for incorrect port, please select correct port!\nCOM9 (/dev/ttyS9)");
    lock(false);
    EXPECT_TRUE(rig.time.RunUntil([&] { return program.IsReady(); }, 10000));

    rig.port.Unplug();
    lock(true);
    rig.time.RunFor(10000);
    EXPECT_EQ(PanelOf(program.State()).lamp, Lamp::NotReady);
    program.Link().OnButton1(); // "Scannen Port" by hand finds nothing either, and the search goes on
    rig.ports.Replug(1);
    lock(false);
    EXPECT_TRUE(rig.time.RunUntil([&] { return program.IsReady(); }, 10000));
}

TEST(PortButton, ClosesAfterACountdownAndOpensAgain) {
    Rig rig;
    ASSERT_TRUE(rig.PowerOn());
    rig.program.ArmStatusPoll();
    rig.time.RunFor(5500);
    // Also while the answer of the status poll is on its way.
    ASSERT_TRUE(rig.time.RunUntil([&] { return !rig.S().link.transaction.IsIdle(); }, 3000));
    rig.Sent();
    rig.program.Link().OnButton1();
    EXPECT_EQ(PanelOf(rig.S()).lamp, Lamp::NotReady);
    EXPECT_EQ(PanelOf(rig.S()).m_Band_sel, NoBandText);
    EXPECT_TRUE(PanelOf(rig.S()).portListShown);
    EXPECT_EQ(rig.S().link.connection.Button(), PortButton::Open);
    rig.program.Link().OnButton1(); // ignored
    rig.time.RunFor(1700);
    EXPECT_TRUE(rig.comm.GetPortOpen());
    rig.time.RunFor(300);
    EXPECT_FALSE(rig.comm.GetPortOpen());
    rig.time.RunFor(20000);
    EXPECT_FALSE(rig.comm.GetPortOpen()) << "what the operator has closed stays closed";
    EXPECT_EQ(PanelOf(rig.S()).lamp, Lamp::NotReady);
    EXPECT_TRUE(rig.Sent().empty());

    rig.program.Link().OnButton1();
    ASSERT_TRUE(rig.RunUntilReady());
    const auto sent = rig.Sent();
    EXPECT_EQ(sent.size(), 31u) << "the full chain: it may be another instrument";
    EXPECT_EQ(rig.S().link.connection.Button(), PortButton::Close);
}

/// The cable was out when the operator pressed: nothing is searched for by itself, so the button has to be
/// there.
TEST(PortButton, AFailedOpeningLeavesTheWayBack) {
    Rig rig;
    ASSERT_TRUE(rig.PowerOn());
    rig.program.Link().OnButton1();
    rig.time.RunFor(3000);
    rig.ports.Unplug(1);
    rig.program.Link().OnButton1();
    EXPECT_TRUE(PanelOf(rig.S()).portButtonShown);
    EXPECT_EQ(rig.S().link.connection.Button(), PortButton::Scan);
    rig.ports.Replug(1);
    rig.program.Link().OnButton1();
    EXPECT_TRUE(rig.RunUntilReady());
}

TEST(PortButton, ClosingInARunSwitchesTheCarriersOff) {
    Rig rig;
    ASSERT_TRUE(rig.PowerOn());
    rig.program.OnMeasButton();
    rig.time.RunFor(2000);
    ASSERT_EQ(rig.instrument.Settings().carrier1, 1);
    rig.program.Link().OnButton1();
    rig.time.RunFor(5000);
    EXPECT_FALSE(rig.comm.GetPortOpen() || rig.S().run.IsOn());
    EXPECT_EQ(rig.instrument.Settings().carrier1, 0);
    EXPECT_NE(rig.S().curve.ShownVerdict(), Verdict::Passed);
}

TEST(PortButton, ClosingEndsTheSearchToo) {
    Rig rig;
    ASSERT_TRUE(rig.PowerOn());
    rig.line.Add({sim::FaultKind::Silence, 0});
    rig.program.ArmStatusPoll();
    ASSERT_TRUE(rig.time.RunUntil([&] { return rig.S().link.connection.Losses() == 1; }, 10000));
    rig.program.Link().OnButton1();
    rig.line.ClearFaults();
    rig.time.RunFor(30000);
    EXPECT_FALSE(rig.comm.GetPortOpen());
    rig.program.Link().OnButton1();
    EXPECT_TRUE(rig.RunUntilReady());
}

TEST(PortButton, AScanByHandGoesOnUntilThereIsAPort) {
    Rig rig;
    ASSERT_TRUE(rig.PowerOn());
    rig.program.Link().OnButton1();
    rig.time.RunFor(3000);
    rig.port.Unplug();
    rig.program.Link().OnButton1(); // cannot be opened
    EXPECT_EQ(rig.S().link.connection.Button(), PortButton::Scan);
    rig.program.Link().OnButton1(); // no port
    rig.time.RunFor(10000);
    rig.port.Replug();
    EXPECT_TRUE(rig.RunUntilReady());
}

// ----- the start button with the port closed

enum class Closed { ByButton, Unplugged, JustUnplugged };

class StartClosed : public testing::TestWithParam<Closed> {
protected:
    Rig rig;
    void Close() {
        ASSERT_TRUE(rig.PowerOn());
        rig.S().curve.SetLength(1000);
        if (GetParam() == Closed::ByButton) {
            rig.program.Link().OnButton1();
            rig.time.RunFor(3000);
        } else {
            rig.port.Unplug();
            rig.time.RunFor(GetParam() == Closed::Unplugged ? 5000 : 10);
            rig.port.Replug();
        }
        ASSERT_FALSE(rig.comm.GetPortOpen());
        rig.Sent();
    }
};

TEST_P(StartClosed, YesConnectsAndMeasures) {
    Close();
    rig.program.OnMeasButton();
    EXPECT_EQ(rig.user.questions, (std::vector<std::string>{"The device is disconnect. Connect it now?"}));
    EXPECT_FALSE(rig.S().run.IsOn());
    ASSERT_TRUE(rig.time.RunUntil([&] { return rig.S().run.IsOn(); }, 10000));
    ASSERT_TRUE(rig.RunUntilRunIsOver());
    EXPECT_EQ(rig.S().curve.NextPoint(), 12);
    EXPECT_EQ(rig.S().curve.ShownVerdict(), Verdict::Passed);
    const auto sent = rig.Sent();
    EXPECT_EQ(sent.front(), "#SR");
    EXPECT_EQ(std::count(sent.begin(), sent.end(), "#M2T1"), 1);
    EXPECT_LT(std::find(sent.begin(), sent.end(), "#SPWB00430"),
              std::find(sent.begin(), sent.end(), "#M2T1"));
    rig.time.RunFor(10000);
    EXPECT_TRUE(rig.comm.GetPortOpen() && !rig.S().run.IsOn());
    EXPECT_TRUE(rig.user.messages.empty());
}

TEST_P(StartClosed, NoLeavesItClosed) {
    Close();
    rig.user.answer = false;
    rig.program.OnMeasButton();
    EXPECT_FALSE(rig.comm.GetPortOpen() || rig.S().run.WaitsForContact());
    rig.time.RunFor(10000);
    EXPECT_FALSE(rig.S().run.IsOn());
    const auto sent = rig.Sent();
    EXPECT_EQ(std::count(sent.begin(), sent.end(), "#M2T1"), 0);
}

INSTANTIATE_TEST_SUITE_P(HowItCameToBeClosed, StartClosed,
                         testing::Values(Closed::ByButton, Closed::Unplugged, Closed::JustUnplugged));

TEST(StartWhileClosed, ARunAskedForDoesNotStartByItselfBehindALossOrAClosing) {
    for (const bool lost : {true, false}) {
        Rig rig;
        ASSERT_TRUE(rig.PowerOn());
        rig.program.Link().OnButton1();
        rig.time.RunFor(3000);
        rig.program.OnMeasButton();
        rig.time.RunFor(200);
        ASSERT_FALSE(rig.S().run.IsOn());
        if (lost) {
            rig.port.Unplug();
            rig.time.RunFor(10000);
            rig.port.Replug();
        } else {
            rig.program.Link().OnButton1(); // no port searched for any more
            rig.time.RunFor(5000);
            rig.program.Link().OnButton1();
        }
        rig.time.RunFor(20000);
        EXPECT_TRUE(rig.program.IsReady());
        EXPECT_FALSE(rig.S().run.IsOn()) << "carriers must not come on minutes after the button was pressed";
        EXPECT_EQ(rig.instrument.Settings().carrier1, 0);
    }
}

} // namespace
} // namespace qor::test
