#pragma once

#include "sim/instrument_memory.h"
#include "sim/models.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace qor::sim {

/// What stands at the port for a tone, and how it is asked for.
struct ToneRequest {
    int tone = 1; ///< 1 or 2
    double mhz = 0;
    double dbm = 0; ///< as set
    const BandHardware* band = nullptr;
};

/// The power amplifiers. A drive voltage of 0 to 5 V makes a level that rises ever more slowly; how much of
/// it arrives differs with the band, the tone and, gently, the frequency, from one instrument to the next.
/// Levels below 34 dBm are made in a lower range.
///
/// The tables of the memory say which drive a level takes, in mV. An instrument whose tables were never
/// written makes every level as it is asked for.
class PowerStage {
public:
    PowerStage(std::string_view model, Firmware firmware, std::uint64_t seed)
        : m_Model(model), m_Firmware(firmware), m_Seed(seed) {}

    /// Level that a drive voltage makes, dBm. The range follows the level asked for.
    [[nodiscard]] double Level(const ToneRequest& at, double volts) const;
    /// Level of a tone by the tables.
    [[nodiscard]] double LevelByTable(const ToneRequest& at, const InstrumentMemory& memory) const;

private:
    [[nodiscard]] std::optional<double> Drive(const ToneRequest& at, int dBm,
                                              const InstrumentMemory& memory) const;

    std::string_view m_Model;
    Firmware m_Firmware;
    std::uint64_t m_Seed;
};

} // namespace qor::sim
