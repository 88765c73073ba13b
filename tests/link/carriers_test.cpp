// Carriers are on only while a run is on, whatever happens to the line, the port or the program.
#include "base/setup_store.h"
#include "link/recovery.h"
#include "platform/process.h"

#include <fstream>

namespace qor::test {
namespace {

namespace fs = std::filesystem;
using Texts = std::vector<std::string>;

const Texts TwoToneOff{"#M2T0", "#SPA0", "#SPB0"};
const Texts SweepOff{"#MSWL0", "#SPA0", "#SPB0"};

bool Carries(Rig& rig) {
    return rig.instrument.Settings().carrier1 != 0 || rig.instrument.Settings().carrier2 != 0;
}

/// Files that tell of carriers which may be on.
std::vector<fs::path> Marks(Rig& rig) {
    std::vector<fs::path> marks;
    for (const auto& entry : fs::directory_iterator(rig.program.Stores().Directory()))
        if (entry.path().filename().string().starts_with("carriers_on."))
            marks.push_back(entry.path());
    return marks;
}

/// What is said behind the first #IDN? of `sent`.
Texts BehindIdentity(const Texts& sent, std::size_t count) {
    const auto at = std::find(sent.begin(), sent.end(), "#IDN?");
    if (sent.end() - at <= static_cast<std::ptrdiff_t>(count))
        return {};
    return {at + 1, at + 1 + static_cast<std::ptrdiff_t>(count)};
}

Texts LastOf(const Texts& sent, std::size_t count) {
    return sent.size() < count ? Texts{} : Texts(sent.end() - static_cast<std::ptrdiff_t>(count), sent.end());
}

void RunUntilCarrying(Rig& rig) {
    rig.program.OnMeasButton();
    ASSERT_TRUE(rig.time.RunUntil([&] { return Carries(rig); }, 10000));
    rig.time.RunFor(600);
}

class CarriersLost : public testing::TestWithParam<std::tuple<int, sim::FaultKind>> {};

TEST_P(CarriersLost, AreSwitchedOffBehindTheIdentityBeforeAnythingElse) {
    const auto [method, fault] = GetParam();
    Rig rig(AtDcs("6.2"));
    ASSERT_TRUE(rig.ReadyFor(method));
    RunUntilCarrying(rig);
    EXPECT_EQ(Marks(rig).size(), 1U) << "the run is told to whoever comes after a crash";
    rig.line.Add({fault, fault == sim::FaultKind::Unplug ? rig.line.CommandCount() : 0});
    ASSERT_TRUE(rig.time.RunUntil([&] { return !rig.S().run.IsOn(); }, 10000));
    EXPECT_EQ(PanelOf(rig.S()).lamp, Lamp::NotReady) << "from the moment of loss";
    rig.program.OnMeasButton();
    EXPECT_FALSE(rig.S().run.IsOn());
    EXPECT_FALSE(rig.program.Select().SelectBand(BandEgsm)) << "its position depends on who comes back";
    rig.user.answer = false;
    rig.Sent();
    rig.user.messages.clear();
    rig.line.ClearFaults();
    rig.port.Replug();
    ASSERT_TRUE(BecomesReady(rig, 30000));
    const Texts off = method == ModeTwoTone ? TwoToneOff : SweepOff;
    EXPECT_EQ(BehindIdentity(rig.Sent(), 3), off);
    EXPECT_FALSE(Carries(rig));
    EXPECT_EQ(rig.Told(), Texts{"contact was lost during the run; the partial curve is kept"});
    rig.time.RunFor(1000);
    EXPECT_TRUE(Marks(rig).empty());

    rig.port.Unplug(); // said once, and nothing is owed any more
    rig.time.RunFor(3000);
    rig.Sent();
    rig.port.Replug();
    ASSERT_TRUE(BecomesReady(rig, 30000));
    EXPECT_NE(BehindIdentity(rig.Sent(), 3), off);
    EXPECT_TRUE(rig.Told().empty());
}

INSTANTIATE_TEST_SUITE_P(HowAndWhen, CarriersLost,
                         testing::Combine(testing::Values(ModeTwoTone + 0, ModeSweep + 0),
                                          testing::Values(sim::FaultKind::Unplug, sim::FaultKind::Silence)));

TEST(Carriers, SilenceInARunHasThemSwitchedOffAtOnce) {
    Rig rig(AtDcs("6.2"));
    ASSERT_TRUE(rig.ReadyFor(ModeTwoTone));
    RunUntilCarrying(rig);
    rig.line.Add({sim::FaultKind::Silence, 0});
    rig.Sent();
    ASSERT_TRUE(rig.time.RunUntil([&] { return !rig.S().run.IsOn(); }, 10000));
    EXPECT_EQ(LastOf(rig.Sent(), 3), TwoToneOff) << "written unawaited: a silent instrument may still listen";
}

TEST(Carriers, ClosingThePortEndsTheRunFirstAndRefusesANewOne) {
    for (const bool silent : {false, true}) {
        SCOPED_TRACE(silent);
        Rig rig(AtDcs("6.2"));
        ASSERT_TRUE(rig.ReadyFor(ModeTwoTone));
        RunUntilCarrying(rig);
        if (silent)
            rig.line.Add({sim::FaultKind::Silence, 0});
        rig.program.Link().OnButton1();
        EXPECT_FALSE(rig.S().run.IsOn());
        rig.time.RunFor(500);
        rig.user.messages.clear();
        rig.program.OnMeasButton();
        EXPECT_FALSE(rig.S().run.IsOn());
        EXPECT_EQ(rig.Told(), Texts{"Initialisieren, bitte warten!"});
        rig.time.RunFor(3000);
        EXPECT_FALSE(rig.comm.GetPortOpen());
        if (silent)
            EXPECT_EQ(LastOf(rig.Sent(), 3), TwoToneOff);
        else
            EXPECT_FALSE(Carries(rig));
    }
}

TEST(Carriers, AnOffCommandThatIsRefusedIsGivenAgain) {
    Rig rig(AtDcs("6.2"));
    ASSERT_TRUE(rig.ReadyFor(ModeTwoTone));
    for (int run = 0; run < 4; ++run) { // each counts for itself
        RunUntilCarrying(rig);
        ASSERT_TRUE(rig.time.RunUntil([&] { return rig.program.LineIsIdle(); }, 5000));
        rig.line.Add({sim::FaultKind::SyntaxError, rig.line.CommandCount()});
        rig.program.StopMeas();
        rig.time.RunFor(2000);
        EXPECT_FALSE(Carries(rig));
        EXPECT_TRUE(Marks(rig).empty());
    }
    EXPECT_EQ(rig.S().link.connection.Losses(), 0);
}

/// The last reading of a run stays out: what switches the carriers off does not wait five seconds for it.
TEST(Carriers, AnUnansweredReadingDoesNotHoldUpTheOffCommands) {
    Rig rig(AtDcs("6.2"));
    ASSERT_TRUE(rig.ReadyFor(ModeTwoTone));
    RunUntilCarrying(rig);
    ASSERT_TRUE(rig.time.RunUntil([&] { return rig.program.LineIsIdle(); }, 5000));
    rig.line.Add({sim::FaultKind::Silence, rig.line.CommandCount()});
    ASSERT_TRUE(rig.time.RunUntil([&] { return !rig.program.LineIsIdle(); }, 5000));
    rig.time.RunFor(50);
    rig.line.ClearFaults();
    rig.program.StopMeas();
    rig.time.RunFor(2000);
    EXPECT_FALSE(Carries(rig));
    EXPECT_EQ(rig.S().link.connection.Losses(), 0);
    EXPECT_TRUE(Marks(rig).empty());
}

/// A line that is dead for less than it takes to lose contact: a stop that it did not hear is told again.
TEST(Carriers, AreOffASecondAfterADeadLineIsBack) {
    Rig rig(AtDcs("6.2"));
    ASSERT_TRUE(rig.ReadyFor(ModeTwoTone));
    RunUntilCarrying(rig);
    ASSERT_TRUE(rig.RunUntilIdle());
    rig.line.Add({sim::FaultKind::Silence, 0});
    rig.program.StopMeas();
    rig.time.RunFor(2500);
    rig.line.ClearFaults();
    rig.time.RunFor(1300);
    EXPECT_FALSE(Carries(rig));
    EXPECT_EQ(rig.S().link.connection.Losses(), 0);
}

/// The off command of a 2-tone run was not echoed, and a sweep has begun since.
TEST(Carriers, OfBothMethodsAreSwitchedOff) {
    Carriers carriers;
    for (const char* const on : {"#M2T1", "#SPA1", "#SPB1"})
        carriers.Sent(on);
    for (const std::string& off : carriers.OffCommands())
        carriers.Echoed(off);
    EXPECT_FALSE(carriers.MayBeOn());
}

TEST(Carriers, NoBandIsSelectedUnderThem) {
    Rig rig(AtDcs("6.2"));
    ASSERT_TRUE(rig.ReadyFor(ModeTwoTone));
    RunUntilCarrying(rig);
    rig.Sent();
    rig.program.StopMeas();
    ASSERT_TRUE(rig.program.Select().SelectBand(BandDcs)); // drops what waits
    ASSERT_TRUE(rig.RunUntilIdle());
    const Texts sent = rig.Sent();
    EXPECT_LT(std::find(sent.begin(), sent.end(), "#M2T0"), std::find(sent.begin(), sent.end(), "#SAB4"));
    EXPECT_NE(std::find(sent.begin(), sent.end(), "#SAB4"), sent.end());
    EXPECT_FALSE(Carries(rig));
}

/// Nor by a start that comes before the echoes of what ended the run before it.
TEST(Carriers, NoStartSelectsItsBandUnderThem) {
    Rig rig(AtDcs("6.2"));
    ASSERT_TRUE(rig.ReadyFor(ModeTwoTone));
    RunUntilCarrying(rig);
    rig.Sent();
    rig.line.Add({sim::FaultKind::Garble, rig.line.CommandCount()});
    rig.program.StopMeas();
    rig.program.OnMeasButton();
    rig.time.RunFor(1000);
    const Texts sent = rig.Sent();
    EXPECT_NE(std::find(sent.begin(), sent.end(), "#M2T0"), sent.end());
    EXPECT_EQ(
        std::count_if(sent.begin(), sent.end(), [](const auto& text) { return text.starts_with("#SAB"); }),
        0);
    EXPECT_FALSE(rig.S().run.IsOn());
    EXPECT_EQ(PanelOf(rig.S()).lamp, Lamp::NotReady);
}

/// Another instrument put in its place echoes what is owed to the first: that one is still owed it.
TEST(Carriers, AreOwedToTheInstrumentThatWasLeftCarrying) {
    Rig rig(AtDcs("6.2"));
    sim::InstrumentConfig config = AtDcs("6.2");
    config.serial = "BBB222";
    sim::Instrument other(config);
    sim::Line otherLine(other);
    ASSERT_TRUE(rig.ReadyFor(ModeTwoTone));
    RunUntilCarrying(rig);
    rig.port.Unplug();
    rig.ports.Add(otherLine, "/dev/ttySIM1");
    ASSERT_TRUE(rig.time.RunUntil(
        [&] { return rig.S().link.identity.Serial() == "BBB222" && rig.program.IsReady(); }, 30000));
    rig.time.RunFor(1000);
    EXPECT_EQ(Marks(rig).size(), 1U);
    rig.program.OnMeasButton();
    rig.time.RunFor(3000);
    EXPECT_EQ(Marks(rig).size(), 2U) << "one for each";
    rig.program.OnMeasButton();
    rig.time.RunFor(5000);
    EXPECT_EQ(Marks(rig).size(), 1U) << "the first is still owed to its instrument";
    rig.ports.Unplug(2);
    rig.ports.Replug(1);
    ASSERT_TRUE(rig.time.RunUntil(
        [&] { return rig.S().link.identity.Serial() == "SIM01" && BecomesReady(rig, 1); }, 30000));
    EXPECT_FALSE(Carries(rig));
    rig.time.RunFor(1000);
    EXPECT_TRUE(Marks(rig).empty());
    rig.port.SetPortOpen(false);
}

/// The search has another port open when the program is to end: what hangs there is not ours to switch.
TEST(Carriers, AreSwitchedOffOnlyWhereTheInstrumentHasAnswered) {
    for (const bool byButton : {false, true}) {
        Rig rig(AtDcs("6.2"));
        ASSERT_TRUE(rig.ReadyFor(ModeTwoTone));
        RunUntilCarrying(rig);
        sim::Instrument stranger{{}};
        sim::Line strangersLine(stranger);
        strangersLine.Add({sim::FaultKind::Silence, 0});
        rig.ports.Add(strangersLine, "/dev/ttySIM1");
        rig.line.Add({sim::FaultKind::Silence, 0});
        const auto tried = [&] { return rig.S().link.connection.LastPort() == 2 && rig.comm.GetPortOpen(); };
        ASSERT_TRUE(rig.time.RunUntil(tried, 20000));
        rig.Sent();
        if (byButton)
            rig.program.Link().OnButton1();
        else
            rig.program.Leave();
        rig.time.RunFor(byButton ? 500 : 3000);
        for (const std::string& text : rig.Sent())
            EXPECT_TRUE(text == "#SR" || text == "#IDN?") << text;
        rig.port.SetPortOpen(false);
    }
}

/// A stream that never ends a line is neither an echo nor a reading.
TEST(Carriers, AStreamWithoutLineEndsSwitchesNothingOff) {
    Rig rig(AtDcs("6.2"));
    ASSERT_TRUE(rig.ReadyFor(ModeTwoTone));
    RunUntilCarrying(rig);
    rig.line.Add({sim::FaultKind::Endless, rig.line.CommandCount()});
    rig.time.RunFor(8000);
    EXPECT_FALSE(rig.S().run.IsOn()) << "a line that is not understood for five seconds is lost";
    rig.program.StopMeas();
    rig.time.RunFor(3000);
    EXPECT_EQ(Marks(rig).size(), 1U);
    EXPECT_EQ(PanelOf(rig.S()).lamp, Lamp::NotReady);
    rig.line.ClearFaults();
    ASSERT_TRUE(BecomesReady(rig, 60000));
    rig.time.RunFor(1000);
    EXPECT_FALSE(Carries(rig));
    EXPECT_TRUE(Marks(rig).empty());
}

TEST(Carriers, AProgramThatDiedInARunLeavesWordOfIt) {
    for (const bool gone : {true, false}) {
        Rig rig(AtDcs("6.2"));
        const fs::path mark = rig.program.Stores().Directory() / "carriers_on.1";
        fs::create_directories(mark.parent_path());
        std::ofstream(mark) << (gone ? "1 0 another-boot" : ThisProcess()) << "\n/dev/ttyUSB0\n#MSWL0\n";
        ASSERT_TRUE(rig.PowerOn());
        EXPECT_EQ(BehindIdentity(rig.Sent(), 3) == SweepOff, gone);
        EXPECT_EQ(rig.Told(), gone ? Texts{"The last run did not end in order."} : Texts{});
        rig.time.RunFor(1000);
        EXPECT_EQ(Marks(rig).size(), gone ? 0U : 1U) << "another program's run is its own";
    }
    EXPECT_TRUE(ProcessRuns(ThisProcess()));
    for (const char* name : {"", "x", "1", "999999999 1 2", "-1 0 0"})
        EXPECT_FALSE(ProcessRuns(name)) << name;
}

TEST(Carriers, ADeadProgramsDebtIsPaidByItsOwnInstrumentAlone) {
    for (const bool another : {true, false}) {
        sim::InstrumentConfig config = AtDcs("6.2");
        config.serial = another ? "BBB222" : "AAA111";
        Rig rig(config);
        const fs::path mark = rig.program.Stores().Directory() / "carriers_on.1";
        fs::create_directories(mark.parent_path());
        std::ofstream(mark) << "1 0 another-boot\n/dev/ttyUSB7\n#M2T0\nRT-DB22 6.2, SN AAA111\n";
        ASSERT_TRUE(rig.PowerOn());
        EXPECT_EQ(BehindIdentity(rig.Sent(), 3), TwoToneOff);
        EXPECT_EQ(rig.Told(),
                  Texts{"The last run did not end in order.\nRT-DB22 6.2, SN AAA111, /dev/ttyUSB7"});
        rig.time.RunFor(1000);
        EXPECT_EQ(fs::exists(mark), another);
        ASSERT_TRUE(rig.ReadyFor(1));
        RunUntilCarrying(rig);
        rig.program.OnMeasButton();
        rig.time.RunFor(5000);
        EXPECT_EQ(fs::exists(mark), another) << "a run of its own changes nothing";
        EXPECT_EQ(Marks(rig).size(), another ? 1U : 0U);
    }
}

/// Whatever the line does, the program has ended two seconds after it was asked to, and has written what
/// switches the carriers off.
TEST(Leaving, IsOverWithinTwoSeconds) {
    struct Case {
        const char* name;
        std::vector<sim::Fault> faults;
        std::int64_t afterMs; ///< of the start of the program
    };
    const Case Cases[] = {
        {"good line", {}, 9000},
        {"silent from the start", {{sim::FaultKind::Silence, 0}}, 3000},
        {"in the chain", {}, 2300},
        {"memory reads are silent", {{sim::FaultKind::Silence, 3}}, 4000},
        {"garbled", {{sim::FaultKind::Garble, 2}}, 5000},
        {"slow", {{sim::FaultKind::Slow, 900}}, 9000},
    };
    for (const Case& c : Cases) {
        for (const bool running : {false, true}) {
            for (const char* firmware : {"4.9", "6.2"}) {
                SCOPED_TRACE(std::string(c.name) + (running ? " in a run " : " ") + firmware);
                Rig rig(AtDcs(firmware));
                if (!running)
                    for (const sim::Fault& fault : c.faults)
                        rig.line.Add(fault);
                rig.program.Start(false);
                if (running) {
                    ASSERT_TRUE(BecomesReady(rig, 30000));
                    RunUntilCarrying(rig);
                    for (const sim::Fault& fault : c.faults)
                        rig.line.Add({fault.kind, fault.kind == sim::FaultKind::Slow
                                                      ? fault.number
                                                      : rig.line.CommandCount()});
                } else {
                    rig.time.RunFor(c.afterMs);
                }
                bool over = false;
                rig.program.SetQuit([&over](int) { over = true; });
                const auto begin = rig.time.NowMs();
                const bool isKnown = rig.S().link.identity.HasModel();
                rig.Sent();
                rig.program.Leave();
                ASSERT_TRUE(rig.time.RunUntil([&] { return over; }, 10000));
                EXPECT_LE(rig.time.NowMs() - begin, 2000);
                EXPECT_FALSE(rig.comm.GetPortOpen());
                const Texts sent = rig.Sent();
                for (const char* off : {"#SPA0", "#SPB0"}) {
                    EXPECT_EQ(std::count(sent.begin(), sent.end(), off) > 0, isKnown) << off;
                }
                rig.time.RunFor(1000); // what was written is on its way
                if (running && c.faults.empty()) {
                    EXPECT_FALSE(Carries(rig));
                }
                rig.Sent();
                rig.time.RunFor(20000);
                EXPECT_TRUE(rig.Sent().empty()) << "nothing is looked for any more";
            }
        }
    }
}

TEST(Heartbeat, ASilentInstrumentIsNoticedBeforeTheFirstRunToo) {
    for (const bool reconnected : {false, true}) {
        for (const char* firmware : {"3.4", "6.2"}) {
            Rig rig(AtDcs(firmware));
            ASSERT_TRUE(rig.PowerOn());
            if (reconnected) {
                rig.port.Unplug();
                rig.time.RunFor(3000);
                rig.port.Replug();
                ASSERT_TRUE(BecomesReady(rig, 30000));
            }
            rig.time.RunFor(3000);
            rig.line.Add({sim::FaultKind::Silence, 0});
            rig.time.RunFor(6000);
            EXPECT_EQ(PanelOf(rig.S()).lamp, Lamp::NotReady) << firmware << reconnected;
        }
    }
}

} // namespace
} // namespace qor::test
