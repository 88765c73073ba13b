#pragma once

namespace qor {

class SetupStore;
struct Platform;
struct Session;

/// In dBc the reference is the power of the selected band that reaches the device: it follows every change of
/// band and every start. The limit keeps its level in dBm. A band whose tones differ has no such power: the
/// unit is dBm then, and the operator is told.
void FollowBandPower(Session& session, const Platform& platform, SetupStore& store);

} // namespace qor
