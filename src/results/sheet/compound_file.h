#pragma once

#include <string>
#include <string_view>

namespace qor {

/// The compound file is a small file system of 512-byte sectors inside one file; a workbook is its stream
/// "Workbook". Layout after the published description of the format, version 3.

/// A compound file with one stream. The stream is filled up with zeros to at least 4096 bytes, because a
/// shorter one would have to lie in sectors of a second kind.
[[nodiscard]] std::string PackCompoundFile(std::string_view name, std::string_view stream);

enum class CompoundProblem { None, NotCompound, NoSuchStream, Damaged };

struct CompoundStream {
    std::string bytes;
    CompoundProblem problem = CompoundProblem::None;
};

/// A stream of the root folder. Any byte string is safe: sector chains that leave the file or run in a loop
/// are damage, and the stream never takes more memory than the file.
[[nodiscard]] CompoundStream ReadCompoundStream(std::string_view file, std::string_view name);

/// True when the bytes begin as a compound file does.
[[nodiscard]] bool IsCompoundFile(std::string_view file);

} // namespace qor
