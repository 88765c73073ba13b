#pragma once

#include "results/result_document.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace qor {

/// A longer file is no result.
inline constexpr std::size_t LongestResultFile = std::size_t{4} << 20;

/// What a mark begins with, behind its zero byte.
inline constexpr std::string_view MarkHead = "QOR1 ";
/// Its second line: the external receiver that measured.
inline constexpr std::string_view MarkReceiver = "\nReceiver: ";
/// Its third: dBm below which that one hears nothing.
inline constexpr std::string_view MarkFloor = "\nFloor: ";

/// The text of a result in its line-feed form, header offsets to the byte: the last run, in the document's
/// unit.
[[nodiscard]] std::string FormatResult(const ResultDocument& document);
/// Bytes on disk: line ends CR LF, and for a .dat the nibbles of each byte up to the first zero exchanged.
[[nodiscard]] std::string EncodeResult(std::string_view text, bool scrambled);

struct ParsedResult {
    std::optional<ResultDocument> document;
    std::string problem; ///< for the operator, why it cannot be read; empty when it could
};
/// Reads the bytes of a .dat or .txt in any of its forms: one run, its band told by the two tones alone,
/// without a source. Its verdict is that of its mark, else what its rows say. Any byte string is safe.
[[nodiscard]] ParsedResult ParseResult(std::string_view bytes);

} // namespace qor
