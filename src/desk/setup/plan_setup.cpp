#include "desk/setup/plan_setup.h"

#include "bands/catalogue.h"
#include "bands/records.h"
#include "base/setup_store.h"
#include "link/commands.h"
#include "link/working_set.h"

#include <array>
#include <charconv>

namespace qor {

namespace {

bool HasOwnDefault(int band) {
    return FindBand(band) && band != BandTetra390 && band != BandTetra392;
}

} // namespace

PlanSetup::PlanSetup(int band, int imIndex, WorkingSet& working, CommandQueue& queue, SetupStore& store,
                     bool factory)
    : m_Band(band), m_IMIndex(imIndex), m_Working(working), m_Queue(queue), m_Store(store),
      m_Factory(factory) {
    const BandInfo* const info = FindBand(band);
    const auto stored = info ? ReadPlanStore(store, info->prefix, imIndex) : std::nullopt;
    Edit(stored ? *stored : DefaultPlan(band, imIndex, working.Bridge()).value_or(FrequencyPlan{}));
}

std::string_view PlanSetup::BandRangesText() const {
    const BandInfo* const info = FindBand(m_Band);
    return info ? CarrierText(*info, m_IMIndex) : std::string_view();
}

bool PlanSetup::OffersDefault() const {
    return m_Factory && HasOwnDefault(m_Band);
}

void PlanSetup::Edit(const FrequencyPlan& plan) {
    m_Plan = plan;
    m_Verdict = CheckPlan(m_Plan, m_Band, m_IMIndex);
}

void PlanSetup::Standard() {
    std::optional<FrequencyPlan> plan;
    if (HasOwnDefault(m_Band))
        plan = ReadPlan(m_Store, DefaultPlanStoreName(FindBand(m_Band)->prefix, m_IMIndex));
    if (!plan)
        plan = DefaultPlan(m_Band, m_IMIndex, m_Working.Bridge());
    Edit(plan.value_or(m_Plan)); // the TETRA bands have none at IM11
}

Outcome PlanSetup::Save() {
    Outcome stored = Store(false);
    if (stored) {
        m_Working.DropSessionPlan(); // of a file: this one is newer
        QueuePlan();
    }
    return stored;
}

Outcome PlanSetup::SaveDefault() {
    return OffersDefault() ? Store(true) : Outcome::Refused({});
}

Outcome PlanSetup::Store(bool forDefault) {
    const BandInfo* const info = FindBand(m_Band);
    if (!info || !SaveTest(m_Plan, m_Band, m_IMIndex, forDefault))
        return Outcome::Refused("Falsch, dichtesortierung.");
    const std::string name =
        forDefault ? DefaultPlanStoreName(info->prefix, m_IMIndex) : PlanStoreName(info->prefix, m_IMIndex);
    if (!m_Store.Write(name, PlanRecord(m_Plan)))
        return Outcome::Refused("Oeffnen file Misserfolg");
    if (m_Working.Bridge() == 0 && !SubBandTest(m_Plan, m_Band, m_IMIndex, forDefault))
        return Outcome::DoneWith("Please confirm what you set be valid for the device.");
    return Outcome::Done();
}

/// The tones that a sweep holds are sent when it starts.
void PlanSetup::QueuePlan() {
    if (m_Working.Band() != m_Band)
        return;
    const auto queue = [this](std::string_view what, float mhz) {
        m_Queue.Append(WithTenths(what, static_cast<double>(mhz)));
    };
    queue(command::Frequency1, m_Plan.f1);
    queue(command::Frequency2, m_Plan.f2);
    if (m_Working.ImIndex() != m_IMIndex)
        return;
    queue(command::SweepStart1, m_Plan.f1Start);
    queue(command::SweepStart2, m_Plan.f2Start);
    queue(command::SweepStop1, m_Plan.f1Stop);
    queue(command::SweepStop2, m_Plan.f2Stop);
    queue(command::SweepStep, m_Plan.step);
}

std::string FieldText(float mhz) {
    std::array<char, 64> digits; // the longest float has 39 before the point or 45 behind it
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), mhz, std::chars_format::fixed);
    std::string text(digits.data(), end.ptr);
    return text.find('.') == std::string::npos ? text + ".0" : text;
}

} // namespace qor
