#pragma once

#include "base/outcome.h"

namespace qor {

class Program;
struct Platform;
struct Session;

/// Refused while a measurement is running.
Outcome RunIsOff(const Session& session);
/// Refused while files are on their way: pages of a series, or a run that auto-save has still to write.
Outcome NothingIsSaved(const Program& program);
/// Refused while the port is closed.
Outcome PortIsOpen(const Platform& platform);
/// Refused while the instrument is not ready and the shown curve came from a file: its set-up is the file's.
Outcome MayChangeSetup(const Session& session);

} // namespace qor
