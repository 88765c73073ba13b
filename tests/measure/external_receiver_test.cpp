#include "base/text_format.h"
#include "platform/visa.h"
#include "results/data_file.h"
#include "support/wire_reading.h"

#include <cmath>

namespace qor::test {

namespace {

/// An external receiver that sees what the instrument sends out now: a product at 890.0 MHz reads -44.50 dBm,
/// so that a reading taken at the wrong moment lands wrong. In 2-tone the readings count instead.
class SeeingReceiver final : public VisaLibrary {
public:
    Rig* rig = nullptr;
    int kind = ReceiverAnalyser;
    bool counts = false;
    int reads = 0;
    int garbledRead = 0; ///< this one is no number
    std::vector<std::string> written;

    [[nodiscard]] double Level() {
        ++reads;
        const sim::InstrumentSettings& now = rig->instrument.Settings();
        return counts ? -40.0 - reads / 10.0 : -(2 * now.frequency1 - now.frequency2) / 200.0;
    }
    VisaStatus OpenDefaultRM(VisaSession& manager) override {
        manager = 1;
        return kind == ReceiverSensor ? -1 : 0;
    }
    VisaStatus Open(VisaSession, std::string_view, VisaSession& session) override {
        session = 2;
        return 0;
    }
    VisaStatus Close(VisaSession) override { return 0; }
    VisaStatus SetAttribute(VisaSession, VisaAttribute, std::uint32_t) override { return 0; }
    VisaStatus Write(VisaSession, std::string_view text) override {
        written.emplace_back(text);
        return 0;
    }
    VisaStatus Read(VisaSession, std::size_t, std::string& reply) override {
        static constexpr const char* Names[] = {"", "LAB,FSP-3,1,1.0\n", "LAB,NRVS,2,1.0\n",
                                                "LAB,NRP2,3,1.0\n"};
        reply = written.back() == "*IDN?" ? Names[kind] : Fixed(Level(), 2) + "\n";
        if (reads == garbledRead && reads > 0)
            reply = "#?\n";
        written.emplace_back("<");
        return 0;
    }

    struct Sensor final : PowerSensorLibrary {
        explicit Sensor(SeeingReceiver& receiver) : sees(receiver) {}
        std::int32_t Init(std::string_view, bool, bool, std::uint32_t&) override {
            return sees.kind == ReceiverSensor ? 0 : -1;
        }
        void SetContAvAperture(std::uint32_t, int, double) override {}
        void SetContAvSmoothingEnabled(std::uint32_t, int, bool) override {}
        void ConfigureAvgNSRatio(std::uint32_t, int, double, double) override {}
        void Initiate(std::uint32_t) override {}
        void ReadMeasurement(std::uint32_t, int, int, double& watts) override {
            watts = std::pow(10.0, sees.Level() / 10) / 1000;
        }
        void Close(std::uint32_t) override {}
        SeeingReceiver& sees;
    } sensor{*this};
};

struct Kind {
    int kind;
    std::vector<std::string> inTick; ///< texts of one reading in a 2-tone tick
    std::vector<std::string> inStep; ///< the same in a sweep step
};

const std::vector<Kind> Kinds{
    {ReceiverAnalyser, {"CALC:MARK1:Y?", "<", "INIT;*WAI"}, {"INIT;*WAI", "CALC:MARK1:Y?", "<"}},
    {ReceiverNrv, {"SENS:DATA:AMPL?", "<"}, {"SENS:DATA:AMPL?", "<"}},
    {ReceiverNrp, {"MEAS?", "<"}, {"MEAS?", "<"}},
    {ReceiverSensor, {}, {}},
};
const std::vector<std::string> MarkerSetUp{"CALC:MARK1 ON", "INIT;*WAI", "CALC:MARK:STAT ON",
                                           "CALC:MARK:TRAC 1", "CALC:MARK:MAX:AUTO ON"};

struct ExternalRig {
    SeeingReceiver receiver;
    Rig rig;

