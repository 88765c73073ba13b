#include "link/band_activation.h"

#include "bands/catalogue.h"
#include "bands/records.h"
#include "base/setup_store.h"
#include "base/tenths.h"
#include "link/command_queue.h"
#include "link/commands.h"
#include "link/firmware.h"
#include "link/working_set.h"

namespace qor {

namespace {

constexpr int HighestTenths = 460; ///< 46.0 dBm

/// A band that takes part in band activation; null for the others.
const BandInfo* ActiveBand(int number) {
    const BandInfo* const band = FindBand(number);
    return band && band->number != BandWifi ? band : nullptr;
}

} // namespace

bool BandActivation::TakesPart(int band) {
    return ActiveBand(band) != nullptr;
}

std::string BandActivation::PowerCommand(std::string_view command, std::string_view stored,
                                         std::string_view compensation) {
    const double dBm = NumberIn(stored) / 10.0 + NumberIn(compensation);
    if (ToTenths(dBm) > HighestTenths)
        return {};
    return std::string(command) + TenthsText(dBm).substr(0, 5);
}

Outcome BandActivation::Fits(std::string_view power1, std::string_view power2, const WorkingSet& working) {
    if (PowerCommand(command::Power1, power1, working.Compensation1()).empty())
        return Outcome::Refused("f1The maximum value cannot be greater than 46dbm");
    if (PowerCommand(command::Power2, power2, working.Compensation2()).empty())
        return Outcome::Refused("f2The maximum value cannot be greater than 46dbm");
    return Outcome::Done();
}

bool BandActivation::PowersFit() const {
    const BandInfo* const band = ActiveBand(m_Working.Band());
    if (!band)
        return true;
    const PowerSetting power = ReadPowerStore(m_Store, band->prefix);
    return Fits(power.tone1, power.tone2, m_Working).IsDone();
}

Outcome BandActivation::Activate(float firmware) {
    m_HasOrder = true;
    if (!m_Working.InterBand())
        m_Working.SetStep(1.0f);
    const BandInfo* const band = ActiveBand(m_Working.Band());
    if (!band) // nothing to set, and the others can still be chosen
        return m_Working.Band() != BandNone ? Outcome::Done() : Outcome::Refused({});
    m_Working.SetPower(ReadPowerStore(m_Store, band->prefix));
    TakeFrequencies(band->number);
    if (HasRecut(firmware))
        m_Queue.Append(command::SettingsLoaded);
    for (const std::string& power :
         {PowerCommand(command::Power1, m_Working.Power1(), m_Working.Compensation1()),
          PowerCommand(command::Power2, m_Working.Power2(), m_Working.Compensation2())}) {
        if (power.empty())
            break; // a tone before it goes out all the same
        m_Queue.Append(power);
    }
    return Fits(m_Working.Power1(), m_Working.Power2(), m_Working);
}

void BandActivation::TakeFrequencies(int band) {
    if (const auto& product = m_Working.InterBand()) {
        m_Working.SetCoefficients(*product);
        return;
    }
    const int imIndex = m_Working.ImIndex();
    m_Working.SetCoefficients(CoefficientsOf(imIndex));
    const auto wanted = OperatorsPlan(m_Working, m_Store, band, imIndex);
    if (band == BandTdScdmaA) {
        m_Working.SetTones(wanted->f1, wanted->f2);
        return; // measured at these two tones only
    }
    const auto builtIn = ActivationPlan(band, imIndex, m_Working.Bridge());
    m_HasOrder = builtIn.has_value();
    if (builtIn)
        m_Working.SetPlan(*builtIn);
    if (wanted) {
        m_Working.SetPlan(*wanted);
        QueuePlan();
    }
}

/// Built-in values reach the instrument with the first run.
void BandActivation::QueuePlan() {
    const FrequencyPlan& plan = m_Working.Plan();
    const std::pair<std::string_view, float> values[] = {
        {command::Frequency1, plan.f1},       {command::Frequency2, plan.f2},
        {command::SweepStart1, plan.f1Start}, {command::SweepStart2, plan.f2Start},
        {command::SweepStop1, plan.f1Stop},   {command::SweepStop2, plan.f2Stop},
        {command::SweepStep, plan.step},
    };
    for (const auto& [command, mhz] : values)
        m_Queue.Append(WithTenths(command, static_cast<double>(mhz)));
}

} // namespace qor
