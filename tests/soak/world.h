#pragma once

#include "desk/commands.h"
#include "desk/program.h"
#include "platform/operator.h"
#include "sim/instrument.h"
#include "sim/simulated_port.h"
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

/// The wire as the observer hears it.
class TappedLine final : public CMSComm {
public:
    TappedLine(CMSComm& line, std::function<void(bool sent, std::string_view bytes)> tap)
        : m_Line(line), m_Tap(std::move(tap)) {
        m_Line.SetHandler([this] { Report(m_Line.GetCommEvent()); });
    }
    void SetCommPort(int number) override {
        m_Number = number;
        m_Line.SetCommPort(number);
    }
    void SetSettings(std::string_view settings) override { m_Line.SetSettings(settings); }
    void SetPortOpen(bool open) override {
        m_Line.SetPortOpen(open);
        if (m_Line.GetPortOpen())
            m_Opened = m_Number;
    }
    [[nodiscard]] bool GetPortOpen() const override { return m_Line.GetPortOpen(); }
    void SetOutput(std::string_view bytes) override {
        if (m_Line.GetPortOpen())
            m_Tap(true, bytes);
        m_Line.SetOutput(bytes);
    }
    void GetInput(std::string& bytes) override {
        m_Line.GetInput(bytes);
        if (!bytes.empty())
            m_Tap(false, bytes);
    }
    /// Number of the port that was opened last.
    [[nodiscard]] int Opened() const { return m_Opened; }

private:
    int m_Number = 1;
    int m_Opened = 1;
    CMSComm& m_Line;
    std::function<void(bool, std::string_view)> m_Tap;
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

    std::function<void(const std::string&)> told;
    std::function<void()> whileAsked;
    bool answer = true;
    std::vector<std::filesystem::path> toOpen;
    std::filesystem::path toSave;
};

/// What is set up before the program starts: stores by name.
using StoreTexts = std::vector<std::pair<std::string, std::string>>;

/// A bench with one or two instruments, the program, and somebody who watches.
class World {
public:
    enum class Purpose { Schedule, Trace, Yardstick };
    World(const sim::InstrumentConfig& config, StoreTexts stores, unsigned seed, Purpose purpose);
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
    void Look();
    void Note(const std::string& what);

    /// A second instrument on a port of its own.
    void PlugInAnother(const sim::InstrumentConfig& config);
    void Unplug(std::size_t instrument);
    void Replug(std::size_t instrument);
    void AddFault(sim::FaultKind kind, int number);
    void ClearFaults();
    /// Exit button to end; ms it took, -1 when it did not end.
    std::int64_t Leave();

    [[nodiscard]] Face SeenFace() const;
    [[nodiscard]] Observer::FarEnd Far() const;

    TempDir dir;
    VirtualTime time;
    BusyOperator user;
    NotedDialogs dialogs;
    std::deque<sim::Instrument> instruments;
    std::deque<sim::Line> lines;
    sim::SimulatedPortList ports{time.later};
    sim::SimulatedPort port{ports, time.later};
    Observer observer;
    TappedLine comm;
    std::unique_ptr<Program> program;
    std::unique_ptr<Commands> commands;

private:
    Places CleanRun(const std::string& choice);

    std::vector<sim::InstrumentConfig> m_Configs; ///< by port
    StoreTexts m_Stores;
    unsigned m_Seed;
    Purpose m_Purpose;
    bool m_Deaf = false; ///< a fault is on that keeps commands from being carried out
    std::int64_t m_NextLookMs = 0;
    std::map<std::string, Places> m_Clean;
};

} // namespace qor::test
