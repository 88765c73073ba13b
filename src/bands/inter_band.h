#pragma once

#include "bands/band.h"

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace qor {

// Products in the receive band of another band than the carriers'.

/// Order index while the inter-band mode is on: no ordinary order.
inline constexpr int InterBandIndex = 6;

/// What a carrier band leaves to choose.
struct InterBandChoice {
    int band;
    std::span<const std::string_view>
        rxBands;               ///< "DCS 1800", "PCS 1900", "UMTS 2100"; the first is the default
    std::array<int, 2> orders; ///< 2 to 5, the first one is the default
};
/// Choices of a carrier band, null for a band without inter-band use.
[[nodiscard]] const InterBandChoice* InterBandChoiceOf(int band);

/// Product of an order: IM2 is f1 + f2, IM3 2 f1 - f2, IM4 3 f1 - f2, IM5 3 f1 - 2 f2.
[[nodiscard]] ImCoefficients InterBandCoefficients(int order);
/// What the panel and the reports show for an order: "Inter-band IM2".
[[nodiscard]] std::string InterBandText(int order);

/// Frequencies for a carrier band, receive band and order: the 2-tone pair of `now` stays when its product
/// lies in the receive range, the sweep is always the standard one, the step is left alone.
[[nodiscard]] FrequencyPlan InterBandPreset(int band, std::string_view rxBand, int order,
                                            const FrequencyPlan& now);
/// IM frequencies of a sweep, MHz: the receive range in steps, at most as many as a curve holds.
[[nodiscard]] std::vector<float> InterBandGrid(int order, std::string_view rxBand, float step);

/// True when tone 1 of the 2-tone test lies in the carrier range of a band.
[[nodiscard]] bool InterBandFits(const FrequencyPlan& plan, int band);
/// True when all tones lie in the carrier range of a band, the rising sweep rises and the falling one falls.
[[nodiscard]] bool InterBandCarriersFit(const FrequencyPlan& plan, int band);

} // namespace qor
