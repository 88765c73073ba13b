#pragma once

namespace qor {

struct Session;

/// True when there are enough runs for the choice of one, counted from 1, to mean something.
[[nodiscard]] bool CanShowRun(const Session& session, int run);
/// Shows that run alone; the one shown already, or 0, means all again. The curve in view is judged anew, but
/// an error of the instrument stays. False during a run and for a number
/// beyond the runs set up.
bool ShowRun(int run, Session& session);

} // namespace qor
