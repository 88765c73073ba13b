// qor-sim: a simulated analyser, or a band switch unit, on a pseudo-terminal.

#include "platform/visa/hislip_link.h"
#include "platform/visa/rpc_client.h"
#include "sim/analyser.h"
#include "sim/instrument.h"
#include "sim/line.h"
#include "sim/scpi_host.h"
#include "sim/switch_unit.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <fstream>
#include <getopt.h>
#include <memory>
#include <optional>
#include <poll.h>
#include <string>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>
#include <vector>

namespace {

using namespace qor::sim;
namespace visa = qor::visa;

constexpr int ExitFailure = 1;
constexpr int ExitBadArguments = 4;

volatile std::sig_atomic_t g_Stop = 0;

struct Options {
    InstrumentConfig instrument;
    std::vector<Fault> faults;
    std::string link;
    std::optional<int> switchUnitSpeed; ///< a band switch unit at this speed instead of an analyser
    std::string memory;                 ///< a file
    struct Receiver {
        ReceiverKind kind;
        std::uint16_t port; ///< of its raw socket, 0 for any free one
    };
    std::optional<Receiver> receiver;
    std::vector<ReceiverFault> receiverFaults;
    std::optional<double> attenuatorDb; ///< through which the receiver hears the port itself
};

/// A pseudo-terminal whose far side is the host's serial port.
///
/// The far side is held open here as well: it keeps its settings, and the near side never reports that it is
/// alone, however often the host closes and opens.
class Pty {
public:
    Pty() = default;
    Pty(const Pty&) = delete;
    Pty& operator=(const Pty&) = delete;
    ~Pty() { Close(); }

    [[nodiscard]] bool Open() {
        m_Master = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
        char name[128];
        if (m_Master < 0 || grantpt(m_Master) != 0 || unlockpt(m_Master) != 0 ||
            ptsname_r(m_Master, name, sizeof name) != 0)
            return false;
        m_Path = name;
        m_Slave = open(name, O_RDWR | O_NOCTTY | O_CLOEXEC);
        termios settings{};
        if (m_Slave < 0 || tcgetattr(m_Slave, &settings) != 0)
            return false;
        cfmakeraw(&settings);
        cfsetspeed(&settings, B9600);
        return tcsetattr(m_Slave, TCSANOW, &settings) == 0;
    }
    void Close() {
        for (int* fd : {&m_Slave, &m_Master}) {
            if (*fd >= 0)
                close(*fd);
            *fd = -1;
        }
    }
    [[nodiscard]] bool IsOpen() const { return m_Master >= 0; }
    [[nodiscard]] int Fd() const { return m_Master; }
    [[nodiscard]] const std::string& Path() const { return m_Path; }

    /// Speed that the host has set, 0 for any but those that a device may have.
    [[nodiscard]] int HostSpeed() const {
        termios settings{};
        if (tcgetattr(m_Master, &settings) != 0)
            return 0;
        const speed_t speed = cfgetospeed(&settings);
        return speed == B9600 ? 9600 : speed == B115200 ? 115200 : 0;
    }
    /// What a host that does not read has no room for is lost, as on a real line.
    void Write(const std::string& bytes) const {
        std::size_t done = 0;
        while (done < bytes.size()) {
            const ssize_t count = write(m_Master, bytes.data() + done, bytes.size() - done);
            if (count > 0)
                done += static_cast<std::size_t>(count);
            else if (errno != EINTR)
                return;
        }
    }

private:
    int m_Master = -1;
    int m_Slave = -1;
    std::string m_Path;
};

std::int64_t NowUs() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return std::int64_t{now.tv_sec} * 1'000'000 + now.tv_nsec / 1000;
}

