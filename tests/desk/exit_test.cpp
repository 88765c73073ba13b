#include "support/wire_reading.h"

#include <functional>

namespace qor::test {

namespace {

bool PressExit(Rig& rig, std::function<void(int)> quit) {
    rig.program.SetQuit(std::move(quit));
    return rig.Done(rig.program.OnExitButton());
}

/// Presses the exit button and tells how long the program took to end; -1 when it did not within 20 s.
std::int64_t MsToEnd(Rig& rig) {
    int code = 0;
    const std::int64_t begin = rig.time.NowMs();
    EXPECT_TRUE(PressExit(rig, [&code](int exitCode) { code += exitCode; }));
    if (!rig.time.RunUntil([&] { return code != 0; }, 20000))
        return -1;
    const std::int64_t took = rig.time.NowMs() - begin;
    EXPECT_FALSE(rig.comm.GetPortOpen());
    rig.Sent();
    rig.time.RunFor(20000);
    EXPECT_EQ(code, 16) << "it ends once";
    EXPECT_EQ(Joined(rig.Sent()), "");
    for (int id = 0; id < WindowTimers::Count; ++id)
        EXPECT_FALSE(rig.time.timers.Runs(id)) << id;
    return took;
}

} // namespace

TEST(Exit, RefusedDuringARunAndOnNo) {
    Rig rig;
    ASSERT_TRUE(rig.PowerOn());
    ASSERT_TRUE(rig.SelectBand(BandEgsm));
    rig.program.OnMeasButton();
    EXPECT_FALSE(PressExit(rig, [](int) { ADD_FAILURE(); }));
    EXPECT_EQ(rig.user.messages, std::vector<std::string>{"Sich?\nHalten Messung erst!"});
    ASSERT_TRUE(rig.RunUntilRunIsOver());
    rig.user.answer = false;
    EXPECT_FALSE(PressExit(rig, [](int) { ADD_FAILURE(); }));
    EXPECT_EQ(Joined(SentDuring(rig, [&] { rig.time.RunFor(4500); })), "#SST? #SST? ") << "life goes on";
}

/// Also when the status poll would be due just then.
TEST(Exit, CarriersOffThenThePortCloses) {
    for (const int wait : {0, 1650, 1800, 1950}) {
        Rig rig;
        ASSERT_TRUE(rig.PowerOn());
        ASSERT_TRUE(rig.SelectBand(BandEgsm));
        ASSERT_TRUE(rig.Measure());
        rig.time.RunFor(wait);
        rig.Sent();
        std::vector<std::string> sent;
        EXPECT_TRUE(PressExit(rig, [&](int code) {
            EXPECT_EQ(code, 16);
            EXPECT_FALSE(rig.comm.GetPortOpen());
            sent = rig.Sent();
        }));
        rig.time.RunFor(3000);
        if (!sent.empty() && sent.front() == "#SST?")
            sent.erase(sent.begin()); // queued just before the button was pressed
        EXPECT_EQ(Joined(sent), "#SPB0 #SPA0 ") << wait;
    }
}

TEST(Exit, WaitsForWhatIsQueued) {
    Rig rig;
    ASSERT_TRUE(rig.PowerOn());
    rig.Sent();
    ASSERT_TRUE(rig.program.Select().SelectBand(BandEgsm));
    EXPECT_TRUE(PressExit(rig, [](int) {}));
    rig.time.RunFor(5000);
    EXPECT_EQ(Joined(rig.Sent()), "#SAB3 #RECUT1 #SPWA00430 #SPWB00430 #SPB0 #SPA0 ");
}

TEST(Exit, EndsWithoutAnInstrumentToo) {
    enum Trouble { NeverThere, NotStarted, Pulled, Silent, SilentInTheMiddle, Babbling, PortClosed };
    for (const Trouble trouble :
         {NeverThere, NotStarted, Pulled, Silent, SilentInTheMiddle, Babbling, PortClosed}) {
        SCOPED_TRACE(trouble);
        Rig rig;
        if (trouble == NeverThere)
            rig.ports.Unplug(1);
        if (trouble == NeverThere) {
            rig.program.Start(false);
            rig.time.RunFor(7000);
        } else if (trouble != NotStarted) {
            ASSERT_TRUE(rig.PowerOn());
        }
        if (trouble == Pulled)
            rig.port.Unplug();
        if (trouble == Silent || trouble == SilentInTheMiddle)
            rig.line.Add({sim::FaultKind::Silence, rig.line.CommandCount() + (trouble == Silent ? 0 : 1)});
        if (trouble == Babbling)
            rig.line.Add({sim::FaultKind::Endless, rig.line.CommandCount()});
        if (trouble == PortClosed) {
            rig.program.Link().OnButton1(); // reads "close"
            rig.time.RunFor(4000);
            EXPECT_FALSE(rig.comm.GetPortOpen());
        }
        rig.Sent();
        const std::int64_t ms = MsToEnd(rig);
        EXPECT_GT(ms, 0);
        EXPECT_LT(ms, 12000);
    }
}

/// A port that was closed by hand is opened once more: its instrument may still be carrying.
TEST(Exit, CarriersGoOffBehindAClosedPort) {
    Rig rig;
    ASSERT_TRUE(rig.PowerOn());
    rig.program.Link().OnButton1();
    rig.time.RunFor(4000);
    ASSERT_FALSE(rig.comm.GetPortOpen());
    rig.Sent();
    int code = 0;
    EXPECT_TRUE(PressExit(rig, [&code](int exitCode) { code = exitCode; }));
    rig.time.RunFor(3000);
    EXPECT_EQ(code, 16);
    EXPECT_EQ(Joined(rig.Sent()), "#SPB0 #SPA0 ");
}

} // namespace qor::test
