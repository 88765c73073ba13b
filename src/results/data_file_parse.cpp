#include "base/tenths.h"
#include "results/data_file.h"
#include "results/read_document.h"

#include <algorithm>
#include <cmath>

namespace qor {

namespace {

/// Line ends back to line feeds and, for a .dat, nibbles back in their places.
std::string Decode(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (bytes[i] == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n')
            continue;
        text += bytes[i];
    }
    if (text.size() < 2 || text[1] == '1')
        return text;
    for (char& c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte == 0)
            break;
        c = static_cast<char>(static_cast<unsigned char>((byte << 4) | (byte >> 4)));
    }
    return text;
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

/// No frequency, level or time of a result is larger: the longest run takes 2147483 s.
constexpr double MostValue = 1e7;

/// No level or limit of a result is further from 0: it has seven characters in its row.
constexpr double MostLevel = 9999.99;

/// Decimal of digits with one point and an optional minus, at most 15 characters; false for anything else.
bool ReadDecimal(std::string_view text, double& value) {
    static constexpr double Powers[] = {1,   10,  100,  1e3,  1e4,  1e5,  1e6,  1e7,
                                        1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    const bool negative = text.starts_with('-');
    if (negative)
        text.remove_prefix(1);
    if (text.empty() || text.size() > 15)
        return false;
    double digits = 0;
    std::size_t count = 0;
    std::size_t decimals = 0;
    bool point = false;
    for (const char c : text) {
        if (c == '.' && !point) {
            point = true;
        } else if (IsDigit(c)) {
            digits = digits * 10 + (c - '0');
            ++count;
            decimals += point ? 1 : 0;
        } else {
            return false;
        }
    }
    value = (negative ? -digits : digits) / Powers[decimals];
    return count > 0 && std::abs(value) <= MostValue;
}

/// Reads a text from its start, line by line.
class Lines {
public:
    explicit Lines(std::string_view text) : m_Text(text) {}

    /// The next line without its end; false when the text is at its end. `whole` tells that it had an end.
    bool Next(std::string_view& line, bool& whole) {
        if (m_At >= m_Text.size())
            return false;
        const std::size_t end = m_Text.find('\n', m_At);
        whole = end != std::string_view::npos;
        line = m_Text.substr(m_At, whole ? end - m_At : end);
        m_At = whole ? end + 1 : m_Text.size();
        return true;
    }
    [[nodiscard]] std::size_t Position() const { return m_At; }
    [[nodiscard]] std::string_view Rest() const { return m_Text.substr(std::min(m_At, m_Text.size())); }
    void BackTo(std::size_t position) { m_At = position; }

private:
    std::string_view m_Text;
    std::size_t m_At = 0;
};

/// Cuts `line` behind `label` and reads the number there; false when either is missing.
bool TakeNumber(std::string_view& line, std::string_view label, float& value) {
    const std::size_t at = line.find(label);
    if (at == std::string_view::npos)
        return false;
    line.remove_prefix(at + label.size());
    double number = 0;
    const std::size_t end = std::min(line.find(' '), line.size());
    if (!ReadDecimal(line.substr(0, end), number))
        return false;
    value = static_cast<float>(number);
    return true;
}

/// A tone's line of the header.
struct ToneLine {
    float fix = 0;   // MHz
    float start = 0; // MHz
    float stop = 0;  // MHz
    float power = 0; // dBm at the device under test
};

bool ReadTone(std::string_view line, std::string_view name, ToneLine& tone) {
    if (!line.starts_with(name) || !TakeNumber(line, name, tone.fix) ||
        !TakeNumber(line, "START ", tone.start) || !TakeNumber(line, "STOP ", tone.stop) ||
        !TakeNumber(line, "POWER +", tone.power))
        return false;
    // A load puts the power into a store of five characters each, and the next run sends what stands there.
    const int tenths = ToTenths(static_cast<double>(tone.power));
    return tenths >= -9999 && tenths <= 99999;
}

std::string_view Trimmed(std::string_view text) {
    const std::size_t begin = text.find_first_not_of(' ');
    if (begin == std::string_view::npos)
        return {};
    return text.substr(begin, text.find_last_not_of(' ') - begin + 1);
}

bool ReadMeasLine(std::string_view line, ResultDocument& document) {
    if (!line.starts_with("MEAS IM"))
        return false;
    const int order = WholeNumberIn(line.substr(7));
    document.order = order >= 3 && order <= 11 && order % 2 == 1 ? order : 0;
    const std::size_t unit = line.find(" UNIT ");
    if (unit == std::string_view::npos || line.size() < unit + 15)
        return false;
    document.inDbc = line.substr(unit + 6, 3).find('c') != std::string_view::npos;
    document.method = line.substr(unit + 10, 5) == "2-TON" ? ResultMethod::TwoTone : ResultMethod::Sweep;
    return true;
}

bool ReadModelLine(std::string_view line, ResultDocument& document) {
    constexpr std::string_view Before = "Model Nr. ";
    constexpr std::string_view Between = ", SERIAL ";
    const std::size_t at = line.find(Between);
    if (!line.starts_with(Before) || at == std::string_view::npos)
        return false;
    document.model = Trimmed(line.substr(Before.size(), at - Before.size()));
    // In an older, wider header the serial stands in eleven places, filled up with blanks.
    document.serial = Trimmed(line.substr(at + Between.size()));
    return true;
}

bool ReadDateLine(std::string_view line, ResultDocument& document) {
    line = Trimmed(line);
    const std::size_t blank = line.find(' ');
    if (blank != 8)
        return false;
    document.date = line.substr(0, blank);
    document.time = Trimmed(line.substr(blank));
    if (document.time.size() != 5 || document.time[2] != ':')
        return false;
    const std::string digits = document.date + document.time.substr(0, 2) + document.time.substr(3);
    return std::all_of(digits.begin(), digits.end(), IsDigit);
}

enum class RowsEnd { Complete, CutShort, NotARow };

/// Rows up to the empty line behind them.
RowsEnd ReadRows(Lines& lines, std::vector<ResultPoint>& rows) {
    std::string_view line;
    bool whole = false;
    while (lines.Next(line, whole)) {
        if (line.empty())
            return RowsEnd::Complete;
        const std::size_t separator = line.find(';');
        double x = 0;
        double level = 0;
        const bool good = separator != std::string_view::npos && ReadDecimal(line.substr(0, separator), x) &&
                          ReadDecimal(line.substr(separator + 1), level) && std::abs(level) <= MostLevel;
        if (!whole)
            return RowsEnd::CutShort;
        if (!good)
            return RowsEnd::NotARow;
        rows.push_back({x, static_cast<float>(level)});
    }
    return RowsEnd::CutShort;
}

/// A row without a frequency ends the list of a sweep.
void EndAtFrequency(std::vector<ResultPoint>& rows) {
    rows.erase(std::find_if(rows.begin(), rows.end(), [](const auto& row) { return row.x <= 0.1; }),
               rows.end());
}

/// Splits the rows of a sweep: the up curve rises, whatever follows is the down curve.
void SplitSweep(ResultRun& run) {
    std::vector<ResultPoint>& rows = run.up;
    EndAtFrequency(rows);
    const auto turn = std::adjacent_find(rows.begin(), rows.end(),
                                         [](const auto& a, const auto& b) { return b.x < a.x - 0.1; });
    if (turn == rows.end())
        return;
    run.down.assign(turn + 1, rows.end());
    rows.erase(turn + 1, rows.end());
}

/// A 2-tone list ends where time does not go on.
void EndAtTime(std::vector<ResultPoint>& rows) {
    const auto stands = [](const ResultPoint& a, const ResultPoint& b) { return b.x <= a.x; };
    const auto at = std::adjacent_find(rows.begin(), rows.end(), stands);
    if (at != rows.end())
        rows.erase(at + 1, rows.end());
}

/// What stands behind the zero byte of a text. A mark never makes a result better than its rows are, and one
/// that is damaged leaves it without a verdict.
void ReadMark(std::string_view text, ResultDocument& document) {
    if (MarkHead.starts_with(text)) { // it was cut, and nobody knows what it said
        document.marked = true;
        document.verdict = ResultVerdict::None;
        return JudgeRows(document);
    }
    if (!text.starts_with(MarkHead))
        return;
    text.remove_prefix(MarkHead.size());
    if (const std::size_t line = text.find(MarkReceiver); line != std::string_view::npos) {
        std::string_view receiver = text.substr(line + MarkReceiver.size());
        if (const std::size_t next = receiver.find(MarkFloor); next != std::string_view::npos) {
            if (const auto floor = EnteredNumber(receiver.substr(next + MarkFloor.size())))
                document.floor = static_cast<float>(*floor);
            receiver = receiver.substr(0, next);
        }
        document.receiver = receiver;
        text = text.substr(0, line);
    }
    const auto word = [&text] {
        const std::string_view first = text.substr(0, text.find(' '));
        text.remove_prefix(std::min(first.size() + 1, text.size()));
        return first;
    };
    document.marked = true;
    document.verdict = VerdictOfWord(word()).value_or(ResultVerdict::None);
    document.pointsTaken = static_cast<std::size_t>(std::max(WholeNumberIn(word()), 0));
    document.pointsAsked = static_cast<std::size_t>(std::max(WholeNumberIn(word()), 0));
    const int error = WholeNumberIn(word());
    // A whole pass of the instrument's own receiver is never marked: the end of the numbers is missing.
    if (document.verdict == ResultVerdict::Passed && !IsPartial(document) && document.receiver.empty())
        document.verdict = ResultVerdict::None;
    if (document.verdict == ResultVerdict::Error && error >= 2 && error <= 4)
        document.error = error;
    JudgeRows(document);
}

/// Takes what stands behind the text off its end: from the zero byte on, or from a mark whose zero byte an
/// editor has made into something else.
std::optional<std::string> TakeBehindZero(std::string& comment) {
    std::size_t end = comment.find('\0');
    std::size_t begin = end + 1;
    if (end == std::string::npos) {
        begin = end = comment.rfind(MarkHead);
        if (end == std::string::npos)
            return std::nullopt;
        const std::string_view words = std::string_view(comment).substr(end + MarkHead.size());
        if (!VerdictOfWord(words.substr(0, words.find(' '))))
            return std::nullopt;
        for (const std::string_view instead : {" ", "\xEF\xBF\xBD"}) {
            if (std::string_view(comment).substr(0, end).ends_with(instead))
                end -= instead.size();
        }
    }
    std::string behind = comment.substr(begin);
    comment.resize(end);
    return behind;
}

/// "Limit Line:", "Ser No: " and the comment; what follows a zero byte goes to behindZero. False when the
/// limit is missing or cut short.
bool ReadTrailer(Lines& lines, ResultDocument& document, std::optional<std::string>& behindZero) {
    constexpr std::string_view Limit = "Limit Line: ";
    constexpr std::string_view Serial = "Ser No: ";
    std::string_view line;
    bool whole = false;
    do {
        if (!lines.Next(line, whole))
            return false;
    } while (line.empty());
    if (!line.starts_with(Limit) || !whole)
        return false;
    double limit = 0;
    if (!ReadDecimal(Trimmed(line.substr(Limit.size())), limit) || std::abs(limit) > MostLevel)
        return false;
    document.limit = static_cast<float>(limit);
    const std::size_t behind = lines.Position();
    if (lines.Next(line, whole) && line.starts_with(Serial))
        document.deviceSerial = line.substr(Serial.size());
    else
        lines.BackTo(behind);
    document.comment = lines.Rest();
    behindZero = TakeBehindZero(document.comment);
    std::string& serial = document.deviceSerial; // what follows a zero byte is no text
    serial.erase(std::find(serial.begin(), serial.end(), '\0'), serial.end());
    return true;
}

/// The plan by the method: a file states the tones of the one it was measured with.
void TakeTones(ResultDocument& document, const ToneLine& tone1, const ToneLine& tone2) {
    FrequencyPlan& plan = document.plan;
    const bool twoTone = document.method == ResultMethod::TwoTone;
    (twoTone ? plan.f1 : plan.f1Fix) = tone1.fix;
    (twoTone ? plan.f2 : plan.f2Fix) = tone2.fix;
    plan.f1Start = tone1.start;
    plan.f1Stop = tone1.stop;
    plan.f2Start = tone2.start;
    plan.f2Stop = tone2.stop;
    document.power1 = tone1.power;
    document.power2 = tone2.power;
}

ParsedResult Refused(std::string_view why) {
    return {std::nullopt, std::string(why)};
}

ParsedResult ReadHeadedForm(std::string_view text) {
    ResultDocument document;
    ResultRun& run = document.runs.emplace_back();
    ToneLine tone1;
    ToneLine tone2;
    Lines lines(text);
    std::string_view line;
    bool whole = false;
    const auto next = [&] { return lines.Next(line, whole) && whole; };
    if (!next() || !ReadTone(line, "f1 ", tone1) || !next() || !ReadTone(line, "f2 ", tone2) || !next() ||
        !ReadMeasLine(line, document) || !next() || !ReadModelLine(line, document) || !next() ||
        !ReadDateLine(line, document) || !next() || !line.empty())
        return Refused("This is not a result file, or its header is damaged.");
    switch (ReadRows(lines, run.up)) {
    case RowsEnd::Complete:
        break;
    case RowsEnd::CutShort:
        return Refused("The file ends in the middle of its data.");
    case RowsEnd::NotARow:
        return Refused("One of its data rows is damaged.");
    }
    std::optional<std::string> behindZero;
    if (!ReadTrailer(lines, document, behindZero))
        return Refused("The file ends before its limit line.");
    TakeTones(document, tone1, tone2);
    if (document.method == ResultMethod::TwoTone)
        EndAtTime(run.up);
    else
        SplitSweep(run);
    CompleteRead(document);
    if (PointsOf(document) == 0)
        return Refused("The file holds no measured level.");
    if (behindZero)
        ReadMark(*behindZero, document);
    return {std::move(document), {}};
}

/// Frequencies and levels in columns of six characters, without a header.
class OldestReader {
public:
    explicit OldestReader(std::string_view text) : m_Text(text) {}

    ParsedResult Read() {
        ResultDocument document;
        document.hasHead = false;
        ResultRun& run = document.runs.emplace_back();
        std::vector<double> frequencies;
        while (m_At + FieldWidth <= m_Text.size() &&
               Field().find_first_of("\r\n") == std::string_view::npos) {
            if (frequencies.size() == MostFields)
                return Refused("This is not a result file.");
            double frequency = 0;
            if (!ReadDecimal(Trimmed(Field()), frequency))
                return Refused("This is not a result file.");
            frequencies.push_back(frequency);
            m_At += FieldWidth + 1;
        }
        if (frequencies.empty() || m_At >= m_Text.size())
            return Refused("This is not a result file.");
        m_At += 3;
        const bool twoTone = frequencies.front() <= 0.1;
        document.method = twoTone ? ResultMethod::TwoTone : ResultMethod::Sweep;
        if (!ReadLevels(frequencies, twoTone, run.up))
            return Refused("The file ends in the middle of its data.");
        if (twoTone) {
            CompleteRead(document);
            return {std::move(document), {}};
        }
        m_At += 9;
        if (!ReadLevels(frequencies, false, run.down))
            return Refused("The file ends in the middle of its data.");
        EndAtFrequency(run.up);
        EndAtFrequency(run.down);
        CompleteRead(document);
        return {std::move(document), {}};
    }

private:
    static constexpr std::size_t FieldWidth = 6;
    static constexpr std::size_t MostFields = 2000; ///< as many as a curve has points

    [[nodiscard]] std::string_view Field() const { return m_Text.substr(m_At, FieldWidth); }

    bool ReadLevels(const std::vector<double>& frequencies, bool twoTone, std::vector<ResultPoint>& rows) {
        for (std::size_t i = 0; i < frequencies.size(); ++i, m_At += FieldWidth + 1) {
            double level = 0;
            if (m_At + FieldWidth > m_Text.size() || !ReadDecimal(Trimmed(Field()), level))
                return false;
            const double x = twoTone ? static_cast<double>(i) * 0.1 : frequencies[i];
            rows.push_back({x, static_cast<float>(level)});
        }
        return true;
    }

    std::string_view m_Text;
    std::size_t m_At = 8;
};

} // namespace

ParsedResult ParseResult(std::string_view bytes) {
    if (bytes.empty())
        return Refused("The file is empty.");
    if (bytes.size() > LongestResultFile)
        return Refused("The file is too long for a result.");
    std::string text = Decode(bytes);
    if (text.find('f') == std::string::npos)
        return OldestReader(text).Read();
    std::erase(text, '\r'); // a .dat that was scrambled together with its carriage returns
    return ReadHeadedForm(text);
}

} // namespace qor
