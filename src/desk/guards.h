#pragma once

#include "base/outcome.h"

namespace qor {

class Program;
struct Platform;
struct Session;

/// Refused while a measurement is running, or something on a service page.
Outcome NothingRuns(const Session& session);
/// The same, and while the calibration page is open: it has the band and the method that it was opened with.
Outcome RunIsOff(const Session& session);
/// A question is near: carriers that a free command has switched on go off first.
void OrderCarriersOff(Session& session);
/// Refused while files are on their way: pages of a series, or a run that auto-save has still to write.
Outcome NothingIsSaved(const Program& program);
/// Refused while the port is closed.
Outcome PortIsOpen(const Platform& platform);
/// Refused while the instrument is not ready and the shown curve came from a file: its set-up is the file's.
Outcome MayChangeSetup(const Session& session);

} // namespace qor
