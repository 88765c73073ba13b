#include "platform/visa/address.h"
#include "platform/visa/bounded_visa.h"
#include "platform/visa/hislip_link.h"
#include "platform/visa/own_visa.h"
#include "platform/visa/usbtmc_link.h"
#include "platform/visa/vxi11_link.h"
#include "sim/scpi_host.h"
#include "support/temp_dir.h"

#include <atomic>
#include <chrono>
#include <fstream>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

namespace qor::visa {
namespace {

using test::TempDir;

std::int64_t Ms() {
    return std::chrono::duration_cast<std::chrono::milliseconds>(
               std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

/// Answers "echo N" with N after as many ms as "delay N" has told, and "long?" with a long line.
class Parrot final : public sim::ScpiDevice {
public:
    void Write(std::string_view message, std::int64_t nowMs) override {
        heard += std::string(message) + '|';
        if (message.starts_with("delay "))
            m_Delay = std::stoi(std::string(message.substr(6)));
        else if (message.starts_with("echo?"))
            m_Reply = message.substr(5);
        else if (message == "long?")
            m_Reply = std::string(5000, 'x');
        m_At = nowMs + m_Delay;
    }
    std::optional<std::string> Read(std::int64_t nowMs) override {
        if (!m_Reply || nowMs < m_At)
            return std::nullopt;
        return std::exchange(m_Reply, std::nullopt);
    }
    void Clear() override { m_Reply.reset(); }

    std::string heard;

private:
    std::optional<std::string> m_Reply;
    std::int64_t m_At = 0;
    int m_Delay = 0;
};

/// The parrot on a thread of its own, reached over all three protocols.
struct Served {
    Served()
        : host(parrot), socketPort(host.ListenSocket(0)), hislipPort(host.ListenHislip(0)),
          mapperPort(host.ListenVxi11(0)), thread([this] {
              while (!over)
                  host.Poll(5);
          }) {}
    ~Served() {
        over = true;
        thread.join();
    }

    Parrot parrot;
    sim::ScpiHost host;
    std::uint16_t socketPort, hislipPort, mapperPort;
    std::atomic<bool> over = false;
    std::thread thread;
};

Address At(const std::string& text) {
    return ParseAddress(text).value();
}

/// One link of each protocol to the served instrument.
std::vector<std::unique_ptr<Link>> LinksTo(const Served& served) {
    std::vector<std::unique_ptr<Link>> links;
    links.push_back(MakeLink(At("TCPIP0::127.0.0.1::" + std::to_string(served.socketPort) + "::SOCKET")));
    links.push_back(
        MakeLink(At("TCPIP0::127.0.0.1::hislip0," + std::to_string(served.hislipPort) + "::INSTR")));
    links.push_back(std::make_unique<Vxi11Link>(At("TCPIP0::localhost::inst0::INSTR"), served.mapperPort));
    return links;
}

TEST(VisaAddress, FormsAndWhatIsNone) {
    const struct {
        const char* text;
        Address::Kind kind;
        const char* host;
        int port;
        const char* device;
    } Known[] = {
        {"TCPIP0::10.0.0.7::5025::SOCKET", Address::Kind::Socket, "10.0.0.7", 5025, ""},
        {"tcpip::fsh.lab::5555::socket\r\n", Address::Kind::Socket, "fsh.lab", 5555, ""},
        {"TCPIP0::[fe80::1]::5025::SOCKET", Address::Kind::Socket, "fe80::1", 5025, ""},
        {"TCPIP0::10.0.0.7::inst0::INSTR", Address::Kind::Vxi11, "10.0.0.7", 0, "inst0"},
        {"TCPIP0::10.0.0.7", Address::Kind::Vxi11, "10.0.0.7", 0, "inst0"},
        {"TCPIP::10.0.0.7::INSTR", Address::Kind::Vxi11, "10.0.0.7", 0, "inst0"},
        {"TCPIP0::a::hislip0::INSTR", Address::Kind::Hislip, "a", 4880, "hislip0"},
        {"TCPIP0::a::hislip1,4881::INSTR", Address::Kind::Hislip, "a", 4881, "hislip1"},
        {"GPIB0::20::INSTR", Address::Kind::Other, "", 0, ""},
    };
    for (const auto& k : Known) {
        const auto address = ParseAddress(k.text);
        ASSERT_TRUE(address) << k.text;
        EXPECT_EQ(address->kind, k.kind) << k.text;
        EXPECT_EQ(address->host, k.host) << k.text;
        EXPECT_EQ(address->port, k.port) << k.text;
        EXPECT_EQ(address->device, k.device) << k.text;
    }
    const auto usb = ParseAddress("USB0::0x0AAD::84::100234::INSTR");
    ASSERT_TRUE(usb && usb->kind == Address::Kind::Usbtmc);
    EXPECT_EQ(usb->vendor, 0x0aad);
    EXPECT_EQ(usb->product, 84);
    EXPECT_EQ(usb->serial, "100234");
    for (const char* none :
         {"", "::", "TCPIP0", "TCPIP0::", "TCPIP0::a b::5025::SOCKET", "TCPIP0::a::0::SOCKET",
          "TCPIP0::a::65536::SOCKET", "TCPIP0::a::50x::SOCKET", "TCPIP0::a::b::c::d::INSTR",
          "TCPIP0::a::hislip0,0::INSTR", "USB0::1::2", "USB0::0x10000::1::s::INSTR", "USB0::1::2::::INSTR",
          "COM1", "GPIB0", "TCPIP0::/etc/passwd::1::SOCKET"})
        EXPECT_FALSE(ParseAddress(none)) << none;
}

TEST(VisaLinks, QuestionsAndAnswersOverEachProtocol) {
    Served served;
    for (const auto& link : LinksTo(served)) {
        ASSERT_EQ(link->Open(Deadline::In(2000)), LinkResult::Done);
        std::string reply;
        for (int n = 0; n < 20; ++n) {
            ASSERT_EQ(link->Write("echo?" + std::to_string(n), Deadline::In(1000)), LinkResult::Done);
            ASSERT_EQ(link->Read(reply, Deadline::In(1000)), LinkResult::Done);
            EXPECT_EQ(reply, std::to_string(n) + '\n');
        }
        ASSERT_EQ(link->Write("long?", Deadline::In(1000)), LinkResult::Done);
        ASSERT_EQ(link->Read(reply, Deadline::In(1000)), LinkResult::Done);
        EXPECT_EQ(reply.size(), 5001u);
    }
}

TEST(VisaLinks, ALateAnswerIsNeverTheNextOne) {
    Served served;
    for (const auto& link : LinksTo(served)) {
        ASSERT_EQ(link->Open(Deadline::In(2000)), LinkResult::Done);
        std::string reply;
        ASSERT_EQ(link->Write("delay 150", Deadline::In(1000)), LinkResult::Done);
        ASSERT_EQ(link->Write("echo?old", Deadline::In(1000)), LinkResult::Done);
        const std::int64_t begin = Ms();
        EXPECT_EQ(link->Read(reply, Deadline::In(60)), LinkResult::TimedOut);
        EXPECT_LT(Ms() - begin, 140);
        std::this_thread::sleep_for(std::chrono::milliseconds(150)); // the answer is there now
        ASSERT_EQ(link->Write("delay 0", Deadline::In(1000)), LinkResult::Done);
        ASSERT_EQ(link->Write("echo?new", Deadline::In(1000)), LinkResult::Done);
        ASSERT_EQ(link->Read(reply, Deadline::In(1000)), LinkResult::Done);
        EXPECT_EQ(reply, "new\n");
    }
}

TEST(VisaLinks, ThroughTheDeviceFileOfTheKernel) {
    int pair[2];
    ASSERT_EQ(socketpair(AF_UNIX, SOCK_SEQPACKET, 0, pair), 0);
    const Address address = At("USB0::0x0AAD::0x54::100234::INSTR");
    UsbtmcLink link(address, [&](const Address& a) { return a.serial == "100234" ? dup(pair[0]) : -1; });
    ASSERT_EQ(link.Open(Deadline::In(100)), LinkResult::Done);
    ASSERT_EQ(link.Write("*IDN?", Deadline::In(100)), LinkResult::Done);
    char heard[16] = {};
    EXPECT_EQ(recv(pair[1], heard, sizeof(heard), 0), 5);
    std::string reply;
    EXPECT_EQ(link.Read(reply, Deadline::In(30)), LinkResult::TimedOut);
    ASSERT_EQ(link.Write("x", Deadline::In(100)), LinkResult::Done);
    ASSERT_EQ(send(pair[1], "FSH,1\n", 6, 0), 6);
    ASSERT_EQ(link.Read(reply, Deadline::In(500)), LinkResult::Done);
    EXPECT_EQ(reply, "FSH,1\n");
    close(pair[0]);
    close(pair[1]);

    TempDir dir; // as the kernel lists devices
    const auto device = dir.Path() / "devices/usb1/1-2";
    std::filesystem::create_directories(device / "1-2:1.0");
    std::filesystem::create_directories(dir.Path() / "usbmisc/usbtmc3");
    std::filesystem::create_directory_symlink(device / "1-2:1.0", dir.Path() / "usbmisc/usbtmc3/device");
    for (const auto& [name, value] :
         {std::pair("idVendor", "0aad"), {"idProduct", "0054"}, {"serial", "100234"}})
        std::ofstream(device / name) << value << '\n';
    EXPECT_EQ(UsbtmcDevice(address, dir.Path() / "usbmisc"), "/dev/usbtmc3");
    EXPECT_EQ(UsbtmcDevice(At("USB0::0x0AAD::0x54::other::INSTR"), dir.Path() / "usbmisc"), "");
}

TEST(OwnVisa, SessionsTimeoutsAndLimits) {
    Served served;
    OwnVisa visa;
    VisaSession manager = 0, session = 0;
    EXPECT_LT(visa.Open(1, "TCPIP0::127.0.0.1::1::SOCKET", session), 0); // no manager
    ASSERT_EQ(visa.OpenDefaultRM(manager), Success);
    EXPECT_EQ(visa.Open(manager, "nonsense", session), ErrorInvalidName);
    EXPECT_EQ(visa.Open(manager, "GPIB0::20::INSTR", session), ErrorNoLibrary);
    EXPECT_EQ(visa.Open(manager, "TCPIP0::127.0.0.1::1::SOCKET", session), ErrorNotFound); // refused
    EXPECT_EQ(session, 0u);
    ASSERT_EQ(
        visa.Open(manager, "TCPIP0::127.0.0.1::" + std::to_string(served.socketPort) + "::SOCKET", session),
        0);
    std::string reply;
    ASSERT_EQ(visa.Write(session, "long?"), Success);
    ASSERT_EQ(visa.Read(session, 100, reply), Success);
    EXPECT_EQ(reply, std::string(100, 'x'));
    ASSERT_EQ(visa.Write(session, "echo?7"), Success); // what was cut off does not come now
    ASSERT_EQ(visa.Read(session, 100, reply), Success);
    EXPECT_EQ(reply, "7\n");
    ASSERT_EQ(visa.SetAttribute(session, VisaAttribute::TimeoutMs, 40), Success);
    EXPECT_EQ(visa.Read(session, 100, reply), ErrorTimeout);
    EXPECT_EQ(visa.Close(session), Success);
    EXPECT_LT(visa.Write(session, "x"), 0);
}

/// A library that hangs in every read.
class Hanging final : public VisaLibrary {
public:
    explicit Hanging(std::shared_ptr<std::atomic<int>> alive) : m_Alive(std::move(alive)) { ++*m_Alive; }
    ~Hanging() override { --*m_Alive; }
    VisaStatus OpenDefaultRM(VisaSession& manager) override { return manager = 1, 0; }
    VisaStatus Open(VisaSession, std::string_view, VisaSession& session) override { return session = 2, 0; }
    VisaStatus Close(VisaSession) override { return 0; }
    VisaStatus SetAttribute(VisaSession, VisaAttribute, std::uint32_t) override { return 0; }
    VisaStatus Write(VisaSession, std::string_view) override { return 0; }
    VisaStatus Read(VisaSession, std::size_t, std::string&) override {
        std::this_thread::sleep_for(std::chrono::milliseconds(600));
        return 0;
    }

private:
    std::shared_ptr<std::atomic<int>> m_Alive;
};

TEST(BoundedVisa, ACallIsGivenUpAndTheLibraryWithIt) {
    const auto alive = std::make_shared<std::atomic<int>>(0);
    {
        BoundedVisa visa([alive] { return std::make_unique<Hanging>(alive); });
        int waits = 0;
        visa.SetWhileWaiting([&] {
            if (++waits == 2)
                visa.Abandon();
        });
        VisaSession manager = 0, session = 0;
        ASSERT_EQ(visa.OpenDefaultRM(manager), 0);
        ASSERT_EQ(visa.Open(manager, "any", session), 0);
        std::string reply;
        const std::int64_t begin = Ms();
        EXPECT_LT(visa.Read(session, 100, reply), 0);
        EXPECT_LT(Ms() - begin, 400);
        EXPECT_LT(visa.Write(session, "x"), 0); // gone until it is opened anew
        ASSERT_EQ(visa.OpenDefaultRM(manager), 0);
        EXPECT_EQ(visa.Write(session, "x"), 0);
    }
    for (int n = 0; n < 40 && *alive != 0; ++n)
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    EXPECT_EQ(*alive, 0); // what hung has ended by itself
}

} // namespace
} // namespace qor::visa
