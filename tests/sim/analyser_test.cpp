#include "sim/analyser.h"

#include <cmath>

namespace qor::sim {
namespace {

/// The simulated instrument with both carriers of an EGSM measurement on, its product at 910 MHz.
struct Bench {
    explicit Bench(ReceiverKind kind = ReceiverKind::Analyser)
        : instrument({.position = 3}), receiver(kind, instrument, 1) {
        for (const char* command : {"#SFA09350", "#SFB09600", "#SPWA00430", "#SPWB00430", "#SPA1", "#SPB1"})
            EXPECT_FALSE(instrument.Execute(command).empty());
    }
    void Send(std::initializer_list<const char*> messages) {
        for (const char* message : messages)
            receiver.Write(message, now);
    }
    std::string Ask(const char* question) {
        receiver.Write(question, now);
        return receiver.Read(now).value_or("nothing");
    }

    Instrument instrument;
    Receiver receiver;
    std::int64_t now = 1000;
};

TEST(SimAnalyser, HearsTheProductWhereItIsTuned) {
    Bench bench;
    bench.Send({"FREQUENCY:CENTER 910000000Hz", "FREQUENCY:SPAN 000Hz", "INP:ATT 0dB", "INP:GAIN:STAT ON",
                "BAND:RES 30Hz", "BAND:VID 100Hz"});
    Excitation port = bench.instrument.AtPort();
    EXPECT_NEAR(bench.receiver.Level(), bench.instrument.Pim().ProductDbm(port), 0.3);
    EXPECT_EQ(bench.Ask("FREQ:CENT?"), "910000000");
    bench.Send({"FREQ:CENT 911MHz"});
    EXPECT_LT(bench.receiver.Level(), -140); // beside it: noise
    bench.Send({"FREQ:CENT 910MHz"});
    EXPECT_FALSE(bench.instrument.Execute("#SPB0").empty());
    EXPECT_LT(bench.receiver.Level(), -140); // one carrier makes no product
}

TEST(SimAnalyser, NoiseFollowsBandwidthAttenuatorAndPreamplifier) {
    Bench bench;
    EXPECT_FALSE(bench.instrument.Execute("#SPA0").empty());
    const auto mean = [&] {
        double sum = 0;
        for (int n = 0; n < 200; ++n)
            sum += bench.receiver.Level();
        return sum / 200;
    };
    bench.Send({"INP:ATT 0dB", "INP:GAIN:STAT OFF", "BAND:RES 1kHz", "BAND:VID 10Hz"});
    const double plain = mean();
    EXPECT_NEAR(plain, -174 + 24 + 30, 0.5);
    bench.Send({"BAND:RES 100kHz"});
    EXPECT_NEAR(mean() - plain, 20, 0.5);
    bench.Send({"BAND:RES 1kHz", "INP:ATT 10dB"});
    EXPECT_NEAR(mean() - plain, 10, 0.5);
    bench.Send({"INP:ATT 0dB", "INP:GAIN:STAT ON"});
    EXPECT_NEAR(mean() - plain, -15, 0.5);
    bench.Send({"DISP:WIND:TRAC:Y:RLEV -140dBm"});
    EXPECT_LE(bench.receiver.Level(), -135); // overloaded
}

TEST(SimAnalyser, ASweepTakesItsTimeAndFaultsStrike) {
    Bench bench;
    bench.Send({"BAND:RES 100Hz", "INIT;*WAI"});
    bench.receiver.Write("CALC:MARK1:Y?", bench.now);
    EXPECT_FALSE(bench.receiver.Read(bench.now + 10));
    EXPECT_TRUE(bench.receiver.Read(bench.now + 30));
    bench.now += 1000;
    EXPECT_EQ(bench.Ask("NO:SUCH?"), "nothing");
    EXPECT_NE(bench.Ask("SYST:ERR?").find("Undefined"), std::string::npos);
    EXPECT_EQ(bench.Ask("SYST:ERR?"), "0,\"No error\"");

    bench.receiver.Add(*ParseReceiverFault("late:300"));
    bench.receiver.Write("*IDN?", bench.now);
    EXPECT_FALSE(bench.receiver.Read(bench.now + 290));
    EXPECT_NE(bench.receiver.Read(bench.now + 310).value_or("").find("SIM"), std::string::npos);
    bench.receiver.Add(*ParseReceiverFault("cut:1"));
    EXPECT_TRUE(bench.receiver.CutsNow());
    EXPECT_FALSE(bench.receiver.CutsNow());
    bench.receiver.Add(*ParseReceiverFault("silence"));
    bench.receiver.Write("*IDN?", bench.now);
    EXPECT_FALSE(bench.receiver.Read(bench.now + 60000));
    for (const char* none : {"", "fire", "late:", "late:x", "late:-1"})
        EXPECT_FALSE(ParseReceiverFault(none)) << none;
}

TEST(SimAnalyser, MetersAreBroadband) {
    for (const ReceiverKind kind : {ReceiverKind::Nrv, ReceiverKind::Nrp}) {
        Bench bench(kind);
        EXPECT_NEAR(std::stod(bench.Ask(kind == ReceiverKind::Nrv ? "SENS:DATA:AMPL?" : "MEAS?")), -80, 0.5);
        EXPECT_NE(bench.Ask("*IDN?").find(kind == ReceiverKind::Nrv ? "NRV" : "NRP"), std::string::npos);
        EXPECT_EQ(bench.Ask("CALC:MARK1:Y?"), "nothing");
    }
}

} // namespace
} // namespace qor::sim
