// The end of the chain: what the operator may do while the lamp is green already, and bands that have no
// plan.
#include "link/recovery.h"

namespace qor::test {
namespace {

// The operator is released by the echo of #RECUT1 while the serial number is still being read.
TEST(ChainEnd, AChoiceMadeWhileTheSerialNumberIsReadReachesTheInstrument) {
    for (const char* firmware : {"3.5", "5.7", "6.0", "6.2"}) {
        for (const int laterMs : {0, 30, 150, 300}) {
            SCOPED_TRACE(std::string(firmware) + " " + std::to_string(laterMs) + " ms later");
            Rig rig(AtDcs(firmware));
            rig.program.Stores().Write("egsm_pow_setup.ccz", "0040000410");
            rig.program.Start(false);
            ASSERT_TRUE(rig.time.RunUntil([&] { return rig.S().link.chain.HasAnswered(); }, 60000));
            rig.time.RunFor(laterMs);
            ASSERT_FALSE(rig.program.IsReady());
            ASSERT_TRUE(rig.program.Select().SelectBand(BandEgsm));
            ASSERT_TRUE(rig.program.Select().SelectOrder(2));
            ASSERT_TRUE(rig.program.Select().SelectMethod(ModeSweep));
            ASSERT_TRUE(rig.time.RunUntil([&] { return rig.program.IsReady(); }, 60000));
            EXPECT_EQ(rig.instrument.Settings().position, firmware == std::string("3.5") ? 1 : 3);
            EXPECT_EQ(rig.instrument.Settings().power1, 400);
            EXPECT_EQ(rig.instrument.Settings().power2, 410);
            EXPECT_EQ(rig.instrument.Settings().order, 5);
            EXPECT_EQ(PanelOf(rig.S()).m_Band_sel, "EGSM");
            EXPECT_EQ(rig.S().link.identity.Serial(), *firmware == '3'                 ? "00000"
                                                      : firmware == std::string("6.2") ? "SIM01"
                                                                                       : "00001");
            EXPECT_TRUE(rig.Measure());
        }
    }
}

TEST(ChainEnd, AnotherOrderChosenEarlierInAReconnectionIsNotLostEither) {
    for (int commands = 0; commands < 6; ++commands) {
        SCOPED_TRACE(commands);
        Rig rig(AtDcs("6.2"));
        ASSERT_TRUE(rig.PowerOn());
        rig.port.Unplug();
        rig.time.RunFor(100);
        rig.port.Replug();
        const int before = rig.line.CommandCount();
        ASSERT_TRUE(rig.time.RunUntil([&] { return rig.line.CommandCount() == before + commands; }, 10000));
        static_cast<void>(rig.program.Select().SelectOrder(3));
        ASSERT_TRUE(rig.RunUntilReady(20000));
        rig.S().curve.SetLength(500);
        ASSERT_TRUE(rig.Measure());
        if (rig.comm.GetPortOpen() && commands > 0) {
            EXPECT_EQ(rig.instrument.Settings().order, 7);
        }
    }
}

// Positions that carry no plan take no part in band activation, and must not keep the operator from the
// others.
TEST(ChainEnd, ABandWithoutAPlanInPositionLeavesTheOthersToChoose) {
    struct Case {
        const char* model;
        int position;
        const char* shown;
        int other;
    };
    for (const Case& c :
         {Case{"RT-N026", 1, "Wifi", BandUmts2}, Case{"RT-C010", 10, "FQ-C010", BandTetra390}}) {
        SCOPED_TRACE(c.model);
        sim::InstrumentConfig config;
        config.model = c.model;
        config.position = c.position;
        Rig rig(config);
        ASSERT_TRUE(rig.PowerOn());
        EXPECT_EQ(PanelOf(rig.S()).m_Band_sel, c.shown);
        ASSERT_TRUE(rig.time.RunUntil([&] { return PanelOf(rig.S()).lamp == Lamp::Ready; }, 10000));
        ASSERT_TRUE(rig.SelectBand(c.other));
        EXPECT_TRUE(rig.Measure());
    }
}

TEST(ChainEnd, AfterAPowerAboveTheLimitAnotherBandEndsTheChain) {
    Rig rig(AtDcs("6.2"));
    rig.program.Stores().Write("dcs_pow_setup.ccz", "0045000450");
    rig.S().working.SetCompensation("0", "1.1");
    EXPECT_FALSE(rig.PowerOn());
    EXPECT_EQ(rig.user.messages,
              (std::vector<std::string>{"f2The maximum value cannot be greater than 46dbm"}));
    EXPECT_EQ(rig.instrument.Settings().power2, 430) << "nothing above the limit went out";
    ASSERT_TRUE(rig.program.Select().SelectBand(BandEgsm));
    ASSERT_TRUE(rig.RunUntilReady());
    EXPECT_EQ(rig.S().link.identity.Serial(), "SIM01");
    EXPECT_TRUE(rig.Measure());

    Rig allowed(AtDcs("6.2"));
    allowed.program.Stores().Write("dcs_pow_setup.ccz", "0045000450");
    allowed.S().working.SetCompensation("0", "1.0"); // 46.0 dBm exactly
    ASSERT_TRUE(allowed.PowerOn());
    EXPECT_EQ(allowed.instrument.Settings().power2, 460);
}

} // namespace
} // namespace qor::test
