#include "base/setup_store.h"
#include "receivers/level_source.h"
#include "receivers/receiver_access.h"
#include "receivers/receiver_search.h"
#include "support/scripted_receiver.h"
#include "support/temp_dir.h"
#include "support/virtual_time.h"

#include <limits>

namespace qor::test {
namespace {

struct ReceiverAccessTest : testing::Test {
    ReceiverAccessTest() {
        store.Write("gpib_addr.ccz", "GPIB0::7::INSTR\r\n");
        Open();
    }
    /// A meter at the address, or the sensor behind it.
    void Open(const char* identity = "NRP2") {
        visa.answer = [=](const std::string& text) { return text == "*IDN?" ? identity : ""; };
        state.UseExternal();
        visa.nextSession = 1;
        ASSERT_TRUE(*identity ? search.TryAddress() : search.TrySensor());
        visa.nextSession = 10;
        visa.calls.clear();
    }
    void Replies(const std::string& reply) {
        visa.answer = [=](const std::string&) { return reply; };
    }

    using Calls = std::vector<std::string>;
    const Calls reconnection = {"close 2", "close 1", "rm", "open 10 GPIB0::7::INSTR", "timeout 11 5000"};

    TempDir dir;
    SetupStore store{dir.Path()};
    VirtualTime time;
    ScriptedVisa visa;
    ScriptedSensor sensor;
    ReceiverState state;
    ReceiverAccess access{store, time.clock, &visa, &sensor};
    ReceiverSearch search{state, access, store};
    LevelSources sources{state, access, search};
};

TEST_F(ReceiverAccessTest, AQueryIsAWriteAndARead) {
    EXPECT_EQ(access.VisaIO("FREQ:CENT?"), "");
    for (const auto& [reply, expected] : {std::pair(std::string("-97.3\n"), std::string("-97.3\n")),
                                          {std::string("12\0rest", 7), "12"},
                                          {std::string(150, 'x'), std::string(100, 'x')}}) {
        Replies(reply);
        EXPECT_EQ(access.VisaIO(""), expected);
    }
    EXPECT_EQ(visa.calls, (Calls{"write FREQ:CENT?", "read", "read", "read"}));
    EXPECT_FALSE(access.HasFailed());
}

TEST_F(ReceiverAccessTest, AFailedTransferOpensTheLineAnewAtOnce) {
    for (const char* failing : {"write", "read"}) {
        Open();
        visa.failing = failing;
        Replies("half a rep");
        EXPECT_EQ(access.VisaIO(visa.failing == "read" ? "" : "MEAS?"), "");
        ASSERT_EQ(visa.calls.size(), 6U);
        EXPECT_EQ(Calls(visa.calls.begin() + 1, visa.calls.end()), reconnection);
        EXPECT_FALSE(access.HasFailed());
        EXPECT_TRUE(access.WasReopened());
        visa.failing.clear();
        access.Close();
        EXPECT_EQ(Calls(visa.calls.end() - 2, visa.calls.end()), (Calls{"close 11", "close 10"}));
    }
}

TEST_F(ReceiverAccessTest, AReconnectionThatFailsIsTriedAgainWithTheNextTransfer) {
    const auto fail = [&] { // with nowhere to go to
        store.Write("gpib_addr.ccz", "");
        visa.failing = "write";
        access.VisaIO("INIT");
        store.Write("gpib_addr.ccz", "GPIB0::7::INSTR");
        visa.calls.clear();
        EXPECT_TRUE(access.HasFailed());
    };
    for (const auto& [failing, steps] : {std::pair{"rm", 3U}, std::pair{"timeout", 5U}}) {
        fail();
        visa.failing = failing;
        Replies("-90");
        EXPECT_EQ(access.VisaIO(""), "-90") << "a good transfer does not hide the earlier failure";
        EXPECT_EQ(visa.calls.size(), 1 + steps);
        EXPECT_TRUE(visa.calls.back().starts_with(failing));
        EXPECT_TRUE(access.HasFailed());
        visa.failing.clear();
        access.VisaIO("");
        EXPECT_FALSE(access.HasFailed());
    }
}

TEST_F(ReceiverAccessTest, WithoutAnAddressOrALibraryTheFailureStays) {
    for (const char* address : {"", "\r\n"}) {
        store.Write("gpib_addr.ccz", address);
        visa.failing = "write";
        visa.calls.clear();
        access.VisaIO("INIT");
        EXPECT_EQ(visa.calls.back(), "rm");
        EXPECT_TRUE(access.HasFailed());
    }
    ReceiverAccess none(store, time.clock, nullptr, nullptr);
    EXPECT_EQ(none.VisaIO("INIT"), "");
    EXPECT_EQ(none.VisaIO(""), "");
    EXPECT_TRUE(none.HasFailed());
    EXPECT_TRUE(none.ReadSensor().IsMissing());
}

/// With the sensor in use no text leaves.
TEST_F(ReceiverAccessTest, TheSensorsWattsBecomeDbm) {
    visa.failing = "write";
    Open("");
    EXPECT_EQ(sensor.calls, (Calls{"init USB::0x0aad::* id reset", "aperture 3 1 0.010000",
                                   "smoothing 3 1 on", "averaging 3 1 0.100000 64.000000", "initiate 3 0 "}));
    sensor.watts = {1e-3,
                    2e-8,
                    5.1e-11,
                    4.9e-11,
                    -1e-3,
                    0.0,
                    std::numeric_limits<double>::quiet_NaN(),
                    std::numeric_limits<double>::infinity()};
    for (const float dBm : {0.0f, -46.99f, -72.924f, -80.0f, -80.0f})
        EXPECT_EQ(access.ReadSensor().Dbm(), dBm);
    for (int i = 0; i < 4; ++i)
        EXPECT_TRUE(access.ReadSensor().IsMissing()) << i;
    sources.Current().Tune(910e6);
    EXPECT_TRUE(visa.calls.empty());
    access.Close();
    EXPECT_EQ(sensor.calls.back(), "close 3 0 ");
}

TEST_F(ReceiverAccessTest, ASilentSensorIsAskedAgainInASweepOnlyAndIsLostAfterThree) {
    Open("");
    LevelSource& source = sources.Current();
    EXPECT_TRUE(source.ReadInTick()->IsMissing());
    EXPECT_EQ(sensor.reads, 1);
    EXPECT_TRUE(source.ReadInStep()->IsMissing());
    EXPECT_EQ(sensor.reads, 100);
    sensor.watts = {1e-20, 1e-20, 1e-3, 1e-3};
    EXPECT_EQ(source.ReadInStep()->Dbm(), 0.0f);
    EXPECT_EQ(sensor.reads, 103);
    sensor.watts.assign(99, 1e-20); // below its floor: shown as such
    EXPECT_EQ(source.ReadInStep()->Dbm(), -80.0f);
    EXPECT_FALSE(source.IsLost());
    sensor.whileReading = [&](int timeoutMs) { time.clock.Sleep(std::min(timeoutMs, 4000)); };
    const std::int64_t begin = time.NowMs(); // slow ones end after 10 s together
    EXPECT_TRUE(source.ReadInStep()->IsMissing());
    EXPECT_EQ(time.NowMs() - begin, 10000);
    for (int n = 0; n < 2; ++n)
        static_cast<void>(source.ReadInTick());
    EXPECT_TRUE(source.IsLost());
}

/// What comes of an external receiver is a level, nothing, or spoilt.
TEST_F(ReceiverAccessTest, AnAnswerIsParsedOnce) {
    static constexpr struct {
        const char* answer;
        float level; ///< dBm
        bool missing, spoilt;
    } Cases[] = {
        {"-97.3\n", -97.3f, false, false},
        {" +5.25", 5.25f, false, false},
        {"-9.73E+01\n", -97.3f, false, false},
        {"-97.3dBm\r\n", -97.3f, false, false},
        {"-.5", -0.5f, false, false},
        {"0.00", 0.0f, false, false},
        {"", 0, true, false},
        {" \r\n", 0, true, false},
        {"ERROR", 0, false, true},
        {"--97", 0, false, true},
        {"-9#.3", 0, false, true},
        {"-97.3,0", 0, false, true},
        {"9.9E37", 0, false, true},
        {"-9.91E+37", 0, false, true},
        {"9.9E400", 0, false, true},
        {"inf", 0, false, true},
        {"nan", 0, false, true},
        {"-9730", 0, false, true},
        {"100.0", 0, false, true},
        {"-249.9", -249.9f, false, false},
    };
    for (const auto& c : Cases) {
        Replies(c.answer);
        const Reading reading = sources.Current().ReadInTick().value();
        EXPECT_EQ(reading.Dbm(), c.level) << c.answer;
        EXPECT_EQ(reading.IsMissing(), c.missing) << c.answer;
        EXPECT_EQ(reading.IsSpoilt(), c.spoilt) << c.answer;
        EXPECT_EQ(reading.IsLevel(), !c.missing && !c.spoilt) << c.answer;
    }
}

} // namespace
} // namespace qor::test
