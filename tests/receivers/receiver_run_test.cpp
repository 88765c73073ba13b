// Runs with a simulated receiver at the simulated instrument, and what becomes of them when it fails.
#include "receivers/analyser_setup.h"
#include "sim/simulated_receiver.h"
#include "support/wire_reading.h"

#include <ostream>

namespace qor::test {
namespace {

/// A program whose external receiver hears the instrument's own device under test.
struct ReceiverRig {
    explicit ReceiverRig(sim::ReceiverKind kind = sim::ReceiverKind::Analyser, bool overUsb = false)
        : visa(late), sensor(late), rig({}, overUsb ? nullptr : &visa, overUsb ? &sensor : nullptr),
          receiver(kind, rig.instrument, 1) {
        late.rig = this;
        rig.Store().Write("gpib_addr.ccz", "TCPIP0::lab::5025::SOCKET");
        rig.Store().Write("rs_ANALYZER_setup.ccz", "910#0#-20#100#0#0#6#6#"); // 10 kHz: quick
        rig.Store().Write("AlarmUp.ccz", "-30.0");
    }
    bool ReadyFor(int method) {
        return rig.ReadyFor(method) && rig.program.Receiver().UseExternalNow({}).IsDone();
    }
    [[nodiscard]] Session& S() { return rig.S(); }

