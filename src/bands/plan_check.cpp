#include "bands/plan_check.h"

#include "bands/catalogue.h"
#include "base/text_format.h"

#include <algorithm>
#include <optional>
#include <span>
#include <utility>

namespace qor {

namespace {

constexpr double SmallestStep = 0.1;
/// A sum of float frequencies, taken up to eleven times each, lies up to this far beside that of the decimals
/// that were entered; well below the 0.1 MHz in which all of them are given.
constexpr double DecimalSlack = 0.005;

constexpr int Im3 = 1;
constexpr int Im5 = 2;
constexpr int Im7 = 3;
constexpr int Im11 = 5;

struct Range {
    double low = 0;
    double high = 0;

    /// For values as entered, bounds included.
    [[nodiscard]] bool Holds(float value) const {
        return static_cast<double>(value) >= low && static_cast<double>(value) <= high;
    }
    /// For values worked out of entered ones.
    [[nodiscard]] bool HoldsFim(float from, float to) const {
        return static_cast<double>(from) >= low - DecimalSlack &&
               static_cast<double>(to) <= high + DecimalSlack;
    }
};

/// All that a plan is held against, MHz.
struct PlanLimits {
    Range f1, f2;
    double f1StartLow, f1StopHigh;
    double f2StartHigh, f2StopLow;
    Range f1Fix, f2Fix;
    Range fim;
    double twoToneFimLow;
};

struct BandRanges {
    Range tones, fim;
};

/// Carrier and IM range of a band; nothing for the bands that have no plans.
std::optional<BandRanges> RangesOf(int band) {
    switch (band) {
    case BandWifi:
        return BandRanges{{2442, 2484}, {2400, 2428}};
    case BandLte700L:
        return BandRanges{{728, 760}, {698, 716}};
    case BandLte700U:
        return BandRanges{{728, 760}, {776, 798}};
    case BandTetra390: // half a MHz wider than its calibration
        return BandRanges{{390, 397.5}, {380, 385}};
    case BandTdScdmaA:
    case BandTetra422:
    case BandTetra462:
        return std::nullopt;
    default:
        const auto limits = LimitsOf(band, 0);
        if (!limits)
            return std::nullopt;
        return BandRanges{{static_cast<double>(limits->txLow), static_cast<double>(limits->txHigh)},
                          {static_cast<double>(limits->rxLow), static_cast<double>(limits->rxHigh)}};
    }
}

PlanLimits LimitsFrom(const BandRanges& ranges) {
    const Range& tones = ranges.tones;
    return {tones,     tones, tones.low, tones.high, tones.high,
            tones.low, tones, tones,     ranges.fim, ranges.fim.low};
}

bool IsTetra(int band) {
    return band == BandTetra390 || band == BandTetra392;
}

std::optional<PlanLimits> LiveLimits(int band, int imIndex) {
    const auto ranges = RangesOf(band);
    if (!ranges || IsTetra(band))
        return std::nullopt;
    PlanLimits limits = LimitsFrom(*ranges);
    if (band == BandUmts2 && (imIndex == Im3 || imIndex == Im5))
        limits.f2StartHigh = 2695;
    return limits;
}

struct TetraRow {
    int band;
    int imIndex;
    Range f1, f2;
    double f1StartLow, f1StopHigh;
    double f2StartHigh, f2StopLow;
    Range f1Fix, f2Fix;
};

// At IM11 they have no plan of their own: the tones may use the whole band.
constexpr TetraRow TetraRows[] = {
    {BandTetra390, 1, {390, 397.5}, {392, 397.5}, 390, 397.5, 397.5, 390, {390, 397.5}, {390, 397.5}},
    {BandTetra390, 2, {390, 393}, {392.5, 397.5}, 391.5, 393, 395, 392.5, {390, 397.5}, {390, 397.5}},
    {BandTetra390, 3, {390, 394}, {392, 397}, 393, 394, 393, 392, {390, 394}, {392, 397.5}},
    {BandTetra390, 4, {390, 394.5}, {391.5, 397}, 394, 394.5, 392.5, 391.5, {390, 394.5}, {394.5, 397.5}},
    {BandTetra392, 1, {392, 394}, {396, 400}, 392, 394, 400, 396, {392, 400}, {392, 400}},
    {BandTetra392, 2, {392, 400}, {394, 400}, 393.5, 396, 398, 394, {392, 400}, {392, 400}},
    {BandTetra392, 3, {392, 397}, {393.5, 400}, 395, 397, 396, 393.5, {392, 397}, {393.5, 400}},
    {BandTetra392, 4, {392, 397.5}, {393, 400}, 396, 397.5, 395, 393, {392, 397.5}, {393, 400}},
};

std::optional<PlanLimits> SaveLimits(int band, int imIndex, bool forDefault) {
    const auto ranges = RangesOf(band);
    if (!ranges)
        return std::nullopt;
    PlanLimits limits = LimitsFrom(*ranges);
    if (band == BandDigDiv)
        limits = LimitsFrom({{791, 821}, ranges->fim});
    if (band == BandUmts2) {
        if (imIndex == Im11 && !forDefault)
            limits.f2StartHigh = 2695;
        if (imIndex == (forDefault ? Im3 : Im5))
            limits.twoToneFimLow = 2545;
    }
    for (const TetraRow& row : TetraRows)
        if (row.band == band && row.imIndex == imIndex)
            limits = {row.f1,        row.f2,    row.f1StartLow, row.f1StopHigh, row.f2StartHigh,
                      row.f2StopLow, row.f1Fix, row.f2Fix,      limits.fim,     limits.twoToneFimLow};
    return limits;
}

struct Faults {
    bool f1 = false, f2 = false;
    bool sweepF1 = false, sweepF2 = false;
    bool f1Fix = false, f2Fix = false;
    bool step = false;
    bool twoToneFim = false, risingFim = false, fallingFim = false;

