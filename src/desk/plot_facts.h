#pragma once

#include "curve/plot_scene.h"

namespace qor {

struct Session;

/// What the plot shows of a session on the screen. The marks, the translation and the size of the screen are
/// left to the caller.
[[nodiscard]] PlotFacts FactsOf(const Session& session);

} // namespace qor
