#pragma once

#include "base/outcome.h"

namespace qor {

class SetupStore;
struct Session;

/// Shows levels in dBc, or in dBm again, and keeps the choice in `unit.ccz`. The stored levels stay in dBm;
/// only the limit and the texts of the panel are converted.
///
/// Refused to show dBc: no band is selected, or its tones differ in power.
Outcome SetLevelUnit(bool dbc, Session& session, SetupStore& store);

/// The conversion alone: the limit and the level texts of the panel move by g_CarrierDbm. Does nothing when
/// the unit is shown already.
void ConvertLevelUnit(bool dbc, Session& session);

/// Makes `carrier` (dBm) the reference of dBc. What the panel shows in dBc, the limit with it, moves along.
void SetCarrier(float carrier, Session& session);

} // namespace qor