    [[nodiscard]] bool Any() const {
        return f1 || f2 || sweepF1 || sweepF2 || f1Fix || f2Fix || step || twoToneFim || risingFim ||
               fallingFim;
    }
};

/// Written so that what is no number is a fault.
Faults FaultsOf(const FrequencyPlan& plan, const FimFrequencies& fim,
                const std::optional<PlanLimits>& limits) {
    Faults faults;
    const float maxStep = std::max(plan.f1Stop - plan.f1Start, plan.f2Start - plan.f2Stop);
    const auto step = static_cast<double>(plan.step);
    faults.step = !(step >= SmallestStep && step <= static_cast<double>(maxStep) + DecimalSlack);
    if (!limits)
        return faults;
    faults.f1 = !limits->f1.Holds(plan.f1);
    faults.f2 = !limits->f2.Holds(plan.f2);
    faults.sweepF1 = !(static_cast<double>(plan.f1Start) >= limits->f1StartLow &&
                       plan.f1Start <= plan.f1Stop && static_cast<double>(plan.f1Stop) <= limits->f1StopHigh);
    faults.sweepF2 = !(static_cast<double>(plan.f2Start) <= limits->f2StartHigh &&
                       plan.f2Start >= plan.f2Stop && static_cast<double>(plan.f2Stop) >= limits->f2StopLow);
    faults.f1Fix = !limits->f1Fix.Holds(plan.f1Fix);
    faults.f2Fix = !limits->f2Fix.Holds(plan.f2Fix);
    const Range twoTone{limits->twoToneFimLow, limits->fim.high};
    faults.twoToneFim = !twoTone.HoldsFim(fim.twoTone, fim.twoTone);
    faults.risingFim = !limits->fim.HoldsFim(fim.rising.from, fim.rising.to);
    faults.fallingFim = !limits->fim.HoldsFim(fim.falling.from, fim.falling.to);
    return faults;
}

struct FaultLine {
    bool Faults::*fault;
    std::string_view text;
    std::span<const PlanValue> about;
};

constexpr PlanValue AboutF1[] = {&FrequencyPlan::f1};
constexpr PlanValue AboutF2[] = {&FrequencyPlan::f2};
constexpr PlanValue AboutSweepF1[] = {&FrequencyPlan::f1Start, &FrequencyPlan::f1Stop};
constexpr PlanValue AboutSweepF2[] = {&FrequencyPlan::f2Start, &FrequencyPlan::f2Stop};
constexpr PlanValue AboutF1Fix[] = {&FrequencyPlan::f1Fix};
constexpr PlanValue AboutF2Fix[] = {&FrequencyPlan::f2Fix};
constexpr PlanValue AboutStep[] = {&FrequencyPlan::step};

// shown to the operator
constexpr FaultLine FaultLines[] = {
    {&Faults::f1, "Fix f1 falsch!!!", AboutF1},
    {&Faults::f2, "Fix f2 falsch!!!", AboutF2},
    {&Faults::sweepF1, "Anfang/Ende f1 falsch!!!", AboutSweepF1},
    {&Faults::sweepF2, "Anfang/Ende f2 falsch!!!", AboutSweepF2},
    {&Faults::f1Fix, "Scannen Fix f1 falsch!!!", AboutF1Fix},
    {&Faults::f2Fix, "Scannen Fix f2 falsch!!!", AboutF2Fix},
    {&Faults::step, "Schritt falsch!!!", AboutStep},
};
constexpr std::string_view FimRule = "-------------fIM-------------\r\n";
// shown to the operator
constexpr const char* RisingHead = "<<Oben Scannen>> ";
// shown to the operator
constexpr const char* FallingHead = "<Unter Scannen> ";
// shown to the operator
constexpr const char* TwoToneHead = "<<<2-Ton>>> ";
// shown to the operator
constexpr std::string_view FimFault = "falsch!!!";

std::string SpanText(const FimSpan& span) {
    return Fixed(static_cast<double>(span.from), 1) + " - " + Fixed(static_cast<double>(span.to), 1) + "\r\n";
}

} // namespace

FimFrequencies FimRange(const FrequencyPlan& plan, int band, int imIndex) {
    const ImCoefficients c = CoefficientsOf(imIndex);
    const auto fim = [&](float f1, float f2) { return ImFrequency(band, c, f1, f2); };
    FimFrequencies range;
    range.twoTone = fim(plan.f1, plan.f2);
    range.rising = {fim(plan.f1Start, plan.f2Fix), fim(plan.f1Stop, plan.f2Fix)};
    range.falling = {fim(plan.f1Fix, plan.f2Start), fim(plan.f1Fix, plan.f2Stop)};
    if (UsesUpperProduct(band)) { // it falls as f1 rises
        std::swap(range.rising.from, range.rising.to);
        std::swap(range.falling.from, range.falling.to);
    }
    return range;
}

PlanVerdict CheckPlan(const FrequencyPlan& plan, int band, int imIndex) {
    const FimFrequencies fim = FimRange(plan, band, imIndex);
    const Faults faults = FaultsOf(plan, fim, LiveLimits(band, imIndex));
    PlanVerdict verdict;
    verdict.fits = !faults.Any();
    std::string& text = verdict.text;
    const auto tell = [&](bool fault, std::string_view line, const std::vector<PlanValue>& about) {
        if (!fault)
            return;
        text += line;
        text += "\r\n";
        verdict.wrong.insert(verdict.wrong.end(), about.begin(), about.end());
    };
    for (const FaultLine& line : FaultLines)
        tell(faults.*line.fault, line.text, {line.about.begin(), line.about.end()});
    using Plan = FrequencyPlan;
    text += FimRule;
    text += RisingHead + SpanText(fim.rising);
    tell(faults.risingFim, FimFault, {&Plan::f1Start, &Plan::f1Stop, &Plan::f2Fix});
    text += FallingHead + SpanText(fim.falling);
    tell(faults.fallingFim, FimFault, {&Plan::f2Start, &Plan::f2Stop, &Plan::f1Fix});
    text += TwoToneHead + Fixed(static_cast<double>(fim.twoTone), 1);
    if (faults.twoToneFim)
        text += "\r\n";
    tell(faults.twoToneFim, FimFault, {&Plan::f1, &Plan::f2});
    return verdict;
}

bool SaveTest(const FrequencyPlan& plan, int band, int imIndex, bool forDefault) {
    const auto limits = SaveLimits(band, imIndex, forDefault);
    return limits && !FaultsOf(plan, FimRange(plan, band, imIndex), limits).Any();
}

bool SubBandTest(const FrequencyPlan& plan, int band, int imIndex, bool forDefault) {
    auto bands = SubBandsOf(band, imIndex);
    if (!bands)
        return true;
    if (band == BandUmts2 && forDefault && (imIndex == Im3 || imIndex == Im7))
        bands->f1High = bands->f2High = 2690;
    const Range f1{static_cast<double>(bands->f1Low), static_cast<double>(bands->f1High)};
    const Range f2{static_cast<double>(bands->f2Low), static_cast<double>(bands->f2High)};
    const auto holdsAll = [](const Range& range, std::initializer_list<float> values) {
        return std::all_of(values.begin(), values.end(), [&](float value) { return range.Holds(value); });
    };
    return holdsAll(f1, {plan.f1, plan.f1Start, plan.f1Stop, plan.f1Fix}) &&
           holdsAll(f2, {plan.f2, plan.f2Start, plan.f2Stop, plan.f2Fix});
}

bool TonesFit(float f1, float f2, int band) {
    if (band == BandTdScdmaA)
        return true; // it is told by its two tones
    const auto ranges = RangesOf(band);
    if (!ranges)
        return false;
    Range tones = ranges->tones;
    if (band == BandUmts2)
        tones.high = 2695; // as far as its plans reach
    return tones.Holds(f1) && tones.Holds(f2);
}

} // namespace qor
