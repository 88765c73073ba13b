#pragma once

namespace qor {

class SetupStore;
struct Session;

/// Drops the stores that hold display and test choices of the last session, so that a start begins from the
/// defaults. Left out after a configuration was restored.
void ForgetLastSession(SetupStore& store);
/// Fills the session from the stores; what is missing or unreadable keeps its default.
void LoadStores(Session& session, SetupStore& store);

} // namespace qor
