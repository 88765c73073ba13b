// An instrument that answers anything at any time: silence, other bytes, pieces, its reply late or twice, a
// line that goes away. The program neither breaks nor hangs, and once the instrument behaves again it is
// ready.

#include "curve/curve.h"
#include "desk/panel.h"
#include "desk/program.h"
#include "fuzz/fuzz.h"
#include "sim/instrument.h"
#include "support/doubles.h"
#include "support/virtual_time.h"

#include <memory>

namespace {

using namespace qor;
using namespace qor::test;

class FuzzedLine final : public DeadLine {
public:
    FuzzedLine(Bytes& bytes, VirtualTime& time, OnePort& ports, const sim::InstrumentConfig& config)
        : m_Bytes(bytes), m_Time(time), m_Ports(ports), m_Instrument(config) {}

    void SetPortOpen(bool open) override {
        if (open && !m_Open)
            m_Input.clear();
        m_Open = open && m_Ports.there;
    }
    void SetOutput(std::string_view bytes) override {
        if (!m_Open)
            return;
        if (bytes != "\r") {
            m_Command += bytes;
            return;
        }
        Answer(m_Instrument.Execute(std::exchange(m_Command, {})));
    }
    void GetInput(std::string& bytes) override {
        bytes.swap(m_Input);
        m_Input.clear();
    }
    void Lose() {
        m_Ports.there = false;
        if (!m_Open)
            return;
        m_Open = false;
        Report(CommEvent::Lost);
    }

private:
    void Answer(const std::string& reply) {
        const std::uint8_t how = m_Bytes.Next(); // 0 when the bytes are used up: as it should be
        const int ms = 10 + (how >= 192 ? m_Bytes.Next() * 30 : 0);
        switch (how % 16) {
        case 1: // silence
            return;
        case 2: // something else
            return Deliver(m_Bytes.Take(how / 16), ms);
        case 3: // something else in a line of its own
            return Deliver(m_Bytes.Take(how / 8) + "\r\n", ms);
        case 4: // the reply with something in it
            return Deliver(reply.substr(0, how / 32) + m_Bytes.Take(2) +
                               reply.substr(std::min<std::size_t>(reply.size(), how / 32)),
                           ms);
        case 5: // one byte spoilt
            if (!reply.empty()) {
                std::string spoilt = reply;
                spoilt[m_Bytes.Next() % reply.size()] = static_cast<char>(m_Bytes.Next());
                Deliver(spoilt, ms);
            }
            return;
        case 6: // the reply twice
            Deliver(reply, ms);
            return Deliver(reply, ms + how);
        case 7: // in pieces
            for (std::size_t i = 0; i < reply.size(); ++i)
                Deliver(reply.substr(i, 1), ms + static_cast<int>(i) * (how / 64));
            return;
        case 8: // never ending
            for (int i = 0; i < how; ++i)
                Deliver("IMP3 -80.0dBm SAB ", ms + i * 20);
            return;
        case 9:
            return Deliver(how & 32 ? "SYNTAX ERROR\r\n" : "PLL NOT LOCKED\r\n", ms);
        case 10:
            m_Time.later.At(m_Time.later.NowMicroseconds() + ms * 1000, [this] { Lose(); });
            return;
        default:
            return Deliver(reply, ms);
        }
    }
    void Deliver(const std::string& bytes, int ms) {
        if (bytes.empty())
            return;
        m_Time.later.At(m_Time.later.NowMicroseconds() + ms * 1000, [this, bytes] {
            if (!m_Open)
                return;
            m_Input += bytes;
            Report(CommEvent::Receive);
        });
    }

    Bytes& m_Bytes;
    VirtualTime& m_Time;
    OnePort& m_Ports;
    sim::Instrument m_Instrument;
    std::string m_Command;
    std::string m_Input;
};

void OperatorActs(Program& program, std::uint8_t act) {
    switch (act % 8) {
    case 0:
        return program.OnMeasButton();
    case 1:
        return program.Link().OnButton1();
    case 2:
        return static_cast<void>(program.Select().SelectBand(1 + act / 8 % 22));
    case 3:
        return static_cast<void>(program.Select().SelectOrder(1 + act / 8 % 5));
    case 4:
        return static_cast<void>(program.Select().SelectMethod(1 + act / 8 % 3));
    case 5:
        return static_cast<void>(program.Select().SelectPath(1 + act / 8 % 2));
    case 6:
        return program.ArmStatusPoll();
    default:
        return;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Bytes bytes{data, std::min<std::size_t>(size, 2000)};
    static constexpr const char* Firmwares[] = {"1.8", "4.0", "4.9", "5.3", "5.7", "6.1", "6.2", "ev2.0"};
    sim::InstrumentConfig config;
    config.firmware = Firmwares[bytes.Next() % 8];
    VirtualTime time;
    OnePort ports;
    FuzzedLine line(bytes, time, ports, config);
    SilentOperator user;
    static const TempDir stores;
    const auto program =
        std::make_unique<Program>(Platform{line, ports, time.timers, time.clock, user}, stores.Path());
    Session& session = program->State();
    program->Start(false);
    program->SearchNow();
    session.curve.SetLength(1000);

    for (int slice = 0; slice < 100 && bytes.size > 0; ++slice) {
        time.RunFor(bytes.Next() % 32 * 50);
        OperatorActs(*program, bytes.Next());
        if (slice % 8 == 7)
            ports.there = true;
        Require(session.link.queue.CommSendPoint() <= CommandQueue::Capacity);
        Require(session.link.transaction.Text().size() <= 5000);
        Require(session.curve.NextPoint() <= static_cast<int>(session.curve.Up().size()));
    }

    // The instrument behaves; the operator opens the port if need be and stops what runs.
    bytes.size = 0;
    time.RunFor(10000); // what is under way still comes, a loss too
    ports.there = true;
    time.RunFor(10000);
    if (!line.GetPortOpen() && session.link.connection.Button() != PortButton::Close)
        program->Link().OnButton1();
    const auto isReady = [&] {
        if (session.run.IsOn())
            program->StopMeas();
        return program->IsReady() && PanelOf(session).lamp == Lamp::Ready;
    };
    Require(time.RunUntil(isReady, 180000));
    return 0;
}
