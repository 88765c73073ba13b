// From power-on to ready: what goes over the wire, firmware by firmware.
#include "support/rig.h"

#include <cmath>

namespace qor::test {

namespace {

using Texts = std::vector<std::string>;

Texts MemoryReads(int from, int to) {
    Texts reads;
    for (int address = from; address <= to; ++address)
        reads.push_back("#KVTRE,125,0," + std::to_string(address));
    return reads;
}

Texts MemoryStep(int tenths) {
    if (tenths >= 62)
        return Chain({{"#KVTRE,125,0,095"}, MemoryReads(211, 221)});
    if (tenths >= 61)
        return {"#KVTRE,125,0,095"};
    if (tenths < 41)
        return {};
    const std::string page = tenths >= 57 ? "}" : tenths >= 50 ? "n" : "d";
    return {"$KVTRE" + page + "x0", "$KVTRE" + page + "y0", "$KVTRE" + page + "t0"};
}

struct Class {
    const char* firmware;
    int tenths;
    int bandAtPosition1; ///< of an RT-DB22
    const char* prefix;
};

constexpr Class Classes[] = {
    {"1.8", 18, BandEgsm, "egsm_"},      {"3.4", 34, BandEgsm, "egsm_"},
    {"3.5", 35, BandEgsm, "egsm_"},      {"4.0", 40, BandEgsm, "egsm_"},
    {"4.1", 41, BandEgsm, "egsm_"},      {"4.9", 49, BandEgsm, "egsm_"},
    {"5.0", 50, BandDigDiv, "dig-div_"}, {"5.6", 56, BandDigDiv, "dig-div_"},
    {"5.7", 57, BandDigDiv, "dig-div_"}, {"6.0", 60, BandDigDiv, "dig-div_"},
    {"6.1", 61, BandDigDiv, "dig-div_"}, {"6.2", 62, BandDigDiv, "dig-div_"},
    {"6.9", 69, BandDigDiv, "dig-div_"}, {"ev2.0", 120, BandDigDiv, "dig-div_"},
};

sim::InstrumentConfig Instrument(const char* firmware) {
    sim::InstrumentConfig config;
    config.firmware = firmware;
    config.serial = "00777";
    config.position = 1;
    return config;
}

} // namespace

TEST(PowerOn, EachFirmwareClassIsWalkedToReadyByItsOwnSequence) {
    for (const Class& c : Classes) {
        for (const bool stored : {false, true}) {
            SCOPED_TRACE(std::string(c.firmware) + (stored ? " with stores" : ""));
            Rig rig(Instrument(c.firmware));
            Texts plan;
            std::string power1 = "00430";
            std::string power2 = "00430";
            if (stored) {
                rig.program.Stores().Write(c.prefix + std::string("im3_setup.ccz"),
                                           "079310819007940081500800008100000050079300819");
                rig.program.Stores().Write(c.prefix + std::string("pow_setup.ccz"), "0043100460");
                plan = {"#SFA07931", "#SFB08190", "#SSA07940", "#SSB08150",
                        "#STA08000", "#STB08100", "#SWA00005"};
                power1 = "00431";
                power2 = "00460";
            }
            ASSERT_TRUE(rig.PowerOn());
            const Texts recut = c.tenths >= 35 ? Texts{"#RECUT1"} : Texts{};
            EXPECT_EQ(rig.Sent(), Chain({{"#SR", "#IDN?"},
                                         MemoryStep(c.tenths),
                                         {"#SMREF", "#SAB?", "#USEID3"},
                                         plan,
                                         recut,
                                         {"#SPWA" + power1, "#SPWB" + power2},
                                         MemoryReads(200, 210)}));
            EXPECT_EQ(rig.S().working.Band(), c.bandAtPosition1);
            EXPECT_EQ(PanelOf(rig.S()).lamp, Lamp::Ready);
            EXPECT_EQ(rig.S().link.identity.Model(), "RT-DB22");
            EXPECT_EQ(rig.S().link.identity.ModelName(), "RT-DB22");
            EXPECT_EQ(rig.S().link.identity.Serial(), c.tenths >= 41 ? "00777" : "00000");
            EXPECT_NEAR(rig.S().link.identity.Firmware(), static_cast<float>(c.tenths) / 10.0f, 0.01f);
            EXPECT_TRUE(rig.user.messages.empty());
        }
    }
}

TEST(PowerOn, TheBridgeIsReadFromMemoryByItsOwnBit) {
    for (const bool bridge : {false, true}) {
        sim::InstrumentConfig config = Instrument("5.0");
        config.bridge3dB = bridge;
        Rig rig(config);
        ASSERT_TRUE(rig.PowerOn());
        EXPECT_EQ(rig.S().working.Bridge(), bridge ? 1 : 0);
    }
}

TEST(PowerOn, AToneAboveFortySixStopsTheChain) {
    Rig rig(Instrument("6.2"));
    rig.program.Stores().Write("dig-div_pow_setup.ccz", "0043000460");
    rig.S().working.SetCompensation("0", "0.1");
    EXPECT_FALSE(rig.PowerOn());
    EXPECT_TRUE(rig.user.WasTold("f2The maximum value cannot be greater than 46dbm"));
    EXPECT_LT(rig.S().link.chain.Step(), InitEnd);
}

/// A number with a hole in it would be another instrument's.
TEST(PowerOn, ASerialNumberOfWhichACharacterStaysOutIsNone) {
    Rig clean(Instrument("6.2"));
    ASSERT_TRUE(clean.PowerOn());
    const auto sent = clean.Sent();
    const auto third = std::find_if(sent.begin(), sent.end(), [](const std::string& command) {
        return command.starts_with("#KVTRE") && command.find("202") != std::string::npos;
    });
    ASSERT_NE(third, sent.end());
    Rig rig(Instrument("6.2"));
    const int at = static_cast<int>(third - sent.begin());
    rig.line.Add({sim::FaultKind::Silence, at});
    rig.program.Start(false);
    ASSERT_TRUE(rig.time.RunUntil([&] { return rig.line.CommandCount() > at; }, 20000));
    rig.line.ClearFaults();
    ASSERT_TRUE(rig.RunUntilReady());
    EXPECT_EQ(clean.S().link.identity.Serial(), "00777");
    EXPECT_EQ(rig.S().link.identity.Serial(), "00000");
}

TEST(PowerOn, TheTimeToReadyIsTheSumOfSlotsAndWire) {
    Rig rig(Instrument("6.2"));
    rig.program.Start(false);
    ASSERT_TRUE(rig.time.RunUntil([&] { return rig.comm.GetPortOpen(); }, 10000));
    const std::int64_t opened = rig.time.NowMs();
    ASSERT_TRUE(rig.RunUntilReady());
    double expected = 0;
    for (const std::string& command : rig.Sent()) {
        double replyBytes = static_cast<double>(command.size()) + 1;
        if (command == "#IDN?")
            replyBytes = 28;
        else if (command == "#SAB?")
            replyBytes = 6;
        else if (command.starts_with("#KVTRE"))
            replyBytes = static_cast<double>(command.size()) + 4;
        const double wire = (static_cast<double>(command.size()) + 1 + replyBytes) / 0.96 + 2.0;
        expected += 9.0 + std::ceil(wire / 10.0) * 10.0; // the pause, then the first tick behind the reply
    }
    EXPECT_NEAR(static_cast<double>(rig.time.NowMs() - opened), expected, 0.15 * expected);
}

} // namespace qor::test
