// Who answers is asked anew in every conversation: nothing of the instrument before is kept.
#include "bands/catalogue.h"
#include "link/commands.h"
#include "link/recovery.h"

namespace qor::test {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* AnotherInstrument = "Ein anderes Geraet als vorher ist angeschlossen.";
constexpr const char* AnotherBand = "Die Breite des Geraets hat sich geaendert.";

sim::InstrumentConfig Numbered(const char* firmware, const char* serial, int position = 4) {
    sim::InstrumentConfig config = AtDcs(firmware);
    config.serial = serial;
    config.position = position;
    return config;
}

/// A rig whose instrument is taken away and another one put in its place, at another port.
struct Exchange : Rig {
    Exchange(const sim::InstrumentConfig& first, const sim::InstrumentConfig& second)
        : Rig(first), other(second), otherLine(other) {}
    ~Exchange() { port.SetPortOpen(false); }
    void TakeTheOther() {
        ports.Add(otherLine, "/dev/ttySIM1");
        port.Unplug();
        ASSERT_TRUE(
            time.RunUntil([&] { return S().link.connection.LastPort() == 2 && program.IsReady(); }, 60000));
    }
    sim::Instrument other;
    sim::Line otherLine;
};

TEST(Identity, AnotherInstrumentIsToldAndNothingOfTheFirstIsKept) {
    struct Case {
        const char* name;
        sim::InstrumentConfig first, second;
        const char* serial;
        int band;
    };
    sim::InstrumentConfig bridged = Numbered("4.9", "123");
    bridged.bridge3dB = true;
    for (const Case& c :
         {Case{"other number", Numbered("6.2", "AAA111"), Numbered("6.2", "BBB222"), "BBB222", BandDcs},
          Case{"no number", Numbered("6.2", "AAA111"), Numbered("3.4", "BBB222"), "00000", BandDcs},
          Case{"no bridge", bridged, Numbered("6.2", "BBB222", 3), "BBB222", BandEgsm}}) {
        SCOPED_TRACE(c.name);
        Exchange rig(c.first, c.second);
        ASSERT_TRUE(rig.PowerOn());
        rig.user.messages.clear();
        rig.TakeTheOther();
        EXPECT_EQ(rig.S().link.identity.Serial(), c.serial);
        EXPECT_EQ(rig.S().working.Bridge(), 0);
        EXPECT_EQ(rig.S().working.Band(), c.band);
        EXPECT_EQ(rig.Told(), Texts{AnotherInstrument});
    }
}

/// Position 1 of this model means DIG-DIV, and EGSM is measured through it, too: only the instrument for
/// which EGSM was chosen keeps it.
TEST(Identity, TheOperatorsBandStaysWithHisInstrumentOnly) {
    for (const bool same : {true, false}) {
        sim::InstrumentConfig first = Numbered("6.2", "AAA111", 0);
        first.model = "RT-E010";
        sim::InstrumentConfig second = first;
        second.position = 1;
        second.serial = same ? "AAA111" : "BBB222";
        Exchange rig(first, second);
        ASSERT_TRUE(rig.PowerOn());
        ASSERT_TRUE(rig.SelectBand(BandEgsm));
        ASSERT_EQ(rig.instrument.Settings().position, 1);
        rig.TakeTheOther();
        EXPECT_EQ(rig.S().working.Band(), same ? BandEgsm : BandDigDiv);
        EXPECT_EQ(rig.S().working.Plan().f1, same ? 935.0f : 792.0f);
        EXPECT_EQ(rig.Told(), same ? Texts{} : Texts{AnotherInstrument});
    }
    Exchange moved(Numbered("6.2", "AAA111", 5), Numbered("6.2", "AAA111", 3));
    ASSERT_TRUE(moved.PowerOn());
    moved.TakeTheOther();
    EXPECT_EQ(moved.S().working.Band(), BandEgsm) << "a power cycle may leave the switch elsewhere";
    EXPECT_EQ(moved.S().working.Plan().f1, 935.0f);
    EXPECT_EQ(moved.Told(), Texts{AnotherBand});
}

/// Every band of every model comes back as it was, or, with no number to tell the instrument by, as its
/// position says.
TEST(Identity, EveryBandComesBackAfterAReconnection) {
    for (const auto& model : sim::Models) {
        for (const char* firmware : {"4.9", "5.7", "5.9", "6.2"}) {
            for (int band = BandAmps; band <= BandLte700U; ++band) {
                sim::InstrumentConfig config;
                config.model = model.name;
                config.firmware = firmware;
                const auto position =
                    BandPosition(band, model.name, static_cast<float>(std::atof(firmware)) + 0.01f);
                if (!position || *position >= model.positions || !DefaultPlan(band, 1, 0))
                    continue;
                SCOPED_TRACE(std::string(model.name) + " " + firmware + " " + std::string(BandText(band)));
                Rig rig(config);
                ASSERT_TRUE(rig.PowerOn());
                ASSERT_TRUE(rig.SelectBand(band));
                rig.port.Unplug();
                rig.time.RunFor(200);
                rig.port.Replug();
                ASSERT_TRUE(rig.time.RunUntil([&] { return BecomesReady(rig, 1); }, 30000));
                EXPECT_EQ(rig.S().working.Band(), band);
                EXPECT_EQ(rig.instrument.Settings().position, *position);
            }
        }
    }
}

TEST(Identity, ATypeCodeIsAWholeDecimalOrNone) {
    const auto model = [](const char* reply) {
        Identity identity;
        EXPECT_TRUE(identity.TakeBanner("PIM analyser RT-DB22, v6.2\r\n"));
        identity.TakeTypeCode(MemoryValue(reply));
        return identity.Model();
    };
    EXPECT_EQ(model("KVTWE,125,0,095,3\r\n"), "RT-S036");
    EXPECT_EQ(model("KVTWE,125,0,095, 0\r\n"), "RT-DA10");
    for (const char* spoilt :
         {"KVTWE,125,0,095,x6\r\n", "KVTWE,125,0,095,\r\n", "KVTWE,125,0,095,6x\r\n",
          "KVTWE,125,0,095,-1\r\n", "KVTWE,125,0,095,256\r\n", "KVTWE,125,0,095,5\r\n", ""})
        EXPECT_EQ(model(spoilt), "RT-DB22") << spoilt;
}

TEST(Identity, APositionThatStandsForNoBandWaitsForTheOperator) {
    struct Case {
        const char* model;
        const char* firmware;
        int position;
    };
    for (const Case& c :
         {Case{"RT-C010", "5.9", 8}, Case{"RT-DB22", "5.9", 11}, Case{"RT-DB22", "6.2", 11}}) {
        SCOPED_TRACE(std::string(c.model) + " " + c.firmware);
        sim::InstrumentConfig config = Numbered(c.firmware, "1", c.position);
        config.model = c.model;
        Rig rig(config);
        EXPECT_FALSE(rig.PowerOn());
        rig.Sent();
        rig.time.RunFor(20000);
        EXPECT_TRUE(rig.Sent().empty()) << "the chain waits";
        EXPECT_EQ(rig.S().link.connection.Losses(), 0);
        rig.program.OnMeasButton();
        EXPECT_FALSE(rig.S().run.IsOn());
        EXPECT_EQ(rig.Told(), Texts{"Auswaehlen Breite"});
        ASSERT_TRUE(rig.program.Select().SelectBand(BandEgsm));
        ASSERT_TRUE(rig.RunUntilReady());
        EXPECT_EQ(rig.instrument.Settings().position, 3);
        EXPECT_TRUE(rig.Measure());
    }
}

TEST(Identity, OldFirmwareIsReadyWithinEightSeconds) {
    for (const char* firmware : {"1.8", "3.4", "4.0", "4.1", "4.9", "5.0", "5.7", "6.0"}) {
        Rig rig(AtDcs(firmware));
        rig.program.Start(false);
        ASSERT_TRUE(rig.time.RunUntil([&] { return rig.comm.GetPortOpen(); }, 5000));
        EXPECT_TRUE(rig.RunUntilReady(8000)) << firmware;
        const Texts sent = rig.Sent();
        EXPECT_EQ(std::count_if(sent.begin(), sent.end(),
                                [](const std::string& text) { return text.starts_with("#KVTRE,125,0,2"); }),
                  11)
            << firmware << ": all characters of the serial number are asked for";
    }
}

/// An installation without a second port looks for its instrument in place of a band: in full, as at every
/// opening.
TEST(Identity, ABandCommandThatScansIdentifiesInFull) {
    Rig rig(AtDcs("6.2"));
    rig.program.Stores().Write("Install_info.ccz", "010");
    ASSERT_TRUE(rig.PowerOn());
    const Texts first = rig.Sent();
    EXPECT_FALSE(rig.program.Select().SelectBand(BandEgsm));
    ASSERT_TRUE(BecomesReady(rig, 20000));
    EXPECT_EQ(rig.Sent().size(), first.size());
    EXPECT_NEAR(rig.S().link.identity.Firmware(), 6.2f, 0.01f);
    EXPECT_EQ(rig.S().working.Band(), BandDcs);
    EXPECT_TRUE(rig.Told().empty());
    ASSERT_TRUE(rig.program.Select().SelectMethod(ModeSweep) && rig.RunUntilIdle());
    ASSERT_TRUE(rig.Measure());
    const Texts sweep = rig.Sent();
    EXPECT_NE(std::find(sweep.begin(), sweep.end(), "#MDNL0"), sweep.end()) << "by the sequence of a 6.2";
    EXPECT_EQ(rig.S().curve.ShownVerdict(), Verdict::Passed);
}

/// The chain that stopped at a power above 46 dBm goes on when power or compensation is corrected.
TEST(Identity, ACorrectedPowerLetsTheChainGoOn) {
    for (const bool byStore : {true, false}) {
        for (const bool reconnected : {true, false}) {
            Rig rig(AtDcs("6.2"));
            if (reconnected) {
                ASSERT_TRUE(rig.PowerOn());
                rig.port.Unplug();
                rig.time.RunFor(3000);
            }
            rig.program.Stores().Write("dcs_pow_setup.ccz", "0045000450");
            rig.S().working.SetCompensation("0", "1.1");
            if (reconnected)
                rig.port.Replug();
            else
                rig.program.Start(false);
            rig.time.RunFor(10000);
            EXPECT_FALSE(rig.program.IsReady());
            EXPECT_EQ(rig.Told(), Texts{"f2The maximum value cannot be greater than 46dbm"});
            if (byStore)
                rig.program.Stores().Write("dcs_pow_setup.ccz", "0044000440");
            else
                rig.S().working.SetCompensation("0", "1.0");
            ASSERT_TRUE(rig.RunUntilReady(5000));
            EXPECT_EQ(rig.instrument.Settings().power2, byStore ? 451 : 460);
            EXPECT_TRUE(rig.Measure());
        }
    }
}

/// What is in force and what the instrument was given are compared, and brought together.
TEST(Given, ADifferenceIsSeenAndBroughtToTheInstrument) {
    Rig rig(AtDcs("6.2"));
    ASSERT_TRUE(rig.PowerOn());
    InstrumentSelection& instrument = rig.program.Instrument();
    WorkingSet& working = rig.S().working;
    EXPECT_FALSE(instrument.DiffersFromInstrument());
    const std::function<void()> changes[] = {
        [&] { working.SelectBand(BandUmts); },
        [&] { working.SelectOrder(2); },
        [&] {
            rig.program.Stores().Write("umts_pow_setup.ccz", "0030000300"),
                working.SetPower("00300", "00300");
        },
    };
    for (const auto& change : changes) {
        change();
        EXPECT_TRUE(instrument.DiffersFromInstrument());
        ASSERT_TRUE(instrument.BringToInstrument().IsDone());
        ASSERT_TRUE(rig.RunUntilIdle());
        EXPECT_FALSE(instrument.DiffersFromInstrument());
    }
    // A command that the instrument has refused was not given.
    rig.line.Add({sim::FaultKind::SyntaxError, rig.line.CommandCount() + 3}); // behind #RECUT1 and the powers
    ASSERT_TRUE(rig.program.Select().SelectOrder(3));
    ASSERT_TRUE(rig.RunUntilIdle());
    EXPECT_EQ(rig.instrument.Settings().order, 5);
    EXPECT_TRUE(instrument.DiffersFromInstrument());
    ASSERT_TRUE(instrument.BringToInstrument().IsDone());
    ASSERT_TRUE(rig.RunUntilIdle());
    EXPECT_EQ(rig.instrument.Settings().position, 7);
    EXPECT_EQ(rig.instrument.Settings().order, 7);
    EXPECT_EQ(rig.instrument.Settings().power2, 300);
    working.SelectBand(BandTetra390);
    rig.Sent();
    EXPECT_FALSE(instrument.BringToInstrument().IsDone()) << "this model has no such band";
    rig.time.RunFor(50);
    EXPECT_TRUE(rig.Sent().empty());
}

} // namespace
} // namespace qor::test
