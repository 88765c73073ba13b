#include "sim/power_stage.h"

#include "sim/pim_model.h"

#include <cmath>
#include <numbers>

namespace qor::sim {

namespace {

constexpr double UpperRange = 34;  // dBm, the first level of it
constexpr double UpperRest = 22;   // dBm without drive
constexpr double LowerRest = 10;   // the same in the lower range
constexpr double FullSwing = 28;   // dB
constexpr double SwingVolts = 1.8; // after which 63 % of the swing is there
constexpr double MilliVolts = 1000;
constexpr double RippleDb = 0.2;
constexpr double RippleMhz = 60;
constexpr double TiltDb = 0.004; // a MHz, at most
constexpr int FirstEdition = 50; // firmware from which the tables reach down to 20 dBm
constexpr int LowestOld = 33;
constexpr int LowestNew = 20;
constexpr int Highest = 46;

/// Where the entries of a band stand: (MHz - from) / step + at. An odd distance counts upwards where `up`.
struct Entries {
    std::string_view band;
    std::string_view model; ///< empty: every model without a row of its own
    int since;              ///< firmware in tenths
    int low, high;          ///< MHz
    int from;
    int step;
    int at;
    bool up;
};

constexpr int Any = 10000;

// clang-format off
constexpr Entries Rows[] = {
    {"AMPS",       "RT-DB22", 0,  0,   Any,  869,  2, 0,    true},
    {"EGSM",       "RT-DB22", 0,  0,   Any,  925,  2, 14,   true},
    {"LTE",        "RT-DB22", 0,  0,   744,  698,  2, 33,   true},
    {"LTE",        "RT-DB22", 0,  745, Any,  745,  2, 57,   true},
    {"DIG-DIV",    "RT-DB22", 0,  0,   Any,  790,  2, 82,   true},
    {"DCS",        "RT-DB22", 0,  0,   Any,  1805, 2, 100,  true},
    {"PCS",        "RT-DB22", 0,  0,   1990, 1930, 2, 139,  false},
    {"UMTS",       "RT-DB22", 0,  0,   Any,  2110, 2, 171,  false},
    {"TD-SCDMA-A", "RT-DB22", 0,  0,   Any,  2010, 2, 203,  true},
    {"PCS",        "RT-L027", 0,  0,   1990, 1930, 2, 130,  false},
    {"AMPS",       "",        0,  0,   Any,  869,  1, 0,    false},
    {"EGSM",       "",        40, 0,   Any,  925,  1, 30,   false},
    {"EGSM",       "",        0,  0,   Any,  925,  1, 80,   false},
    {"LTE",        "",        40, 0,   Any,  745,  1, 117,  false},
    {"LTE",        "",        0,  0,   Any,  745,  1, 197,  false},
    {"DIG-DIV",    "",        0,  0,   Any,  790,  1, 180,  false},
    {"DCS",        "",        0,  0,   Any,  1805, 1, 0,    false},
    {"PCS",        "",        0,  0,   1990, 1930, 1, 80,   false},
    {"AWS",        "",        0,  0,   Any,  1930, 2, 0,    false},
    {"UMTS",       "",        50, 0,   Any,  2110, 1, 160,  false},
    {"UMTS",       "",        0,  0,   Any,  2110, 1, 150,  false},
    {"WiMax",      "",        0,  0,   Any,  3510, 1, 0,    false},
    {"UMTS2",      "",        0,  0,   Any,  2620, 1, 0,    false},
    {"TD-SCDMA-A", "",        50, 0,   Any,  2010, 1, 225,  false},
    {"TD-SCDMA-A", "",        0,  0,   Any,  2010, 1, 220,  false},
    {"TD-SCDMA-F", "",        0,  0,   Any,  1900, 2, -44,  false},
    {"TD-SCDMA-E", "",        0,  0,   Any,  2350, 1, 80,   false},
};
// clang-format on

std::optional<std::uint8_t> AddressIn(std::string_view band, std::string_view model, Firmware firmware,
                                      int mhz) {
    for (const bool own : {true, false})
        for (const Entries& row : Rows) {
            const bool ofModel = own ? row.model == model : row.model.empty();
            if (row.band != band || !ofModel || !firmware.AtLeast(row.since) || mhz < row.low ||
                mhz > row.high)
                continue;
            const int distance = mhz - row.from;
            const int entry = distance / row.step + (row.up ? distance & 1 : 0) + row.at;
            return static_cast<std::uint8_t>(entry & 0xff);
        }
    return {};
}

} // namespace

double PowerStage::Level(const ToneRequest& at, double volts) const {
    if (!at.band)
        return -400;
    std::uint64_t key = m_Seed * 0x9e37'79b9'7f4a'7c15U + static_cast<std::uint64_t>(at.tone);
    for (const char c : at.band->name)
        key = key * 131 + static_cast<unsigned char>(c);
    Noise spread(key);
    const double gain = spread.Uniform() - 0.5;
    const double phase = 2 * std::numbers::pi * spread.Uniform();
    const double tilt = TiltDb * (2 * spread.Uniform() - 1);
    const double beyond = at.mhz - at.band->txLow;
    const double shape =
        gain + tilt * beyond + RippleDb * std::sin(2 * std::numbers::pi * beyond / RippleMhz + phase);
    const double rest = at.dbm < UpperRange ? LowerRest : UpperRest;
    return rest + FullSwing * (1 - std::exp(-volts / SwingVolts)) + shape;
}

std::optional<double> PowerStage::Drive(const ToneRequest& at, int dBm,
                                        const InstrumentMemory& memory) const {
    const bool wide = m_Firmware.AtLeast(FirstEdition);
    const int lowest = wide ? LowestNew : LowestOld;
    if (!at.band || dBm < lowest || dBm > Highest)
        return {};
    // Four blocks of pages one behind the other: high and low bytes of tone 1, then of tone 2.
    const int levels = Highest - lowest + 1;
    const int page = dBm - lowest + (at.tone == 2 ? 2 * levels : 0);
    const auto entry = [&](std::string_view band) -> std::optional<double> {
        const auto address = AddressIn(band, m_Model, m_Firmware, static_cast<int>(at.mhz));
        if (!address)
            return {};
        const auto high = memory.Written(static_cast<std::uint8_t>(page), *address);
        const auto low = memory.Written(static_cast<std::uint8_t>(page + levels), *address);
        if (!high || !low)
            return {};
        return (*high * 256 + *low) / MilliVolts;
    };
    if (at.band->name != "AWS/PCS") // one filter for both
        return entry(at.band->name);
    const auto pcs = entry("PCS");
    return pcs ? pcs : entry("AWS");
}

double PowerStage::LevelByTable(const ToneRequest& at, const InstrumentMemory& memory) const {
    const auto whole = static_cast<int>(std::floor(at.dbm));
    const auto volts = Drive(at, whole, memory);
    return volts ? Level(at, *volts) + (at.dbm - whole) : at.dbm;
}

} // namespace qor::sim
