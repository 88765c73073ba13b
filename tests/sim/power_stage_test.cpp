#include "sim/analyser.h"

#include <cmath>
#include <gtest/gtest.h>

namespace qor::sim {
namespace {

using namespace std::string_literals;

/// EGSM on a model whose table has an entry for each MHz, with a sensor at the port behind 40 dB.
struct Bench {
    explicit Bench(std::uint64_t seed = 1)
        : instrument({.model = "RT-DA10", .firmware = "6.0", .seed = seed, .position = 1}),
          sensor(ReceiverKind::Nrp, instrument, seed) {
        sensor.PutToPort(40);
        for (const char* command : {"#SFA09350", "#SPWA00400", "#SPA1"})
            Say(command);
    }
    void Say(const std::string& command) { EXPECT_FALSE(instrument.Execute(command).empty()) << command; }
    void WriteDrive(int page, int address, int millivolts) {
        for (const auto& [at, value] : {std::pair{page, millivolts / 256}, {page + 27, millivolts % 256}})
            Say("$KVTWE"s + static_cast<char>(at) + static_cast<char>(address) + static_cast<char>(value));
    }
    double Level() { return sensor.Level() + 40; }

    Instrument instrument;
    Receiver sensor;
};

TEST(SimPowerStage, DriveByHandRisesAndEndsWithTheNextSetting) {
    Bench bench;
    EXPECT_NEAR(bench.Level(), 40, 0.01); // an instrument whose tables were never written is ideal
    double last = 0;
    for (const char* drive : {"#KVTAL00000", "#KVTAL01000", "#KVTAL02500", "#KVTAL05000"}) {
        bench.Say(drive);
        EXPECT_GT(bench.Level(), last);
        last = bench.Level();
    }
    EXPECT_GT(last, 46.5); // every level of the tables can be reached
    bench.Say("#SPWA00330");
    bench.Say("#KVTAL05000");
    EXPECT_NEAR(last - bench.Level(), 12, 0.01); // the lower range
    bench.Say("#SFA09350");
    EXPECT_NEAR(bench.Level(), 33, 0.01);
    Bench other(2);
    other.Say("#KVTAL05000");
    EXPECT_GT(std::abs(other.Level() - last), 0.02);
}

TEST(SimPowerStage, ALevelComesFromTheBytesOfItsOwnEntryAlone) {
    Bench bench;
    bench.WriteDrive(40 - 20, 41, 2000); // the next MHz
    bench.WriteDrive(41 - 20, 40, 2000); // another level
    EXPECT_NEAR(bench.Level(), 40, 0.01) << "935 MHz is entry 40";
    bench.WriteDrive(40 - 20, 40, 2000);
    const double byTable = bench.Level();
    bench.Say("#KVTAL02000");
    EXPECT_NEAR(bench.Level(), byTable, 1e-5);
    EXPECT_GT(std::abs(byTable - 40), 0.05);
    bench.Say("#SPWA00405"); // half a dB above its entry
    EXPECT_NEAR(bench.Level(), byTable + 0.5, 1e-5);
}

TEST(SimDetector, ALevelFollowsSlopeAndOffsetOnceTheyWereWritten) {
    Instrument instrument(
        {.model = "RT-DA10", .firmware = "6.0", .position = 1, .detectorSlope = 29, .detectorOffset = 2500});
    const auto level = [&] { return std::stod(instrument.Execute("#IMP?").substr(4, 7)); };
    const auto write = [&](int address, int value) {
        for (const int at : {0, 1})
            EXPECT_FALSE(instrument
                             .Execute("$KVTWE}"s + static_cast<char>(address + at) +
                                      static_cast<char>(at == 0 ? value >> 8 : value & 255))
                             .empty());
    };
    instrument.FeedSignal(-50);
    EXPECT_NEAR(level(), -50, 0.25);
    EXPECT_EQ(std::stoi(instrument.Execute("#ADC?").substr(3, 5)) / 10, (2500 - 29 * 50) / 10);
    write(AddressReceiverSlope, 31); // as another instrument has it
    EXPECT_NEAR(level(), (2500.0 - 29 * 50 - 2780) / 31, 0.4);
    write(AddressReceiverSlope, 29);
    write(AddressPositionOffset + 2 * 1, 2500);
    EXPECT_NEAR(level(), -50, 0.25);
    write(AddressPositionOffset + 2 * 1, 29 * 256); // the bytes the wrong way round
    EXPECT_GT(std::abs(level() + 50), 20);
}

} // namespace
} // namespace qor::sim
