// The band switch unit: found among the ports, told each band, and off the line when it does not answer.
#include "desk/notices.h"
#include "link/switch_unit.h"
#include "sim/instrument.h"
#include "sim/switch_unit.h"
#include "support/rig.h"

namespace qor::test {
namespace {

/// A machine with an analyser and a band switch unit, the unit before or behind it in the list.
struct UnitRig : Rig {
    explicit UnitRig(int baud = 9600, bool unitFirst = false)
        : unitLine(unit, {.baud = baud}), otherLine(other), first(unitFirst) {
        ports.Add(unitLine, "/dev/ttyMPX");
        if (unitFirst) {
            ports.Unplug(1);
            ports.Add(otherLine, "/dev/ttySIM1");
        }
    }
    ~UnitRig() { port.SetPortOpen(false); } // the lines below go before the port does

    [[nodiscard]] const SwitchUnitState& Known() { return S().link.unit; }
    [[nodiscard]] sim::Line& Analyser() { return first ? otherLine : line; }
    [[nodiscard]] int AnalyserPort() const { return first ? 3 : 1; }
    [[nodiscard]] std::string Relays() { return unit.Relays(0) + unit.Relays(1) + unit.Relays(2); }
    [[nodiscard]] std::string EntryOf(int number) {
        for (const PortEntry& entry : S().link.connection.Ports())
            if (entry.number == number)
                return entry.text;
        return {};
    }
    bool RunUntilChoice() {
        program.Start(false);
        return time.RunUntil([&] { return S().link.connection.AwaitsChoice(); }, 30000);
    }
    /// Power-on, and the press of the port button behind the probe.
    bool PowerOnByHand() {
        if (!RunUntilChoice())
            return false;
        S().link.connection.Choose(EntryOf(AnalyserPort()));
        program.Link().OnButton1();
        const bool ready = RunUntilReady();
        Sent();
        return ready;
    }
    bool SelectUntilExchange(int band) {
        return program.Select().SelectBand(band) && time.RunUntil([&] { return Known().HasLine(); }, 5000);
    }
    /// Ended, with what its last words were.
    bool Ends() {
        bool over = false;
        program.SetQuit([&](int) { over = true; });
        program.Leave();
        return time.RunUntil([&] { return over; }, 2000);
    }

