#pragma once

namespace qor {

class Curve;

/// True when there are enough runs for the choice of one, counted from 1, to mean something.
[[nodiscard]] bool CanShowRun(const Curve& curve, int run);
/// Shows that run alone; the one shown already, or 0, means all again. False for a number beyond the runs set
/// up.
bool ShowRun(int run, Curve& curve);

} // namespace qor
