#pragma once

#include <string>
#include <vector>

namespace qor {

class SetupStore;
struct Session;

/// What the operator has to know for as long as it is so, a line each: contact is lost, the data directory
/// cannot be written, a store is damaged and counts as none.
[[nodiscard]] std::vector<std::string> NoticesOf(const Session& session, const SetupStore& store);

} // namespace qor
