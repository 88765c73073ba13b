#pragma once

#include <string>
#include <string_view>

namespace qor {

/// Names this process so that no other is taken for it, one after a new start of the machine included.
[[nodiscard]] std::string ThisProcess();
/// True while the process that was named so runs. Anything that is no such name names none.
[[nodiscard]] bool ProcessRuns(std::string_view name);

} // namespace qor
