// Whatever a host writes, at whatever speed and with whatever fault ordered, the simulated instrument stays
// in order: no overrun, no event in the past, no reply longer than a reply can be.

#include "fuzz/fuzz.h"
#include "sim/instrument.h"
#include "sim/line.h"

using namespace qor::sim;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    qor::test::Bytes bytes{data, size};
    const auto next = [&bytes] { return bytes.Next(); };

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
    while (bytes.size > 0) {
        const std::uint8_t action = next();
        nowUs += std::int64_t{next()} << (action >> 4);
        if (action % 16 == 0)
            line.HostOpens(nowUs);
        else if (action % 16 == 1)
            line.Plugged(nowUs) ? line.Unplug(nowUs) : line.Replug(nowUs);
        else {
            line.HostWrites(bytes.Take(next() % 32), nowUs);
        }
        if (action % 4 == 3) {
            // A command of 64 bytes at most, its echo and a line end in the middle, for each that was
            // written.
            qor::test::Require(line.TakeDelivered(nowUs).size() <= 5000 + 80 * size);
            const auto eventUs = line.NextEventUs();
            qor::test::Require(!eventUs || *eventUs > nowUs);
        }
    }
    return 0;
}
