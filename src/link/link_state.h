#pragma once

#include "link/carriers.h"
#include "link/chain.h"
#include "link/command_queue.h"
#include "link/connection_state.h"
#include "link/given.h"
#include "link/identity.h"
#include "link/switch_unit_state.h"
#include "link/transaction.h"

namespace qor {

/// The line to the instrument, gathered. Whoever measures queues commands; everything else is the link's own.
struct LinkState {
    CommandQueue queue;
    Transaction transaction;
    Identity identity;
    Chain chain;
    SwitchPosition position;
    GivenToInstrument given;
    Carriers carriers;
    ConnectionState connection;
    SwitchUnitState unit;
};

/// A run can begin: the conversation is over, contact was not lost since, and the port is not being closed.
[[nodiscard]] inline bool IsInitialised(const LinkState& link) {
    return link.chain.IsReady() && !link.connection.IsClosing();
}
/// A band can be chosen: the instrument has answered, or waits for the choice.
[[nodiscard]] inline bool MayChooseBand(const LinkState& link) {
    return (link.chain.HasAnswered() || link.chain.WaitsForChoice()) && !link.connection.IsClosing();
}
/// The port in use is one on which our instrument has said who it is: nothing but the question who is there
/// goes to any other.
[[nodiscard]] inline bool IsOurPort(const LinkState& link) {
    const bool hasAnswered = link.identity.HasModel() || link.connection.InstrumentAnswered();
    return hasAnswered && !link.connection.IsProbing();
}
/// Nothing is queued and no reply is awaited.
[[nodiscard]] inline bool LineIsIdle(const LinkState& link) {
    return link.queue.Empty() && link.transaction.IsIdle();
}

} // namespace qor