    ExternalRig(int kind, const char* firmware) : rig({.firmware = firmware}, &receiver, &receiver.sensor) {
        receiver.rig = &rig;
        receiver.kind = kind;
        EXPECT_TRUE(rig.program.Receiver().UseExternalNow({}));
        rig.program.Stores().Write("AlarmUp.ccz", "-30.0");
    }
};

std::vector<std::string> Centre(int tenths) {
    return {"FREQUENCY:CENTER " + std::to_string(tenths / 10) + "000000Hz"};
}

} // namespace

TEST(ExternalReceiver, TwoToneSettlesSeventeenTicksAndStoresFiftyOnePoints) {
    for (const Kind& kind : Kinds) {
        SCOPED_TRACE("kind " + std::to_string(kind.kind));
        ExternalRig e(kind.kind, "6.2");
        ASSERT_TRUE(e.rig.ReadyFor(ModeTwoTone));
        e.receiver.counts = true;
        e.receiver.written.clear();
        const auto sent = SentDuring(e.rig, [&] {
            ASSERT_TRUE(e.rig.Measure());
            e.rig.time.RunFor(20);
        });
        EXPECT_EQ(Joined(sent), "#USESA #SAB3 #M2T1 #SR #RECUT1 #SMREF #SFA09350 #SFB09600 #M2T0 #SMREF ");
        const Curve& curve = e.rig.S().curve;
        EXPECT_EQ(curve.NextPoint(), 51);
        EXPECT_EQ(e.receiver.reads, 17 + 51);
        for (std::size_t i = 0; i < 51; ++i)
            EXPECT_NEAR(curve.Up()[i], -40.0f - static_cast<float>(i + 18) / 10.0f, 0.001f);
        auto texts = Chain({{"INIT:CONT OFF"}, Centre(9100), MarkerSetUp});
        for (int i = 0; i < 68; ++i)
            texts = Chain({texts, kind.inTick});
        texts = Chain({texts, {"INIT:CONT ON"}});
        EXPECT_EQ(Joined(e.receiver.written), kind.kind == ReceiverSensor ? "" : Joined(texts));
        EXPECT_EQ(PanelOf(e.rig.S()).m_WorstLevelText, "-41.8");
        EXPECT_EQ(curve.ShownVerdict(), Verdict::Passed);
    }
}

/// A further pass with "Replace data" stores from its first tick.
TEST(ExternalReceiver, RepeatedTwoTonePassNeedsNoSettling) {
    ExternalRig e(ReceiverNrv, "6.2");
    ASSERT_TRUE(e.rig.ReadyFor(ModeTwoTone));
    e.receiver.counts = true;
    RunSettings& runs = e.rig.S().runs;
    runs.SetContinuous(true);
    runs.SetReplacesData(true);
    runs.SetContinuousTimes(1);
    ASSERT_TRUE(e.rig.Measure());
    EXPECT_EQ(e.receiver.reads, 17 + 51 + 51);
    EXPECT_NEAR(e.rig.S().curve.Up()[0], -46.9f, 0.001f);
}

/// The analyser is waited for 300 ms ahead of the first pass of a sweep, 100 ms ahead of a further one.
TEST(ExternalReceiver, RepeatedSweepWaitsOneTick) {
    ExternalRig e(ReceiverAnalyser, "4.2");
    ASSERT_TRUE(e.rig.ReadyFor(ModeSweep));
    const qor::Run& run = e.rig.S().run;
    RunSettings& runs = e.rig.S().runs;
    runs.SetContinuous(true);
    runs.SetReplacesData(true);
    runs.SetContinuousTimes(1);
    e.rig.program.OnMeasButton();
    const auto msToSetUp = [&] {
        const std::int64_t begin = e.rig.time.NowMs();
        e.receiver.written.clear();
        EXPECT_TRUE(e.rig.time.RunUntil(
            [&] {
                return std::count(e.receiver.written.begin(), e.receiver.written.end(), "INIT:CONT OFF") > 0;
            },
            60000));
        return e.rig.time.NowMs() - begin;
    };
    EXPECT_NEAR(static_cast<double>(msToSetUp()), 300.0, 15.0);
    ASSERT_TRUE(e.rig.time.RunUntil([&] { return run.Passes() == 1; }, 60000));
    EXPECT_NEAR(static_cast<double>(msToSetUp()), 100.0, 15.0);
    ASSERT_TRUE(e.rig.RunUntilRunIsOver());
    EXPECT_EQ(e.receiver.reads, 2 * (13 + 15));
}

TEST(ExternalReceiver, SweepReadsEachStepBeforeTheNextCommand) {
    for (const Kind& kind : Kinds) {
        for (const char* const firmware : {"6.2", "3.6", "1.8"}) {
            SCOPED_TRACE("kind " + std::to_string(kind.kind) + " firmware " + firmware);
            ExternalRig e(kind.kind, firmware);
            ASSERT_TRUE(e.rig.ReadyFor(ModeSweep));
            e.receiver.written.clear();
            const auto sent = SentDuring(e.rig, [&] { ASSERT_TRUE(e.rig.Measure()); });
            EXPECT_EQ(std::count(sent.begin(), sent.end(), "#IMP?"), 0);
            // Firmware below 3.7 is told the pass only when its own receiver listens.
            EXPECT_EQ(std::count(sent.begin(), sent.end(), "#MDNL1"), firmware[0] == '6' ? 1 : 0);

            // The analyser is set up 300 ms after the start; a long start of the instrument reaches its first
            // step later.
            const auto setUp = Chain({{"INIT:CONT OFF"}, MarkerSetUp});
            auto texts = firmware[0] == '6' ? Chain({setUp, Centre(8900)}) : Chain({Centre(8900), setUp});
            std::map<int, float> up;
            std::map<int, float> down;
            for (int f1 = 9250; f1 <= 9370; f1 += 10) {
                up[2 * f1 - 9600] = static_cast<float>(9600 - 2 * f1) / 200.0f;
                texts = Chain(
                    {texts, f1 > 9250 ? Centre(2 * f1 - 9600) : std::vector<std::string>(), kind.inStep});
            }
            for (int f2 = 9600; f2 >= 9460; f2 -= 10) {
                down[18500 - f2] = static_cast<float>(f2 - 18500) / 200.0f;
                texts = Chain({texts, Centre(18500 - f2), kind.inStep});
            }
            const Curve& curve = e.rig.S().curve;
            EXPECT_EQ(OnGrid(curve, std::span(curve.Up())).size(), 13U);
            for (const auto& [place, level] : OnGrid(curve, std::span(curve.Up())))
                EXPECT_NEAR(level, up[place], 0.006f) << place;
            EXPECT_EQ(OnGrid(curve, std::span(curve.Down())).size(), 15U);
            for (const auto& [place, level] : OnGrid(curve, std::span(curve.Down())))
                EXPECT_NEAR(level, down[place], 0.006f) << place;
            texts = Chain({texts, {"INIT:CONT ON"}});
            EXPECT_EQ(Joined(e.receiver.written), kind.kind == ReceiverSensor ? "" : Joined(texts));
            EXPECT_EQ(PanelOf(e.rig.S()).m_WorstLevelText, "-44.5");
            EXPECT_EQ(PanelOf(e.rig.S()).m_WorstFreqText, "890.0");
            EXPECT_EQ(curve.ShownVerdict(), Verdict::Passed);
        }
    }
}

/// With a receiver that answers at once a sweep takes its ticks of 100 ms and the wait of 300 ms, whatever
/// else.
TEST(ExternalReceiver, ASweepTakesItsTicks) {
    ExternalRig e(ReceiverAnalyser, "4.2");
    ASSERT_TRUE(e.rig.ReadyFor(ModeSweep));
    e.rig.program.OnMeasButton();
    ASSERT_TRUE(e.rig.RunUntilRunIsOn());
    const std::int64_t begin = e.rig.time.NowMs();
    ASSERT_TRUE(e.rig.time.RunUntil([&] { return e.receiver.reads == 13 + 15; }, 60000));
    EXPECT_LE(static_cast<double>(e.rig.time.NowMs() - begin), 1.05 * (300 + 28 * 100));
}

/// A reading that did not come leaves its place empty: the later ones stand at their times.
TEST(ExternalReceiver, AMissingReadingLeavesItsPlaceEmpty) {
    ExternalRig e(ReceiverNrv, "6.2");
    ASSERT_TRUE(e.rig.ReadyFor(ModeTwoTone, 1));
    e.receiver.counts = true;
    e.receiver.garbledRead = 17 + 5;
    ASSERT_TRUE(e.rig.Measure());
    const Curve& curve = e.rig.S().curve;
    EXPECT_EQ(curve.NextPoint(), 11);
    EXPECT_NEAR(curve.Up()[3], -42.1f, 0.001f);
    EXPECT_FALSE(IsPresent(curve.Up()[4]));
    EXPECT_NEAR(curve.Up()[5], -42.3f, 0.001f);
    EXPECT_EQ(curve.Facts().taken, 10);
    EXPECT_EQ(curve.ShownVerdict(), Verdict::None);
    EXPECT_NE(FormatResult(*e.rig.program.Files().Document()).find("0000.00"), std::string::npos);
}

TEST(ExternalReceiver, SpectrumPassesRepeatAfterOneTick) {
    ExternalRig e(ReceiverAnalyser, "6.2");
    ASSERT_TRUE(e.rig.ReadyFor(ModeSpectrum));
    const auto sent = SentDuring(e.rig, [&] {
        e.rig.program.OnMeasButton();
        ASSERT_TRUE(e.rig.time.RunUntil([&] { return e.rig.S().run.Passes() == 2; }, 60000));
    });
    const Curve& curve = e.rig.S().curve;
    EXPECT_EQ(OnGrid(curve, std::span(curve.Up())).size(), 13U);
    for (const auto& [place, level] : OnGrid(curve, std::span(curve.Up())))
        EXPECT_NEAR(level, -static_cast<float>(place) / 200.0f, 0.006f) << place;
    EXPECT_EQ(e.receiver.reads, 26);
    EXPECT_EQ(std::count(sent.begin(), sent.end(), "#IMP?"), 0);
}

/// A stop ends the readings at once: the step under way is not read behind the verdict.
TEST(ExternalReceiver, StopReadsNothingMore) {
    for (const int mode : {ModeTwoTone, ModeSweep, ModeSpectrum}) {
        ExternalRig e(ReceiverAnalyser, "6.2");
        ASSERT_TRUE(e.rig.ReadyFor(mode));
        e.rig.program.OnMeasButton();
        e.rig.time.RunFor(3010);
        const int reads = e.receiver.reads;
        e.receiver.written.clear();
        e.rig.program.OnMeasButton();
        e.rig.time.RunFor(5000);
        EXPECT_EQ(Joined(e.receiver.written), "INIT:CONT ON ");
        EXPECT_EQ(e.receiver.reads, reads);
        EXPECT_EQ(e.receiver.written.size(), 1U);
        EXPECT_TRUE(e.rig.S().readout.IsFrozen());
    }
}

/// Without a receiver there is no start, and no carrier.
TEST(ExternalReceiver, WithoutOneTheStartIsRefused) {
    Rig rig;
    ASSERT_TRUE(rig.PowerOn());
    ASSERT_TRUE(rig.SelectBand(BandEgsm));
    rig.S().receiver.UseExternal();
    rig.Sent();
    rig.program.OnMeasButton();
    EXPECT_FALSE(rig.S().run.IsOn());
    EXPECT_TRUE(rig.user.WasTold("Kein Empfaenger: GPIB0::20::INSTR"));
    EXPECT_EQ(rig.S().run.StartFail(), StartRefused);
    rig.time.RunFor(1000);
    EXPECT_EQ(Joined(rig.Sent()).find("#M2T1"), std::string::npos);
}

} // namespace qor::test
