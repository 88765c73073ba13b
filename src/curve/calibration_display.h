#pragma once

#include "curve/limit.h"
#include "curve/plot_scale.h"

#include <optional>

namespace qor {

/// The curves in the plot may be powers read back after a calibration, not products. A power is kept 150 dB
/// lower, so that it lies where a level is one, and shown 150 dB higher. What the operator has set for his
/// measurements stands aside until the next start.
class CalibrationDisplay {
public:
    static constexpr float Shift = 150; ///< dB

    [[nodiscard]] bool IsOn() const { return g_calDisplay != 0; }

    /// What is in force is set aside: nothing is judged, and the scale reaches from a dB below the lowest
    /// level to a dB above the highest.
    void Begin(Limit& limit, PlotScale& scale, int runs, int lowest, int highest) {
        if (!IsOn())
            m_Kept = {limit, scale.Top(), scale.Bottom(), runs};
        g_calDisplay = 1;
        limit.Take(0);
        limit.SetAlarm(false);
        limit.SetStamp(false);
        scale.SetRange(static_cast<float>(highest + 1) - Shift, static_cast<float>(lowest - 1) - Shift);
    }
    /// The operator's again; his number of runs.
    int End(Limit& limit, PlotScale& scale) {
        g_calDisplay = 0;
        limit = m_Kept.limit;
        scale.SetRange(m_Kept.top, m_Kept.bottom);
        return m_Kept.runs;
    }

private:
    struct Kept {
        Limit limit; ///< g_alarmKept and its switches
        float top = 0;
        float bottom = 0;
        int runs = 1;
    };

    int g_calDisplay = 0; ///< 1: such a run is on, or its curves are in the plot
    Kept m_Kept;
};

} // namespace qor
