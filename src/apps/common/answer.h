#pragma once

#include <cstdio>
#include <string>

namespace qor::app {

/// Writes what a program answers to the standard output. False when it did not all get there.
[[nodiscard]] inline bool PrintAnswer(const std::string& text) {
    return std::fputs(text.c_str(), stdout) >= 0 && std::fflush(stdout) == 0;
}

} // namespace qor::app
