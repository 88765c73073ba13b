#include "measure/inter_band.h"

#include "base/tenths.h"
#include "link/inter_band_mode.h"
#include "link/working_set.h"

#include <algorithm>

namespace qor {

namespace {

constexpr float SmallestStep = 0.1f;
constexpr float LargestStep = 9999.9f; ///< five digits of tenths

float ToTenthOfMhz(float frequency) {
    return static_cast<float>(ToTenths(static_cast<double>(frequency)) / 10.0);
}

} // namespace

InterBandSetup OpenInterBand(const WorkingSet& working, const InterBandMode& mode) {
    InterBandSetup setup;
    setup.band = working.Band();
    setup.plan = mode.Plan();
    if (const InterBandChoice* choice = InterBandChoiceOf(setup.band)) {
        const auto& rx = choice->rxBands;
        const bool keepRx = std::find(rx.begin(), rx.end(), mode.RxBand()) != rx.end();
        setup.rxBand = keepRx ? mode.RxBand() : std::string(rx.front());
        setup.order = mode.Order() == choice->orders[1] ? choice->orders[1] : choice->orders[0];
    }
    PresetInterBand(setup);
    return setup;
}

void PresetInterBand(InterBandSetup& setup) {
    setup.plan = InterBandPreset(setup.band, setup.rxBand, setup.order, setup.plan);
}

Outcome SwitchInterBandOn(const InterBandSetup& setup, WorkingSet& working, InterBandMode& mode) {
    if (setup.rxBand.empty())
        return Outcome::Refused("Nichts Breite Selektiert");
    const float step = setup.plan.step;
    if (!(step >= SmallestStep && step <= LargestStep) || !InterBandCarriersFit(setup.plan, setup.band))
        return Outcome::Refused("Falsch, dichtesortierung.");
    if (setup.order == 0)
        return Outcome::Refused("Auswaehlen IM");

    FrequencyPlan plan;
    for (float FrequencyPlan::*frequency :
         {&FrequencyPlan::f1, &FrequencyPlan::f2, &FrequencyPlan::f1Start, &FrequencyPlan::f1Stop,
          &FrequencyPlan::f2Fix, &FrequencyPlan::f2Start, &FrequencyPlan::f2Stop, &FrequencyPlan::f1Fix,
          &FrequencyPlan::step})
        plan.*frequency = ToTenthOfMhz(setup.plan.*frequency);
    mode.SwitchOn(setup.rxBand, setup.order, plan, working.ImIndex());
    working.SetPlan(plan);
    working.SetInterBand(InterBandCoefficients(setup.order));
    working.SelectOrder(InterBandIndex);
    return Outcome::DoneWith("Please confirm what you set be valid for the device.");
}

void SwitchInterBandOff(WorkingSet& working, InterBandMode& mode) {
    if (!mode.IsOn())
        return; // nothing to go back from
    working.SetInterBand({});
    working.SelectOrder(mode.SwitchOff());
}

} // namespace qor
