#include "bands/catalogue.h"
#include "support/calibration_bench.h"

#include <gtest/gtest.h>

namespace qor::test {
namespace {

using Signal = ReceiverCalibration::Signal;

TEST(ReceiverCalibration, SlopeAndOffsetRoundAsTheInstrumentCounts) {
    EXPECT_EQ(DetectorFrom(1230, 300), (DetectorLine{31, 2780}));
    EXPECT_EQ(DetectorFrom(1244, 300).slope, 31); // a rest of 14
    EXPECT_EQ(DetectorFrom(1245, 300).slope, 32);
    EXPECT_LE(DetectorFrom(300, 1230).slope, 0);
}

TEST(ReceiverCalibration, TheHintFollowsCarriersAndOrder) {
    CalibrationBench bench({.model = "RT-DA10", .firmware = "6.0", .position = 1});
    ASSERT_TRUE(bench.Open(BandEgsm));
    ReceiverCalibration& receiver = bench.Desk().Receiver();
    EXPECT_EQ(receiver.F1() + " " + receiver.F2(), "929 960");
    EXPECT_EQ(receiver.SignalMhz(), 898);
    EXPECT_TRUE(receiver.SetCarriers("935", "960"));
    EXPECT_EQ(receiver.SignalMhz(), 910);
    EXPECT_TRUE(receiver.SetCarriers("960", "960")); // the product is outside: nothing changes
    EXPECT_EQ(receiver.SignalMhz(), 910);
    ASSERT_TRUE(bench.rig.Done(bench.rig.program.Select().SelectOrder(2)));
    EXPECT_TRUE(receiver.SetCarriers("934", "960"));
    EXPECT_EQ(receiver.SignalMhz(), 882);
}

std::ptrdiff_t Writes(const std::vector<std::string>& sent) {
    return std::ranges::count_if(sent, [](const std::string& text) { return text.starts_with("$KVTWE"); });
}

/// Error of the level shown for a signal, dB.
double LevelError(CalibrationBench& bench, double dBm) {
    bench.rig.instrument.FeedSignal(dBm);
    return std::abs(std::stod(bench.rig.instrument.Execute("#IMP?").substr(4, 7)) - dBm);
}

TEST(ReceiverCalibration, ALevelIsRightAfterwardsOnEveryMemoryPage) {
    for (const char* firmware : {"4.9", "5.0", "6.0"}) {
        CalibrationBench bench({.model = "RT-DA10",
                                .firmware = firmware,
                                .position = 1,
                                .detectorSlope = 27.3,
                                .detectorOffset = 2391});
        ASSERT_TRUE(bench.Open(BandEgsm));
        const auto page = static_cast<char>(bench.rig.instrument.Memory().OwnPage());
        // As it comes from the bench: the slope of another detector.
        ASSERT_FALSE(bench.rig.instrument.Execute(std::string("$KVTWE") + page + '\x63' + '\x1f').empty());
        EXPECT_GT(LevelError(bench, -60), 5);
        ReceiverCalibration& receiver = bench.Desk().Receiver();
        EXPECT_EQ(receiver.Write().Text(), "Please get volt of -50dBm firstly!");
        bench.rig.instrument.FeedSignal(-50);
        ASSERT_TRUE(bench.rig.Done(receiver.Read(Signal::Strong)));
        EXPECT_EQ(receiver.Read(Signal::Weak).Text(), "\nHalten Messung erst!"); // one at a time
        ASSERT_TRUE(bench.rig.RunUntilIdle());
        EXPECT_NEAR(receiver.Reading(Signal::Strong).value_or(0), 2391 - 27.3 * 50, 8);
        EXPECT_EQ(receiver.Write().Text(), "Please get volt of -80dBm firstly!");
        bench.rig.instrument.FeedSignal(-80);
        const auto sent = SentDuring(bench.rig, [&] { ASSERT_TRUE(receiver.Read(Signal::Weak)); });
        EXPECT_EQ(sent, Words("#SFA09290 #SFB09600 #ADC?"));
        bench.rig.user.messages.clear();
        const auto written = SentDuring(bench.rig, [&] { ASSERT_TRUE(receiver.Write()); });
        EXPECT_EQ(Writes(written), 4);
        EXPECT_EQ(bench.rig.Told(),
                  std::vector<std::string>{"Calibration finished. \r\nRe-power your equipment."});
        EXPECT_FALSE(bench.S().factory.IsBusy());
        for (const double dBm : {-50, -65, -80})
            EXPECT_LT(LevelError(bench, dBm), 1.0) << firmware << dBm;
    }
}

TEST(ReceiverCalibration, SwappedSignalsAndAMissingEchoWriteNothingMore) {
    CalibrationBench bench({.model = "RT-DA10", .firmware = "6.0", .position = 1});
    ASSERT_TRUE(bench.Open(BandEgsm));
    ReceiverCalibration& receiver = bench.Desk().Receiver();
    const auto read = [&](double dBm, Signal as) {
        bench.rig.instrument.FeedSignal(dBm);
        ASSERT_TRUE(bench.rig.Done(receiver.Read(as)));
        ASSERT_TRUE(bench.rig.RunUntilIdle());
    };
    read(-80, Signal::Strong);
    read(-50, Signal::Weak);
    EXPECT_EQ(SentDuring(bench.rig, [&] { EXPECT_EQ(receiver.Write().Text(), "Falsch, dichtesortierung."); })
                  .size(),
              0U);
    read(-50, Signal::Strong);
    read(-80, Signal::Weak);
    bench.rig.line.Add({sim::FaultKind::SyntaxError, bench.rig.line.CommandCount() + 2});
    EXPECT_EQ(Writes(SentDuring(bench.rig, [&] { ASSERT_TRUE(receiver.Write()); })), 3);
    EXPECT_TRUE(bench.rig.user.WasTold("Nicht bestaetigt, Seite/Adresse: " + PlaceText(125, 156)))
        << ::testing::PrintToString(bench.rig.user.messages);
    EXPECT_FALSE(bench.S().factory.IsBusy());
}

} // namespace
} // namespace qor::test
