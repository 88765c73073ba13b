#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qor {

/// One measurement as a .dat or .txt holds it. Everything is in the unit of the file.
struct ResultFile {
    /// A tone's line of the header.
    struct Tone {
        float fix = 0;   ///< MHz
        float start = 0; ///< MHz
        float stop = 0;  ///< MHz
        float power = 0; ///< dBm at the device under test
    };
    struct Row {
        double x = 0;    ///< seconds in 2-tone, IM frequency in MHz in a sweep
        float level = 0; ///< dBm, or dBc when inDbc; 0.0 or above is no point
    };
    enum class Form {
        Current,
        WideHeader, ///< data from byte 204
        Oldest,     ///< frequencies and levels alone, no header
    };

    Form form = Form::Current;
    Tone tone1;
    Tone tone2;
    int order = 3; ///< 3, 5, 7, 9, 11; 0 when the file names another
    bool inDbc = false;
    bool twoTone = true;
    std::string model;
    std::string serial;
    std::string date;      ///< "YYYYMMDD"
    std::string time;      ///< "HH:MM"
    std::vector<Row> up;   ///< 2-tone: all rows in time order; sweep: the up curve
    std::vector<Row> down; ///< sweep: the down curve
    std::optional<float> limit;
    std::string limitText; ///< the limit as written
    std::string dutSerial;
    std::string comment; ///< line feeds alone
};

/// A row counts when it begins before this byte of the text. The whole file is looked at nevertheless: one
/// that is cut short behind its last counted row is refused as any other.
inline constexpr std::size_t RowsBefore = 33797;
/// A longer file is no result: a sweep of 2000 points up and down, with its comment, stays below.
inline constexpr std::size_t LongestResultFile = 65536;

/// True for a number as the files hold it: digits with at most one point and an optional minus.
[[nodiscard]] bool IsDecimal(std::string_view text);

/// The text of a result in its line-feed form, header offsets to the byte.
[[nodiscard]] std::string FormatResult(const ResultFile& result);
/// Bytes on disk: line ends CR LF, and for a .dat the nibbles of each byte up to the first zero exchanged.
[[nodiscard]] std::string EncodeResult(std::string_view text, bool scrambled);

struct ParsedResult {
    std::optional<ResultFile> file;
    std::string problem; ///< for the operator, why it cannot be read; empty when it could
};
/// Reads the bytes of a .dat or .txt in any of its forms. Any byte string is safe.
[[nodiscard]] ParsedResult ParseResult(std::string_view bytes);

} // namespace qor
