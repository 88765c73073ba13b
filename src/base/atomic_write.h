#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace qor {

/// Access of a file that is nobody's secret, less the process's mask.
inline constexpr unsigned PublicFile = 0666;

/// Writes beside `path` and renames, so that a failed or interrupted write leaves the previous file whole.
/// Empty on success, else what went wrong in the system's words.
///
/// A link is written through. A file that is replaced keeps its access, but never more than `mode` where that
/// is less than PublicFile; one that nobody may write to is refused, to the superuser too.
[[nodiscard]] std::string WriteAtomically(const std::filesystem::path& path, std::string_view bytes,
                                          unsigned mode = PublicFile);

} // namespace qor
