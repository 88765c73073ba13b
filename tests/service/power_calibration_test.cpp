// A power calibration on the simulated instrument: what it writes, what comes out afterwards, and how it
// ends.
#include "bands/catalogue.h"
#include "base/firmware.h"
#include "service/memory_talk.h"
#include "support/calibration_bench.h"

#include <gtest/gtest.h>

namespace qor::test {
namespace {

using Texts = std::vector<std::string>;

const sim::InstrumentConfig Da10{.model = "RT-DA10", .firmware = "6.0", .position = 1};

TEST(PowerCalibration, WritesWhatThePowersNeedAndTheyAreReadBack) {
    for (const bool analyser : {false, true}) {
        for (const std::uint64_t seed : {1U, 7U}) {
            sim::InstrumentConfig config = Da10;
            config.seed = seed;
            CalibrationBench bench(config, analyser);
            ASSERT_TRUE(bench.Open(BandEgsm));
            bench.SpoilTables();
            bench.Shorten(3, 32, 36);
            ASSERT_TRUE(bench.Calibrate());
            EXPECT_EQ(bench.rig.Told(), std::vector<std::string>{"Calibration finished!"});
            EXPECT_FALSE(bench.CarriersAreOn());
            const CalibrationProtocol protocol = bench.Protocol();
            EXPECT_TRUE(protocol.IsFinished());
            ASSERT_EQ(protocol.Points().size(), 2U * 3 * 5);
            for (const CalibrationPoint& point : protocol.Points()) {
                const TablePlace place = PlaceOf(bench.Desk().Plan(), {BandEgsm, "RT-DA10", 6.0f}, point.tone,
                                                 point.mhz, point.dBm);
                EXPECT_EQ(point.place, place);
                EXPECT_EQ(bench.Entry(place), point.value);
                EXPECT_NEAR(point.drive * 1000, point.value, 0.5001);
            }
            ASSERT_TRUE(bench.ReadBack());
            EXPECT_FALSE(bench.CarriersAreOn());
            const auto found = std::filesystem::directory_iterator(bench.rig.dir.Path());
            std::string powers;
            for (const auto& file : found)
                if (file.path().filename().string().starts_with("readback-"))
                    powers = FileText(file.path());
            EXPECT_EQ(std::ranges::count(powers, '\n'), 1 + 2 * 3 * 5);
            EXPECT_LT(LargestError(powers), 0.1) << seed << powers;
        }
    }
}

TEST(PowerCalibration, SaysToTheInstrumentWhatThePointsNeed) {
    CalibrationBench bench(Da10, true);
    ASSERT_TRUE(bench.Open(BandEgsm));
    bench.Shorten(2, 32, 34);
    CalibrationPlan plan = bench.Desk().Plan();
    plan.powDelta = 2;
    bench.Desk().SetPlan(plan);
    bench.rig.Sent();
    ASSERT_TRUE(bench.Calibrate());
    std::vector<std::string> sent = bench.rig.Sent();
    EXPECT_EQ(Texts(sent.begin(), sent.begin() + 4), Words("#SPA1 #SPWA00320 #SFA09250 #KVTAL02500"));
    EXPECT_EQ(Texts(sent.end() - 2, sent.end()), Words("#SPB0 #SPA0"));
    const auto drives =
        std::erase_if(sent, [](const std::string& text) { return text.starts_with("#KVTAL"); });
    EXPECT_LT(drives, 2U * 2 * 2 * 12);
    // The bytes of an entry, whatever their values.
    const auto writes =
        std::erase_if(sent, [](const std::string& text) { return text.starts_with("$KVTWE"); });
    EXPECT_EQ(writes, 2U * 2 * 2 * 2);
    std::erase_if(sent, [](const std::string& text) { return !text.starts_with('#'); });
    EXPECT_EQ(sent, Words("#SPA1 #SPWA00320 #SFA09250 #SPWA00340 #SPWA00320 #SFA09260 #SPWA00340 "
                          "#SPA0 #SPB1 #SPWB00320 #SFB09460 #SPWB00340 #SPWB00320 #SFB09470 #SPWB00340 "
                          "#SPB0 #SPA0"));
    std::vector<std::string> analyser = bench.VisaTexts();
    std::erase_if(analyser, [](const std::string& text) { return !text.starts_with("FREQUENCY:CENTER 9"); });
    ASSERT_GE(analyser.size(), 4U);
    EXPECT_EQ(analyser[analyser.size() - 4], "FREQUENCY:CENTER 925000000Hz");
    EXPECT_EQ(analyser.back(), "FREQUENCY:CENTER 947000000Hz");
}

TEST(PowerCalibration, IsRefusedWithItsReasonAndAsksWhereOtherBandsWouldSuffer) {
    CalibrationBench bench({.model = "RT-DB22", .firmware = "6.0", .position = 3});
    ASSERT_TRUE(bench.Open(BandEgsm));
    const CalibrationPlan good = bench.Desk().Plan();
    const auto refused = [&](auto spoil) {
        CalibrationPlan plan = good;
        spoil(plan);
        bench.Desk().SetPlan(plan);
        return bench.Desk().PressRun().Text();
    };
    EXPECT_EQ(refused([](CalibrationPlan& p) {
                  p.attenuation = 0.05f;
                  p.f1.delta = 1;
              }),
              "Please input \"Attenuation Cell\"");
    EXPECT_EQ(refused([](CalibrationPlan& p) {
                  p.useF1 = p.useF2 = false;
                  p.f1.delta = 1;
              }),
              "Please select f1 or/and f2 to do calibration.");
    EXPECT_EQ(refused([](CalibrationPlan& p) {
                  p.f2.delta = 1;
                  p.powStop = 99;
              }),
              "Please use 2MHz as delta for RT-DB22/RT-L027.");
    EXPECT_EQ(refused([](CalibrationPlan& p) { p.powStop = 47; }), "Falsch, dichtesortierung.");
    EXPECT_EQ(refused([](CalibrationPlan& p) { p.f1.stop = p.f1.start - 1; }), "Falsch, dichtesortierung.");
    bench.rig.user.answer = false; // AWS has some of these entries
    bench.rig.user.whileAsked = [&] { EXPECT_FALSE(bench.CarriersAreOn()); };
    EXPECT_EQ(refused([](CalibrationPlan&) {}), "");
    EXPECT_EQ(bench.rig.user.questions.back(),
              "Die Kalibrierung schreibt auch Eintraege anderer Breiten: AWS");
    EXPECT_FALSE(bench.Desk().Power().IsOn());
    bench.rig.user.answer = true;
    EXPECT_EQ(refused([](CalibrationPlan&) {}), "");
    EXPECT_TRUE(bench.Desk().Power().IsOn());
    EXPECT_EQ(bench.Desk().PressRead().Text(), "Please stop calibration firstly.");
    EXPECT_EQ(bench.rig.program.PressStart().Text(), "\nHalten Messung erst!");
    EXPECT_FALSE(bench.rig.program.OnExitButton());
    bench.rig.program.Receiver().UseInternal();
    EXPECT_EQ(bench.Desk().PressRead().Text(),
              "Please select external receiver by menu \"Setup->Receiver Ports->External\"");
}

/// Ways in which a run is interrupted, and what is told then.
struct Interruption {
    const char* what;
    void (*happens)(CalibrationBench&);
    const char* told;
    bool pageLeft = false;
};

const Interruption Interruptions[] = {
    {"stop", [](CalibrationBench& b) { EXPECT_TRUE(b.Desk().PressRun()); }, ""},
    {"page left",
     [](CalibrationBench& b) { EXPECT_TRUE(b.rig.program.Service().PressPage(ServicePage::Calibration)); },
     "", true},
    {"unplugged", [](CalibrationBench& b) { b.rig.port.Unplug(); },
     "Der Kontakt ist verloren: Die Kalibrierung ist zu Ende."},
    {"receiver lost", [](CalibrationBench& b) { b.LoseReceiver(); },
     "Receiver Error! \r\nCheck and do calibration again."},
    {"program ended", [](CalibrationBench& b) { b.rig.program.Leave(); }, "", true},
};

TEST(PowerCalibration, WhateverEndsItTheCarriersGoOffAndTheProtocolIsTrue) {
    for (const Interruption& way : Interruptions) {
        for (const int delay : {0, 60, 130, 210, 300}) { // ms behind a point: drive, reading, either byte
            CalibrationBench bench(Da10);
            ASSERT_TRUE(bench.Open(BandEgsm));
            bench.Shorten(3, 33, 35);
            ASSERT_TRUE(bench.rig.Done(bench.Desk().PressRun()));
            ASSERT_TRUE(bench.RunUntilPoints(4));
            bench.rig.time.RunFor(delay);
            ASSERT_TRUE(bench.CarriersAreOn()) << way.what;
            way.happens(bench);
            const bool cableIsOut = std::string_view(way.what) == "unplugged";
            if (cableIsOut) {
                bench.rig.time.RunFor(500);
                bench.rig.port.Replug();
                EXPECT_TRUE(bench.rig.RunUntilReady()) << way.what;
            } else {
                // A receiver is given ten tries; everything else takes two seconds.
                bench.rig.time.RunFor(std::string_view(way.what) == "receiver lost" ? 3500 : 2000);
            }
            EXPECT_FALSE(bench.CarriersAreOn()) << way.what << delay;
            EXPECT_FALSE(bench.Desk().Power().IsOn()) << way.what;
            EXPECT_FALSE(bench.S().factory.IsBusy()) << way.what;
            EXPECT_TRUE(bench.ProtocolIsTrue()) << way.what << delay;
            EXPECT_GE(bench.Protocol().Points().size(), 4U);
            if (*way.told != '\0') {
                EXPECT_TRUE(bench.rig.user.WasTold(way.told)) << way.what;
            }
            EXPECT_FALSE(bench.Protocol().IsFinished());
        }
    }
}

TEST(PowerCalibration, ContinuesWithTheFirstPointThatIsNotWritten) {
    CalibrationBench bench(Da10);
    ASSERT_TRUE(bench.Open(BandEgsm));
    bench.SpoilTables();
    bench.Shorten(3, 33, 35);
    const CalibrationPlan plan = bench.Desk().Plan();
    for (const int points : {2, 7, 10, 14}) {
        ASSERT_TRUE(bench.rig.Done(points == 2 ? bench.Desk().PressRun() : bench.Desk().PressContinue()));
        ASSERT_TRUE(bench.RunUntilPoints(points));
        ASSERT_TRUE(bench.rig.Done(bench.Desk().PressRun()));
        ASSERT_TRUE(bench.RunUntilOver());
        EXPECT_TRUE(bench.Desk().CanContinue());
        bench.Desk().SetPlan({}); // its own set-up counts
    }
    bench.rig.Sent();
    ASSERT_TRUE(bench.rig.Done(bench.Desk().PressContinue()));
    ASSERT_TRUE(bench.RunUntilOver());
    EXPECT_EQ(bench.rig.Sent().front(), "#SPB1");
    EXPECT_FALSE(bench.Desk().CanContinue());
    EXPECT_EQ(bench.Desk().Plan().f1.stop, plan.f1.stop);
    const CalibrationProtocol protocol = bench.Protocol();
    EXPECT_TRUE(protocol.IsFinished());
    EXPECT_EQ(protocol.Points().size(), 2U * 3 * 3);
    EXPECT_TRUE(bench.ProtocolIsTrue());
    EXPECT_EQ(bench.Desk().PressContinue().Text(), "Keine angefangene Kalibrierung dieser Breite.");
}

TEST(PowerCalibration, AnUnconfirmedByteStopsItAndIsNamed) {
    for (const bool lowByte : {false, true}) {
        CalibrationBench bench(Da10);
        ASSERT_TRUE(bench.Open(BandEgsm));
        bench.Shorten(2, 36, 37);
        ASSERT_TRUE(bench.rig.Done(bench.Desk().PressRun()));
        const auto found = [&] { return bench.Desk().Power().Progress().log.size() == 2; };
        ASSERT_TRUE(bench.rig.time.RunUntil(found, 60000));
        bench.rig.line.Add({sim::FaultKind::SyntaxError, bench.rig.line.CommandCount() + (lowByte ? 1 : 0)});
        ASSERT_TRUE(bench.RunUntilOver());
        EXPECT_FALSE(bench.CarriersAreOn());
        const CalibrationPoint last = bench.Protocol().Points().back();
        const int page = lowByte ? last.place.pageLow : last.place.pageHigh;
        EXPECT_TRUE(bench.rig.user.WasTold("Nicht bestaetigt, Seite/Adresse: " +
                                           PlaceText(page, last.place.address)));
        EXPECT_EQ(last.state, PointState::Unconfirmed);
        EXPECT_TRUE(bench.ProtocolIsTrue());
    }
}

TEST(PowerCalibration, ALevelThatIsNotReachedEndsItWithThePointUnwritten) {
    CalibrationBench bench(Da10);
    ASSERT_TRUE(bench.Open(BandEgsm));
    bench.Shorten(2, 36, 37);
    CalibrationPlan plan = bench.Desk().Plan();
    plan.attenuation = 80; // 30 dB more than there are: everything seems far too strong
    bench.Desk().SetPlan(plan);
    bench.rig.Sent();
    ASSERT_TRUE(bench.Calibrate());
    EXPECT_TRUE(bench.rig.user.WasTold("Der Pegel wird nicht erreicht: 925 MHz, 36 dBm"));
    EXPECT_TRUE(bench.Protocol().Points().empty());
    EXPECT_FALSE(bench.CarriersAreOn());
    // Twice from 0 to 5 V.
    EXPECT_EQ(std::ranges::count(bench.rig.Sent(), "#KVTAL02500"), 2);
}

} // namespace
} // namespace qor::test
