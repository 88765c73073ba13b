#pragma once

#include "platform/clock.h"
#include "service/memory_talk.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qor {

/// What stood in an instrument's memory when it was read: a text file that is kept beside the stores.
struct MemoryFile {
    std::string model;
    std::string serial;
    std::string firmware;                     ///< "6.2"
    std::string read;                         ///< date and time
    std::map<std::pair<int, int>, int> cells; ///< value by page and address
    bool operator==(const MemoryFile&) const = default;
};

/// "memory-RT-DB22-SIM01-2026-03-07.txt"; what a file's name cannot hold becomes "_".
[[nodiscard]] std::string MemoryFileName(const MemoryFile& file);
[[nodiscard]] std::string MemoryFileText(const MemoryFile& file);
/// Nothing for a text that is no such file, or is damaged in whatever line: half of a memory is not written
/// back.
[[nodiscard]] std::optional<MemoryFile> ParseMemoryFile(std::string_view text);

/// The places of an instrument's own page that are kept before a service page changes anything.
[[nodiscard]] std::vector<MemoryCell> OwnPlaces(int page);

/// "2026-03-07 09:05:12"
[[nodiscard]] std::string TimeText(const LocalTime& time);

} // namespace qor
