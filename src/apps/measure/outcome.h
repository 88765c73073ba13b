#pragma once

#include "curve/verdict.h"

#include <string>
#include <vector>

namespace qor {
struct Session;
}

namespace qor::app {

struct Options;

enum ExitStatus : int {
    Passed = 0,
    LimitExceeded = 1,
    InstrumentError = 2,
    NoInstrument = 3, ///< no verdict
    BadRequest = 4,
    FileFailed = 5,
};

struct CallResult {
    ExitStatus status = NoInstrument;
    std::string message; ///< what went wrong, empty otherwise
    std::vector<std::string> files;
};

/// What is known of the measurement, always held against the limit.
[[nodiscard]] RunFacts MeasuredFacts(const Session& session);

/// One JSON object in one line. `session` may be null when it never came to one.
[[nodiscard]] std::string ToJson(const CallResult& outcome, const Options* options, const Session* session);
/// The same for a person.
[[nodiscard]] std::string ToText(const CallResult& outcome, const Options& options, const Session& session);
} // namespace qor::app
