#pragma once

#include "base/outcome.h"

namespace qor {

class SetupStore;
class Launcher;

/// Unpacks the side tool, the program kept as `QorTool.ccz`, and starts it; it goes its own way from there.
/// Refused when this installation has none or it cannot be started.
Outcome StartSideTool(const SetupStore& store, Launcher* launcher);
/// Takes the unpacked tool away; the store stays.
void RemoveSideTool(SetupStore& store);

} // namespace qor
