#include "measure/inter_band.h"

#include "bands/catalogue.h"
#include "bands/tenths.h"
#include "bands/working_plan.h"
#include "core/session.h"
#include "display/curve_store.h"
#include "platform/operator.h"
#include "platform/platform.h"

#include <algorithm>

namespace qor {

namespace {

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
    std::size_t longest = CurvePoints;
};

constexpr GridRow Grids[] = {
    {2, RxDcs, 1738, 1785.1}, {2, RxPcs, 1850, 1880.1}, {2, RxUmts, 1920, 9999, 2}, {3, {}, 1920, 1955.1},
    {4, RxDcs, 1713, 1785.1}, {4, RxPcs, 1850, 1880.1}, {4, RxUmts, 1920, 1955.1},  {5, {}, 1920, 2030.1},
};

constexpr float LargestStep = 9999.9f; ///< five digits of tenths

bool Between(float low, float value, float high) {
    return value >= low && value <= high; // also refuses what is no number
}

/// Both tones in the carrier band; the rising sweep rises and the falling one falls.
bool CarriersInRange(const FrequencyPlan& plan, int band) {
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

float ToTenthOfMhz(float frequency) {
    return static_cast<float>(ToTenths(static_cast<double>(frequency)) / 10.0);
}

/// Index of an ordinary order by its panel text, 0 when it is none.
int ImIndexOf(std::string_view text) {
    for (int imIndex = 1; imIndex <= 5; ++imIndex)
        if (text == "IM" + std::to_string(OrderOf(imIndex)))
            return imIndex;
    return 0;
}

} // namespace

const InterBandChoice* InterBandChoiceOf(int band) {
    const auto* const row = std::find_if(std::begin(Choices), std::end(Choices),
                                         [band](const auto& c) { return c.band == band; });
    return row != std::end(Choices) ? row : nullptr;
}

int InterBandOrder(const InterBandState& state) {
    const int flags[] = {state.g_InterIM2, state.g_InterIM3, state.g_InterIM4, state.g_InterIM5};
    for (int order = 2; order <= 5; ++order)
        if (flags[order - 2] != 0)
            return order;
    return 0;
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

bool InterBandFits(const InterBandState& state, int band) {
    const auto limits = LimitsOf(band, 0);
    return limits &&
           Between(static_cast<float>(limits->txLow), state.plan.f1, static_cast<float>(limits->txHigh));
}

InterBandSetup OpenInterBand(const Session& session) {
    const InterBandState& state = session.interBand;
    InterBandSetup setup;
    setup.band = session.select.m_BandId;
    setup.plan = state.plan;
    if (const InterBandChoice* choice = InterBandChoiceOf(setup.band)) {
        const auto& rx = choice->rxBands;
        const bool keepRx = std::find(rx.begin(), rx.end(), state.g_InterRxBand) != rx.end();
        setup.rxBand = keepRx ? state.g_InterRxBand : std::string(rx.front());
        setup.order = InterBandOrder(state);
        if (setup.order != choice->orders[1])
            setup.order = choice->orders[0];
    }
    PresetInterBand(setup);
    return setup;
}

void PresetInterBand(InterBandSetup& setup) {
    const auto* const row = std::find_if(std::begin(Presets), std::end(Presets), [&](const PresetRow& r) {
        return r.band == setup.band && r.rxBand == setup.rxBand && r.order == setup.order;
    });
    if (row == std::end(Presets))
        return;
    FrequencyPlan plan = row->plan;
    plan.step = setup.plan.step;
    const ImCoefficients c = InterBandCoefficients(setup.order);
    const auto product = static_cast<double>(ImFrequency(setup.band, c, setup.plan.f1, setup.plan.f2));
    if (product > row->rxLow - GridTolerance && product < row->rxHigh + GridTolerance) {
        plan.f1 = setup.plan.f1;
        plan.f2 = setup.plan.f2;
    }
    setup.plan = plan;
}

bool SwitchInterBandOn(const InterBandSetup& setup, Session& session, const Platform& platform) {
    const auto refuse = [&platform](std::string_view why) {
        platform.user.Message(why);
        return false;
    };
    if (setup.rxBand.empty())
        return refuse("Nichts Breite Selektiert");
    if (!Between(0.1f, setup.plan.step, LargestStep) || !CarriersInRange(setup.plan, setup.band))
        return refuse("Falsch, dichtesortierung.");
    if (setup.order == 0)
        return refuse("Auswaehlen IM");

    InterBandState& state = session.interBand;
    if (ImIndexOf(session.panel.m_IM_sel) != 0)
        state.orderText = session.panel.m_IM_sel;
    state.g_InterRxBand = setup.rxBand;
    state.g_InterIM2 = setup.order == 2;
    state.g_InterIM3 = setup.order == 3;
    state.g_InterIM4 = setup.order == 4;
    state.g_InterIM5 = setup.order == 5;
    state.plan = setup.plan;
    for (float FrequencyPlan::*frequency :
         {&FrequencyPlan::f1, &FrequencyPlan::f2, &FrequencyPlan::f1Start, &FrequencyPlan::f1Stop,
          &FrequencyPlan::f2Fix, &FrequencyPlan::f2Start, &FrequencyPlan::f2Stop, &FrequencyPlan::f1Fix,
          &FrequencyPlan::step})
        state.plan.*frequency = ToTenthOfMhz(setup.plan.*frequency);
    SetWorkingPlan(session, state.plan);
    session.select.m_IMIndex = InterBandIndex;
    session.panel.m_IM_sel = InterBandText(state);
    platform.user.Message("Please confirm what you set be valid for the device.");
    state.g_bInterBand = true;
    return true;
}

void SwitchInterBandOff(Session& session) {
    InterBandState& state = session.interBand;
    if (!state.g_bInterBand)
        return; // nothing to go back from
    session.select.m_IMIndex = ImIndexOf(state.orderText);
    session.panel.m_IM_sel = state.orderText;
    state.g_bInterBand = false;
}

std::string InterBandText(const InterBandState& state) {
    // shown to the operator
    return "Inter-band IM" + std::to_string(InterBandOrder(state));
}

void BuildInterBandGrid(CurveState& curve, int order, std::string_view rxBand) {
    std::ranges::fill(curve.g_freqGrid, 0.0f);
    const auto* const row = std::find_if(std::begin(Grids), std::end(Grids), [&](const GridRow& r) {
        return r.order == order && (r.rxBand.empty() || r.rxBand == rxBand);
    });
    if (row != std::end(Grids)) {
        for (std::size_t k = 0; k < row->longest; ++k) {
            const float frequency = row->from + static_cast<float>(k) * curve.g_SweepStep;
            // Entries lie on tenths of MHz, a hair of float beside them.
            if (!(static_cast<double>(frequency) < row->limit - GridTolerance))
                break;
            curve.g_freqGrid[k] = frequency;
        }
    }
    UpdatePixelsPerStep(curve);
}

void BuildGridInForce(Session& session, int band) {
    const InterBandState& state = session.interBand;
    const PlanState& plan = session.plan;
    if (state.g_bInterBand)
        BuildInterBandGrid(session.curve, InterBandOrder(state), state.g_InterRxBand);
    else
        BuildSweepGrid(session.curve, band, {plan.g_IMCoefHigh, plan.g_IMCoefLow}, WorkingPlan(session));
}

} // namespace qor
