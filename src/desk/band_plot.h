#pragma once

namespace qor {

struct Session;

/// The band and order selected have become the working set: the tones, the product and the grid of a run with
/// them are shown, and the plot is empty.
void ShowWorkingSet(Session& session);

} // namespace qor
