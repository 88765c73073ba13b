#include "core/text_format.h"
#include "results/data_file.h"

#include <algorithm>

namespace qor {

namespace {

constexpr std::size_t FieldWidth = 6; ///< of frequencies and times
constexpr std::size_t LevelWidth = 9; ///< ";-098.70" and the line feed
constexpr std::size_t ModelWidth = 7;
constexpr std::size_t SerialWidth = 5;

void AppendPadded(std::string& out, double value, int decimals) {
    const std::size_t begin = out.size();
    AppendFixed(out, value, decimals);
    if (out.size() - begin < FieldWidth)
        out.insert(begin, FieldWidth - (out.size() - begin), '0');
}

void AppendTone(std::string& out, std::string_view name, const ResultFile::Tone& tone) {
    out += name;
    AppendPadded(out, static_cast<double>(tone.fix), 1);
    out += " MHz START ";
    AppendPadded(out, static_cast<double>(tone.start), 1);
    out += " MHz STOP ";
    AppendPadded(out, static_cast<double>(tone.stop), 1);
    out += " MHz POWER +";
    AppendFixed(out, static_cast<double>(tone.power), 1);
    out += " dBm\n";
}

/// The level is filled up behind its sign, so that every row takes the same place.
void AppendLevel(std::string& out, float level) {
    const std::size_t begin = out.size();
    out += ';';
    AppendFixed(out, static_cast<double>(level), 2);
    out += '\n';
    if (out.size() - begin < LevelWidth)
        out.insert(begin + 2, LevelWidth - (out.size() - begin), '0');
}

void AppendRows(std::string& out, const std::vector<ResultFile::Row>& rows, int decimals) {
    for (const ResultFile::Row& row : rows) {
        AppendPadded(out, row.x, decimals);
        AppendLevel(out, row.level);
    }
}

} // namespace

std::string FormatResult(const ResultFile& result) {
    std::string out;
    out.reserve(512 + 16 * (result.up.size() + result.down.size()) + result.comment.size());
    AppendTone(out, "f1 ", result.tone1);
    AppendTone(out, "f2 ", result.tone2);
    out += "MEAS IM" + std::to_string(result.order) + " UNIT ";
    out += result.inDbc ? "dBc " : "dBm ";
    out += result.twoTone ? "2-TON\n" : "SWEEP\n";
    const std::string model = result.model.substr(0, ModelWidth);
    out += "Model Nr. " + std::string(ModelWidth - model.size(), ' ') + model;
    out += ", SERIAL ";
    if (result.serial.size() < SerialWidth)
        out.append(SerialWidth - result.serial.size(), '0');
    out += result.serial + "\n" + result.date + " " + result.time + "\n\n";
    AppendRows(out, result.up, result.twoTone ? 3 : 1);
    AppendRows(out, result.down, 1);
    out += "\n\nLimit Line: " + result.limitText + "\nSer No: " + result.dutSerial + "\n" + result.comment;
    return out;
}

std::string EncodeResult(std::string_view text, bool scrambled) {
    std::string bytes;
    bytes.reserve(text.size() + text.size() / 8);
    bool exchange = scrambled;
    for (const char c : text) {
        auto byte = static_cast<unsigned char>(c);
        exchange = exchange && byte != 0;
        if (exchange)
            byte = static_cast<unsigned char>((byte << 4) | (byte >> 4));
        if (byte == '\n')
            bytes += '\r';
        bytes += static_cast<char>(byte);
    }
    return bytes;
}

} // namespace qor
