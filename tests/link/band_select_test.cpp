// Every band of the catalogue on every instrument: chosen, echoed and kept, or refused.
#include "bands/catalogue.h"
#include "link/commands.h"
#include "support/rig.h"

namespace qor::test {
namespace {

class BandSelect : public testing::TestWithParam<const char*> {};

/// What a refused or a kept choice must not have touched.
auto Untouched(Rig& rig) {
    const Session& s = rig.S();
    return std::make_tuple(s.working.Band(), PanelOf(s).m_Band_sel, s.link.position.Command(),
                           s.working.Plan().f1, s.curve.Grid(), PanelOf(s).m_fIM_text,
                           rig.instrument.Settings().position);
}

TEST_P(BandSelect, TheInstrumentIsSwitchedAndTheEchoKeepsTheBand) {
    const std::string firmware = GetParam();
    for (const auto& model : sim::Models) {
        sim::InstrumentConfig config;
        config.model = model.name;
        config.firmware = firmware;
        Rig rig(config);
        ASSERT_TRUE(rig.PowerOn()) << model.name;
        ASSERT_EQ(rig.S().link.identity.Model(), model.name);
        for (int band = BandAmps; band <= BandFqC010; ++band) {
            if (band == BandNone)
                continue;
            SCOPED_TRACE(std::string(model.name) + " " + std::string(BandText(band)));
            rig.user.messages.clear();
            if (rig.S().working.Band() == band) { // a second choice of the same band takes it off
                EXPECT_TRUE(rig.Done(rig.program.Select().SelectBand(band)));
                EXPECT_EQ(PanelOf(rig.S()).m_Band_sel, NoBandText);
                EXPECT_TRUE(rig.program.LineIsIdle());
            }
            rig.Sent();
            const auto position = BandPosition(band, model.name, rig.S().link.identity.Firmware());
            const auto before = Untouched(rig);
            EXPECT_EQ(rig.Done(rig.program.Select().SelectBand(band)), position.has_value());
            ASSERT_TRUE(rig.RunUntilIdle());
            const auto sent = rig.Sent();
            if (!position) {
                EXPECT_EQ(rig.user.messages, (std::vector<std::string>{"Nichts auswaehlen das breite."}));
                EXPECT_TRUE(sent.empty());
                EXPECT_TRUE(before == Untouched(rig));
                continue;
            }
            ASSERT_FALSE(sent.empty());
            EXPECT_EQ(sent.front(), SelectPosition(*position));
            EXPECT_EQ(rig.S().working.Band(), band);
            EXPECT_EQ(PanelOf(rig.S()).m_Band_sel, BandText(band));
            EXPECT_TRUE(rig.user.messages.empty());
            // An instrument that has no such position says so and stays where it is.
            EXPECT_EQ(rig.instrument.Settings().position,
                      *position < model.positions ? *position : std::get<6>(before));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Firmware, BandSelect,
                         testing::Values("4.9", "5.0", "5.6", "5.7", "5.8", "5.9", "6.0", "6.1", "6.2"));

TEST(SharedPosition, PcsAndAwsShareAPositionAndEachStaysChosen) {
    for (const int band : {BandPcs + 0, BandAws + 0}) {
        Rig rig;
        ASSERT_TRUE(rig.PowerOn());
        ASSERT_TRUE(rig.SelectBand(band == BandPcs ? BandAws : BandPcs));
        ASSERT_TRUE(rig.SelectBand(band));
        EXPECT_EQ(rig.instrument.Settings().position, 5);
        ASSERT_TRUE(rig.Measure());
        EXPECT_EQ(rig.S().working.Band(), band) << "the run sends the band command again";
        rig.port.Unplug();
        rig.time.RunFor(3000);
        rig.port.Replug();
        ASSERT_TRUE(rig.RunUntilReady());
        EXPECT_EQ(rig.S().working.Band(), band) << "also after a reconnection";
    }
}

TEST(SharedPosition, TheBandChosenSurvivesAReconnection) {
    Rig rig; // position 0 is LTE here, and was AMPS in the oldest firmware
    ASSERT_TRUE(rig.PowerOn());
    ASSERT_TRUE(rig.SelectBand(BandLte));
    rig.port.Unplug();
    rig.time.RunFor(500);
    rig.port.Replug();
    ASSERT_TRUE(rig.RunUntilReady());
    EXPECT_EQ(rig.S().working.Band(), BandLte);
}

} // namespace
} // namespace qor::test
