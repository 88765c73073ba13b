// An instrument that answers anything at any time: silence, other bytes, pieces, its reply late or twice, a
// line that goes away. The program neither breaks nor hangs, and once the instrument behaves again it is
// ready.

#include "core/program.h"
#include "display/curve_store.h"
#include "platform/operator.h"
#include "platform/port_list.h"
#include "platform/serial_control.h"
#include "sim/instrument.h"
#include "support/virtual_time.h"

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <memory>

namespace {

using namespace qor;

void Require(bool condition) {
    if (!condition)
        std::abort();
}

struct Bytes {
    const std::uint8_t* data;
    std::size_t size;
    std::uint8_t Next() {
        if (size == 0)
            return 0;
        --size;
        return *data++;
    }
    std::string Take(std::size_t count) {
        count = std::min(count, size);
        std::string text(reinterpret_cast<const char*>(data), count);
        data += count;
        size -= count;
        return text;
    }
};

class FuzzedLine final : public CMSComm {
public:
    FuzzedLine(Bytes& bytes, test::VirtualTime& time, const sim::InstrumentConfig& config)
        : m_Bytes(bytes), m_Time(time), m_Instrument(config) {}

    void SetCommPort(int) override {}
    void SetSettings(std::string_view) override {}
    void SetInputMode(CommInputMode) override {}
    void SetInputLen(int) override {}
    void SetRThreshold(int) override {}
    void SetSThreshold(int) override {}
    void SetPortOpen(bool open) override {
        if (open && !m_Open)
            m_Input.clear();
        m_Open = open && plugged;
    }
    [[nodiscard]] bool GetPortOpen() const override { return m_Open; }
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
        plugged = false;
        if (!m_Open)
            return;
        m_Open = false;
        Report(CommEvent::Lost);
    }

    bool plugged = true;

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
    test::VirtualTime& m_Time;
    sim::Instrument m_Instrument;
    bool m_Open = false;
    std::string m_Command;
    std::string m_Input;
};

struct OnePort final : PortList {
    explicit OnePort(const FuzzedLine& l) : line(l) {}
    std::vector<SerialDevice> List() override {
        return line.plugged ? std::vector<SerialDevice>{{1, "/dev/ttyF"}} : std::vector<SerialDevice>{};
    }
    std::string DeviceOf(int) const override { return "/dev/ttyF"; }
    const FuzzedLine& line;
};

struct Quiet final : Operator {
    void Message(std::string_view, std::string_view) override {}
    bool Ask(std::string_view, std::string_view) override { return true; }
};

const std::filesystem::path& StoreDirectory() {
    static const std::filesystem::path path = [] {
        std::string name = (std::filesystem::temp_directory_path() / "qor-fuzz-XXXXXX").string();
        Require(::mkdtemp(name.data()) != nullptr);
        return std::filesystem::path(name);
    }();
    return path;
}

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
    test::VirtualTime time;
    FuzzedLine line(bytes, time, config);
    OnePort ports(line);
    Quiet user;
    const auto program =
        std::make_unique<Program>(Platform{line, ports, time.timers, time.clock, user}, StoreDirectory());
    Session& session = program->State();
    program->Start(false);
    program->SearchNow();
    session.curve.g_testTimeMs = 1000;

    for (int slice = 0; slice < 100 && bytes.size > 0; ++slice) {
        time.RunFor(bytes.Next() % 32 * 50);
        OperatorActs(*program, bytes.Next());
        if (slice % 8 == 7)
            line.plugged = true;
        Require(session.link.queue.CommSendPoint() <= CommandQueue::Capacity);
        Require(session.link.m_revdatastr.size() <= 5000);
        Require(session.curve.StoreDataPot <= static_cast<int>(session.curve.g_levelUp.size()));
    }

    // The instrument behaves; the operator opens the port if need be and stops what runs.
    bytes.size = 0;
    time.RunFor(10000); // what is under way still comes, a loss too
    line.plugged = true;
    time.RunFor(10000);
    if (!line.GetPortOpen() && session.link.portButton != PortButton::Close)
        program->Link().OnButton1();
    const auto isReady = [&] {
        if (session.run.runOn)
            program->StopMeas();
        return program->IsReady() && session.panel.lamp == Lamp::Ready;
    };
    Require(time.RunUntil(isReady, 180000));
    return 0;
}
