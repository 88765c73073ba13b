#pragma once

#include "bands/band.h"
#include "base/outcome.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace qor {

/// What a factory page begins with on a band, whole MHz.
struct CalibrationRow {
    int delta;
    int f1Start, f1Stop;
    int f2Start, f2Stop;
    int rxF1, rxF2;    ///< carriers of the receiver calibration
    int txLow, txHigh; ///< where they may lie
    int rxLow, rxHigh; ///< where their product may lie
};

/// Row of a band; nothing for bands without limits. `bridge` is 1 with a 3-dB bridge, else 0.
[[nodiscard]] std::optional<CalibrationRow> CalibrationRowOf(int band, std::string_view model, int bridge);

/// Frequencies of one tone, whole MHz, both ends included.
struct ToneRange {
    int start = 0;
    int delta = 0;
    int stop = 0;
};

/// What a calibration goes through, as it was typed.
struct CalibrationPlan {
    ToneRange f1;
    ToneRange f2;
    int powStart = 0; ///< dBm
    int powDelta = 0;
    int powStop = 0;
    float attenuation = 0; ///< dB between port and receiver
    bool useF1 = false;
    bool useF2 = false;

    [[nodiscard]] const ToneRange& Tone(int tone) const { return tone == 1 ? f1 : f2; }
    [[nodiscard]] bool Uses(int tone) const { return tone == 1 ? useF1 : useF2; }
};

inline constexpr int MostFrequencies = 1000; ///< of a tone
inline constexpr int MostLevels = 100;
/// Levels from here on belong to the instrument's upper range, dBm.
inline constexpr int UpperRange = 34;

/// The instrument: what the form of its tables depends on.
struct TableOwner {
    int band = BandNone;
    std::string_view model;
    float firmware = 0;
};

/// The tables of these models hold every second MHz.
[[nodiscard]] bool HasCoarseTable(std::string_view model);
/// Refused with a step that a coarse table has no entries for, of either tone.
[[nodiscard]] Outcome FitsCoarseTable(const CalibrationPlan& plan, std::string_view model);
/// Entries of the band have a place in the tables.
[[nodiscard]] bool HasPowerTable(int band);
/// Levels that have a page of their own, dBm.
[[nodiscard]] int LowestTableLevel(float firmware);
inline constexpr int HighestTableLevel = 46;

/// True when every ticked tone and the levels make a list that fits the tables.
[[nodiscard]] bool FitsTables(const CalibrationPlan& plan, float firmware);

/// Frequencies of a tone, from the start that the grid of the table allows. The plan fits the tables.
[[nodiscard]] std::vector<int> FrequenciesOf(const CalibrationPlan& plan, int tone, const TableOwner& owner);
/// Levels in dBm, the same at every frequency.
[[nodiscard]] std::vector<int> LevelsOf(const CalibrationPlan& plan);
/// Some levels lie below the upper range, and some in it.
[[nodiscard]] bool CrossesRanges(const CalibrationPlan& plan);

/// Where an entry stands: two bytes on two pages, at the same address.
struct TablePlace {
    std::uint8_t pageHigh = 0;
    std::uint8_t pageLow = 0;
    std::uint8_t address = 0;

    bool operator==(const TablePlace&) const = default;
};

/// Address of a frequency in whole MHz, the same for both tones. The band has a power table. The plan decides
/// which of two grids LTE takes.
[[nodiscard]] std::uint8_t TableAddress(const CalibrationPlan& plan, const TableOwner& owner, int mhz);
[[nodiscard]] TablePlace PlaceOf(const CalibrationPlan& plan, const TableOwner& owner, int tone, int mhz,
                                 int dBm);

/// Bands of this instrument with entries where the plan writes, by number.
[[nodiscard]] std::vector<int> BandsOverwritten(const CalibrationPlan& plan, const TableOwner& owner);

} // namespace qor
