// The engine's own share of a transaction: an instrument that answers at once, and no event loop.
#include "desk/program.h"
#include "support/doubles.h"
#include "support/temp_dir.h"
#include "support/virtual_time.h"

#include <benchmark/benchmark.h>

namespace {

using namespace qor;

/// Echoes each command as the instrument does, when told.
class EchoLine final : public test::DeadLine {
public:
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
    line.SetPortOpen(true);
    test::OnePort ports;
    ports.there = false;
    test::SilentOperator user;
    Program program({line, ports, time.timers, time.clock, user}, dir.Path());
    Session& session = program.State();
    session.link.chain.GoBackTo(InitSerialDone);
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