    /// What the program sees before the instrument is made.
    struct Late {
        ReceiverRig* rig = nullptr;
    } late;
    struct Visa final : VisaLibrary {
        explicit Visa(Late& l) : late(l) {}
        sim::SimulatedVisa& Real() {
            if (!real)
                real = std::make_unique<sim::SimulatedVisa>(late.rig->receiver, late.rig->rig.time.clock);
            if (m_While)
                real->SetWhileWaiting(m_While);
            return *real;
        }
        void SetWhileWaiting(std::function<void()> w) override { m_While = std::move(w); }
        void Abandon() override { Real().Abandon(); }
        VisaStatus OpenDefaultRM(VisaSession& m) override { return Real().OpenDefaultRM(m); }
        VisaStatus Open(VisaSession m, std::string_view a, VisaSession& s) override {
            return gone ? visa::ErrorNotFound : Real().Open(m, a, s);
        }
        VisaStatus Close(VisaSession s) override { return Real().Close(s); }
        VisaStatus SetAttribute(VisaSession s, VisaAttribute a, std::uint32_t v) override {
            return Real().SetAttribute(s, a, v);
        }
        VisaStatus Write(VisaSession s, std::string_view t) override {
            texts.emplace_back(t);
            if (onWrite)
                onWrite(texts.back());
            return gone ? -1 : Real().Write(s, t);
        }
        VisaStatus Read(VisaSession s, std::size_t n, std::string& r) override {
            return gone ? -1 : Real().Read(s, n, r);
        }
        Late& late;
        std::unique_ptr<sim::SimulatedVisa> real;
        std::function<void()> m_While;
        std::vector<std::string> texts;
        std::function<void(const std::string&)> onWrite;
        bool gone = false; ///< pulled off the network
    } visa;
    struct Sensor final : PowerSensorLibrary {
        explicit Sensor(Late& l) : late(l) {}
        std::int32_t Init(std::string_view, bool, bool, std::uint32_t&) override { return 0; }
        void SetContAvAperture(std::uint32_t, int, double) override {}
        void SetContAvSmoothingEnabled(std::uint32_t, int, bool) override {}
        void ConfigureAvgNSRatio(std::uint32_t, int, double, double) override {}
        void Initiate(std::uint32_t) override {}
        void ReadMeasurement(std::uint32_t s, int c, int t, double& watts) override {
            if (!gone)
                sim::SimulatedSensor(late.rig->receiver).ReadMeasurement(s, c, t, watts);
        }
        void Close(std::uint32_t) override {}
        Late& late;
        bool gone = false;
    } sensor;
    Rig rig;
    sim::Receiver receiver;
};

bool CarriersAreOn(const Rig& rig) {
    const sim::InstrumentSettings& now = rig.instrument.Settings();
    return now.carrier1 != 0 || now.carrier2 != 0 || now.twoTone != 0;
}

TEST(ReceiverRun, InternAndExternHearTheSameDevice) {
    for (const int method : {int{ModeTwoTone}, int{ModeSweep}}) {
        ReceiverRig r;
        ASSERT_TRUE(r.ReadyFor(method));
        ASSERT_TRUE(r.rig.Measure());
        const auto external = OnGrid(r.S().curve, std::span(r.S().curve.Up()));
        const float worst = r.S().curve.WorstLevel().value_or(0);
        EXPECT_EQ(r.S().curve.ShownVerdict(), Verdict::Passed);
        EXPECT_EQ(r.S().run.Record().receiver, "QOR,SIM-ANALYSER,SIM01,1.0");
        EXPECT_EQ(r.rig.program.Files().Document()->receiver, "QOR,SIM-ANALYSER,SIM01,1.0")
            << "and it is filed";
        r.rig.program.Receiver().UseInternal();
        ASSERT_TRUE(r.rig.RunUntilIdle());
        ASSERT_TRUE(r.rig.Measure());
        EXPECT_EQ(r.S().run.Record().receiver, "");
        EXPECT_NEAR(r.S().curve.WorstLevel().value_or(0), worst, 1.0f);
        for (const auto& [place, level] : OnGrid(r.S().curve, std::span(r.S().curve.Up())))
            EXPECT_NEAR(level, external.at(place), 1.5f) << place;
    }
}

/// The carriers are off before the question; it is asked once; No leaves the program without a receiver.
TEST(ReceiverRun, ALostReceiverEndsTheRunAndIsAskedAboutOnce) {
    for (const int method : {int{ModeTwoTone}, int{ModeSweep}, int{ModeSpectrum}}) {
        for (const bool silent : {true, false}) {
            SCOPED_TRACE(std::to_string(method) + (silent ? " silent" : " gone"));
            ReceiverRig r;
            ASSERT_TRUE(r.ReadyFor(method));
            r.S().runs.SetContinuous(method == ModeTwoTone);
            bool carried = true;
            r.rig.user.answer = false;
            r.rig.user.whileAsked = [&] { carried = CarriersAreOn(r.rig); };
            r.rig.program.OnMeasButton();
            r.rig.time.RunFor(3000);
            ASSERT_TRUE(r.S().run.IsOn());
            if (silent)
                r.receiver.Add({sim::ReceiverFault::Kind::Silence, 0});
            else
                r.visa.gone = true;
            ASSERT_TRUE(r.rig.RunUntilRunIsOver(60000));
            EXPECT_EQ(r.S().curve.ShownVerdict(), Verdict::None);
            r.rig.time.RunFor(5000);
            EXPECT_EQ(
                r.rig.user.questions,
                std::vector<std::string>{"Communicate with R&S Spectrum Analyzer failed. \nRetry again."});
            EXPECT_FALSE(carried);
            EXPECT_FALSE(CarriersAreOn(r.rig));
            EXPECT_FALSE(r.S().receiver.InstrumentListens());
            EXPECT_TRUE(PanelOf(r.S()).receiverMissing);
            r.rig.user.messages.clear();
            r.rig.program.OnMeasButton(); // tries the address once
            EXPECT_FALSE(r.S().run.IsOn());
            EXPECT_TRUE(r.rig.user.WasTold("Kein Empfaenger: TCPIP0::lab::5025::SOCKET"));
            EXPECT_EQ(r.rig.user.questions.size(), 1U);
        }
    }
}

TEST(ReceiverRun, WhatWasOverTheLimitHasFailedWhoeverIsLost) {
    ReceiverRig r;
    r.rig.Store().Write("AlarmUp.ccz", "-150.0");
    ASSERT_TRUE(r.ReadyFor(ModeTwoTone));
    r.rig.user.answer = false;
    r.rig.program.OnMeasButton();
    r.rig.time.RunFor(3500);
    r.visa.gone = true;
    ASSERT_TRUE(r.rig.RunUntilRunIsOver(60000));
    EXPECT_EQ(r.S().curve.ShownVerdict(), Verdict::Failed);
}

/// A connection that is cut once costs a level, and the receiver is set up again before the next one counts.
TEST(ReceiverRun, ACutConnectionIsRepairedWithinTheRun) {
    ReceiverRig r;
    ASSERT_TRUE(r.ReadyFor(ModeSweep));
    r.receiver.Add({sim::ReceiverFault::Kind::Cut, 60});
    r.visa.texts.clear();
    ASSERT_TRUE(r.rig.Measure());
    const RunFacts tally = r.S().curve.Facts();
    EXPECT_EQ(tally.asked - tally.taken, 1);
    EXPECT_EQ(r.S().curve.ShownVerdict(), Verdict::None);
    EXPECT_TRUE(r.rig.user.questions.empty());
    const std::string texts = Joined(r.visa.texts);
    const std::size_t again = texts.find("*IDN? FREQUENCY:CENTER 910000000Hz");
    ASSERT_NE(again, std::string::npos);
    EXPECT_NE(texts.find("INIT:CONT OFF CALC:MARK1 ON INIT;*WAI CALC:MARK:STAT ON CALC:MARK:TRAC 1 "
                         "CALC:MARK:MAX:AUTO ON FREQUENCY:CENTER",
                         again),
              std::string::npos);
}

/// While a reading is waited for the stop button is heard: carriers off at once, the call given up.
TEST(ReceiverRun, AStopDoesNotWaitForTheReceiver) {
    for (const bool leave : {false, true}) {
        ReceiverRig r;
        ASSERT_TRUE(r.ReadyFor(ModeTwoTone));
        r.rig.program.OnMeasButton();
        r.rig.time.RunFor(2500);
        r.receiver.Add({sim::ReceiverFault::Kind::Silence, 0});
        std::int64_t pressed = 0;
        r.rig.user.whileLiving = [&] {
            EXPECT_TRUE(r.rig.program.IsInCall());
            if (pressed != 0)
                return;
            pressed = r.rig.time.NowMs();
            r.rig.Sent();
            leave ? r.rig.program.Leave() : r.rig.program.OnMeasButton();
            EXPECT_NE(Joined(r.rig.Sent()).find("#M2T0"), std::string::npos); // before the call comes back
        };
        ASSERT_TRUE(r.rig.time.RunUntil([&] { return !r.S().run.IsOn(); }, 60000));
        EXPECT_LT(r.rig.time.NowMs() - pressed, 250);
        r.rig.time.RunFor(2000);
        EXPECT_EQ(r.rig.program.IsLeaving(), leave);
        EXPECT_FALSE(CarriersAreOn(r.rig));
        EXPECT_TRUE(r.rig.user.questions.empty());
        EXPECT_EQ(r.S().curve.ShownVerdict(), leave ? Verdict::None : Verdict::Passed)
            << "the way out is no stop of the operator's";
    }
}

TEST(ReceiverRun, TheSensorHasNoVerdictBelowItsFloor) {
    ReceiverRig r(sim::ReceiverKind::Nrp, true);
    ASSERT_TRUE(r.ReadyFor(ModeTwoTone));
    ASSERT_TRUE(r.rig.Measure());
    EXPECT_EQ(r.S().curve.ShownVerdict(), Verdict::Passed); // -80 dBm, the limit is -30
    EXPECT_EQ(r.S().curve.WorstLevel().value_or(0), -80.0f);
    r.S().curve.limit.Take(-97.0f);
    ASSERT_TRUE(r.rig.Measure());
    EXPECT_EQ(r.S().curve.ShownVerdict(), Verdict::None);
    EXPECT_TRUE(r.rig.user.WasTold("unter -73 dBm"));
    r.sensor.gone = true;
    r.S().curve.limit.Take(-30.0f);
    ASSERT_TRUE(r.rig.Measure());
    EXPECT_EQ(r.S().curve.ShownVerdict(), Verdict::None);
    EXPECT_FALSE(r.S().receiver.IsThere());
    EXPECT_TRUE(r.rig.user.questions.empty());
}

/// Choosing: what is told to the instrument and kept, and a search behind the start.
TEST(ReceiverRun, TheChoiceIsKeptAndToldToTheInstrument) {
    ReceiverRig r;
    ASSERT_TRUE(r.rig.ReadyFor(ModeTwoTone));
    r.rig.Sent();
    r.rig.program.Receiver().UseExternal();
    EXPECT_FALSE(r.S().receiver.InstrumentListens());
    EXPECT_EQ(PanelOf(r.S()).receiver, "Empfaenger: QOR,SIM-ANALYSER,SIM01,1.0");
    ASSERT_TRUE(r.rig.RunUntilIdle());
    ASSERT_TRUE(r.rig.Measure());
    EXPECT_EQ(Joined(r.rig.Sent()).find("#USESA "), 0U);
    EXPECT_EQ(Joined(r.rig.Sent()).find("#USESA "), std::string::npos); // it was told already
    r.rig.program.Receiver().UseInternal();
    EXPECT_EQ(r.rig.Stored("internalreceiver.ccz"), "1");
    ASSERT_TRUE(r.rig.RunUntilIdle());
    EXPECT_EQ(Joined(r.rig.Sent()), "#USEID3 ");
    r.rig.program.Receiver().UseExternal();
    EXPECT_FALSE(r.rig.Store().Exists("internalreceiver.ccz"));

    ReceiverRig start;
    start.rig.program.Start(false);
    start.rig.program.Receiver().LookAtStart();
    EXPECT_FALSE(start.S().receiver.IsThere());
    ASSERT_TRUE(start.rig.RunUntilReady());
    start.rig.time.RunFor(1000);
    EXPECT_TRUE(start.S().receiver.IsThere());
    EXPECT_TRUE(start.S().receiver.InstrumentListens()); // until "Extern" is chosen
}

enum class At { Probe, SetUp, BeforeRun, MidSweep, End };
enum class Fault { Silence, Late, Garbage, Gone };

/// What the operator meets with.
struct Met {
    std::string told; ///< by the start button
    int questions;
    Verdict verdict;
    bool missing; ///< the lamp's text says that no receiver is there

