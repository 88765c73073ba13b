#pragma once

#include "core/program.h"
#include "platform/operator.h"
#include "platform/visa.h"
#include "platform/wire_log.h"
#include "sim/simulated_port.h"
#include "support/temp_dir.h"
#include "support/virtual_time.h"

#include <algorithm>
#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

namespace qor::test {

/// An operator who notes what is said and answers as told.
class ScriptedOperator final : public Operator {
public:
    void Message(std::string_view text, std::string_view) override { messages.emplace_back(text); }
    [[nodiscard]] bool Ask(std::string_view text, std::string_view) override {
        questions.emplace_back(text);
        if (whileAsked)
            whileAsked();
        return answer;
    }
    [[nodiscard]] Answer AskOrCancel(std::string_view text, std::string_view) override {
        questions.emplace_back(text);
        return choice;
    }
    [[nodiscard]] std::vector<std::filesystem::path>
    FilesToOpen(std::string_view, const std::filesystem::path&, std::string_view) override {
        return filesToOpen;
    }
    [[nodiscard]] std::filesystem::path FileToSave(std::string_view, const std::filesystem::path& suggestion,
                                                   std::string_view) override {
        suggestions.push_back(suggestion);
        return fileToSave;
    }
    [[nodiscard]] std::filesystem::path Folder(std::string_view, const std::filesystem::path&) override {
        return folder;
    }
    bool Progress(std::string_view, int done, int) override { return done < cancelAt; }
    [[nodiscard]] bool WasTold(std::string_view part) const {
        return std::any_of(messages.begin(), messages.end(),
                           [part](const std::string& m) { return m.find(part) != std::string::npos; });
    }

    std::vector<std::string> messages;
    std::vector<std::string> questions;
    bool answer = true;
    std::function<void()> whileAsked; ///< what happens while a question is open
    Answer choice = Answer::Yes;
    std::vector<std::filesystem::path> filesToOpen;
    std::filesystem::path fileToSave;
    std::vector<std::filesystem::path> suggestions;
    std::filesystem::path folder;
    int cancelAt = 1 << 30; ///< step at which a long work is given up
};

/// A whole program on virtual time with a simulated instrument at the other end of its line.
///
/// Settings of the instrument go to the constructor; faults are added to `line`, stores written to
/// `program.Stores()` before PowerOn.
class Rig {
public:
    explicit Rig(const sim::InstrumentConfig& config = {}, VisaLibrary* visa = nullptr,
                 PowerSensorLibrary* sensor = nullptr, Dialogs* dialogs = nullptr,
                 Launcher* launcher = nullptr)
        : instrument(config), line(instrument), ports(time.later), port(ports, time.later), wire(time.clock),
          comm(port, wire),
          program({comm, ports, time.timers, time.clock, user, visa, sensor, nullptr, launcher, dialogs},
                  dir.Path()) {
        ports.Add(line, "/dev/ttySIM0");
    }

    /// Starts the program and waits until the instrument is ready; false when it is not within a minute.
    bool PowerOn() {
        program.Start(false);
        return RunUntilReady();
    }
    bool RunUntilReady(std::int64_t limitMs = 60000) {
        return time.RunUntil([this] { return program.IsReady(); }, limitMs);
    }
    bool RunUntilIdle(std::int64_t limitMs = 10000) {
        return time.RunUntil([this] { return program.LineIsIdle(); }, limitMs);
    }
    /// Presses the start button and runs until the run is over and the line is quiet.
    bool Measure(std::int64_t limitMs = 600000) {
        program.OnMeasButton();
        return S().run.runOn && RunUntilRunIsOver(limitMs);
    }
    bool RunUntilRunIsOver(std::int64_t limitMs = 600000) {
        return time.RunUntil([this] { return !S().run.runOn; }, limitMs) && RunUntilIdle();
    }
    /// Selects a band unless it is selected, and waits until the instrument has it.
    bool SelectBand(int band) {
        return (S().select.m_BandId == band || program.Select().SelectBand(band)) && RunUntilIdle();
    }

    [[nodiscard]] Session& S() { return program.State(); }
    /// Commands sent since the last call, in order, without their carriage returns.
    std::vector<std::string> Sent();

    TempDir dir;
    VirtualTime time;
    sim::Instrument instrument;
    sim::Line line;
    sim::SimulatedPortList ports;
    sim::SimulatedPort port;
    WireLog wire;
    LoggedComm comm;
    ScriptedOperator user;
    Program program;

private:
    std::size_t m_Seen = 0; ///< characters of the wire log read by Sent
};

/// `text` repeated.
[[nodiscard]] std::vector<std::string> Times(int count, const std::string& text);
/// Lists put one behind the other.
[[nodiscard]] std::vector<std::string> Chain(std::initializer_list<std::vector<std::string>> parts);

} // namespace qor::test
