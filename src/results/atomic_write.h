#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace qor {

/// Writes beside `path` and renames, so that a failed or interrupted write leaves the previous file whole.
/// Empty on success, else what went wrong in the system's words.
[[nodiscard]] std::string WriteAtomically(const std::filesystem::path& path, std::string_view bytes);

} // namespace qor