    bool operator==(const Met&) const = default;
};
void PrintTo(const Met& met, std::ostream* out) {
    *out << '"' << met.told << "\" questions " << met.questions << " verdict "
         << static_cast<int>(met.verdict) << " missing " << met.missing;
}

struct FaultAt : testing::TestWithParam<std::tuple<Fault, At>> {};

/// Any fault at any step: the carriers are off within two seconds of the end and before a question, nothing
/// passes that was not measured, and "Extern" stays chosen.
TEST_P(FaultAt, IsToldAndLeavesNothingOn) {
    const auto [fault, at] = GetParam();
    ReceiverRig r;
    ASSERT_TRUE(r.rig.ReadyFor(ModeSweep));
    const auto strike = [&, fault = fault] {
        r.visa.onWrite = {};
        r.visa.gone = fault == Fault::Gone;
        if (fault == Fault::Silence)
            r.receiver.Add({sim::ReceiverFault::Kind::Silence, 0});
        else if (fault == Fault::Late)
            r.receiver.Add({sim::ReceiverFault::Kind::Late, 6000});
        else if (fault == Fault::Garbage)
            r.receiver.Add({sim::ReceiverFault::Kind::Garbage, 0});
    };
    const auto strikeWith = [&](const char* text) {
        r.visa.onWrite = [&, text](const std::string& written) {
            if (written == text)
                strike();
        };
    };
    r.rig.user.answer = false;
    r.rig.user.whileAsked = [&] { EXPECT_FALSE(CarriersAreOn(r.rig)); };
    if (at == At::Probe)
        strike();
    else if (at == At::SetUp)
        strikeWith("FREQUENCY:SPAN 0000Hz");
    r.rig.program.Receiver().UseExternal();
    ASSERT_TRUE(r.rig.RunUntilIdle());
    if (at == At::BeforeRun)
        strike();
    else if (at == At::End)
        strikeWith("INIT:CONT ON");
    r.rig.program.OnMeasButton();
    if (r.rig.RunUntilRunIsOn()) {
        r.rig.time.RunFor(2000);
        if (at == At::MidSweep)
            strike();
        ASSERT_TRUE(r.rig.time.RunUntil([&] { return !r.S().run.IsOn(); }, 120000));
        const std::int64_t over = r.rig.time.NowMs();
        EXPECT_TRUE(r.rig.time.RunUntil([&] { return !CarriersAreOn(r.rig); }, 2000));
        EXPECT_LT(r.rig.time.NowMs() - over, 2000);
    }
    r.rig.time.RunFor(10000);
    EXPECT_FALSE(CarriersAreOn(r.rig));
    EXPECT_FALSE(r.S().receiver.InstrumentListens());
    const Met met{r.rig.user.messages.empty() ? "" : r.rig.user.messages.back(),
                  static_cast<int>(r.rig.user.questions.size()), r.S().curve.ShownVerdict(),
                  PanelOf(r.S()).receiverMissing};
    const std::string nobody = "Kein Empfaenger: TCPIP0::lab::5025::SOCKET: ";
    const bool silent = fault == Fault::Silence || fault == Fault::Late;
    const Met unnoticed{"", 0, Verdict::Passed, false}, unread{"", 0, Verdict::None, false},
        lost{"", 1, Verdict::None, true};
    Met expected = lost;
    if (fault == Fault::Garbage) // whoever answers is there; what is no level is no reading
        expected = at == At::End ? unnoticed : unread;
    else if (at == At::Probe)
        expected = {nobody + (silent ? "antwortet nicht" : "nicht erreichbar"), 0, Verdict::None, true};
    else if (at == At::SetUp && !silent)
        expected = {nobody + "nicht erreichbar", 1, Verdict::None, true};
    else if (at == At::End)
        expected = silent ? unnoticed : Met{"", 1, Verdict::Passed, true};
    EXPECT_EQ(met, expected);
}

INSTANTIATE_TEST_SUITE_P(
    ReceiverRun, FaultAt,
    testing::Combine(testing::Values(Fault::Silence, Fault::Late, Fault::Garbage, Fault::Gone),
                     testing::Values(At::Probe, At::SetUp, At::BeforeRun, At::MidSweep, At::End)));

/// A receiver that keeps every word to itself for seconds does not keep the carriers on.
TEST(ReceiverRun, TheCarriersGoOffBeforeTheReceiverIsReleased) {
    for (const int method : {int{ModeTwoTone}, int{ModeSweep}}) {
        for (const bool leave : {false, true}) {
            ReceiverRig r;
            ASSERT_TRUE(r.ReadyFor(method));
            r.rig.program.OnMeasButton();
            r.rig.time.RunFor(3000);
            ASSERT_TRUE(CarriersAreOn(r.rig));
            bool said = false;
            r.visa.onWrite = [&](const std::string& text) {
                if (text == "INIT:CONT ON")
                    said = true;
                EXPECT_FALSE(said && CarriersAreOn(r.rig));
            };
            leave ? r.rig.program.Leave() : r.rig.program.OnMeasButton();
            r.rig.time.RunFor(1000);
            EXPECT_TRUE(said);
        }
    }
}

/// The set-up is the analyser's: no other receiver is asked for it, and none is taken for a lost analyser.
TEST(ReceiverRun, TheSetUpDialogMeetsWithOtherReceiversAndFullDisks) {
    AnalyserSetup setup;
    {
        ReceiverRig sensor(sim::ReceiverKind::Nrp, true);
        ASSERT_TRUE(sensor.ReadyFor(ModeTwoTone));
        EXPECT_TRUE(sensor.rig.program.Receiver().OpenSetup(setup));
        EXPECT_EQ(setup.reference, "-20");
        EXPECT_TRUE(sensor.rig.program.Receiver().Install(setup));
        EXPECT_TRUE(sensor.rig.user.questions.empty());
        EXPECT_TRUE(sensor.S().receiver.IsThere());
    }
    ReceiverRig r;
    ASSERT_TRUE(r.ReadyFor(ModeTwoTone));
    ASSERT_TRUE(r.rig.program.Receiver().OpenSetup(setup));
    std::filesystem::remove(r.rig.dir / "rs_ANALYZER_setup.ccz");
    std::filesystem::create_directories(r.rig.dir / "rs_ANALYZER_setup.ccz/in the way");
    r.visa.texts.clear();
    EXPECT_EQ(r.rig.program.Receiver().Install(setup).Text(), "Oeffnen file Misserfolg");
    EXPECT_TRUE(r.visa.texts.empty()) << "what is not kept is not sent";
    std::filesystem::remove_all(r.rig.dir / "rs_ANALYZER_setup.ccz");
    EXPECT_TRUE(r.rig.program.Receiver().Install(setup));
    EXPECT_EQ(r.visa.texts.size(), 14U + 4U);
    r.visa.gone = true;
    r.rig.user.answer = false;
    EXPECT_FALSE(r.rig.program.Receiver().OpenSetup(setup));
    EXPECT_EQ(r.rig.user.questions.size(), 1U);
    EXPECT_TRUE(PanelOf(r.S()).receiverMissing) << "No: nobody is there";
}

} // namespace
} // namespace qor::test
