#pragma once

#include "bands/inter_band.h"
#include "base/outcome.h"

#include <string>

namespace qor {

class InterBandMode;
class WorkingSet;

/// One filling-in of the inter-band dialog.
struct InterBandSetup {
    int band = BandNone; ///< of the carriers
    std::string rxBand;  ///< empty when the carrier band has no inter-band use
    int order = 0;       ///< 2 to 5, 0 when none is chosen
    FrequencyPlan plan;
};

/// The dialog as it opens for the selected band, its frequencies preset.
[[nodiscard]] InterBandSetup OpenInterBand(const WorkingSet& working, const InterBandMode& mode);
/// Frequencies for the receive band and order chosen.
void PresetInterBand(InterBandSetup& setup);
/// Takes the set-up over, rounded to 0.1 MHz, and turns the mode on. Refused when there is no receive band or
/// no order, the step is below 0.1 MHz, or a carrier leaves its band or runs the wrong way.
[[nodiscard]] Outcome SwitchInterBandOn(const InterBandSetup& setup, WorkingSet& working,
                                        InterBandMode& mode);
/// Back to the ordinary order that was selected before.
void SwitchInterBandOff(WorkingSet& working, InterBandMode& mode);

} // namespace qor
