#pragma once

#include <string>
#include <string_view>

namespace qor {

class SetupStore;

/// Value of a key in `qor.ini`, lines of the form key=value; empty when there is none. It names what lies
/// outside the program: the handbook and the update pages.
[[nodiscard]] std::string SettingOf(const SetupStore& store, std::string_view key);

} // namespace qor
