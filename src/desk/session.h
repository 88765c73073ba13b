#pragma once

#include "curve/alarm.h"
#include "curve/curve.h"
#include "curve/markers.h"
#include "curve/readout.h"
#include "desk/appearance.h"
#include "desk/user_modes.h"
#include "link/inter_band_mode.h"
#include "link/link_state.h"
#include "link/working_set.h"
#include "measure/run.h"
#include "receivers/receiver_state.h"
#include "results/result_state.h"
#include "service/factory_mode.h"
#include "service/response_pane.h"

namespace qor {

/// All state of one session. Plain data: every rule lives in the rooms that own the fields.
struct Session {
    WorkingSet working;
    LinkState link;
    Run run;
    RunSettings runs;
    InterBandMode interBand;
    Curve curve;
    AlarmState alarm;
    Markers markers{curve};
    ResultState results;
    ReceiverState receiver;
    UserState user;
    Readout readout;
    Appearance appearance;
    bool lossInfoShown = false; ///< the line about compensation and cable loss, once one was set
    FactoryMode factory;
    ResponsePane response;
};

/// True once the chain from power-on is over: a run can begin.
[[nodiscard]] inline bool IsInitialised(const Session& session) {
    return IsInitialised(session.link);
}

/// The file whose curve is in the plot; null when that was measured, or is empty.
[[nodiscard]] inline const ResultDocument* ShownFile(const Session& session) {
    return session.curve.IsFromFile() ? session.results.loaded.Document() : nullptr;
}

} // namespace qor
