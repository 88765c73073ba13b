#pragma once

#include "desk/configuration.h"

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace qor {

// The stores of a saved configuration take the place of those there are all together or not at all, however
// the program ends on the way. The folder `restore.part` beside the stores holds the new files first, then
// those they replace, and a journal of which were there. While the journal stands what was begun is taken
// back, at the next start if need be; once it is gone everything new is in place.

/// One operation on files, which may be the last that the program lives to do. Empty on success, else what
/// went wrong in the system's words.
using FileStep = std::function<std::string()>;

/// Where the new files are to be laid, under their names, before RestoreSteps.
[[nodiscard]] std::filesystem::path FreshFolder(const std::filesystem::path& stores);
/// Puts the new files in their places and clears up.
[[nodiscard]] std::vector<FileStep> RestoreSteps(const std::vector<ConfigurationFile>& files,
                                                 const std::filesystem::path& stores);
/// Takes back what was begun and not finished, and clears up. May be broken off and begun again.
[[nodiscard]] std::vector<FileStep> TakeBackSteps(const std::filesystem::path& stores);
/// Runs the steps to the first that fails; its words.
std::string RunSteps(const std::vector<FileStep>& steps);

/// At the program's start: true when a restore was found that had been broken off; the stores are as they
/// were before it.
bool TakeBackBrokenRestore(const std::filesystem::path& stores);

} // namespace qor
