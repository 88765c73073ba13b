#pragma once

#include "bands/inter_band.h"

#include <string>
#include <utility>

namespace qor {

class Curve;
class WorkingSet;

/// The inter-band mode: carriers in one band, the product looked for in the receive band of another. It lasts
/// until it is switched off or the program ends.
class InterBandMode {
public:
    [[nodiscard]] bool IsOn() const { return g_bInterBand; }
    [[nodiscard]] const std::string& RxBand() const { return g_InterRxBand; }
    [[nodiscard]] int Order() const { return m_Order; } ///< 2 to 5; 0: none was ever set
    /// The frequencies that were set for the mode. A result that is shown in between, or a band activation,
    /// may change the working set; each start of the mode takes these again.
    [[nodiscard]] const FrequencyPlan& Plan() const { return m_Plan; }

    /// `indexBefore` is the order index to go back to; one that is no ordinary order changes nothing there.
    void SwitchOn(std::string rxBand, int order, const FrequencyPlan& plan, int indexBefore) {
        if (indexBefore >= 1 && indexBefore < InterBandIndex)
            m_IndexBefore = indexBefore;
        g_bInterBand = true;
        g_InterRxBand = std::move(rxBand);
        m_Order = order;
        m_Plan = plan;
    }
    /// The order index to go back to.
    int SwitchOff() {
        g_bInterBand = false;
        return m_IndexBefore;
    }

private:
    bool g_bInterBand = false;
    std::string g_InterRxBand; ///< "DCS 1800", "PCS 1900" or "UMTS 2100"
    int m_Order = 0;           ///< g_InterIM2 to g_InterIM5: which of them is set
    FrequencyPlan m_Plan;      ///< MHz
    int m_IndexBefore = 0;     ///< 0: none
};

/// Lays the grid of the sweep that a start would make now with the plan in force, inter-band or ordinary.
void BuildGridInForce(Curve& curve, int band, const WorkingSet& working, const InterBandMode& interBand);

} // namespace qor
