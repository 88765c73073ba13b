#pragma once

#include "desk/panel.h"
#include "desk/program.h"
#include "desk/tell.h"
#include "platform/visa.h"
#include "platform/wire_log.h"
#include "sim/instrument.h"
#include "sim/simulated_port.h"
#include "support/curves.h"
#include "support/doubles.h"
#include "support/temp_dir.h"
#include "support/virtual_time.h"

#include <algorithm>
#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

namespace qor::test {

/// A whole program on virtual time with a simulated instrument at the other end of its line.
///
/// Settings of the instrument go to the constructor; faults are added to `line`, stores written to
/// `program.Stores()` before PowerOn.
class Rig {
public:
    explicit Rig(const sim::InstrumentConfig& config = {}, VisaLibrary* visa = nullptr,
                 PowerSensorLibrary* sensor = nullptr, Dialogs* dialogs = nullptr,
                 Launcher* launcher = nullptr, Speaker* speaker = nullptr, PageForms* pictures = nullptr,
                 Printers* printers = nullptr)
        : instrument(config), line(instrument), ports(time.later), port(ports, time.later), wire(time.clock),
          comm(port, wire), program({comm, ports, time.timers, time.clock, user, visa, sensor, speaker,
                                     launcher, dialogs, pictures, printers},
                                    dir.Path()) {
        ports.Add(line, "/dev/ttySIM0");
    }

    /// What a procedure has to say reaches the operator; true when it was done.
    bool Done(const Outcome& outcome) { return Tell(outcome, user); }

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
        return RunUntilRunIsOn() && RunUntilRunIsOver(limitMs);
    }
    /// A start may have to wait for what it has the instrument told first.
    bool RunUntilRunIsOn() {
        time.RunUntil([this] { return !S().run.IsWaiting(); }, 30000);
        return S().run.IsOn();
    }
    bool RunUntilRunIsOver(std::int64_t limitMs = 600000) {
        return time.RunUntil([this] { return !S().run.IsOn(); }, limitMs) && RunUntilIdle();
    }
    /// Selects a band unless it is selected, and waits until the instrument has it.
    bool SelectBand(int band) {
        return (S().working.Band() == band || program.Select().SelectBand(band)) && RunUntilIdle();
    }

    /// The curve that a test puts in by hand is a run on this band, by the method in force.
    void AsIfMeasuredOn(int band) {
        RunRecord record;
        record.band = band;
        record.method = S().working.Method();
        record.plan = StartPlan(band, 1, 0).value_or(FrequencyPlan{});
        S().working.SelectBand(band);
        S().run.Begin(record);
        S().run.End();
        Complete(S().curve);
    }
    /// Ready to measure EGSM by the method, for so long in 2-tone.
    bool ReadyFor(int method, int seconds = 5) {
        Store().Write("2tone_time.ccz", std::to_string(seconds));
        return PowerOn() && SelectBand(BandEgsm) && program.Select().SelectMethod(method) && RunUntilIdle();
    }

    [[nodiscard]] Session& S() { return program.State(); }
    [[nodiscard]] const Platform& Parts() { return program.Parts(); }
    [[nodiscard]] SetupStore& Store() { return program.Stores(); }
    /// Text of a store; empty when there is none.
    [[nodiscard]] std::string Stored(const std::string& name) { return FileText(dir / name); }
    /// What the operator was told since the last call.
    [[nodiscard]] std::vector<std::string> Told() { return std::exchange(user.messages, {}); }
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
