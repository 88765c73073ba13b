// Any bytes as the content of a store: what is read of them has to be usable.

#include "bands/plan_check.h"
#include "bands/records.h"
#include "bands/rx_loss.h"
#include "base/setup_store.h"
#include "base/tenths.h"
#include "base/text_format.h"
#include "desk/setup/plan_setup.h"
#include "fuzz/fuzz.h"

#include <cmath>

namespace {

using qor::test::Require;

/// What a page makes of a stored plan.
void CheckPage(const qor::FrequencyPlan& plan, int band, int imIndex) {
    const qor::PlanVerdict verdict = qor::CheckPlan(plan, band, imIndex);
    Require(verdict.fits == verdict.wrong.empty());
    Require(verdict.fits == (verdict.text.find("!!!") == std::string::npos));
    for (const qor::PlanValue value : qor::PlanStoreOrder)
        Require(static_cast<float>(qor::EnteredNumber(qor::FieldText(plan.*value)).value()) == plan.*value);
    (void)qor::SubBandTest(plan, band, imIndex, false);
    for (const bool forDefault : {false, true}) {
        if (!qor::SaveTest(plan, band, imIndex, forDefault))
            continue;
        // What may be stored fills its record, and comes back as what may be stored.
        const std::string record = qor::PlanRecord(plan);
        Require(record.size() == 45 && record.find_first_not_of("0123456789") == std::string::npos);
        Require(qor::ParsePlan(record).has_value());
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);

    if (const auto plan = qor::ParsePlan(text))
        Require(qor::PlanRecord(*plan) == text.substr(0, 45));
    qor::FrequencyPlan typed;
    for (std::size_t i = 0; i < qor::PlanStoreOrder.size() && 5 * i < size; ++i) {
        if (const auto entered = qor::EnteredNumber(text.substr(5 * i, 5));
            entered && std::abs(*entered) < 1e9)
            typed.*qor::PlanStoreOrder[i] = static_cast<float>(*entered);
    }
    CheckPage(typed, static_cast<int>(size % 23), 1 + static_cast<int>(size / 23 % 5));
    if (const auto power = qor::ParsePower(text))
        Require(power->tone1 + power->tone2 == text.substr(0, 10));

    for (const float loss : qor::ParseRxLoss(text).losses)
        Require(loss >= -99.9f && loss <= 9.9f);

    const double number = qor::NumberIn(text);
    Require(std::isfinite(number));
    Require(qor::WholeNumberIn(text) == 0 || std::abs(number) >= 1);
    if (const auto entered = qor::EnteredNumber(text))
        Require(std::isfinite(*entered) && *entered == number);
    const int tenths = qor::ToTenths(number);
    Require(qor::WholeNumberIn(qor::TenthsText(number)) == tenths);
    for (int decimals = 0; decimals <= 3; ++decimals)
        Require(!qor::Fixed(number, decimals).empty());
    return 0;
}
