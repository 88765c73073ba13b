#include "sim/instrument.h"
#include "sim/simulated_port.h"
#include "support/virtual_time.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace qor::sim {
namespace {

class SimPort : public testing::Test {
protected:
    test::VirtualTime time;
    Instrument instrument{InstrumentConfig{}};
    Line line{instrument};
    SimulatedPortList ports{time.later};
    std::unique_ptr<SimulatedPort> port = std::make_unique<SimulatedPort>(ports, time.later);
    std::string received;
    std::vector<CommEvent> events;

    SimPort() {
        port->SetCommPort(ports.Add(line));
        port->SetHandler([this] {
            events.push_back(port->GetCommEvent());
            std::string bytes;
            port->GetInput(bytes);
            received += bytes;
        });
    }
};

TEST_F(SimPort, AnswersAfterTheTimeOfARealLineAndNeverFromInsideAWrite) {
    port->SetOutput("#SR\r"); // closed: nothing
    port->SetPortOpen(true);
    ASSERT_TRUE(port->GetPortOpen());
    port->SetOutput("#SAB?");
    port->SetOutput("\r");
    EXPECT_TRUE(events.empty());
    time.RunFor(14);
    EXPECT_TRUE(events.empty());
    time.RunFor(1);
    EXPECT_EQ(received, "SAB0\r\n");
    EXPECT_EQ(events, std::vector<CommEvent>{CommEvent::Receive});
}

TEST_F(SimPort, AnotherSpeedGetsNoAnswer) {
    port->SetSettings("115200,n,8,1");
    port->SetPortOpen(true);
    port->SetOutput("#SR\r");
    time.RunFor(1'000);
    EXPECT_TRUE(events.empty());
    port->SetPortOpen(false);
    port->SetSettings("9600,n,8,1");
    port->SetPortOpen(true);
    port->SetOutput("#SR\r");
    time.RunFor(1'000);
    EXPECT_EQ(received, "SR\r\n");
}

TEST_F(SimPort, ALostCableClosesThePortReportsOnceAndComesBack) {
    line.Add({FaultKind::Unplug, 1});
    line.Add({FaultKind::Replug, 2});
    port->SetPortOpen(true);
    port->SetOutput("#SR\r");
    time.RunFor(100);
    port->SetOutput("#SR\r");
    EXPECT_TRUE(port->GetPortOpen());
    time.RunFor(100);
    EXPECT_FALSE(port->GetPortOpen());
    EXPECT_EQ(events, (std::vector<CommEvent>{CommEvent::Receive, CommEvent::Lost}));
    EXPECT_TRUE(ports.List().empty());
    EXPECT_EQ(ports.DeviceOf(1), "sim:1");
    port->SetPortOpen(true);
    EXPECT_FALSE(port->GetPortOpen());
    time.RunFor(2'000);
    ASSERT_EQ(ports.List().size(), 1U);
    port->SetPortOpen(true);
    port->SetOutput("#SR\r");
    time.RunFor(100);
    EXPECT_EQ(received, "SR\r\nSR\r\n");

    port->Unplug(); // by hand
    EXPECT_EQ(events.size(), 3U);
    time.RunFor(1'000);
    EXPECT_EQ(events.back(), CommEvent::Lost);
    EXPECT_EQ(events.size(), 4U);
    port->Replug();
    EXPECT_EQ(ports.List().size(), 1U);
}

TEST_F(SimPort, CallsThatComeAfterClosingOrDestroyingDoNoHarm) {
    port->SetPortOpen(true);
    port->SetOutput("#SR\r");
    port->SetPortOpen(false);
    time.RunFor(100);
    EXPECT_TRUE(events.empty());
    port->SetPortOpen(true);
    port->SetOutput("#SR\r");
    port.reset();
    time.RunFor(100);
    EXPECT_TRUE(events.empty());
    line.Unplug(time.later.NowMicroseconds());
    time.RunFor(100);
}

TEST_F(SimPort, AStreamWithoutEndDoesNotFillTheMemory) {
    line.Add({FaultKind::Endless, 0});
    port->SetHandler([] {});
    port->SetPortOpen(true);
    port->SetOutput("#SR\r");
    time.RunFor(600'000);
    std::string bytes;
    port->GetInput(bytes);
    EXPECT_LT(bytes.size(), 100'000U);
}

} // namespace
} // namespace qor::sim
