// Whatever a host writes, at whatever speed and with whatever fault ordered, the simulated instrument stays
// in order: no overrun, no event in the past, no reply longer than a reply can be.

#include "sim/line.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace qor::sim;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::size_t at = 0;
    const auto next = [&]() -> std::uint8_t { return at < size ? data[at++] : 0; };

    static constexpr const char* Firmwares[] = {"1.8", "4.0", "4.9", "5.3", "5.7", "6.1", "6.9", "ev2.0"};
    InstrumentConfig config;
    config.model = Models[next() % Models.size()].name;
    config.firmware = Firmwares[next() % 8];
    config.seed = next();
    Instrument instrument(config);
    Line line(instrument, {next() % 2 ? 9600 : 115200, next() * 10});
    line.Add({Faults[next() % Faults.size()].kind, next() % 8});
    line.Add({Faults[next() % Faults.size()].kind, next() % 8});

    std::int64_t nowUs = 0;
    while (at < size) {
        const std::uint8_t action = next();
        nowUs += std::int64_t{next()} << (action >> 4);
        if (action % 16 == 0)
            line.HostOpens(nowUs);
        else if (action % 16 == 1)
            line.Plugged(nowUs) ? line.Unplug(nowUs) : line.Replug(nowUs);
        else {
            const std::size_t count = std::min<std::size_t>(next() % 32, size - at);
            line.HostWrites({reinterpret_cast<const char*>(data + at), count}, nowUs);
            at += count;
        }
        if (action % 4 == 3) {
            // A command of 64 bytes at most, its echo and a line end in the middle, for each that was
            // written.
            if (line.TakeDelivered(nowUs).size() > 5000 + 80 * size)
                std::abort();
            if (const auto eventUs = line.NextEventUs(); eventUs && *eventUs <= nowUs)
                std::abort();
        }
    }
    return 0;
}
