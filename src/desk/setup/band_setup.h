#pragma once

#include "base/outcome.h"

#include <string>
#include <string_view>

namespace qor {

class SetupStore;
class CommandQueue;
class WorkingSet;

/// Captions of a band's set-up dialog.
struct SetupCaptions {
    std::string_view title;
    std::string_view group;
    std::string_view power1;
    std::string_view power2;
    std::string_view synchron;
    std::string_view save;
    std::string_view standard;
    std::string_view close;
};

/// True for the bands that have a set-up dialog.
[[nodiscard]] bool HasSetup(int band);
/// True for those among them that have frequency pages: all but TD-SCDMA-A.
[[nodiscard]] bool HasPlanPages(int band);
/// Of a band that has a set-up dialog.
[[nodiscard]] SetupCaptions CaptionsOf(int band);

/// Tone 2 of TD-SCDMA-A, MHz.
inline constexpr float TdScdmaAF2 = 2025.0f;

/// Keeps f1 of TD-SCDMA-A (MHz, 0.1 to 9999.9) in `tdb_f1.ccz` and, while the band is in use, queues both
/// tones for the instrument. Refused when f1 does not fit the five digits of a command or the store cannot be
/// written.
Outcome SaveTdScdmaAF1(double f1, const WorkingSet& working, CommandQueue& queue, SetupStore& store);

} // namespace qor
