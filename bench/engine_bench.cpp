// The engine's own share of a transaction: an instrument that answers at once, and no event loop.
#include "core/program.h"
#include "platform/operator.h"
#include "platform/port_list.h"
#include "platform/serial_control.h"
#include "support/temp_dir.h"
#include "support/virtual_time.h"

#include <benchmark/benchmark.h>

namespace {

using namespace qor;

class SilentOperator final : public Operator {
    void Message(std::string_view, std::string_view) override {}
    bool Ask(std::string_view, std::string_view) override { return true; }
};

class NoPorts final : public PortList {
    std::vector<SerialDevice> List() override { return {}; }
    std::string DeviceOf(int) const override { return {}; }
};

/// Echoes each command as the instrument does, when told.
class EchoLine final : public CMSComm {
public:
    void SetCommPort(int) override {}
    void SetSettings(std::string_view) override {}
    void SetInputMode(CommInputMode) override {}
    void SetInputLen(int) override {}
    void SetRThreshold(int) override {}
    void SetSThreshold(int) override {}
    void SetPortOpen(bool) override {}
    [[nodiscard]] bool GetPortOpen() const override { return true; }
    void SetOutput(std::string_view bytes) override { m_Command += bytes; }
    void GetInput(std::string& bytes) override { bytes.swap(m_Reply); }
    void Answer() {
        m_Reply.assign(m_Command, 1);
        m_Reply += '\n';
        m_Command.clear();
        Report(CommEvent::Receive);
    }

private:
    std::string m_Command;
    std::string m_Reply;
};

void EngineTransaction(benchmark::State& state) {
    test::VirtualTime time;
    test::TempDir dir;
    EchoLine line;
    NoPorts ports;
    SilentOperator user;
    Program program({line, ports, time.timers, time.clock, user}, dir.Path());
    Session& session = program.State();
    session.link.g_init = InitSerialDone;
    program.StartLine();
    for (auto _ : state) {
        session.link.queue.Append("#SFA09350");
        time.RunFor(19);
        line.Answer();
        if (!program.LineIsIdle())
            state.SkipWithError("the reply was not taken");
    }
}
BENCHMARK(EngineTransaction);

} // namespace