    sim::SwitchUnit unit;
    sim::Line unitLine;
    sim::Instrument other{{}};
    sim::Line otherLine;
    bool first;
    static constexpr int UnitPort = 2;
};

std::vector<std::string> Relay(const std::string& mask) {
    return {"#RELA" + mask, "#RELB" + mask, "#RELC" + mask};
}
std::string ThreeTimes(const std::string& mask) {
    return mask + mask + mask;
}
std::size_t IndexOf(const std::vector<std::string>& sent, const std::string& text) {
    return static_cast<std::size_t>(std::find(sent.begin(), sent.end(), text) - sent.begin());
}

TEST(SwitchUnit, IsLabelledWhereverItStandsAndNeverTheInstrument) {
    for (const bool first : {false, true}) {
        for (const int baud : {9600, 115200}) {
            UnitRig rig(baud, first);
            ASSERT_TRUE(rig.RunUntilChoice());
            EXPECT_EQ(rig.EntryOf(rig.UnitPort), "COM2 (/dev/ttyMPX): MPX");
            rig.S().link.connection.Choose(rig.EntryOf(rig.UnitPort));
            rig.program.Link().OnButton1();
            EXPECT_EQ(rig.Told(),
                      (std::vector<std::string>{"Das ist das Umschaltgeraet, nicht der Analysator."}));
            EXPECT_FALSE(rig.comm.GetPortOpen());

            rig.S().link.connection.Choose(rig.EntryOf(rig.AnalyserPort()));
            rig.program.Link().OnButton1();
            ASSERT_TRUE(rig.RunUntilReady());
            EXPECT_EQ(rig.Known().Settings(), std::to_string(baud) + ",n,8,1");
            // A loss, and a search that finds nothing but the unit.
            const int heard = rig.unitLine.CommandCount();
            rig.ports.Unplug(rig.AnalyserPort());
            rig.time.RunFor(20000);
            EXPECT_EQ(rig.unitLine.CommandCount(), heard);
            rig.ports.Replug(rig.AnalyserPort());
            EXPECT_TRUE(rig.RunUntilReady(10000)) << "nobody is asked which of the two it is";
        }
    }
}

/// A port that stays silent ends the questions at 9600 baud for the rest of the session.
TEST(SwitchUnit, StaysKnownWhereTheSecondScanAsksAtTheOtherSpeed) {
    UnitRig rig;
    rig.ports.Add(rig.otherLine, "/dev/ttySIM1");
    rig.otherLine.Add({sim::FaultKind::Silence, 0});
    ASSERT_TRUE(rig.PowerOnByHand());
    rig.program.Link().OnButton1();
    rig.time.RunFor(3000);
    rig.S().link.connection.Offer(PortButton::Scan);
    rig.program.Link().OnButton1();
    ASSERT_TRUE(rig.time.RunUntil([&] { return rig.S().link.connection.AwaitsChoice(); }, 30000));
    EXPECT_EQ(rig.EntryOf(rig.UnitPort), "COM2 (/dev/ttyMPX): MPX");
    EXPECT_EQ(rig.Known().Port(), rig.UnitPort);
}

TEST(SwitchUnit, TheOnlyInstrumentBesideItIsProposed) {
    UnitRig rig;
    ASSERT_TRUE(rig.RunUntilChoice());
    EXPECT_EQ(rig.S().link.connection.Chosen(), "COM1 (/dev/ttySIM0)");
}

/// One that hangs where the analyser was opened says so itself, and the search takes the other port.
TEST(SwitchUnit, WhoseCableWasSwappedWithTheAnalysersIsFoundOut) {
    UnitRig rig(9600, true);
    rig.ports.Unplug(3);
    rig.program.Start(false); // the unit alone
    rig.time.RunFor(6000);
    EXPECT_EQ(rig.Known().Port(), rig.UnitPort);
    rig.ports.Replug(3);
    EXPECT_TRUE(rig.RunUntilReady(10000));
    EXPECT_EQ(rig.S().link.connection.LastPort(), 3);
}

TEST(SwitchUnit, IsToldEachBandBeforeTheInstrument) {
    UnitRig rig;
    ASSERT_TRUE(rig.RunUntilChoice());
    rig.program.Link().OnButton1();
    ASSERT_TRUE(rig.RunUntilReady());
    const auto atStart = rig.Sent();
    const std::string first = rig.S().link.unit.Band();
    EXPECT_EQ(first, BandText(rig.S().working.Band())) << "the band that the instrument stands at";
    EXPECT_LT(IndexOf(atStart, "#RELC" + std::string(RelayMask(first))), IndexOf(atStart, "#RECUT1"));

    ASSERT_TRUE(rig.SelectBand(BandDcs));
    EXPECT_EQ(rig.Sent(), (Chain({Relay("0x0010"), {"#SAB4", "#RECUT1", "#SPWA00430", "#SPWB00430"}})));
    EXPECT_EQ(rig.Relays(), ThreeTimes("0x0010"));
    ASSERT_TRUE(rig.program.Select().SelectOrder(2)); // no other band
    ASSERT_TRUE(rig.RunUntilIdle());
    const auto ofOrder = rig.Sent();
    EXPECT_EQ(IndexOf(ofOrder, "#RELA0x0010"), ofOrder.size());
    EXPECT_TRUE(rig.Told().empty());
}

TEST(SwitchUnit, HasAMaskForTwelveBands) {
    static const std::pair<int, std::string_view> Masks[] = {
        {BandLte, "0x0001"},      {BandDigDiv, "0x0002"}, {BandAmps, "0x0004"},     {BandEgsm, "0x0008"},
        {BandDcs, "0x0010"},      {BandPcs, "0x0020"},    {BandTdScdmaA, "0x0100"}, {BandUmts, "0x0200"},
        {BandTdScdmaF, "0x0400"}, {BandUmts2, "0x0001"},  {BandWifi, "0x0002"},     {BandTdScdmaE, "0x0004"},
    };
    int found = 0;
    for (int band = 0; band <= 23; ++band) {
        const auto row = std::find_if(std::begin(Masks), std::end(Masks),
                                      [band](const auto& entry) { return entry.first == band; });
        const bool has = row != std::end(Masks);
        EXPECT_EQ(RelayMask(SwitchUnitBand(band)), has ? row->second : std::string_view()) << band;
        found += has;
    }
    EXPECT_EQ(found, 12);
}

TEST(SwitchUnit, WithoutAPositionIsToldSoAndALineSaysIt) {
    UnitRig rig;
    ASSERT_TRUE(rig.PowerOnByHand());
    ASSERT_TRUE(rig.SelectBand(BandEgsm));
    rig.Sent();
    ASSERT_TRUE(rig.SelectBand(BandAws));
    const auto sent = rig.Sent();
    ASSERT_GE(sent.size(), 3u);
    EXPECT_EQ(std::vector(sent.begin(), sent.begin() + 3), Relay(""));
    EXPECT_EQ(rig.Relays(), ThreeTimes("0x0008")) << "moved by no mask";
    EXPECT_EQ(NoticesOf(rig.S(), rig.Store()),
              (std::vector<std::string>{"Das Umschaltgeraet hat keine Stellung fuer diese Breite: AWS"}));
    EXPECT_TRUE(rig.Told().empty());
    ASSERT_TRUE(rig.SelectBand(BandEgsm));
    EXPECT_TRUE(NoticesOf(rig.S(), rig.Store()).empty());
}

// ----- faults

class UnitFault : public testing::TestWithParam<const char*> {};

TEST_P(UnitFault, GivesTheLineBackAndLosesNothingOfTheQueue) {
    UnitRig rig;
    ASSERT_TRUE(rig.PowerOnByHand());
    const std::string fault = GetParam();
    const int served = rig.unitLine.CommandCount();
    if (fault == "silent")
        rig.unitLine.Add({sim::FaultKind::Silence, served});
    else if (fault == "one answer")
        rig.unitLine.Add({sim::FaultKind::Silence, served + 1});
    else if (fault == "unplugged in the exchange")
        rig.unitLine.Add({sim::FaultKind::Unplug, served + 1});
    else
        rig.ports.Unplug(rig.UnitPort);
    ASSERT_TRUE(rig.program.Select().SelectBand(BandDcs));
    ASSERT_TRUE(rig.RunUntilIdle(2300));
    rig.time.RunFor(10);

    auto sent = rig.Sent();
    std::erase(sent, "#SST?"); // the poll has waited, too
    const std::vector<std::string> ofTheBand{"#SAB4", "#RECUT1", "#SPWA00430", "#SPWB00430"};
    ASSERT_GE(sent.size(), 4u);
    EXPECT_EQ(std::vector(sent.end() - 4, sent.end()), ofTheBand);
    EXPECT_EQ(IndexOf(sent, "#SR"), sent.size()) << "no new conversation";
    const auto told = rig.Told();
    ASSERT_EQ(told.size(), 1u);
    EXPECT_EQ(told[0], std::string("Das Umschaltgeraet hat nicht geantwortet, seine Relais koennen falsch "
                                   "stehen.\nAntworten von drei: ") +
                           (fault == "one answer" ? "1" : told[0].substr(told[0].find(": ") + 2, 1)) +
                           "\nCOM2 (/dev/ttyMPX)");
    EXPECT_EQ(NoticesOf(rig.S(), rig.Store()).size(), 1u);
    EXPECT_TRUE(rig.program.IsReady());
    EXPECT_EQ(rig.S().working.Band(), BandDcs);
    EXPECT_EQ(rig.S().link.connection.Losses(), 0);

    rig.unitLine.ClearFaults();
    rig.ports.Replug(rig.UnitPort);
    ASSERT_TRUE(rig.SelectBand(BandEgsm));
    EXPECT_EQ(rig.Relays(), ThreeTimes("0x0008"));
    EXPECT_TRUE(NoticesOf(rig.S(), rig.Store()).empty());
}

INSTANTIATE_TEST_SUITE_P(All, UnitFault,
                         testing::Values("silent", "one answer", "unplugged in the exchange",
                                         "unplugged before"));

TEST(SwitchUnit, AnswersInPiecesAreThree) {
    UnitRig rig;
    ASSERT_TRUE(rig.PowerOnByHand());
    rig.unitLine.Add({sim::FaultKind::Pieces, 0});
    ASSERT_TRUE(rig.SelectBand(BandDcs));
    EXPECT_EQ(rig.Relays(), ThreeTimes("0x0010"));
    EXPECT_EQ(rig.Known().Band(), "DCS");
    EXPECT_TRUE(rig.Told().empty());
}

TEST(SwitchUnit, TheAnalyserGoneInTheExchangeIsLookedFor) {
    UnitRig rig;
    ASSERT_TRUE(rig.PowerOnByHand());
    ASSERT_TRUE(rig.SelectUntilExchange(BandDcs));
    rig.ports.Unplug(1);
    rig.time.RunFor(3000);
    EXPECT_EQ(rig.S().link.connection.Losses(), 1);
    rig.ports.Replug(1);
    EXPECT_TRUE(rig.RunUntilReady(10000));
    EXPECT_EQ(rig.Relays(), ThreeTimes(std::string(RelayMask(rig.Known().Band()))));
    EXPECT_EQ(rig.Known().Band(), BandText(rig.S().working.Band())) << "the unit follows the band in force";
}

// ----- carriers

TEST(SwitchUnit, MovesNoRelayUnderCarriers) {
    for (const bool echoes : {true, false}) {
        UnitRig rig;
        ASSERT_TRUE(rig.PowerOnByHand());
        ASSERT_TRUE(rig.SelectBand(BandEgsm));
        rig.program.OnMeasButton();
        ASSERT_TRUE(rig.time.RunUntil([&] { return rig.instrument.Settings().carrier1 == 1; }, 10000));
        rig.time.RunFor(1500);
        rig.Sent();
        const int heard = rig.unitLine.CommandCount();
        if (!echoes)
            rig.line.Add({sim::FaultKind::Silence, rig.line.CommandCount()});
        rig.program.StopMeas();
        ASSERT_TRUE(rig.program.Select().SelectBand(BandDcs));
        rig.time.RunUntil([&] { return rig.Known().HasLine() || rig.S().link.connection.Losses() > 0; },
                          9000);
        EXPECT_EQ(rig.Known().HasLine(), echoes);
        EXPECT_EQ(rig.instrument.Settings().carrier1 == 0, echoes);
        rig.time.RunFor(500);
        const auto sent = rig.Sent();
        EXPECT_LT(IndexOf(sent, "#SPB0"), std::min(sent.size(), IndexOf(sent, "#RELA0x0010")));
        EXPECT_EQ(rig.unitLine.CommandCount() - heard, echoes ? 3 : 0);
    }
}

TEST(SwitchUnit, AStartInTheExchangeMeasuresBehindIt) {
    UnitRig rig;
    ASSERT_TRUE(rig.PowerOnByHand());
    rig.S().curve.SetLength(1000);
    ASSERT_TRUE(rig.SelectUntilExchange(BandDcs));
    ASSERT_TRUE(rig.Measure());
    const auto sent = rig.Sent();
    EXPECT_LT(IndexOf(sent, "#RELC0x0010"), IndexOf(sent, "#SAB4"));
    EXPECT_LT(IndexOf(sent, "#SPWB00430"), IndexOf(sent, "#M2T1"));
    EXPECT_EQ(rig.S().curve.ShownVerdict(), Verdict::Passed);
    EXPECT_EQ(rig.instrument.Settings().carrier1, 0);
}

// ----- the end

TEST(SwitchUnit, IsResetWhenTheProgramEnds) {
    for (const bool inTheExchange : {false, true}) {
        UnitRig rig;
        ASSERT_TRUE(rig.PowerOnByHand());
        ASSERT_TRUE(rig.SelectBand(BandEgsm));
        rig.Sent();
        if (inTheExchange) {
            rig.unitLine.Add({sim::FaultKind::Silence, rig.unitLine.CommandCount() + 2});
            ASSERT_TRUE(rig.SelectUntilExchange(BandDcs));
            rig.time.RunFor(300);
            rig.unitLine.ClearFaults();
        }
        ASSERT_TRUE(rig.Ends());
        const auto sent = rig.Sent();
        ASSERT_GE(sent.size(), 5u);
        EXPECT_EQ(std::vector(sent.end() - 5, sent.end()), Chain({{"#SPB0", "#SPA0"}, Relay("0x0000")}));
        EXPECT_EQ(rig.Relays(), ThreeTimes("0x0000"));
        EXPECT_FALSE(rig.comm.GetPortOpen());
    }
}

TEST(SwitchUnit, ClosingThePortInTheExchangeKeepsItClosed) {
    UnitRig rig;
    ASSERT_TRUE(rig.PowerOnByHand());
    rig.unitLine.Add({sim::FaultKind::Silence, 0});
    ASSERT_TRUE(rig.SelectUntilExchange(BandDcs));
    rig.program.Link().OnButton1();
    rig.time.RunFor(10000);
    EXPECT_FALSE(rig.comm.GetPortOpen());
    EXPECT_TRUE(rig.Told().empty());
    rig.unitLine.ClearFaults();
    rig.program.Link().OnButton1();
    ASSERT_TRUE(rig.RunUntilReady());
    EXPECT_EQ(rig.Known().Band(), BandText(rig.S().working.Band())) << "what was broken off is made up for";
}

} // namespace
} // namespace qor::test
