// Addresses at which nobody is: what is told, and how soon.
#include "base/setup_store.h"
#include "platform/visa/own_visa.h"
#include "platform/visa/vxi11_link.h"
#include "receivers/receiver_access.h"
#include "receivers/receiver_search.h"
#include "receivers/receiver_state.h"
#include "support/temp_dir.h"
#include "support/virtual_time.h"

#include <arpa/inet.h>
#include <chrono>
#include <dlfcn.h>
#include <fcntl.h>
#include <future>
#include <netdb.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

/// The name server of one domain does not answer for a while.
extern "C" int getaddrinfo(const char* host, const char* service, const addrinfo* hints, addrinfo** list) {
    static const auto real = reinterpret_cast<decltype(&getaddrinfo)>(dlsym(RTLD_NEXT, "getaddrinfo"));
    if (host && std::string_view(host).ends_with(".silent.invalid")) {
        std::this_thread::sleep_for(std::chrono::seconds(4));
        return EAI_AGAIN;
    }
    return real(host, service, hints, list);
}

namespace qor::visa {
namespace {

/// A listening socket that nobody serves: it takes connections, or not even those.
class DeafHost {
public:
    explicit DeafHost(bool full) {
        sockaddr_in at{};
        at.sin_family = AF_INET;
        at.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof(at);
        m_Files.push_back(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
        EXPECT_EQ(bind(m_Files[0], reinterpret_cast<const sockaddr*>(&at), size), 0);
        EXPECT_EQ(listen(m_Files[0], full ? 0 : 8), 0);
        EXPECT_EQ(getsockname(m_Files[0], reinterpret_cast<sockaddr*>(&at), &size), 0);
        port = ntohs(at.sin_port);
        for (int n = 0; full && n < 4; ++n) { // its queue is full: what else comes is swallowed
            m_Files.push_back(socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
            static_cast<void>(connect(m_Files.back(), reinterpret_cast<const sockaddr*>(&at), size));
        }
    }
    ~DeafHost() {
        for (const int file : m_Files)
            close(file);
    }
    DeafHost(const DeafHost&) = delete;
    DeafHost& operator=(const DeafHost&) = delete;

    std::uint16_t port = 0;

private:
    std::vector<int> m_Files;
};

/// What a search at the address tells, and how long it takes.
struct Told {
    std::string why;
    std::int64_t ms = 0;
};
Told Try(const std::string& address, std::uint16_t mapperPort) {
    test::TempDir dir;
    SetupStore store(dir.Path());
    store.Write("gpib_addr.ccz", address);
    test::VirtualTime time;
    OwnVisa visa([=](const Address& a) -> std::unique_ptr<Link> {
        if (a.kind == Address::Kind::Vxi11)
            return std::make_unique<Vxi11Link>(a, mapperPort);
        return MakeLink(a);
    });
    ReceiverState state;
    ReceiverAccess access(store, time.clock, &visa, nullptr);
    ReceiverSearch search(state, access, store);
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_FALSE(search.TryAddress()) << address;
    return {state.Trouble(),
            std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - begin)
                .count()};
}

TEST(VisaAddresses, WrongOnesAreToldInTime) {
    const std::string none = "keine gueltige Adresse", library = "keine VISA-Bibliothek installiert",
                      refused = "nicht erreichbar", silent = "antwortet nicht";
    const struct {
        std::string why;
        std::vector<std::string> addresses;
    } AtOnce[] = {
        {none,
         {"nonsense",
          "::",
          "TCPIP0",
          "TCPIP0::",
          "TCPIP0::a b::5025::SOCKET",
          "TCPIP0::a::0::SOCKET",
          "TCPIP0::a::65536::SOCKET",
          "TCPIP0::a::50x::SOCKET",
          "TCPIP0::a::-1::SOCKET",
          "TCPIP0::::5025::SOCKET",
          "TCPIP0::a::b::c::d::INSTR",
          "TCPIP0::a::hislip0,0::INSTR",
          "TCPIP0::a::hislip0,99999::INSTR",
          "TCPIP0::/etc/passwd::1::SOCKET",
          "TCPIPx::a::1::SOCKET",
          "TCPIP0:a:1:SOCKET",
          "http://10.0.0.7",
          "10.0.0.7:5025",
          "USB0::1::2",
          "USB0::x::y::z::INSTR",
          "USB0::0x10000::1::s::INSTR",
          "USB0::1::2::::INSTR",
          "COM1",
          "GPIB0",
          "\x01\xff\x80",
          std::string(200, ':')}},
        {library, {"GPIB0::20::INSTR", "gpib::7", "ASRL1::INSTR", "PXI0::2::INSTR"}},
        {refused,
         {"TCPIP0::127.0.0.1::1::SOCKET", "TCPIP0::127.0.0.1::hislip0,1::INSTR",
          "TCPIP0::127.0.0.1::inst0::INSTR", "TCPIP0::" + std::string(150, 'a') + "::1::SOCKET",
          "TCPIP0::[::1]::1::SOCKET", "TCPIP0::" + std::string(150, 'a') + "::1::SOCKET",
          "USB0::0xFFFF::0xFFFF::nobody::INSTR"}},
    };
    int count = 0;
    for (const auto& row : AtOnce) {
        for (const std::string& address : row.addresses) {
            const Told told = Try(address, 1);
            EXPECT_EQ(told.why, row.why) << address;
            EXPECT_LT(told.ms, 1000) << address;
            ++count;
        }
    }
    const DeafHost deaf(false), full(true);
    const std::string at = "TCPIP0::127.0.0.1::";
    std::vector<std::pair<std::string, std::future<Told>>> searches;
    for (const std::string& address : {at + std::to_string(deaf.port) + "::SOCKET",
                                       at + "hislip0," + std::to_string(deaf.port) + "::INSTR",
                                       at + "inst0::INSTR", at + std::to_string(full.port) + "::SOCKET",
                                       std::string("TCPIP0::analyser.silent.invalid::5025::SOCKET")})
        searches.emplace_back(address, std::async(std::launch::async, Try, address, deaf.port));
    for (auto& [address, search] : searches) {
        const Told told = search.get();
        EXPECT_EQ(told.why, silent) << address;
        EXPECT_LT(told.ms, 3000) << address;
        ++count;
    }
    EXPECT_GE(count, 40);
}

} // namespace
} // namespace qor::visa
