#pragma once

#include "platform/operator.h"

#include <filesystem>
#include <string>

namespace qor {

/// True for a name that is free, or whose file the operator wants replaced.
[[nodiscard]] inline bool MayReplace(Operator& user, const std::filesystem::path& path) {
    std::error_code ignored;
    return !std::filesystem::exists(path, ignored) ||
           user.Ask("The file has already existed. Do you want to replace it?\n\n" + path.string(),
                    "Speichern DATen File");
}

} // namespace qor
