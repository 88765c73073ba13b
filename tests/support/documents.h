#pragma once

#include "results/result_document.h"

#include <random>

namespace qor {

/// Results as a reader of files gives them: a plan in its band, levels in two decimals of the unit.

/// A curve of one run with the shape of a measured one; the same seed gives the same result. `points` is the
/// number of levels in each half, or of a 2-tone run; some are missing.
[[nodiscard]] ResultDocument RandomDocument(unsigned seed, ResultMethod method, std::size_t points);

} // namespace qor
