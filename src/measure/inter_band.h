#pragma once

#include "bands/band.h"

#include <array>
#include <span>
#include <string>
#include <string_view>

namespace qor {

struct CurveState;
struct Platform;
struct Session;

/// m_IMIndex while the inter-band mode is on: no ordinary order.
inline constexpr int InterBandIndex = 6;

/// The inter-band mode: carriers in one band, the product looked for in the receive band of another. It lasts
/// until it is switched off or the program ends.
struct InterBandState {
    bool g_bInterBand = false;
    std::string g_InterRxBand; ///< "DCS 1800", "PCS 1900" or "UMTS 2100"
    int g_InterIM2 = 0;        ///< one of the four is 1
    int g_InterIM3 = 0;
    int g_InterIM4 = 0;
    int g_InterIM5 = 0;
    /// The frequencies that were set for the mode. A result that is shown in between, or a band activation,
    /// may change the working set; each start of the mode takes these again.
    FrequencyPlan plan;
    std::string orderText; ///< m_IM_sel to go back to, "IM7"
};

/// What a carrier band leaves to choose.
struct InterBandChoice {
    int band;
    std::span<const std::string_view> rxBands; ///< the first one is the default
    std::array<int, 2> orders;                 ///< 2 to 5, the first one is the default
};

/// One filling-in of the inter-band dialog.
struct InterBandSetup {
    int band = BandNone; ///< of the carriers
    std::string rxBand;  ///< empty when the carrier band has no inter-band use
    int order = 0;       ///< 2 to 5, 0 when none is chosen
    FrequencyPlan plan;
};

/// Choices of a carrier band, null for a band without inter-band use.
[[nodiscard]] const InterBandChoice* InterBandChoiceOf(int band);
/// Order chosen last, 2 to 5; 0 when there is none.
[[nodiscard]] int InterBandOrder(const InterBandState& state);
/// Product of an order: IM2 is f1 + f2, IM3 2 f1 - f2, IM4 3 f1 - f2, IM5 3 f1 - 2 f2.
[[nodiscard]] ImCoefficients InterBandCoefficients(int order);
/// True when tone 1 of the 2-tone test lies in the carrier range of a band.
[[nodiscard]] bool InterBandFits(const InterBandState& state, int band);

/// The dialog as it opens for the selected band, with the frequencies of PresetInterBand.
[[nodiscard]] InterBandSetup OpenInterBand(const Session& session);
/// Frequencies for the receive band and order chosen: the 2-tone pair stays when its product lies in the
/// receive range, the sweep is always the standard one, the step is left alone.
void PresetInterBand(InterBandSetup& setup);
/// Takes the set-up over, rounded to 0.1 MHz, and turns the mode on. False, with a message and nothing
/// changed, when there is no receive band or no order, the step is below 0.1 MHz, or a carrier leaves its
/// band or runs the wrong way.
bool SwitchInterBandOn(const InterBandSetup& setup, Session& session, const Platform& platform);
/// Back to the ordinary order that was selected before.
void SwitchInterBandOff(Session& session);
/// What the panel shows for the order while the mode is on: "Inter-band IM2".
[[nodiscard]] std::string InterBandText(const InterBandState& state);

/// Grid of an inter-band sweep: the receive range in steps of g_SweepStep. Sets g_freqGrid and g_pxPerStep.
void BuildInterBandGrid(CurveState& curve, int order, std::string_view rxBand);
/// Grid of the sweep that a start would make now with the working plan in `band`, inter-band or ordinary.
void BuildGridInForce(Session& session, int band);

} // namespace qor
