#pragma once

namespace qor {

class SetupStore;
struct Platform;

/// Unpacks the side tool, the program kept as `QorTool.ccz`, and starts it; it goes its own way from there.
/// False, with a message, when this installation has none or it cannot be started.
bool StartSideTool(const SetupStore& store, const Platform& platform);
/// Takes the unpacked tool away; the store stays.
void RemoveSideTool(SetupStore& store);

} // namespace qor
