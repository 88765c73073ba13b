#include "apps/common/receivers.h"

#include "base/tenths.h"
#include "platform/visa/loaded_sensor.h"
#include "platform/visa/system_visa.h"

namespace qor::app {

std::optional<SimulatedReceiver> ParseSimulatedReceiver(const std::string& text, bool simulatedInstrument,
                                                        std::string& problem) {
    static constexpr struct {
        const char* name;
        SimulatedReceiver receiver;
    } Names[] = {{"analyser", {sim::ReceiverKind::Analyser, false}},
                 {"nrv", {sim::ReceiverKind::Nrv, false}},
                 {"nrp", {sim::ReceiverKind::Nrp, false}},
                 {"sensor", {sim::ReceiverKind::Nrp, true}}};
    if (!simulatedInstrument) {
        problem = "--simulate-receiver listens to a simulated instrument: it goes with --simulate only.";
        return std::nullopt;
    }
    const std::size_t colon = text.find(':');
    const auto cell = colon == std::string::npos ? std::optional(0.0)
                                                 : EnteredNumber(std::string_view(text).substr(colon + 1));
    for (const auto& row : Names) {
        if (row.name != text.substr(0, colon) || !cell || *cell < 0 || *cell > 100)
            continue;
        SimulatedReceiver receiver = row.receiver;
        if (colon != std::string::npos)
            receiver.cellDb = cell;
        return receiver;
    }
    problem = "--simulate-receiver takes one of analyser, nrv, nrp, sensor, with \":50\" behind it for one "
              "at the port behind 50 dB, not \"" +
              text + "\".";
    return std::nullopt;
}

ReceiverParts::ReceiverParts()
    : visa(std::make_unique<visa::SystemVisa>()),
      sensor(std::make_unique<visa::BoundedSensor>(visa::MakeSensor)) {}

ReceiverParts::ReceiverParts(SimulatedReceiver kind, const sim::Instrument& instrument, WallClock& clock)
    : simulated(std::make_unique<sim::Receiver>(kind.kind, instrument, instrument.Config().seed)) {
    if (kind.cellDb)
        simulated->PutToPort(*kind.cellDb);
    if (kind.overUsb)
        sensor = std::make_unique<sim::SimulatedSensor>(*simulated);
    else
        visa = std::make_unique<sim::SimulatedVisa>(*simulated, clock);
}

} // namespace qor::app
