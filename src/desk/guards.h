#pragma once

#include "base/outcome.h"

namespace qor {

class PageSeries;
struct Platform;
struct Session;

/// Refused while a measurement is running.
Outcome RunIsOff(const Session& session);
/// Refused while pages of a series are being written.
Outcome SeriesIsOff(const PageSeries& series);
/// Refused while the port is closed.
Outcome PortIsOpen(const Platform& platform);
/// Refused while the instrument is not ready and the shown curve came from a file: its set-up is the file's.
Outcome MayChangeSetup(const Session& session);

} // namespace qor
