// The same device measured by the instrument itself and by an analyser over each way of reaching one.
#include "platform/visa/bounded_link.h"
#include "platform/visa/own_visa.h"
#include "platform/visa/usbtmc_link.h"
#include "platform/visa/vxi11_link.h"
#include "sim/analyser.h"
#include "support/wire_reading.h"

#include <atomic>
#include <chrono>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

namespace qor::test {
namespace {

/// Notes what the receiver is told.
class Overheard final : public sim::ScpiDevice {
public:
    explicit Overheard(sim::Receiver& receiver) : m_Receiver(receiver) {}
    void Write(std::string_view message, std::int64_t nowMs) override {
        texts.emplace_back(message);
        m_Receiver.Write(message, nowMs);
        released = message == "INIT:CONT ON";
    }
    std::optional<std::string> Read(std::int64_t nowMs) override { return m_Receiver.Read(nowMs); }
    void Clear() override { m_Receiver.Clear(); }

    std::vector<std::string> texts;
    std::atomic<bool> released = false; ///< the last word of a run

private:
    sim::Receiver& m_Receiver;
};

/// An analyser at the instrument of a rig, served in real time over all protocols; a pair of sockets stands
/// for the device file of the kernel.
struct ServedBench {
    ServedBench()
        : visa([this](const visa::Address& a) { return LinkTo(a); }), rig({}, &visa),
          receiver(sim::ReceiverKind::Analyser, rig.instrument, 1), overheard(receiver), host(overheard) {
        EXPECT_EQ(socketpair(AF_UNIX, SOCK_SEQPACKET, 0, usb), 0);
        socketPort = host.ListenSocket(0);
        hislipPort = host.ListenHislip(0);
        mapperPort = host.ListenVxi11(0);
        server = std::thread([this] { Serve(); });
        rig.Store().Write("rs_ANALYZER_setup.ccz", "910#0#-20#100#0#0#6#6#"); // 10 kHz: quick
        rig.Store().Write("AlarmUp.ccz", "-30.0");
    }
    ~ServedBench() {
        over = true;
        server.join();
        close(usb[0]);
        close(usb[1]);
    }
    ServedBench(const ServedBench&) = delete;
    ServedBench& operator=(const ServedBench&) = delete;

    std::unique_ptr<visa::Link> LinkTo(const visa::Address& address) {
        if (address.kind == visa::Address::Kind::Usbtmc)
            return std::make_unique<visa::BoundedLink>([this, address] {
                return std::make_unique<visa::UsbtmcLink>(address,
                                                          [this](const auto&) { return dup(usb[0]); });
            });
        if (address.kind == visa::Address::Kind::Vxi11)
            return std::make_unique<visa::Vxi11Link>(address, mapperPort);
        return visa::MakeLink(address);
    }
    void Serve() {
        bool asked = false;
        while (!over) {
            host.Poll(1);
            char message[256];
            const ssize_t got = recv(usb[1], message, sizeof(message), MSG_DONTWAIT);
            const std::int64_t now = std::chrono::duration_cast<std::chrono::milliseconds>(
                                         std::chrono::steady_clock::now().time_since_epoch())
                                         .count();
            if (got > 0) {
                const std::string_view text(message, static_cast<std::size_t>(got));
                overheard.Write(text, now);
                asked = text.ends_with('?');
            }
            if (!asked)
                continue;
            if (const auto reply = overheard.Read(now)) {
                asked = false;
                EXPECT_GT(send(usb[1], (*reply + '\n').data(), reply->size() + 1, 0), 0);
            }
        }
    }
    [[nodiscard]] std::string AddressOf(const std::string& kind) const {
        if (kind == "socket")
            return "TCPIP0::127.0.0.1::" + std::to_string(socketPort) + "::SOCKET";
        if (kind == "hislip")
            return "TCPIP0::127.0.0.1::hislip0," + std::to_string(hislipPort) + "::INSTR";
        return kind == "vxi11" ? "TCPIP0::127.0.0.1::inst0::INSTR" : "USB0::0x0AAD::0x0054::100234::INSTR";
    }

    visa::OwnVisa visa;
    Rig rig;
    sim::Receiver receiver;
    Overheard overheard;
    sim::ScpiHost host;
    std::uint16_t socketPort = 0, hislipPort = 0, mapperPort = 0;
    int usb[2] = {-1, -1};
    std::atomic<bool> over = false;
    std::thread server;
};

struct Curves {
    std::map<int, float> up, down;
};
Curves CurvesOf(Rig& rig) {
    const Curve& curve = rig.S().curve;
    return {OnGrid(curve, std::span(curve.Up())), OnGrid(curve, std::span(curve.Down()))};
}

TEST(BackEnds, MeasureTheSameDeviceAlike) {
    Rig intern;
    ASSERT_TRUE(intern.ReadyFor(ModeSweep) && intern.Measure());
    const Curves expected = CurvesOf(intern);
    ASSERT_EQ(expected.up.size(), 13U);
    std::vector<std::string> told;
    for (const char* kind : {"socket", "hislip", "vxi11", "usbtmc"}) {
        SCOPED_TRACE(kind);
        ServedBench bench;
        ASSERT_TRUE(bench.rig.ReadyFor(ModeSweep));
        ASSERT_TRUE(bench.rig.program.Receiver().UseExternalNow(bench.AddressOf(kind)));
        ASSERT_TRUE(bench.rig.Measure());
        const Curves curves = CurvesOf(bench.rig);
        // Both readings scatter by 0.05 dB, and 10 kHz of noise lie 15 dB and more below the level.
        for (const auto& [mine, theirs] : {std::pair(curves.up, expected.up), {curves.down, expected.down}}) {
            EXPECT_EQ(mine.size(), theirs.size());
            for (const auto& [place, level] : theirs)
                EXPECT_NEAR(mine.at(place), level, 0.6f) << place;
        }
        EXPECT_EQ(bench.rig.S().curve.ShownVerdict(), Verdict::Passed);
        EXPECT_EQ(bench.rig.S().run.Record().receiver, "QOR,SIM-ANALYSER,SIM01,1.0");
        for (int n = 0; n < 500 && !bench.overheard.released; ++n)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        bench.over = true; // the texts are looked at when nobody writes them
        bench.server.join();
        bench.server = std::thread([] {});
        if (told.empty())
            told = bench.overheard.texts;
        EXPECT_EQ(bench.overheard.texts, told);
    }
}

} // namespace
} // namespace qor::test
