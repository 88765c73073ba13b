#include "sim/command_framer.h"
#include "sim/instrument.h"

#include <gtest/gtest.h>
#include <vector>

namespace qor::sim {
namespace {

using namespace std::string_literals;

Instrument Make(std::string model, std::string firmware, std::string serial = "SIM01") {
    InstrumentConfig config;
    config.model = std::move(model);
    config.firmware = std::move(firmware);
    config.serial = std::move(serial);
    return Instrument(config);
}

// What the framer makes of the bytes on the line, and the instrument of that.
std::string Send(Instrument& instrument, std::string_view bytes) {
    CommandFramer framer;
    std::string replies;
    for (const char c : bytes)
        if (const auto command = framer.Feed(c))
            replies += instrument.Execute(*command);
    return replies;
}

TEST(SimInstrument, RefusesWhatItDoesNotKnowAndKeepsItsSettings) {
    Instrument instrument = Make("RT-K022", "3.4");
    for (const char* command : {"SR", "#XYZ", "#SFA8695", "#SFA-0010", "#SPWA430", "#SAB03", "#SPA",
                                "#RECUT1", "#SMREF ", "$KVTRE"})
        EXPECT_EQ(instrument.Execute(command), "SYNTAX ERROR\r\n") << command;
    for (const char* command :
         {"#SPWA00461", "#SPWB99999", "#SPA2", "#SAB5", "#USEID4", "#USEID13", "#2TTIM31"})
        EXPECT_EQ(instrument.Execute(command), "OUT OF RANGE\r\n") << command;
    EXPECT_EQ(instrument.Execute("#SFA00000"), "PLL NOT LOCKED\r\n");
    EXPECT_EQ(instrument.Settings().power1, 430);
    EXPECT_EQ(instrument.Settings().position, 0);
    EXPECT_EQ(instrument.Execute(std::string(5000, '#')), "SYNTAX ERROR\r\n");
}

TEST(SimInstrument, StatusByteFollowsThePathAndMayBeAnyByte) {
    Instrument instrument = Make("RT-DB22", "6.2");
    EXPECT_EQ(Send(instrument, "#SST?\r"), "SSTd\r\n");
    EXPECT_EQ(Send(instrument, "#SMTRA\r#SST?\r"), "SMTRA\r\nSST\x44\r\n");
    EXPECT_EQ(Send(instrument, "#SMREF\r#SST?\r"), "SMREF\r\nSSTd\r\n");
    EXPECT_EQ(Send(instrument, "#SST\r\r#SST?\r"), "SST\r\r\nSST\r\r\n");
}

TEST(SimInstrument, TakesNoPowerOutsideTheLimitsInItsMemory) {
    for (const char* firmware : {"4.9", "5.0", "6.2"}) {
        Instrument instrument = Make("RT-DB22", firmware);
        const std::string write = std::string("$KVTWE") + static_cast<char>(instrument.Memory().OwnPage());
        const bool hasHigh = instrument.Memory().OwnPage() != 'd';
        for (const auto& [lower, upper] : {std::pair(200, 460), std::pair(330, 440), std::pair(256, 430)}) {
            if (hasHigh)
                Send(instrument, write + 'f' + static_cast<char>(lower >> 8) + '\r');
            Send(instrument, write + 'd' + static_cast<char>(lower) + '\r' + write + 'e' +
                                 static_cast<char>(upper) + '\r');
            const auto sent = [&](int tenths) {
                return Send(instrument, "#SPWA00" + std::to_string(tenths) + '\r');
            };
            EXPECT_EQ(sent(lower - 1), "OUT OF RANGE\r\n") << firmware << lower;
            EXPECT_EQ(sent(lower).substr(0, 4), "SPWA") << firmware << lower;
            EXPECT_EQ(sent(upper).substr(0, 4), "SPWA") << firmware << upper;
            EXPECT_EQ(sent(upper + 1), "OUT OF RANGE\r\n") << firmware << upper;
        }
    }
}

TEST(SimInstrument, KeepsItsMemoryAndTheFactorysSetUpWhenItsPowerGoes) {
    Instrument instrument = Make("RT-DA10", "6.2");
    std::string lines;
    instrument.SetOnWrite([&](int page, int address, int value) {
        lines += std::to_string(page) + ' ' + std::to_string(address) + ' ' + std::to_string(value) + '\n';
    });
    Send(instrument,
         "#BDT0\r#KVTPD1\r#SAB4\r#BDT1\r#2TTIM17\r$KVTWE}\xc8Z\r$KVTWE\x0e\x0d\x0a\r#SPA1\r#SAB1\r");
    instrument.Repower();
    EXPECT_EQ(instrument.Settings().carrier1, 0);
    EXPECT_EQ(instrument.Settings().position, 4);
    EXPECT_EQ(instrument.Settings().twoToneSeconds, 17);
    InstrumentConfig config{.model = "RT-DA10", .memory = lines};
    Instrument again(config);
    EXPECT_EQ(again.Memory().Own(AddressOption) & 7, 1);
    EXPECT_EQ(again.Memory().Own(200), 'Z');
    EXPECT_EQ(again.Memory().Read(14, 13), 10);
    for (const char* bad : {"125 256 0\n", "125 95\n", "hello"}) {
        config.memory = bad;
        EXPECT_FALSE(ConfigFault(config).empty()) << bad;
    }
}

TEST(SimInstrument, LevelFitsBothWaysOfReadingIt) {
    Instrument instrument = Make("RT-DB22", "6.2");
    Send(instrument, "#SAB3\r#USEID11\r");
    const std::string idle = Send(instrument, "#IMP?\r");
    ASSERT_EQ(idle.size(), 16U);
    EXPECT_EQ(idle.find('P'), 2U);
    EXPECT_NE(idle[3], '0'); // "0" would switch an idle program over to reading levels
    EXPECT_EQ(idle.substr(11), "dBm\r\n");
    EXPECT_NEAR(std::stod(idle.substr(4, 7)), -140, 3.5);
    EXPECT_EQ(Send(instrument, "#ADC?\r"), "ADC00012\r\n");
    instrument.FeedSignal(-50);
    EXPECT_NEAR(std::stod(Send(instrument, "#ADC?\r").substr(3, 5)), 1230, 6);
    instrument.FeedSignal(-80);
    EXPECT_NEAR(std::stod(Send(instrument, "#ADC?\r").substr(3, 5)), 300, 6);
    EXPECT_EQ(Send(instrument, "#USESA\r#ADC?\r"), "USESA\r\nADC00012\r\n");
}

TEST(SimInstrument, MemoryInItsThreeForms) {
    // Each firmware answers on its own page, byte-coded; the text form came with 6.1.
    for (const auto& [firmware, page] : {std::pair{"4.9", 'd'}, {"5.0", 'n'}, {"5.6", 'n'}, {"5.7", '}'}}) {
        Instrument old = Make("RT-K022", firmware, "SN04660");
        for (const char other : {'d', 'n', '}'}) {
            const std::string command = "$KVTRE"s + other + "x0";
            const std::string reply = other == page ? "KVTRE"s + other + "x\x12\r\n" : std::string();
            EXPECT_EQ(Send(old, command + "\r"), reply) << firmware << other;
        }
        EXPECT_EQ(Send(old, "$KVTRE"s + page + "y0\r"), "KVTRE"s + page + "y\x34\r\n");
        EXPECT_EQ(Send(old, "$KVTRE"s + page + "_\r"), "KVTRE"s + page + "_!\r\n");
        EXPECT_EQ(Send(old, "#KVTRE,125,0,095\r"), "");
    }
    Instrument instrument = Make("RT-DB22", "6.1");
    EXPECT_EQ(Send(instrument, "#KVTRE,125,0,095\r"), "KVTWE,125,0,095,36\r\n");
    std::string serial;
    std::string model;
    const auto character = [&](int address) {
        const std::string reply = Send(instrument, "#KVTRE,125,0," + std::to_string(address) + "\r");
        return static_cast<char>(std::stoi(reply.substr(reply.rfind(',') + 1)));
    };
    for (int address = 200; address <= 210; ++address)
        serial += character(address);
    for (int address = 211; address <= 221; ++address)
        model += character(address);
    EXPECT_EQ(serial, "SIM01"s + std::string(6, '\0'));
    EXPECT_EQ(model, "RT-DB22"s + std::string(4, '\0'));
    EXPECT_EQ(Send(instrument, "#KVTRE,125,0,256\r"), "OUT OF RANGE\r\n");
    EXPECT_EQ(Send(instrument, "#KVTRE,125,0,95\r"), "SYNTAX ERROR\r\n");
}

TEST(SimInstrument, ByteCodedCommandsMayHoldTheCarriageReturn) {
    Instrument instrument = Make("RT-K022", "4.5");
    EXPECT_EQ(Send(instrument, "$KVTWEd\r\r\r"), "KVTWEd\r\r\r\n"); // address and value 13
    EXPECT_EQ(Send(instrument, "$KVTREd\r\r"), "KVTREd\r\r\r\n");
    EXPECT_EQ(Send(instrument, "$KVTWE\r\x01\xff\r"), "KVTWE\r\x01\xff\r\n"); // a calibration table page
    EXPECT_EQ(Send(instrument, "$KVTRE\r\x01"
                               "0\r"),
              "KVTRE\r\x01\xff\r\n");
    EXPECT_EQ(Send(instrument, "$KVTRE\x0c\x01"
                               "0\r"),
              "");                                     // nothing was ever written there
    EXPECT_EQ(Send(instrument, "$KVTWE}_\x10\r"), ""); // page of later firmware
    // A write that lacks its value swallows the end and is noticed with the next command.
    EXPECT_EQ(Send(instrument, "$KVTWEd_\r#SR\r#SR\r"), "SYNTAX ERROR\r\nSR\r\n");
    // The program reads the option byte, changes its bits and writes it back.
    EXPECT_EQ(Send(instrument, "#KVTPD2\r$KVTREd_0\r"), "KVTPD2\r\nKVTREd_#\r\n");
}

TEST(SimInstrument, ConfigurationsAreChecked) {
    InstrumentConfig config;
    EXPECT_EQ(ConfigFault(config), "");
    for (const char* firmware : {"", "1.7", "7.0", "6", "6.22", "ev0.9", "v6.2", "6,2"}) {
        config.firmware = firmware;
        EXPECT_NE(ConfigFault(config), "") << firmware;
    }
    config = {};
    config.model = "RT-XXXX";
    EXPECT_THROW(Instrument{config}, std::invalid_argument);
    config = {};
    for (const char* serial : {"", "a b", "123456789012"}) {
        config.serial = serial;
        EXPECT_NE(ConfigFault(config), "") << serial;
    }
}

} // namespace
} // namespace qor::sim
