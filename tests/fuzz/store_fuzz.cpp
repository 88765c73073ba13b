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
        Require(qor::ParsePlan(qor::ParseTenths(record, 9)).has_value());
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);

    const auto values = qor::ParseTenths(text, 9);
    Require(values.size() == std::min<std::size_t>((size + 4) / 5, 9));
    for (const float value : values)
        Require(std::isfinite(value));

    if (const auto plan = qor::ParsePlan(values))
        Require(static_cast<double>(plan->step) >= 0.1);
    CheckPage(qor::PlanIn(values), static_cast<int>(size % 23), 1 + static_cast<int>(size / 23 % 5));
    const auto power = qor::ParsePower(values);
    Require(power.tone1.size() >= 5 && power.tone2.size() >= 5);
    Require(power.tone1.find_first_not_of("-0123456789") == std::string::npos);

    for (const float loss : qor::ParseRxLoss(text))
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
