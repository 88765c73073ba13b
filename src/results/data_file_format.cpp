#include "base/text_format.h"
#include "results/data_file.h"
#include "results/read_document.h"

#include <algorithm>
#include <cmath>

namespace qor {

namespace {

constexpr std::size_t FieldWidth = 6; ///< of frequencies and times
constexpr std::size_t LevelWidth = 7; ///< "-098.70"
constexpr std::size_t ModelWidth = 7;
constexpr std::size_t SerialWidth = 5;

void AppendPadded(std::string& out, double value, int decimals) {
    const std::size_t begin = out.size();
    AppendFixed(out, value, decimals);
    if (out.size() - begin < FieldWidth)
        out.insert(begin, FieldWidth - (out.size() - begin), '0');
}

struct ToneLine {
    std::string_view name;
    float fix;   // MHz
    float start; // MHz
    float stop;  // MHz
    float power; // dBm
};

void AppendTone(std::string& out, const ToneLine& tone) {
    out += tone.name;
    AppendPadded(out, static_cast<double>(tone.fix), 1);
    out += " MHz START ";
    AppendPadded(out, static_cast<double>(tone.start), 1);
    out += " MHz STOP ";
    AppendPadded(out, static_cast<double>(tone.stop), 1);
    out += " MHz POWER +";
    AppendFixed(out, static_cast<double>(tone.power), 1);
    out += " dBm\n";
}

/// The level is filled up behind its sign, so that every row takes the same place. A row of zeros is no
/// level: one that would round to it is written as the next one above.
void AppendLevel(std::string& out, const ResultDocument& document, const ResultPoint& point) {
    const double inUnit = static_cast<double>(InUnit(document, point.level));
    std::string level = Fixed(inUnit, 2);
    if (point.HasLevel() && level.find_first_of("123456789") == std::string::npos)
        level = Fixed(0.01, 2);
    if (level.size() < LevelWidth)
        level.insert(level.starts_with('-') ? 1 : 0, LevelWidth - level.size(), '0');
    out += ';';
    out += level;
    out += '\n';
}

void AppendRows(std::string& out, const ResultDocument& document, const std::vector<ResultPoint>& points,
                int decimals) {
    for (const ResultPoint& point : points) {
        AppendPadded(out, point.x, decimals);
        AppendLevel(out, document, point);
    }
}

std::string FormatRows(const ResultDocument& document) {
    static const ResultRun NoRun;
    const ResultRun& run = document.runs.empty() ? NoRun : document.runs.back();
    const bool twoTone = document.method == ResultMethod::TwoTone;
    const FrequencyPlan& plan = document.plan;
    std::string out;
    out.reserve(512 + 16 * (run.up.size() + run.down.size()) + document.comment.size());
    const auto [f1, f2] = HeldTones(document);
    AppendTone(out, {"f1 ", f1, plan.f1Start, plan.f1Stop, document.power1});
    AppendTone(out, {"f2 ", f2, plan.f2Start, plan.f2Stop, document.power2});
    out += "MEAS IM" + std::to_string(document.order) + " UNIT ";
    out += UnitText(document);
    out += twoTone ? " 2-TON\n" : " SWEEP\n";
    const std::string model = document.model.substr(0, ModelWidth);
    out += "Model Nr. " + std::string(ModelWidth - model.size(), ' ') + model;
    out += ", SERIAL ";
    if (document.serial.size() < SerialWidth)
        out.append(SerialWidth - document.serial.size(), '0');
    out += document.serial + "\n" + document.date + " " + document.time + "\n\n";
    AppendRows(out, document, run.up, twoTone ? 3 : 1);
    AppendRows(out, document, run.down, 1);
    const float limit = document.limit.value_or(0.0f) - (document.inDbc ? document.carrier : 0.0f);
    out += "\n\nLimit Line: ";
    AppendFixed(out, static_cast<double>(limit), 1);
    out += "\nSer No: " + document.deviceSerial + "\n" + document.comment;
    return out;
}

/// The rows as they stand in the file would be taken for a better result than this one. Only what is read
/// back tells: its numbers are rounded, and points may be missing that the run was judged by.
bool FlattersItself(const std::string& text, const ResultDocument& document) {
    if (DistanceFromPass(document) == 0)
        return false;
    const ParsedResult back = ParseResult(text);
    return back.document && DistanceFromPass(*back.document) < DistanceFromPass(document);
}

} // namespace

std::string FormatResult(const ResultDocument& document) {
    std::string text = FormatRows(document);
    if (FlattersItself(text, document) || !document.receiver.empty()) {
        text += '\0';
        text += MarkHead;
        text += VerdictWord(document.verdict);
        text += ' ' + std::to_string(document.pointsTaken) + ' ' + std::to_string(document.pointsAsked);
        if (document.verdict == ResultVerdict::Error)
            text += ' ' + std::to_string(document.error);
        if (!document.receiver.empty())
            text += std::string(MarkReceiver) + document.receiver;
        if (document.floor)
            text += std::string(MarkFloor) + Fixed(static_cast<double>(*document.floor), 1);
    }
    return text;
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
