#pragma once

#include "desk/commands.h"
#include "desk/program.h"
#include "platform/operator.h"
#include "sim/instrument.h"
#include "sim/simulated_port.h"
#include "sim/simulated_receiver.h"
#include "sim/switch_unit.h"
#include "soak/observer.h"
#include "support/doubles.h"
#include "support/temp_dir.h"
#include "support/virtual_time.h"

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace qor::test {

/// The wire to an instrument as the observer hears it. A switch unit has another.
class TappedLine final : public CMSComm {
public:
    using Tap = std::function<void(bool sent, std::string_view bytes)>;
    TappedLine(CMSComm& line, std::function<bool(int number)> isInstrument, Tap tap)
        : m_Line(line), m_IsInstrument(std::move(isInstrument)), m_Tap(std::move(tap)) {
        m_Line.SetHandler([this] { Report(m_Line.GetCommEvent()); });
    }
    void SetCommPort(int number) override {
        m_Number = number;
        m_Line.SetCommPort(number);
    }
    void SetSettings(std::string_view settings) override { m_Line.SetSettings(settings); }
    void SetPortOpen(bool open) override {
        m_Line.SetPortOpen(open);
        if (m_Line.GetPortOpen() && m_IsInstrument(m_Number))
            m_Opened = m_Number;
    }
    [[nodiscard]] bool GetPortOpen() const override { return m_Line.GetPortOpen(); }
    void SetOutput(std::string_view bytes) override {
        if (m_Line.GetPortOpen() && m_IsInstrument(m_Number))
            m_Tap(true, bytes);
        m_Line.SetOutput(bytes);
    }
    void GetInput(std::string& bytes) override {
        m_Line.GetInput(bytes);
        if (!bytes.empty() && m_IsInstrument(m_Number))
            m_Tap(false, bytes);
    }
    /// Number of the instrument's port that was opened last.
    [[nodiscard]] int Opened() const { return m_Opened; }

private:
    int m_Number = 1;
    int m_Opened = 1;
    CMSComm& m_Line;
    std::function<bool(int)> m_IsInstrument;
    Tap m_Tap;
};

/// What goes to an external receiver over VISA, as the observer hears it.
class TappedVisa final : public VisaLibrary {
public:
    using Tap = std::function<void(std::int64_t tookMs, std::optional<double> dBm)>;
    TappedVisa(VisaLibrary& visa, WallClock& clock, Tap tap)
        : m_Visa(visa), m_Clock(clock), m_Tap(std::move(tap)) {}
    void SetWhileWaiting(std::function<void()> whileWaiting) override {
        m_Visa.SetWhileWaiting(std::move(whileWaiting));
    }
    void Abandon() override { m_Visa.Abandon(); }
    VisaStatus OpenDefaultRM(VisaSession& manager) override { return m_Visa.OpenDefaultRM(manager); }
    VisaStatus Open(VisaSession manager, std::string_view address, VisaSession& session) override {
        return m_Visa.Open(manager, address, session);
    }
    VisaStatus Close(VisaSession session) override { return m_Visa.Close(session); }
    VisaStatus SetAttribute(VisaSession session, VisaAttribute attribute, std::uint32_t value) override {
        return m_Visa.SetAttribute(session, attribute, value);
    }
    VisaStatus Write(VisaSession session, std::string_view text) override {
        m_Asked = text;
        return m_Visa.Write(session, text);
    }
    VisaStatus Read(VisaSession session, std::size_t limit, std::string& reply) override;

private:
    VisaLibrary& m_Visa;
    WallClock& m_Clock;
    Tap m_Tap;
    std::string m_Asked;
};

/// The same of a USB power sensor, which can be dead.
class TappedSensor final : public PowerSensorLibrary {
public:
    TappedSensor(PowerSensorLibrary& sensor, TappedVisa::Tap tap) : m_Sensor(sensor), m_Tap(std::move(tap)) {}
    [[nodiscard]] std::string Name() override { return m_Sensor.Name(); }
    std::int32_t Init(std::string_view resource, bool idQuery, bool reset, std::uint32_t& session) override {
        return dead ? -1 : m_Sensor.Init(resource, idQuery, reset, session);
    }
    void SetContAvAperture(std::uint32_t, int, double) override {}
    void SetContAvSmoothingEnabled(std::uint32_t, int, bool) override {}
    void ConfigureAvgNSRatio(std::uint32_t, int, double, double) override {}
    void Initiate(std::uint32_t session) override { m_Sensor.Initiate(session); }
    void ReadMeasurement(std::uint32_t session, int channel, int timeoutMs, double& watts) override;
    void Close(std::uint32_t session) override { m_Sensor.Close(session); }

    bool dead = false;

private:
    PowerSensorLibrary& m_Sensor;
    TappedVisa::Tap m_Tap;
};

/// An operator whose answers and entries the schedule chooses; time goes by while he reads.
class BusyOperator final : public Operator {
public:
    void Message(std::string_view text, std::string_view) override { told(std::string(text)); }
    [[nodiscard]] bool Ask(std::string_view, std::string_view) override {
        whileAsked();
        return answer;
    }
    [[nodiscard]] Answer AskOrCancel(std::string_view, std::string_view) override {
        whileAsked();
        return answer ? Answer::Yes : Answer::No;
    }
    [[nodiscard]] std::vector<std::filesystem::path>
    FilesToOpen(std::string_view, const std::filesystem::path&, std::string_view) override {
        return toOpen;
    }
    [[nodiscard]] std::filesystem::path FileToSave(std::string_view, const std::filesystem::path&,
                                                   std::string_view) override {
        return toSave;
    }
    void LetLive() override { whileLiving(); }

    std::function<void(const std::string&)> told;
    std::function<void()> whileAsked;
    std::function<void()> whileLiving; ///< a call waits
    bool answer = true;
    std::vector<std::filesystem::path> toOpen;
    std::filesystem::path toSave;
};

/// What is set up before the program starts: stores by name.
using StoreTexts = std::vector<std::pair<std::string, std::string>>;

/// What stands on the bench beside the instrument to receive its levels, on demand.
enum class Beside { Nothing, Analyser, Nrv, Nrp, Sensor };

/// What stands on the bench when the program starts.
struct BenchSetUp {
    sim::InstrumentConfig instrument;
    Beside beside = Beside::Nothing;
    bool switchUnit = false;
};

/// What is set up for the runs, as in its dialog.
struct RunsSetUp {
    int seconds = 1;
    int runs = 1;
    int interval = 0;
    bool saEnclosed = false;
    bool continuous = false;
    int times = 0;
    bool replaces = true;
};

/// A bench with one or two instruments, the program, and somebody who watches.
class World {
public:
    enum class Purpose { Schedule, Trace, Yardstick };
    World(const BenchSetUp& bench, StoreTexts stores, unsigned seed, Purpose purpose);
    ~World();

    /// Lets time go by under the observer's eyes.
    void RunFor(std::int64_t ms);
    /// The same until `done`; false when it did not come to it.
    bool RunUntil(const std::function<bool()>& done, std::int64_t limitMs);
    /// Until the instrument can be measured with.
    bool RunUntilReady(std::int64_t limitMs = 60000);
    /// Presses the start button.
    void Press();
    /// Presses the port button; of several ports the first is chosen.
    void PressPortButton();
    void Run(std::string_view command, int argument = 0);
    void SetUpRuns(const RunsSetUp& setUp);
    /// What the external receiver does from now on; nothing: it is well.
    void BreakReceiver(std::optional<sim::ReceiverFault> fault);
    void PlugUnit(bool in);
    [[nodiscard]] bool HasReceiver() const { return m_Beside != Beside::Nothing; }
    void Look();
    void Note(const std::string& what);

    /// A second instrument on a port of its own.
    void PlugInAnother(const sim::InstrumentConfig& config);
    void Unplug(std::size_t instrument);
    void Replug(std::size_t instrument);
    void AddFault(sim::FaultKind kind, int number);
    void ClearFaults();
    /// A question or a dialog, for as long as `whileOpen` takes.
    void Question(const std::function<void()>& whileOpen);
    /// By the exit button, or as a signal has it, whatever is under way, to the end.
    void Leave(bool bySignal);
    [[nodiscard]] bool HasLeft() const { return m_Left; }

    [[nodiscard]] Face SeenFace() const;
    [[nodiscard]] Observer::FarEnd Far() const;

    TempDir dir;
    VirtualTime time;
    BusyOperator user;
    NotedDialogs dialogs;
    std::deque<sim::Instrument> instruments;
    std::deque<sim::Line> lines;
    sim::SwitchUnit unit;
    sim::Line unitLine{unit};
    sim::SimulatedPortList ports{time.later};
    sim::SimulatedPort port{ports, time.later};
    Observer observer;
    TappedLine comm;
    std::unique_ptr<sim::Receiver> receiver;
    std::unique_ptr<sim::SimulatedVisa> visa;
    std::unique_ptr<TappedVisa> tappedVisa;
    std::unique_ptr<sim::SimulatedSensor> sensor;
    std::unique_ptr<TappedSensor> tappedSensor;
    std::unique_ptr<Program> program;
    std::unique_ptr<Commands> commands;

private:
    [[nodiscard]] CleanRun Clean(const std::string& choice);
    [[nodiscard]] std::string ChoiceText() const;
    void Add(const sim::InstrumentConfig& config);
    void WatchRelays();
    /// Of the instruments, the one that the program spoke to last.
    [[nodiscard]] std::size_t Current() const;

    std::vector<sim::InstrumentConfig> m_Configs; ///< of the instruments
    std::vector<int> m_Ports;                     ///< their ports
    int m_UnitPort = 0;                           ///< 0: there is no unit
    std::string m_Relays;
    StoreTexts m_Stores;
    unsigned m_Seed;
    Purpose m_Purpose;
    bool m_Deaf = false; ///< a fault is on that keeps commands from being carried out
    std::int64_t m_NextLookMs = 0;
    Beside m_Beside;
    std::vector<bool> m_Faulty; ///< lines of the instruments
    bool m_Left = false;
    std::map<std::string, CleanRun> m_Clean;
};

} // namespace qor::test
