#include "base/setup_store.h"
#include "platform/visa.h"
#include "receivers/level_source.h"
#include "receivers/receiver_access.h"
#include "support/temp_dir.h"

#include <deque>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace qor {
namespace {

/// Writes down every call and fails those that the test names.
class ScriptedVisa : public VisaLibrary {
public:
    std::vector<std::string> calls;
    std::deque<std::string> replies;
    std::string failing; ///< calls that begin with this fail
    VisaSession nextSession = 10;

    VisaStatus OpenDefaultRM(VisaSession& manager) override {
        manager = nextSession++;
        return Note("rm");
    }
    VisaStatus Open(VisaSession manager, std::string_view address, VisaSession& session) override {
        session = nextSession++;
        return Note("open " + std::to_string(manager) + " " + std::string(address));
    }
    VisaStatus Close(VisaSession session) override { return Note("close " + std::to_string(session)); }
    VisaStatus SetAttribute(VisaSession session, VisaAttribute attribute, std::uint32_t value) override {
        EXPECT_EQ(attribute, VisaAttribute::TimeoutMs);
        return Note("timeout " + std::to_string(session) + " " + std::to_string(value));
    }
    VisaStatus Write(VisaSession, std::string_view text) override {
        return Note("write " + std::string(text));
    }
    VisaStatus Read(VisaSession, std::size_t limit, std::string& reply) override {
        EXPECT_EQ(limit, 100U);
        reply = replies.empty() ? "" : replies.front();
        if (!replies.empty())
            replies.pop_front();
        return Note("read");
    }

private:
    VisaStatus Note(const std::string& call) {
        calls.push_back(call);
        return !failing.empty() && call.starts_with(failing) ? -1 : 0;
    }
};

class ScriptedSensor : public PowerSensorLibrary {
public:
    std::deque<double> watts; ///< none left: no result within the time
    int reads = 0;

    void ReadMeasurement(std::uint32_t session, int channel, int timeoutMs, double& result) override {
        EXPECT_EQ(session, 3U);
        EXPECT_EQ(channel, 1);
        EXPECT_EQ(timeoutMs, 10000);
        EXPECT_EQ(result, 0.0);
        ++reads;
        if (watts.empty())
            return;
        result = watts.front();
        watts.pop_front();
    }
};

struct ReceiverAccessTest : testing::Test {
    ReceiverAccessTest() {
        access.TakeAnalyser(1, 2);
        access.TakeSensor(3);
        store.Write("gpib_addr.ccz", "GPIB0::7::INSTR\r\n");
    }

    using Calls = std::vector<std::string>;
    const Calls reconnection = {"close 2", "close 1", "rm", "open 10 GPIB0::7::INSTR", "timeout 11 5000"};

    test::TempDir dir;
    SetupStore store{dir.Path()};
    ScriptedVisa visa;
    ScriptedSensor sensor;
    ReceiverAccess access{store, &visa, &sensor};
    ReceiverState state;
    LevelSources sources{state, access};
};

TEST_F(ReceiverAccessTest, AQueryIsAWriteAndARead) {
    visa.replies = {"-97.3\n", std::string("12\0rest", 7), std::string(150, 'x')};
    EXPECT_EQ(access.VisaIO("*IDN?"), "");
    EXPECT_EQ(access.VisaIO(""), "-97.3\n");
    EXPECT_EQ(access.VisaIO(""), "12");
    EXPECT_EQ(access.VisaIO(""), std::string(100, 'x'));
    EXPECT_EQ(visa.calls, (Calls{"write *IDN?", "read", "read", "read"}));
    EXPECT_FALSE(access.HasFailed());
}

TEST_F(ReceiverAccessTest, AFailedTransferOpensTheLineAnewAtOnce) {
    for (const char* failing : {"write", "read"}) {
        access.TakeAnalyser(1, 2);
        visa.nextSession = 10;
        visa.calls.clear();
        visa.failing = failing;
        visa.replies = {"half a rep"};
        EXPECT_EQ(access.VisaIO(visa.failing == "read" ? "" : "MEAS?"), "");
        ASSERT_EQ(visa.calls.size(), 6U);
        EXPECT_EQ(Calls(visa.calls.begin() + 1, visa.calls.end()), reconnection);
        EXPECT_FALSE(access.HasFailed());
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
        visa.replies = {"-90"};
        EXPECT_EQ(access.VisaIO(""), "-90") << "a good transfer does not hide the earlier failure";
        EXPECT_EQ(visa.calls.size(), 1 + steps);
        EXPECT_TRUE(visa.calls.back().starts_with(failing));
        EXPECT_TRUE(access.HasFailed());
        visa.failing.clear();
        access.VisaIO("INIT");
        EXPECT_FALSE(access.HasFailed());
    }
    // What the open says is not asked: the first write tells.
    fail();
    visa.failing = "open";
    access.VisaIO("INIT");
    EXPECT_FALSE(access.HasFailed());
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
    ReceiverAccess none(store, nullptr, nullptr);
    EXPECT_EQ(none.VisaIO("INIT"), "");
    EXPECT_EQ(none.VisaIO(""), "");
    EXPECT_TRUE(none.HasFailed());
    EXPECT_FALSE(none.ReadSensor());
}

TEST_F(ReceiverAccessTest, TheSensorsWattsBecomeDbm) {
    sensor.watts = {1e-3,
                    2e-8,
                    5.1e-11,
                    4.9e-11,
                    0.0,
                    -1e-3,
                    std::numeric_limits<double>::quiet_NaN(),
                    std::numeric_limits<double>::infinity()};
    for (const float dBm : {0.0f, -46.99f, -72.924f})
        EXPECT_EQ(access.ReadSensor().value().Dbm(), dBm);
    for (int i = 0; i < 6; ++i)
        EXPECT_FALSE(access.ReadSensor()) << i;
}

TEST_F(ReceiverAccessTest, ASilentSensorIsAskedAgainInASweepOnly) {
    state.UseExternal(ReceiverSensor);
    EXPECT_EQ(sources.Current().ReadInTick().value().Dbm(), -80.0f);
    EXPECT_EQ(sensor.reads, 1);
    EXPECT_EQ(sources.Current().ReadInStep().value().Dbm(), -80.0f);
    EXPECT_EQ(sensor.reads, 100);
    sensor.watts = {0.0, 0.0, 1e-3, 1e-3};
    EXPECT_EQ(sources.Current().ReadInStep().value().Dbm(), 0.0f);
    EXPECT_EQ(sensor.reads, 103);
    EXPECT_TRUE(visa.calls.empty());
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
        {"-.5", -0.5f, false, false},
        {"0.00", 0.0f, false, false},
        {"", 0, true, false},
        {" \r\n", 0, true, false},
        {"ERROR", 0, false, true},
        {"--97", 0, false, true},
        {"-9730", 0, false, true},
        {"100.0", 0, false, true},
        {"-249.9", -249.9f, false, false},
    };
    state.UseExternal(ReceiverNrp);
    for (const auto& c : Cases) {
        visa.replies = {c.answer};
        const Reading reading = sources.Current().ReadInTick().value();
        EXPECT_EQ(reading.Dbm(), c.level) << c.answer;
        EXPECT_EQ(reading.IsMissing(), c.missing) << c.answer;
        EXPECT_EQ(reading.IsSpoilt(), c.spoilt) << c.answer;
        EXPECT_EQ(reading.IsLevel(), !c.missing && !c.spoilt) << c.answer;
    }
}

} // namespace
} // namespace qor
