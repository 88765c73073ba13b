// The link on a pseudo-terminal with an instrument that answers at once.
#include "desk/program.h"
#include "platform/posix/posix_clock.h"
#include "platform/qt/qt_serial_port.h"
#include "platform/qt/qt_timers.h"
#include "platform/qt/system_port_list.h"
#include "platform/wire_log.h"
#include "support/doubles.h"
#include "support/temp_dir.h"

#include <QCoreApplication>

#include <array>
#include <benchmark/benchmark.h>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <pty.h>
#include <termios.h>
#include <unistd.h>

namespace {

using namespace qor;

double ThreadCpuSeconds() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

/// The far end of the pseudo-terminal in a process of its own: echoes each command as the instrument does.
struct Echo {
    Echo() {
        termios raw{};
        cfmakeraw(&raw);
        std::array<char, 128> path{};
        int slave = -1;
        if (openpty(&master, &slave, path.data(), &raw, nullptr) != 0)
            std::abort();
        name = path.data();
        child = fork();
        if (child == 0) {
            std::string command;
            for (char c = 0; read(master, &c, 1) == 1;) {
                if (c != '\r') {
                    command += c;
                    continue;
                }
                const std::string reply = command.substr(1) + "\r\n";
                if (write(master, reply.data(), reply.size()) < 0)
                    break;
                command.clear();
            }
            _exit(0);
        }
    }
    ~Echo() { kill(child, SIGKILL); }
    int master = -1;
    pid_t child = -1;
    std::string name;
};

void LinkTransactions(benchmark::State& state) {
    Echo echo;
    int argc = 1;
    std::array<char*, 2> argv{const_cast<char*>("bench"), nullptr};
    QCoreApplication application(argc, argv.data());
    test::TempDir dir;
    SystemPortList ports({echo.name}, PortScope::Given);
    QtSerialPort port(ports);
    QtTimers timers;
    PosixClock clock;
    WireLog wire(clock);
    LoggedComm comm(port, wire);
    test::SilentOperator user;
    Program program({comm, ports, timers, clock, user}, dir.Path());
    Session& session = program.State();
    static_cast<void>(ports.List());
    session.link.connection.Choose("COM1");
    session.link.chain.GoBackTo(InitSerialDone);
    if (!program.Link().SetComm())
        state.SkipWithError("the pseudo-terminal cannot be opened");
    program.StartLine();
    constexpr int Count = 200;
    double cpu = 0;
    for (auto _ : state) {
        const double before = ThreadCpuSeconds();
        for (int i = 0; i < Count; ++i)
            session.link.queue.Append("#SFA09350");
        while (!program.LineIsIdle())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        cpu += ThreadCpuSeconds() - before;
    }
    const auto transactions = static_cast<double>(state.iterations()) * Count;
    state.counters["per_second"] = benchmark::Counter(transactions, benchmark::Counter::kIsRate);
    state.counters["cpu_us_each"] = cpu / transactions * 1e6;
}
BENCHMARK(LinkTransactions)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(2);

} // namespace
