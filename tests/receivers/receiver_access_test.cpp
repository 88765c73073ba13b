#include "bands/setup_store.h"
#include "platform/visa.h"
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
        state.g_VisaRM = 1;
        state.g_VisaSession = 2;
        state.g_SensorSession = 3;
        store.Write("gpib_addr.ccz", "GPIB0::7::INSTR\r\n");
    }

    using Calls = std::vector<std::string>;
    const Calls reconnection = {"close 2", "close 1", "rm", "open 10 GPIB0::7::INSTR", "timeout 11 5000"};

    test::TempDir dir;
    SetupStore store{dir.Path()};
    ReceiverState state;
    ScriptedVisa visa;
    ScriptedSensor sensor;
    ReceiverAccess access{state, store, &visa, &sensor};
};

TEST_F(ReceiverAccessTest, AQueryIsAWriteAndARead) {
    visa.replies = {"-97.3\n", std::string("12\0rest", 7), std::string(150, 'x')};
    EXPECT_EQ(access.VisaIO("*IDN?"), "");
    EXPECT_EQ(access.VisaIO(""), "-97.3\n");
    EXPECT_EQ(access.VisaIO(""), "12");
    EXPECT_EQ(access.VisaIO(""), std::string(100, 'x'));
    EXPECT_EQ(visa.calls, (Calls{"write *IDN?", "read", "read", "read"}));
    EXPECT_EQ(state.g_VisaFail, 0);
}

TEST_F(ReceiverAccessTest, AFailedTransferOpensTheLineAnewAtOnce) {
    for (const char* failing : {"write", "read"}) {
        state.g_VisaRM = 1;
        state.g_VisaSession = 2;
        visa.nextSession = 10;
        visa.calls.clear();
        visa.failing = failing;
        visa.replies = {"half a rep"};
        EXPECT_EQ(access.VisaIO(visa.failing == "read" ? "" : "MEAS?"), "");
        ASSERT_EQ(visa.calls.size(), 6U);
        EXPECT_EQ(Calls(visa.calls.begin() + 1, visa.calls.end()), reconnection);
        EXPECT_EQ(state.g_VisaFail, 0);
        EXPECT_EQ(state.g_VisaSession, 11U);
    }
}

TEST_F(ReceiverAccessTest, AReconnectionThatFailsIsTriedAgainWithTheNextTransfer) {
    for (const auto& [failing, steps] : {std::pair{"rm", 3U}, std::pair{"timeout", 5U}}) {
        state = {};
        state.g_VisaRM = 1;
        state.g_VisaSession = 2;
        state.g_VisaFail = 1;
        visa.nextSession = 10;
        visa.calls.clear();
        visa.failing = failing;
        visa.replies = {"-90"};
        EXPECT_EQ(access.VisaIO(""), "-90") << "a good transfer does not hide the earlier failure";
        EXPECT_EQ(Calls(visa.calls.begin() + 1, visa.calls.end()),
                  Calls(reconnection.begin(), reconnection.begin() + steps));
        EXPECT_EQ(state.g_VisaFail, 1);
        visa.failing.clear();
        access.VisaIO("INIT");
        EXPECT_EQ(state.g_VisaFail, 0);
    }
    // What the open says is not asked: the first write tells.
    state.g_VisaFail = 1;
    visa.failing = "open";
    access.VisaIO("INIT");
    EXPECT_EQ(state.g_VisaFail, 0);
}

TEST_F(ReceiverAccessTest, WithoutAnAddressOrALibraryTheFailureStays) {
    for (const char* address : {"", "\r\n"}) {
        store.Write("gpib_addr.ccz", address);
        visa.failing = "write";
        visa.calls.clear();
        access.VisaIO("INIT");
        EXPECT_EQ(visa.calls.back(), "rm");
        EXPECT_EQ(state.g_VisaFail, 1);
    }
    ReceiverState bare;
    ReceiverAccess none(bare, store, nullptr, nullptr);
    EXPECT_EQ(none.VisaIO("INIT"), "");
    EXPECT_EQ(none.VisaIO(""), "");
    EXPECT_EQ(bare.g_VisaFail, 1);
    EXPECT_EQ(none.ReadSensor(), "-80");
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
    EXPECT_EQ(access.ReadSensor(), "0.000");
    EXPECT_EQ(access.ReadSensor(), "-46.990");
    EXPECT_EQ(access.ReadSensor(), "-72.924");
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(access.ReadSensor(), "-80") << i;
}

TEST_F(ReceiverAccessTest, EachKindOfReceiverIsAskedItsOwnWay) {
    const auto asked = [&](int kind, bool sweepStep) {
        state.g_ExtRxKind = kind;
        visa.calls.clear();
        visa.replies = {"-101.5"};
        EXPECT_EQ(access.ReadLevel(sweepStep), "-101.5");
        return visa.calls;
    };
    EXPECT_EQ(asked(ReceiverAnalyser, false), (Calls{"write CALC:MARK1:Y?", "read", "write INIT;*WAI"}));
    EXPECT_EQ(asked(ReceiverAnalyser, true), (Calls{"write INIT;*WAI", "write CALC:MARK1:Y?", "read"}));
    for (const bool sweepStep : {false, true}) {
        EXPECT_EQ(asked(ReceiverNrv, sweepStep), (Calls{"write SENS:DATA:AMPL?", "read"}));
        EXPECT_EQ(asked(ReceiverNrp, sweepStep), (Calls{"write MEAS?", "read"}));
        EXPECT_EQ(asked(0, sweepStep), (Calls{"write MEAS?", "read"}));
    }
}

TEST_F(ReceiverAccessTest, ASilentSensorIsAskedAgainInASweepOnly) {
    state.g_ExtRxKind = ReceiverSensor;
    EXPECT_EQ(access.ReadLevel(false), "-80");
    EXPECT_EQ(sensor.reads, 1);
    EXPECT_EQ(access.ReadLevel(true), "-80");
    EXPECT_EQ(sensor.reads, 100);
    sensor.watts = {0.0, 0.0, 1e-3, 1e-3};
    EXPECT_EQ(access.ReadLevel(true), "0.000");
    EXPECT_EQ(sensor.reads, 103);
    EXPECT_TRUE(visa.calls.empty());
}

} // namespace
} // namespace qor
