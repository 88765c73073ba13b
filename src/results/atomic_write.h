#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace qor {

/// Writes beside `path` and renames, so that a failed or interrupted write leaves the previous file whole.
/// Empty on success, else what went wrong in the system's words. `mode` is the file's access, less the
/// process's mask.
[[nodiscard]] std::string WriteAtomically(const std::filesystem::path& path, std::string_view bytes,
                                          unsigned mode = 0666);

} // namespace qor
