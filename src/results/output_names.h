#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace qor {

/// Where the output of each of several files goes: into `folder`, or beside its source where that is empty,
/// under the source's name with `ending` (".pdf") in place of its own. A name of four characters or fewer is
/// kept whole. Outputs that would fall on one another, or on one of the sources, carry the ending of their
/// source as well: "a.dat.pdf".
[[nodiscard]] std::vector<std::filesystem::path>
OutputNames(const std::vector<std::filesystem::path>& sources, const std::filesystem::path& folder,
            std::string_view ending);

} // namespace qor
