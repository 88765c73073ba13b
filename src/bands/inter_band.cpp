#include "bands/inter_band.h"

#include "bands/catalogue.h"

#include <algorithm>

namespace qor {

namespace {

constexpr std::size_t LongestGrid = 2000;
/// A frequency within this counts as the same, MHz.
constexpr double Tolerance = 0.05;

constexpr std::string_view RxDcs = "DCS 1800";
constexpr std::string_view RxPcs = "PCS 1900";
constexpr std::string_view RxUmts = "UMTS 2100";

constexpr std::string_view RxOfAmps[] = {RxDcs};
constexpr std::string_view RxOfEgsm[] = {RxPcs, RxUmts};
constexpr std::string_view RxOfDcs[] = {RxUmts};

constexpr InterBandChoice Choices[] = {
    {BandAmps, RxOfAmps, {2, 4}},
    {BandEgsm, RxOfEgsm, {2, 4}},
    {BandDcs, RxOfDcs, {3, 5}},
};

struct PresetRow {
    int band;
    std::string_view rxBand;
    int order;
    double rxLow, rxHigh; ///< where the product of the 2-tone pair has to lie, MHz
    FrequencyPlan plan;
};

// Only 960 MHz twice makes 1920: an empty range, that pair is always set anew.
constexpr PresetRow Presets[] = {
    {BandAmps, RxDcs, 2, 1710, 1785, {869, 894, 869, 891, 894, 894, 869, 869}},
    {BandAmps, RxDcs, 4, 1710, 1785, {869, 894, 869, 893, 894, 894, 869, 869}},
    {BandEgsm, RxPcs, 2, 1850, 1880, {925, 940, 925, 940, 940, 935, 925, 945}},
    {BandEgsm, RxPcs, 4, 1850, 1880, {940, 960, 937, 946, 960, 960, 940, 940}},
    {BandEgsm, RxUmts, 2, 1, 0, {960, 960, 960, 960, 960, 960, 960, 960}},
    {BandEgsm, RxUmts, 4, 1920, 2060, {960, 925, 949, 960, 925, 960, 925, 960}},
    {BandDcs, RxUmts, 3, 1920, 2060, {1880, 1805, 1863, 1880, 1805, 1840, 1805, 1880}},
    {BandDcs, RxUmts, 5, 1920, 2060, {1880, 1805, 1844, 1880, 1805, 1860, 1805, 1880}},
};

struct GridRow {
    int order;
    std::string_view rxBand; ///< empty: any
    float from;
    double limit; ///< entries stay below it
    std::size_t longest = LongestGrid;
};

constexpr GridRow Grids[] = {
    {2, RxDcs, 1738, 1785.1}, {2, RxPcs, 1850, 1880.1}, {2, RxUmts, 1920, 9999, 2}, {3, {}, 1920, 1955.1},
    {4, RxDcs, 1713, 1785.1}, {4, RxPcs, 1850, 1880.1}, {4, RxUmts, 1920, 1955.1},  {5, {}, 1920, 2030.1},
};

bool Between(float low, float value, float high) {
    return value >= low && value <= high; // also refuses what is no number
}

} // namespace

const InterBandChoice* InterBandChoiceOf(int band) {
    const auto* const row = std::find_if(std::begin(Choices), std::end(Choices),
                                         [band](const auto& c) { return c.band == band; });
    return row != std::end(Choices) ? row : nullptr;
}

ImCoefficients InterBandCoefficients(int order) {
    switch (order) {
    case 2:
        return {1, -1};
    case 4:
        return {3, 1};
    case 5:
        return {3, 2};
    default:
        return {2, 1};
    }
}

std::string InterBandText(int order) {
    // shown to the operator
    return "Inter-band IM" + std::to_string(order);
}

FrequencyPlan InterBandPreset(int band, std::string_view rxBand, int order, const FrequencyPlan& now) {
    const auto* const row = std::find_if(std::begin(Presets), std::end(Presets), [&](const PresetRow& r) {
        return r.band == band && r.rxBand == rxBand && r.order == order;
    });
    if (row == std::end(Presets))
        return now;
    FrequencyPlan plan = row->plan;
    plan.step = now.step;
    const auto product = static_cast<double>(ImFrequency(band, InterBandCoefficients(order), now.f1, now.f2));
    if (product > row->rxLow - Tolerance && product < row->rxHigh + Tolerance) {
        plan.f1 = now.f1;
        plan.f2 = now.f2;
    }
    return plan;
}

std::vector<float> InterBandGrid(int order, std::string_view rxBand, float step) {
    std::vector<float> grid;
    const auto* const row = std::find_if(std::begin(Grids), std::end(Grids), [&](const GridRow& r) {
        return r.order == order && (r.rxBand.empty() || r.rxBand == rxBand);
    });
    if (row == std::end(Grids))
        return grid;
    for (std::size_t k = 0; k < row->longest; ++k) {
        const float frequency = row->from + static_cast<float>(k) * step;
        // Entries lie on tenths of MHz, a hair of float beside them.
        if (!(static_cast<double>(frequency) < row->limit - Tolerance))
            break;
        grid.push_back(frequency);
    }
    return grid;
}

bool InterBandFits(const FrequencyPlan& plan, int band) {
    const auto limits = LimitsOf(band, 0);
    return limits && Between(static_cast<float>(limits->txLow), plan.f1, static_cast<float>(limits->txHigh));
}

bool InterBandCarriersFit(const FrequencyPlan& plan, int band) {
    const auto limits = LimitsOf(band, 0);
    if (!limits)
        return false;
    const auto low = static_cast<float>(limits->txLow);
    const auto high = static_cast<float>(limits->txHigh);
    for (const float held : {plan.f1, plan.f2, plan.f1Fix, plan.f2Fix})
        if (!Between(low, held, high))
            return false;
    return Between(low, plan.f1Start, plan.f1Stop) && Between(plan.f1Start, plan.f1Stop, high) &&
           Between(low, plan.f2Stop, plan.f2Start) && Between(plan.f2Stop, plan.f2Start, high);
}

} // namespace qor
