#include "bands/band.h"
#include "base/setup_store.h"
#include "receivers/analyser_setup.h"
#include "receivers/receiver_access.h"
#include "receivers/receiver_search.h"
#include "receivers/receiver_state.h"
#include "support/scripted_receiver.h"
#include "support/temp_dir.h"
#include "support/virtual_time.h"
#include "support/wire_reading.h"

namespace qor::test {
namespace {

struct ReceiverSearchTest : testing::Test {
    void Answer(const std::string& identity) {
        visa.answer = [=](const std::string& text) { return text == "*IDN?" ? identity : ""; };
    }
    /// Only one address has somebody.
    void LivesAt(const std::string& address) {
        visa.opens = [=](const std::string& a) { return a == address ? 0 : visa::ErrorNotFound; };
    }
    using Calls = std::vector<std::string>;

    TempDir dir;
    SetupStore store{dir.Path()};
    VirtualTime time;
    ScriptedVisa visa;
    ScriptedSensor sensor;
    ReceiverState state;
    ReceiverAccess access{store, time.clock, &visa, &sensor};
    ReceiverSearch search{state, access, store};
};

const char* const Tail =
    "DISP:WIND:TRAC:Y:SPAC LOG CALC:MARK1 ON INIT;*WAI CALC:MARK:STAT ON CALC:MARK:TRAC 1 "
    "CALC:MARK:MAX:AUTO ON ";

/// The texts of a search that finds each kind, without a set-up store, with an empty one, with fields.
TEST_F(ReceiverSearchTest, EachKindIsRecognisedAndSetUpItsOwnWay) {
    const std::string empty = "FREQUENCY:SPAN 000Hz DISP:WIND:TRAC:Y:RLEV -60dBm DISP:WIND:TRAC:Y:SCAL 100dB "
                              "INP:ATT 0dB INP:GAIN:STAT ON BAND:RES 30Hz BAND:VID 100Hz ";
    const std::string fields =
        "FREQUENCY:CENTER 910000000Hz FREQUENCY:SPAN 5000Hz DISP:WIND:TRAC:Y:RLEV -20dBm "
        "DISP:WIND:TRAC:Y:SCAL 80dB INP:ATT 10dB INP:GAIN:STAT OFF BAND:RES 1kHz BAND:VID 300Hz ";
    const struct {
        const char* identity;
        int kind;
        std::string settings; // calls that are no transfer
        std::string after;
    } Kinds[] = {{"LAB,FSP-3,1,1.0\n", ReceiverAnalyser, "timeout 11 5000", ""},
                 {"LAB,NRVS,1,1.0\n", ReceiverNrv,
                  "timeout 11 40000 buffers 11 4000 read mode 11 1 write mode 11 1", ""},
                 {"LAB,NRP2,1,1.0\n", ReceiverNrp, "", "UNIT:POW DBM "}};
    for (const auto& kind : Kinds) {
        for (const char* const text : {"none", "", "910#5#-20#80#2#1#4#3#"}) {
            SCOPED_TRACE(std::string(kind.identity) + text);
            store.Remove("rs_ANALYZER_setup.ccz");
            if (std::string_view(text) != "none")
                store.Write("rs_ANALYZER_setup.ccz", text);
            Answer(kind.identity);
            visa.nextSession = 10;
            visa.calls.clear();
            ASSERT_TRUE(search.TryAddress());
            EXPECT_EQ(state.ExternalKind(), kind.kind);
            EXPECT_EQ(state.Identity() + "\n", kind.identity);
            std::string settings;
            for (const std::string& call : visa.calls)
                if (call.find(" 11 ") != std::string::npos)
                    settings += (settings.empty() ? "" : " ") + call;
            EXPECT_EQ(settings, kind.settings);
            std::string setup;
            if (kind.kind == ReceiverAnalyser && std::string_view(text) != "none")
                setup = (*text ? fields : empty) + Tail;
            EXPECT_EQ(Joined(visa.Texts()), "DISP:WIND:TRAC:Y:SPAC LOG *IDN? < " + kind.after + setup);
        }
    }
    visa.failing = "write";
    ASSERT_FALSE(search.TryAddress());
    ASSERT_TRUE(search.TrySensor());
    EXPECT_EQ(state.ExternalKind(), ReceiverSensor);
}

/// On our own lines what does not answer is absent; a library's instrument is an analyser then.
TEST_F(ReceiverSearchTest, WithoutAnAnswerNobodyIsThere) {
    EXPECT_FALSE(search.TryAddress());
    EXPECT_EQ(state.Trouble(), "antwortet nicht");
    visa.installed = true;
    EXPECT_TRUE(search.TryAddress());
    EXPECT_EQ(state.ExternalKind(), ReceiverAnalyser);
    for (const auto& [status, why] : {std::pair(visa::ErrorInvalidName, "keine gueltige Adresse"),
                                      {visa::ErrorNoLibrary, "keine VISA-Bibliothek installiert"},
                                      {visa::ErrorNotFound, "nicht erreichbar"}}) {
        visa.opens = [s = status](const std::string&) { return s; };
        store.Write("gpib_addr.ccz", "TCPIP0::lab::5025::SOCKET\n");
        EXPECT_FALSE(search.TryAddress());
        EXPECT_EQ(state.Address() + ": " + state.Trouble(), std::string("TCPIP0::lab::5025::SOCKET: ") + why);
        EXPECT_FALSE(state.IsThere());
    }
    sensor.there = false;
    EXPECT_EQ(search.BeReady().Text(), "Kein Empfaenger: TCPIP0::lab::5025::SOCKET: nicht erreichbar");
    sensor.there = true;
    EXPECT_TRUE(search.BeReady());
    EXPECT_EQ(state.ExternalKind(), ReceiverSensor);
}

TEST_F(ReceiverSearchTest, AScanKeepsWhatItFinds) {
    Answer("LAB,FSP,1,1");
    LivesAt("GPIB1::5::INSTR");
    EXPECT_FALSE(search.MayScan()); // no library, no GPIB
    visa.installed = true;
    ASSERT_TRUE(search.MayScan());
    int steps = 0;
    EXPECT_FALSE(search.TryAddress());
    EXPECT_FALSE(search.TryScan([&](auto&&, int done, int) { return ++steps, done < 50; }));
    EXPECT_EQ(steps, 51); // cancelled
    EXPECT_EQ(state.Address() + ": " + state.Trouble(), "GPIB0::20::INSTR: nicht erreichbar");
    EXPECT_FALSE(state.IsSearched());
    EXPECT_FALSE(store.Exists("gpib_addr.ccz"));
    std::string last;
    EXPECT_TRUE(search.TryScan([&](const std::string& address, int, int total) {
        last = address;
        return total == 990;
    }));
    EXPECT_EQ(last, "GPIB1::5::INSTR");
    EXPECT_EQ(store.Read("gpib_addr.ccz", 200), "GPIB1::5::INSTR");
    EXPECT_TRUE(state.IsThere());
    visa.calls.clear();
    EXPECT_TRUE(search.TryAddress()); // the next start needs no scan
    EXPECT_EQ(ReceiverSearch::ScanAddress(0), "GPIB0::1::INSTR");
    EXPECT_EQ(ReceiverSearch::ScanAddress(989), "GPIB9::99::INSTR");

    LivesAt("nowhere");
    visa.opens = [](const std::string& a) {
        return a.starts_with("GPIB0") ? visa::ErrorTimeout : visa::ErrorNotFound;
    };
    steps = 0; // a board whose calls hang is passed over behind the third
    EXPECT_FALSE(search.TryScan([&](auto&&...) { return ++steps > 0; }));
    EXPECT_EQ(steps, 3 + 9 * 99 + 1);
}

TEST_F(ReceiverSearchTest, ALostAnalyserIsLookedForAsTheOperatorHasIt) {
    Answer("LAB,FSP,1,1");
    store.Write("gpib_addr.ccz", "GPIB0::7::INSTR");
    store.Write("rs_ANALYZER_setup.ccz", "");
    const auto goes = [](auto&&...) { return true; };
    visa.nextSession = 10;
    ASSERT_TRUE(search.Recover(goes));
    EXPECT_EQ(Joined(visa.Texts()), "DISP:WIND:TRAC:Y:SPAC LOG *IDN? < "); // an empty store sends nothing
    store.Write("rs_ANALYZER_setup.ccz", "910#5#-20#80#2#1#4#3#");
    ASSERT_TRUE(search.Recover(goes));
    EXPECT_EQ(visa.Texts().size(), 3U + 14U);
    for (const auto& [failing, words] :
         {std::pair("rm", "Could not open a session to the VISA Resource Manager!\n"),
          {"write", "Can not open a session to the device.\n"},
          {"timeout", "Can not set attribute to the device.\n"}}) {
        visa.failing = failing;
        EXPECT_EQ(search.Recover(goes).Text(), words);
        EXPECT_FALSE(state.IsThere());
    }
}

TEST(AnalyserSetup, WhatTheStoreHoldsAndWhatTheOperatorMayType) {
    EXPECT_FALSE(ParseAnalyserSetup("915"));
    const AnalyserSetup usual;
    EXPECT_EQ(ParseAnalyserSetup("x#1.5#low#-#a#b##?#"), usual); // no numbers
    EXPECT_EQ(ParseAnalyserSetup(FormatAnalyserSetup(usual)), usual);
    const AnalyserSetup beyond = ParseAnalyserSetup("1#2#3#40#7#2#13#-1#").value();
    EXPECT_EQ(FieldBeyondItsList(beyond), "Input_Attenuation:");
    const auto commands = SetupCommands(beyond);
    EXPECT_EQ(commands[4] + "|" + commands[5] + "|" + commands[6] + "|" + commands[7],
              "INP:ATT dB|INP:GAIN:STAT |BAND:RES |BAND:VID ");

    EXPECT_TRUE(CheckAnalyserSetup(usual));
    for (const auto& [field, texts] :
         {std::pair(&AnalyserSetup::reference, std::vector{"", "x", "-6 0", "1e3"}),
          {&AnalyserSetup::scale, {"", "95", "10.5", "0", "-10"}},
          {&AnalyserSetup::centre, {"", "915.5", "-1", "12345678"}},
          {&AnalyserSetup::span, {"", "1.5", "-1", "1;*RST"}}})
        for (const char* const text : texts) {
            AnalyserSetup wrong;
            wrong.*field = text;
            EXPECT_EQ(CheckAnalyserSetup(wrong).Text(), "Falsch, dichtesortierung.") << text;
        }
    for (int AnalyserSetup::*place : {&AnalyserSetup::resolution, &AnalyserSetup::video}) {
        AnalyserSetup wide;
        wide.*place = 12;
        EXPECT_FALSE(CheckAnalyserSetup(wide));
    }
    EXPECT_EQ(StandardAnalyserSetup(BandEgsm).centre + StandardAnalyserSetup(BandWifi).centre, "910915");

    AnalyserSetup shown;
    TakeCentre(shown, "2140500000\n");
    TakeSpan(shown, "1.5E6\n");
    TakeReference(shown, "-6.000000E+01\n");
    EXPECT_EQ(shown.centre + " " + shown.span + " " + shown.reference, "2140 1500 -60");
    TakeCentre(shown, "50000\n");
    TakeSpan(shown, "26500000000\n"); // an analyser's whole range
    EXPECT_EQ(shown.span, "26500000");
    EXPECT_TRUE(CheckAnalyserSetup(shown));
    TakeSpan(shown, "1.5E6\n");
    TakeSpan(shown, "0\n");
    TakeReference(shown, "\n");
    EXPECT_EQ(shown.centre + " " + shown.span + " " + shown.reference, "2140 1500 -60");
}

} // namespace
} // namespace qor::test
