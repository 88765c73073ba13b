// The real serial control on a pseudo-terminal, on a real event loop.
#include "platform/qt/qt_serial_port.h"
#include "platform/qt/qt_timers.h"
#include "support/application.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <array>
#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <termios.h>
#include <unistd.h>

namespace qor {
namespace {

using test::NeedApplication;

template <class Done> bool RunUntil(Done done, int limitMs = 1000) {
    QElapsedTimer since;
    since.start();
    while (!done()) {
        if (since.elapsed() > limitMs)
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 5);
        usleep(200);
    }
    return true;
}

class Pty final : public PortList {
public:
    Pty() {
        termios raw{};
        cfmakeraw(&raw);
        std::array<char, 128> path{};
        EXPECT_EQ(openpty(&master, &slave, path.data(), &raw, nullptr), 0);
        device = path.data();
    }
    ~Pty() override { Hang(); }
    void Hang() {
        for (int* end : {&master, &slave}) {
            if (*end >= 0)
                close(*end);
            *end = -1;
        }
    }
    /// The first `count` bytes that come out at the far end, without a turn of the event loop; the system
    /// itself may take a moment to pass them on.
    std::string Written(std::size_t count) const {
        std::string all;
        std::array<char, 256> bytes{};
        pollfd waited{master, POLLIN, 0};
        while (all.size() < count && poll(&waited, 1, 2000) > 0) {
            const ssize_t got = read(master, bytes.data(), bytes.size());
            if (got <= 0)
                break;
            all.append(bytes.data(), static_cast<std::size_t>(got));
        }
        return all;
    }
    std::vector<SerialDevice> List() override { return {{1, device}}; }
    std::string DeviceOf(int number) const override { return number == 1 ? device : std::string(); }

    int master = -1;
    int slave = -1;
    std::string device;
};

class SerialPort : public testing::Test {
protected:
    SerialPort() {
        port.SetCommPort(1);
        port.SetHandler([this] {
            (port.GetCommEvent() == CommEvent::Lost ? lost : receives)++;
            openWhenTold = port.GetPortOpen();
            std::string bytes;
            port.GetInput(bytes);
            received += bytes;
        });
    }
    [[nodiscard]] static bool Application() {
        NeedApplication();
        return true;
    }
    const bool application = Application(); ///< ahead of the port
    Pty pty;
    QtSerialPort port{pty};
    std::string received;
    int receives = 0;
    int lost = 0;
    bool openWhenTold = false;
};

TEST_F(SerialPort, CarriesEveryByteBothWays) {
    port.SetOutput("closed: goes nowhere");
    port.SetPortOpen(true);
    ASSERT_TRUE(port.GetPortOpen());
    port.SetOutput("$KVTRE");
    port.SetOutput(std::string_view("}\0\xff\x11\x13", 5));
    port.SetOutput("\r");
    EXPECT_EQ(pty.Written(12), std::string("$KVTRE}\0\xff\x11\x13\r", 12))
        << "out at once, in order, none eaten";
    std::string all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);
    ASSERT_EQ(write(pty.master, all.data(), all.size()), 256);
    EXPECT_TRUE(RunUntil([&] { return received.size() >= 256; }));
    EXPECT_EQ(received, all);
    EXPECT_GE(receives, 1);
    EXPECT_EQ(lost, 0) << "a pseudo-terminal has no modem lines; that is no loss";
}

TEST_F(SerialPort, OpeningDropsWhatLayInTheLine) {
    port.SetPortOpen(true);
    port.SetPortOpen(false);
    ASSERT_EQ(write(pty.master, "old", 3), 3);
    port.SetPortOpen(true);
    ASSERT_EQ(write(pty.master, "new", 3), 3);
    EXPECT_TRUE(RunUntil([&] { return received.size() >= 3; }));
    EXPECT_EQ(received, "new");
}

TEST_F(SerialPort, AHangUpIsToldOnceWithThePortClosedAndANewDeviceOpens) {
    port.SetPortOpen(true);
    pty.Hang();
    EXPECT_TRUE(RunUntil([&] { return lost > 0; }));
    EXPECT_FALSE(openWhenTold);
    RunUntil([] { return false; }, 50);
    EXPECT_EQ(lost, 1);
    EXPECT_FALSE(port.GetPortOpen());
    port.SetPortOpen(true);
    EXPECT_FALSE(port.GetPortOpen()) << "the device is gone";
    EXPECT_EQ(lost, 1);

    Pty other;
    pty.device = other.device;
    port.SetPortOpen(true);
    ASSERT_TRUE(port.GetPortOpen());
    ASSERT_EQ(write(other.master, "SR\r\n", 4), 4);
    EXPECT_TRUE(RunUntil([&] { return received == "SR\r\n"; }));
    other.Hang();
    EXPECT_TRUE(RunUntil([&] { return lost == 2; })) << "once per opening";
}

TEST_F(SerialPort, AHangUpNoticedByAWriteAndAPortClosedInTime) {
    port.SetPortOpen(true);
    pty.Hang();
    for (int i = 0; i < 3; ++i)
        port.SetOutput("#SR\r");
    port.SetPortOpen(false); // before the event loop could tell
    RunUntil([] { return false; }, 50);
    EXPECT_EQ(lost, 0) << "a port closed on purpose is not lost";
    port.SetCommPort(7);
    port.SetPortOpen(true);
    EXPECT_FALSE(port.GetPortOpen()) << "there is no such port";
}

TEST_F(SerialPort, TheHandlerMayCloseAndReopen) {
    port.SetHandler([this] {
        ++receives;
        port.SetPortOpen(false);
        port.SetPortOpen(true);
    });
    port.SetPortOpen(true);
    for (int i = 1; i <= 3; ++i) {
        ASSERT_EQ(write(pty.master, "x", 1), 1);
        EXPECT_TRUE(RunUntil([&] { return receives == i; }));
    }
    EXPECT_TRUE(port.GetPortOpen());
}

TEST(QtTimers, RestartKillAndSelfKill) {
    NeedApplication();
    QtTimers timers;
    std::array<int, 64> ticks{};
    for (const int id : {0, 5, 7, 63})
        timers.OnTick(id, [&timers, &ticks, id] {
            ++ticks[static_cast<std::size_t>(id)];
            if (id == 63)
                timers.KillTimer(63);
            if (id == 5)
                timers.SetTimer(5, 1000); // restarted from inside its tick
        });
    for (const int id : {0, 5, 63})
        timers.SetTimer(id, 10);
    timers.SetTimer(7, 40);
    timers.KillTimer(8); // not running
    EXPECT_TRUE(RunUntil([&] { return ticks[0] >= 5 && ticks[7] >= 1; }));
    EXPECT_EQ(ticks[63], 1);
    EXPECT_EQ(ticks[5], 1);
    timers.KillTimer(0);
    const int before = ticks[0];
    RunUntil([] { return false; }, 60);
    EXPECT_EQ(ticks[0], before);
    // A restart counts from now: restarted often enough a timer never ticks.
    ticks[7] = 0;
    for (int i = 0; i < 6; ++i) {
        timers.SetTimer(7, 400);
        RunUntil([] { return false; }, 80);
    }
    EXPECT_EQ(ticks[7], 0);
    timers.KillTimer(7);
    timers.KillTimer(5);
}

} // namespace
} // namespace qor