void PrintHelp() {
    std::puts(
        "Usage: qor-sim [OPTION]...\n"
        "A simulated analyser on a pseudo-terminal. The first line printed is its path.\n\n"
        "  --model MODEL     model, default RT-DB22\n"
        "  --firmware X.Y    1.8 to 6.9, or ev1.0 to ev9.9; default 6.2\n"
        "  --serial TEXT     serial number, 1 to 11 characters; default SIM01\n"
        "  --link PATH       also make a symbolic link to the pseudo-terminal\n"
        "  --memory FILE     keep what is written to the instrument's memory in this file\n"
        "  --fault KIND[:N]  order a fault; may be given several times\n"
        "  --switch-unit[=BAUD]  a band switch unit instead of an analyser, at 9600 or 115200 baud\n"
        "  --analyser PORT   also a spectrum analyser: SCPI on this TCP port (0: any free one), HiSLIP, "
        "VXI-11\n"
        "  --sensor[=PORT]   also a power sensor, in the same way\n"
        "  --attenuator DB   the receiver stands at the instrument's port, behind so many dB, and hears the "
        "carriers\n"
        "  --receiver-fault KIND[:N]  silence, garbage or cut after N messages; late: answers N ms later\n"
        "  --seed N          another device under test and other noise; default 1\n"
        "  --help            this text\n"
        "  --version         the version\n\nModels:");
    for (const ModelHardware& model : Models)
        std::printf("  %s\n", std::string(model.name).c_str());
    std::puts("\nFaults (N is 0 unless it says otherwise; an error reply, endless and unplug happen once):");
    for (const FaultInfo& fault : Faults)
        std::printf("  %-14s %s%s\n", std::string(fault.name).c_str(), std::string(fault.meaning).c_str(),
                    fault.defaultNumber ? ("; default " + std::to_string(fault.defaultNumber)).c_str() : "");
}

[[noreturn]] void Refuse(const std::string& message) {
    std::fprintf(stderr, "qor-sim: %s\nTry 'qor-sim --help'.\n", message.c_str());
    std::exit(ExitBadArguments);
}

std::uint16_t PortIn(const char* text) {
    char* end = nullptr;
    const unsigned long port = std::strtoul(text, &end, 10);
    if (*text < '0' || *text > '9' || *end || port > 65535)
        Refuse(std::string("not a TCP port: ") + text);
    return static_cast<std::uint16_t>(port);
}

int SpeedIn(const std::string& text) {
    if (text != "9600" && text != "115200")
        Refuse("not a speed of a band switch unit: " + text);
    return std::stoi(text);
}

