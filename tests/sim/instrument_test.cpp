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

TEST(SimInstrument, EchoesCommandsWithoutTheirFirstCharacter) {
    Instrument instrument = Make("RT-DB22", "6.2");
    for (const std::string command :
         {"#SR",       "#SAB3",      "#SAB11",     "#SMREF",    "#SMTRA",      "#USEID3",   "#USEID11",
          "#USESA",    "#SFA09350",  "#SFB09600",  "#SSA17100", "#SSB17100",   "#STA17100", "#STB17100",
          "#SWA00010", "#SPWA00430", "#SPWB00460", "#SPA1",     "#SPB0",       "#RECUT1",   "#M2T1",
          "#M2T0",     "#MSWL1",     "#MUPL0",     "#MDNL1",    "#KVTAL02500", "#KVTPD4",   "#KVTPA0",
          "#BDT0",     "#BDT1",      "#2TTIM30"})
        EXPECT_EQ(Send(instrument, command + "\r"), command.substr(1) + "\r\n");
    EXPECT_EQ(Send(instrument, "#SWEEP\r"), "");
    EXPECT_EQ(Send(instrument, "#SAB10\r#SAB?\r"), "SAB10\r\nSAB10\r\n");
    EXPECT_EQ(Send(instrument, "\r\n#SR\r\n"), "SR\r\n");
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

TEST(SimInstrument, BannerHoldsOneVersionAndAModelWithAnEnd) {
    for (const ModelHardware& model : Models) {
        for (const std::string firmware : {"1.8", "4.9", "6.9", "ev2.0"}) {
            Instrument instrument = Make(std::string(model.name), firmware);
            const std::string banner = Send(instrument, "#IDN?\r");
            const std::size_t start = banner.find("RT-");
            ASSERT_NE(start, std::string::npos);
            EXPECT_EQ(banner.substr(start, banner.find_first_of(" ,", start) - start), model.name);
            const std::size_t v = banner.find('v');
            EXPECT_EQ(banner.find('v', v + 1), std::string::npos);
            const bool ev = firmware[0] == 'e';
            EXPECT_EQ(banner.substr(v + 1, 3), firmware.substr(firmware.size() - 3));
            EXPECT_EQ(banner[v - 1] == 'e', ev);
            EXPECT_TRUE(banner.ends_with("\r\n"));
        }
    }
}

TEST(SimInstrument, StatusByteFollowsThePathAndMayBeAnyByte) {
    Instrument instrument = Make("RT-DB22", "6.2");
    EXPECT_EQ(Send(instrument, "#SST?\r"), "SSTd\r\n");
    EXPECT_EQ(Send(instrument, "#SMTRA\r#SST?\r"), "SMTRA\r\nSST\x44\r\n");
    EXPECT_EQ(Send(instrument, "#SMREF\r#SST?\r"), "SMREF\r\nSSTd\r\n");
    EXPECT_EQ(Send(instrument, "#SST\r\r#SST?\r"), "SST\r\r\nSST\r\r\n");
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

TEST(SimInstrument, SwitchPositionsLeadToTheBandsOfModelAndFirmware) {
    const auto name = [](const char* model, const char* firmware, int position) {
        const BandHardware* band = BandAt(model, *ParseFirmware(firmware), position);
        return band ? band->name : "";
    };
    EXPECT_EQ(name("RT-DB22", "4.9", 0), "AMPS");
    EXPECT_EQ(name("RT-DB22", "5.0", 0), "LTE");
    EXPECT_EQ(name("RT-DA10", "5.6", 3), "EGSM");
    EXPECT_EQ(name("RT-DA10", "5.7", 3), "DIG-DIV");
    EXPECT_EQ(name("RT-K022", "5.0", 2), "TD-SCDMA-A");
    EXPECT_EQ(name("RT-K022", "ev2.0", 4), "TD-SCDMA-F");
    EXPECT_EQ(name("RT-DB22", "5.9", 8), "TD-SCDMA-F");
    EXPECT_EQ(name("RT-DB22", "6.0", 8), "LTE700L");
    EXPECT_EQ(name("RT-DB22", "5.9", 11), "");
    EXPECT_EQ(name("RT-N026", "6.0", 1), "Wifi");
    EXPECT_TRUE(BandAt("RT-C010", *ParseFirmware("6.9"), 9)->upper);
    // Every model has a band on its first position, and none behind its last.
    for (const ModelHardware& model : Models)
        for (const char* firmware : {"1.8", "5.0", "5.9", "6.9"}) {
            EXPECT_NE(BandAt(model.name, *ParseFirmware(firmware), 0), nullptr) << model.name;
            EXPECT_EQ(BandAt(model.name, *ParseFirmware(firmware), model.positions), nullptr) << model.name;
        }
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
