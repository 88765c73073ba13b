#include "bands/power_table.h"

#include "bands/catalogue.h"
#include "base/firmware.h"

#include <algorithm>
#include <set>

namespace qor {

namespace {

constexpr std::string_view Db22 = "RT-DB22";
constexpr std::string_view L027 = "RT-L027";

struct ReceiverTones {
    int band;
    int f1, f2;
};

constexpr ReceiverTones ReceiverRows[] = {
    {BandAmps, 869, 894},       {BandDigDiv, 797, 822},     {BandDcs, 1811, 1875},
    {BandWiMax, 3520, 3593},    {BandUmts2, 2629, 2695},    {BandEgsm, 929, 960},
    {BandPcs, 1935, 1990},      {BandAws, 1962, 2110},      {BandLte, 753, 792},
    {BandUmts, 2110, 2170},     {BandTdScdmaA, 2020, 2025}, {BandTdScdmaF, 1902, 1920},
    {BandTdScdmaE, 2360, 2400},
};

/// Below it LTE has a grid of its own on the coarse table, MHz.
constexpr int LteUpperPart = 745;

bool HasLowLte(const CalibrationPlan& plan) {
    return plan.f1.start < LteUpperPart || plan.f2.start < LteUpperPart;
}

/// The grid of a coarse table begins with an even frequency.
bool IsEvenGrid(const CalibrationPlan& plan, const TableOwner& owner) {
    if (owner.model == L027)
        return true;
    switch (owner.band) {
    case BandDigDiv:
    case BandPcs:
    case BandUmts:
    case BandTdScdmaA:
    case BandTdScdmaF:
        return true;
    case BandLte:
        return HasLowLte(plan);
    default:
        return false;
    }
}

int AlignedStart(const CalibrationPlan& plan, const ToneRange& tone, const TableOwner& owner) {
    if (!HasCoarseTable(owner.model))
        return tone.start;
    const bool onGrid = (tone.start % 2 == 0) == IsEvenGrid(plan, owner);
    return std::min(onGrid ? tone.start : tone.start + 1, tone.stop);
}

/// The upper edge of a band that lies beside the grid: it has a row of its own.
bool IsEdgeBesideGrid(std::string_view model, int stop) {
    if (model == L027)
        return stop == 2155;
    return model == Db22 && (stop == 894 || stop == 960 || stop == 1880 || stop == 2025);
}

/// Entries of a coarse table: two frequencies share one, the odd distance counts upwards.
constexpr int Halved(int distance) {
    return distance / 2 + (distance & 1);
}

int CoarseAddress(const CalibrationPlan& plan, const TableOwner& owner, int f, int otherwise) {
    switch (owner.band) {
    case BandAmps:
        return Halved(f - 869);
    case BandDcs:
        return Halved(f - 1805) + 100;
    case BandEgsm:
        return Halved(f - 925) + 14;
    case BandPcs:
        return (f - 1930) / 2 - 117;
    case BandLte:
        return HasLowLte(plan) ? Halved(f - 698) + 33 : Halved(f - LteUpperPart) + 57;
    case BandUmts:
        return (f - 2110) / 2 - 85;
    case BandTdScdmaA:
        return Halved(f - 2010) - 53;
    case BandDigDiv:
        return Halved(f - 790) + 82;
    default:
        return otherwise;
    }
}

int FineAddress(const TableOwner& owner, int f) {
    const bool from40 = FirmwareFrom(owner.firmware, 40);
    const bool from50 = FirmwareFrom(owner.firmware, 50);
    switch (owner.band) {
    case BandAmps:
        return f - 101;
    case BandDcs:
        return f - 13;
    case BandWiMax:
        return f + 74;
    case BandUmts2:
        return f - 60;
    case BandEgsm:
        return f - (from40 ? 127 : 77);
    case BandPcs:
        return owner.model == L027 ? (f - 1930) / 2 - 126 : f - 58;
    case BandLte:
        return f - (from40 ? 116 : 36);
    case BandUmts:
        return f + (from50 ? 98 : 88);
    case BandTdScdmaA:
        return f + (from50 ? 7 : 2);
    case BandDigDiv:
        return f - 98;
    case BandTdScdmaF:
        return (f - 1900) / 2 - 44;
    case BandTdScdmaE:
        return f + 34;
    default: // AWS
        return (f - 1930) / 2;
    }
}

std::set<int> AddressesOf(const CalibrationPlan& plan, const TableOwner& owner) {
    std::set<int> addresses;
    for (const int tone : {1, 2})
        if (plan.Uses(tone))
            for (const int mhz : FrequenciesOf(plan, tone, owner))
                addresses.insert(TableAddress(plan, owner, mhz));
    return addresses;
}

/// A calibration of the whole band, on one tone: both share their addresses.
CalibrationPlan WholeBand(const CalibrationRow& row) {
    CalibrationPlan plan;
    plan.f1 = plan.f2 = {row.txLow, row.delta, row.txHigh};
    plan.useF1 = true;
    return plan;
}

bool IsRange(const ToneRange& tone) {
    return tone.start > 0 && tone.delta > 0 && tone.stop >= tone.start &&
           (tone.stop - tone.start) / tone.delta < MostFrequencies;
}

} // namespace

std::optional<CalibrationRow> CalibrationRowOf(int band, std::string_view model, int bridge) {
    const auto limits = LimitsOf(band, bridge);
    if (!limits)
        return std::nullopt;
    CalibrationRow row{HasCoarseTable(model) ? 2 : 1,
                       limits->f1From,
                       limits->f1To,
                       limits->f2From,
                       limits->f2To,
                       limits->txLow,
                       limits->txHigh,
                       limits->txLow,
                       limits->txHigh,
                       limits->rxLow,
                       limits->rxHigh};
    for (const ReceiverTones& tones : ReceiverRows) {
        if (tones.band != band)
            continue;
        row.rxF1 = tones.f1;
        row.rxF2 = tones.f2;
    }
    if (band == BandUmts2) { // its tables reach further than its measurements
        row.f1Stop = row.f2Stop = row.txHigh = 2695;
        row.rxLow = 2545;
    }
    return row;
}

bool HasCoarseTable(std::string_view model) {
    return model == Db22 || model == L027;
}

Outcome FitsCoarseTable(const CalibrationPlan& plan, std::string_view model) {
    const bool fits = !HasCoarseTable(model) || (plan.f1.delta >= 2 && plan.f2.delta >= 2);
    return fits ? Outcome::Done() : Outcome::Refused("Please use 2MHz as delta for RT-DB22/RT-L027.");
}

bool HasPowerTable(int band) {
    return std::ranges::any_of(ReceiverRows, [&](const ReceiverTones& row) { return row.band == band; });
}

int LowestTableLevel(float firmware) {
    return FirmwareFrom(firmware, 50) ? 20 : 33;
}

bool FitsTables(const CalibrationPlan& plan, float firmware) {
    const bool levels = plan.powDelta > 0 && plan.powStart >= LowestTableLevel(firmware) &&
                        plan.powStop >= plan.powStart && plan.powStop <= HighestTableLevel &&
                        (plan.powStop - plan.powStart) / plan.powDelta < MostLevels;
    return levels && (!plan.useF1 || IsRange(plan.f1)) && (!plan.useF2 || IsRange(plan.f2));
}

std::vector<int> FrequenciesOf(const CalibrationPlan& plan, int tone, const TableOwner& owner) {
    const ToneRange& range = plan.Tone(tone);
    std::vector<int> frequencies;
    int mhz = AlignedStart(plan, range, owner);
    for (; mhz <= range.stop; mhz += range.delta)
        frequencies.push_back(mhz);
    if (range.delta == 2 && mhz == range.stop + 1 && IsEdgeBesideGrid(owner.model, range.stop))
        frequencies.push_back(range.stop);
    return frequencies;
}

std::vector<int> LevelsOf(const CalibrationPlan& plan) {
    std::vector<int> levels;
    for (int dBm = plan.powStart; dBm <= plan.powStop; dBm += plan.powDelta)
        levels.push_back(dBm);
    return levels;
}

bool CrossesRanges(const CalibrationPlan& plan) {
    return plan.powStart < UpperRange && LevelsOf(plan).back() >= UpperRange;
}

std::uint8_t TableAddress(const CalibrationPlan& plan, const TableOwner& owner, int mhz) {
    const int fine = FineAddress(owner, mhz);
    const int address = owner.model == Db22 ? CoarseAddress(plan, owner, mhz, fine) : fine;
    return static_cast<std::uint8_t>(address & 0xff);
}

TablePlace PlaceOf(const CalibrationPlan& plan, const TableOwner& owner, int tone, int mhz, int dBm) {
    const bool wide = FirmwareFrom(owner.firmware, 50);
    const int high = tone == 1 ? (wide ? -20 : -33) : (wide ? 34 : -5);
    const int low = tone == 1 ? (wide ? 7 : -19) : (wide ? 61 : 9);
    return {static_cast<std::uint8_t>(dBm + high), static_cast<std::uint8_t>(dBm + low),
            TableAddress(plan, owner, mhz)};
}

std::vector<int> BandsOverwritten(const CalibrationPlan& plan, const TableOwner& owner) {
    const std::set<int> written = AddressesOf(plan, owner);
    std::vector<int> bands;
    for (const ReceiverTones& row : ReceiverRows) {
        if (row.band == owner.band || !BandPosition(row.band, owner.model, owner.firmware))
            continue;
        const CalibrationPlan whole = WholeBand(*CalibrationRowOf(row.band, owner.model, 0));
        const TableOwner other{row.band, owner.model, owner.firmware};
        if (std::ranges::any_of(AddressesOf(whole, other), [&](int at) { return written.contains(at); }))
            bands.push_back(row.band);
    }
    std::ranges::sort(bands);
    return bands;
}

} // namespace qor