/// What a file holds, empty where there is none yet.
std::string TextOf(const char* path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

Options ParseArguments(int argc, char** argv) {
    enum Option {
        Model = 1,
        FirmwareText,
        Serial,
        Link,
        MemoryFile,
        FaultText,
        Seed,
        Analyser,
        Sensor,
        Attenuator,
        ReceiverFaultText,
        SwitchUnitSpeed,
        Help,
        Version
    };
    static constexpr option Long[] = {{"model", required_argument, nullptr, Model},
                                      {"firmware", required_argument, nullptr, FirmwareText},
                                      {"serial", required_argument, nullptr, Serial},
                                      {"link", required_argument, nullptr, Link},
                                      {"memory", required_argument, nullptr, MemoryFile},
                                      {"fault", required_argument, nullptr, FaultText},
                                      {"seed", required_argument, nullptr, Seed},
                                      {"analyser", required_argument, nullptr, Analyser},
                                      {"sensor", optional_argument, nullptr, Sensor},
                                      {"attenuator", required_argument, nullptr, Attenuator},
                                      {"receiver-fault", required_argument, nullptr, ReceiverFaultText},
                                      {"switch-unit", optional_argument, nullptr, SwitchUnitSpeed},
                                      {"help", no_argument, nullptr, Help},
                                      {"version", no_argument, nullptr, Version},
                                      {nullptr, 0, nullptr, 0}};
    Options options;
    for (int found = 0; (found = getopt_long(argc, argv, "", Long, nullptr)) != -1;) {
        switch (found) {
        case Model:
            options.instrument.model = optarg;
            break;
        case FirmwareText:
            options.instrument.firmware = optarg;
            break;
        case Serial:
            options.instrument.serial = optarg;
            break;
        case Link:
            options.link = optarg;
            break;
        case MemoryFile:
            options.memory = optarg;
            options.instrument.memory = TextOf(optarg);
            break;
        case FaultText:
            if (const auto fault = ParseFault(optarg))
                options.faults.push_back(*fault);
            else
                Refuse(std::string("unknown fault: ") + optarg);
            break;
        case Seed: {
            char* end = nullptr;
            errno = 0;
            options.instrument.seed = std::strtoull(optarg, &end, 10);
            if (*optarg < '0' || *optarg > '9' || *end || errno)
                Refuse(std::string("not a seed: ") + optarg);
            break;
        }
        case Analyser:
        case Sensor:
            options.receiver = {found == Analyser ? ReceiverKind::Analyser : ReceiverKind::Nrp,
                                PortIn(optarg ? optarg : "0")};
            break;
        case Attenuator: {
            char* end = nullptr;
            options.attenuatorDb = std::strtod(optarg, &end);
            if (*optarg < '0' || *optarg > '9' || *end || *options.attenuatorDb > 100)
                Refuse(std::string("not an attenuation of 0 to 100 dB: ") + optarg);
            break;
        }
        case ReceiverFaultText:
            if (const auto fault = ParseReceiverFault(optarg))
                options.receiverFaults.push_back(*fault);
            else
                Refuse(std::string("unknown fault of a receiver: ") + optarg);
            break;
        case SwitchUnitSpeed:
            options.switchUnitSpeed = SpeedIn(optarg ? optarg : "9600");
            break;
        case Help:
            PrintHelp();
            std::exit(0);
        case Version:
            std::puts("qor-sim " QOR_VERSION);
            std::exit(0);
        default:
            std::exit(ExitBadArguments); // getopt has told what is wrong
        }
    }
    if (optind < argc)
        Refuse(std::string("unexpected argument: ") + argv[optind]);
    if (const std::string fault = ConfigFault(options.instrument); !fault.empty())
        Refuse(fault);
    if (options.switchUnitSpeed && options.receiver)
        Refuse("a band switch unit has no receiver beside it");
    struct stat there {};
    if (!options.link.empty() && lstat(options.link.c_str(), &there) == 0 && !S_ISLNK(there.st_mode))
        Refuse(options.link + " is there already and no link");
    return options;
}

/// Points the link at the pseudo-terminal, in one step for those who look at it.
bool MakeLink(const std::string& link, const std::string& target) {
    const std::string fresh = link + ".new";
    unlink(fresh.c_str());
    return symlink(target.c_str(), fresh.c_str()) == 0 && std::rename(fresh.c_str(), link.c_str()) == 0;
}

/// Takes the link away, unless somebody else has pointed it elsewhere by now.
void RemoveLink(const std::string& link, const std::string& target) {
    char now[256];
    const ssize_t length = readlink(link.c_str(), now, sizeof now);
    if (length > 0 && target == std::string(now, static_cast<std::size_t>(length)))
        unlink(link.c_str());
}

bool Plug(Pty& pty, const std::string& link) {
    if (!pty.Open()) {
        std::fprintf(stderr, "qor-sim: no pseudo-terminal: %s\n", std::strerror(errno));
        return false;
    }
    if (!link.empty() && !MakeLink(link, pty.Path())) {
        std::fprintf(stderr, "qor-sim: cannot make the link %s: %s\n", link.c_str(), std::strerror(errno));
        return false;
    }
    std::puts(pty.Path().c_str());
    std::fflush(stdout);
    return true;
}

void Pull(Pty& pty, const std::string& link) {
    if (!link.empty())
        RemoveLink(link, pty.Path());
    pty.Close();
}

/// The external receiver beside the instrument and the protocols it is reached by.
struct ServedReceiver {
    ServedReceiver(const Options& options, const Instrument& instrument)
        : receiver(options.receiver->kind, instrument, options.instrument.seed), host(receiver) {
        for (const ReceiverFault& fault : options.receiverFaults)
            receiver.Add(fault);
        if (options.attenuatorDb)
            receiver.PutToPort(*options.attenuatorDb);
    }

    /// Listens and prints the addresses; false when the port that was asked for cannot be had.
    [[nodiscard]] bool Listen(std::uint16_t port) {
        const std::uint16_t socketPort = host.ListenSocket(port);
        if (socketPort == 0) {
            std::fprintf(stderr, "qor-sim: TCP port %u cannot be used: %s\n", port, std::strerror(errno));
            return false;
        }
        std::printf("TCPIP0::127.0.0.1::%u::SOCKET\n", socketPort);
        const std::uint16_t usual = host.ListenHislip(visa::HislipPort);
        if (const std::uint16_t hislip = usual != 0 ? usual : host.ListenHislip(0); hislip != 0)
            std::printf("TCPIP0::127.0.0.1::hislip0,%u::INSTR\n", hislip);
        if (host.ListenVxi11(visa::PortMapperPort) != 0) // only where the port mapper's own port may be taken
            std::puts("TCPIP0::127.0.0.1::inst0::INSTR");
        std::fflush(stdout);
        return true;
    }

    Receiver receiver;
    ScpiHost host;
};

/// Waits until somebody writes, the line's next event is due or a signal has come; true when the host has
/// written.
bool Wait(const Pty& pty, const Line& line, const ServedReceiver* receiver, const sigset_t& signals) {
    std::vector<pollfd> files{{pty.Fd(), POLLIN, 0}}; // a closed one is passed over by the poll
    std::int64_t us = line.NextEventUs() ? std::max<std::int64_t>(0, *line.NextEventUs() - NowUs()) : -1;
    if (receiver) {
        receiver->host.Watch(files);
        if (const int due = receiver->host.DueInMs(); due >= 0 && (us < 0 || us > due * 1000))
            us = due * 1000;
    }
    const timespec timeout{static_cast<time_t>(us / 1'000'000), static_cast<long>(us % 1'000'000 * 1000)};
    return ppoll(files.data(), files.size(), us >= 0 ? &timeout : nullptr, &signals) > 0 &&
           files[0].revents != 0;
}

int Serve(const Options& options, const sigset_t& signals) {
    Instrument instrument(options.instrument);
    std::ofstream memory; // what is written goes behind what stands there: the last line of a place holds
    if (!options.memory.empty()) {
        memory.open(options.memory, std::ios::app | std::ios::binary);
        if (!memory) {
            std::fprintf(stderr, "qor-sim: cannot write %s: %s\n", options.memory.c_str(),
                         std::strerror(errno));
            return ExitFailure;
        }
        instrument.SetOnWrite([&memory](int page, int address, int value) {
            memory << page << ' ' << address << ' ' << value << '\n' << std::flush;
        });
    }
    SwitchUnit unit;
    LineTiming timing;
    timing.baud = options.switchUnitSpeed.value_or(timing.baud);
    Line line(options.switchUnitSpeed ? static_cast<Device&>(unit) : instrument, timing);
    for (const Fault fault : options.faults)
        line.Add(fault);
    Pty pty;
    std::unique_ptr<ServedReceiver> receiver;
    while (!g_Stop) {
        const std::int64_t nowUs = NowUs();
        const std::string bytes = line.TakeDelivered(nowUs);
        const bool plugged = line.Plugged(nowUs);
        if (!plugged && pty.IsOpen())
            Pull(pty, options.link);
        if (plugged && !pty.IsOpen() && !Plug(pty, options.link))
            return ExitFailure;
        if (pty.IsOpen())
            pty.Write(bytes);
        if (options.receiver && !receiver) { // behind the pseudo-terminal, whose path is the first line
            receiver = std::make_unique<ServedReceiver>(options, instrument);
            if (!receiver->Listen(options.receiver->port)) {
                Pull(pty, options.link);
                return ExitFailure;
            }
        }
        const bool written = Wait(pty, line, receiver.get(), signals);
        if (receiver)
            receiver->host.Serve();
        if (!written)
            continue;
        char buffer[1024];
        const ssize_t count = read(pty.Fd(), buffer, sizeof buffer);
        if (count > 0) {
            line.SetHostSpeed(pty.HostSpeed());
            line.HostWrites({buffer, static_cast<std::size_t>(count)}, NowUs());
        } else if (count == 0 || (errno != EAGAIN && errno != EINTR)) {
            std::fprintf(stderr, "qor-sim: the pseudo-terminal is gone: %s\n", std::strerror(errno));
            return ExitFailure;
        }
    }
    Pull(pty, options.link);
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    const Options options = ParseArguments(argc, argv);
    std::signal(SIGPIPE, SIG_IGN);
    // The signals that end the program come only while it waits, so that none is missed.
    sigset_t ending;
    sigset_t whileWaiting;
    sigemptyset(&ending);
    struct sigaction action {};
    action.sa_handler = [](int) { g_Stop = 1; };
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        sigaddset(&ending, signal);
        sigaction(signal, &action, nullptr);
    }
    sigprocmask(SIG_BLOCK, &ending, &whileWaiting);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
        sigdelset(&whileWaiting, signal);
    return Serve(options, whileWaiting);
}
