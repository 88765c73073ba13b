#pragma once

#include "results/result_state.h"

#include <filesystem>

namespace qor {

class SetupStore;

/// Path of the next numbered file of a repeated measurement. A 2-tone series goes to the folder of the
/// auto-save settings when one is set; everything else to the directory of the stores.
[[nodiscard]] std::filesystem::path NumberedFile(const ResultState& results, bool twoTone,
                                                 const SetupStore& store);

/// Puts the numbered file just written into the list, opens the list panel, moves its seven rows to the end,
/// and counts on. The list wraps after 2048 files.
void AddToFileList(ResultState& results);

} // namespace qor
