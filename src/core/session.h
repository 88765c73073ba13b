#pragma once

#include "bands/plan_state.h"
#include "core/appearance.h"
#include "core/panel.h"
#include "core/user_modes.h"
#include "display/alarm.h"
#include "display/curve_state.h"
#include "display/marker_state.h"
#include "link/link_state.h"
#include "measure/inter_band.h"
#include "measure/run_state.h"
#include "receivers/receiver_state.h"
#include "results/result_state.h"

namespace qor {

/// The operator's selection.
struct SelectionState {
    int m_BandId = BandNone;
    int m_IMIndex = 1;  ///< 1 IM3 to 5 IM11, the order is twice this and one; 6 in the inter-band mode
    int m_PathMode = 1; ///< 1 reflection, 2 transmission
};

/// All state of one session. Plain data: every rule lives in the rooms that own the fields.
struct Session {
    SelectionState select;
    LinkState link;
    RunState run;
    InterBandState interBand;
    PlanState plan;
    CurveState curve;
    AlarmState alarm;
    MarkerState markers;
    ResultState results;
    ReceiverState receiver;
    UserState user;
    Panel panel;
    AppearanceState appearance;
    bool g_factoryMode = false; ///< the maker's own commands are offered
};

/// True once the chain from power-on is over: a run can begin.
[[nodiscard]] inline bool IsInitialised(const Session& session) {
    return session.link.g_InitLamp >= LampStatus && !session.link.g_bInitFlush;
}

/// Order number of an order index: 3, 5, 7, 9, 11.
[[nodiscard]] constexpr int OrderOf(int imIndex) {
    return 2 * imIndex + 1;
}

} // namespace qor
