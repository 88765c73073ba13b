#pragma once

namespace qor {

struct Platform;
struct Session;

/// Guards of the commands: each is true when nothing is in the way, and otherwise has told the operator.

/// No measurement is on.
[[nodiscard]] bool RunIsOff(const Session& session, const Platform& platform);
[[nodiscard]] bool PortIsOpen(const Platform& platform);
/// A curve from a file is not to be set up anew while the instrument is not ready.
[[nodiscard]] bool MayChangeSetup(const Session& session, const Platform& platform);

} // namespace qor
