#pragma once

#include "base/outcome.h"
#include "platform/operator.h"

namespace qor {

/// Gives the operator what an outcome has to say; true when it was done.
inline bool Tell(const Outcome& outcome, Operator& user) {
    if (outcome.Text().empty())
        return outcome.IsDone();
    if (outcome.IsDone())
        user.Message(outcome.Text(), outcome.Title());
    else
        user.Failure(outcome.Text(), outcome.Title());
    return outcome.IsDone();
}

} // namespace qor
