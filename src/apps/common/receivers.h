#pragma once

#include "platform/clock.h"
#include "platform/visa.h"
#include "sim/simulated_receiver.h"

#include <memory>
#include <optional>
#include <string>

namespace qor::app {

/// A receiver of --simulate-receiver.
struct SimulatedReceiver {
    sim::ReceiverKind kind;
    bool overUsb;                      ///< through the sensor's library, else over VISA
    std::optional<double> cellDb = {}; ///< of the attenuator through which it hears the port itself
};

/// "analyser", "nrv", "nrp" or "sensor", which listens to a simulated instrument only, and ":50" behind it
/// for one at the port behind 50 dB; otherwise nothing, and `problem` says what is wrong.
[[nodiscard]] std::optional<SimulatedReceiver>
ParseSimulatedReceiver(const std::string& text, bool simulatedInstrument, std::string& problem);

/// What external receivers are reached through: the libraries of this computer, or a simulated receiver at
/// the simulated instrument.
struct ReceiverParts {
    ReceiverParts();
    ReceiverParts(SimulatedReceiver kind, const sim::Instrument& instrument, WallClock& clock);

    std::unique_ptr<sim::Receiver> simulated;
    std::unique_ptr<VisaLibrary> visa;
    std::unique_ptr<PowerSensorLibrary> sensor;
};

/// For a line that may be simulated.
template <typename Line>
ReceiverParts ReceiversBeside(const Line& line, std::optional<SimulatedReceiver> kind, WallClock& clock) {
    if constexpr (requires { line.instrument; }) {
        if (kind)
            return {*kind, line.instrument, clock};
    }
    return {};
}

} // namespace qor::app
