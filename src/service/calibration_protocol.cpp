#include "service/calibration_protocol.h"

#include "bands/catalogue.h"
#include "base/atomic_write.h"
#include "base/tenths.h"
#include "base/text_format.h"
#include "measure/protocol_name.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <fstream>

namespace qor {

namespace {

constexpr std::string_view Columns =
    "tone,frequency_mhz,target_dbm,drive_v,reading_dbm,level_dbm,page_high,page_low,"
    "address,value_mv,state";
constexpr std::array<std::string_view, 3> StateNames{"written", "unconfirmed", "replaced"};
constexpr std::uintmax_t LargestFile = 32U << 20U;
constexpr std::size_t MostFields = 12;

std::string Joined(std::initializer_list<std::string> fields) {
    std::string line;
    for (const std::string& field : fields)
        line.append(line.empty() ? "" : ",").append(field);
    return line + "\n";
}

std::string Plain(std::string_view text) { // a name from outside keeps to its field
    std::string plain(text);
    std::ranges::replace_if(
        plain, [](char c) { return c == ',' || c == '\n' || c == '\r' || c == '"'; }, ' ');
    return plain;
}

std::string Whole(int value) {
    return std::to_string(value);
}

std::vector<std::string_view> FieldsOf(std::string_view line) {
    std::vector<std::string_view> fields;
    while (fields.size() < MostFields) {
        const std::size_t comma = line.find(',');
        fields.push_back(line.substr(0, comma));
        if (comma == std::string_view::npos)
            break;
        line.remove_prefix(comma + 1);
    }
    return fields;
}

bool ReadWhole(std::string_view text, int& value) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size();
}

bool ReadFloat(std::string_view text, float& value) {
    constexpr double Largest = 1e6; // of anything that stands in a protocol
    const auto number = EnteredNumber(text);
    if (!number || std::abs(*number) > Largest)
        return false;
    value = static_cast<float>(*number);
    return true;
}

std::string LineOf(const CalibrationPoint& point, float attenuation) {
    return Joined({Whole(point.tone), Whole(point.mhz), Fixed(point.dBm, 1),
                   Fixed(static_cast<double>(point.drive), 3), Fixed(static_cast<double>(point.reading), 3),
                   Fixed(static_cast<double>(point.reading + attenuation), 3), Whole(point.place.pageHigh),
                   Whole(point.place.pageLow), Whole(point.place.address), Whole(point.value),
                   std::string(StateNames[static_cast<std::size_t>(point.state)])});
}

std::optional<CalibrationPoint> PointIn(const std::vector<std::string_view>& fields) {
    CalibrationPoint point;
    float target = 0;
    int high = 0;
    int low = 0;
    int address = 0;
    if (fields.size() != 11 || !ReadWhole(fields[0], point.tone) || !ReadWhole(fields[1], point.mhz) ||
        !ReadFloat(fields[2], target) || !ReadFloat(fields[3], point.drive) ||
        !ReadFloat(fields[4], point.reading) || !ReadWhole(fields[6], high) || !ReadWhole(fields[7], low) ||
        !ReadWhole(fields[8], address) || !ReadWhole(fields[9], point.value))
        return std::nullopt;
    const auto* const state = std::ranges::find(StateNames, fields[10]);
    const auto isByte = [](int value) { return value >= 0 && value <= 255; };
    if (state == StateNames.end() || (point.tone != 1 && point.tone != 2) || !isByte(high) || !isByte(low) ||
        !isByte(address) || target < 0 || target > 100 || point.drive < 0 || point.drive > 10)
        return std::nullopt;
    point.dBm = static_cast<int>(target);
    point.place = {static_cast<std::uint8_t>(high), static_cast<std::uint8_t>(low),
                   static_cast<std::uint8_t>(address)};
    point.state = static_cast<PointState>(state - StateNames.begin());
    return point;
}

bool ReadTone(const std::vector<std::string_view>& fields, ToneRange& tone, bool& used) {
    int uses = 0;
    if (fields.size() != 5 || !ReadWhole(fields[1], tone.start) || !ReadWhole(fields[2], tone.delta) ||
        !ReadWhole(fields[3], tone.stop) || !ReadWhole(fields[4], uses))
        return false;
    used = uses != 0;
    return true;
}

/// A line of the head; false for one that is damaged.
bool ReadHead(const std::vector<std::string_view>& fields, CalibrationHead& head) {
    const std::string_view name = fields.front();
    const std::string_view value = fields.size() > 1 ? fields[1] : std::string_view();
    if (name == "model")
        head.model = value;
    else if (name == "serial")
        head.serial = value;
    else if (name == "receiver")
        head.receiver = value;
    else if (name == "firmware")
        return ReadFloat(value, head.firmware);
    else if (name == "band")
        head.band = BandByText(value).value_or(BandNone);
    else if (name == "attenuation_db")
        return ReadFloat(value, head.plan.attenuation);
    else if (name == "f1")
        return ReadTone(fields, head.plan.f1, head.plan.useF1);
    else if (name == "f2")
        return ReadTone(fields, head.plan.f2, head.plan.useF2);
    else if (name == "levels_dbm")
        return fields.size() == 4 && ReadWhole(fields[1], head.plan.powStart) &&
               ReadWhole(fields[2], head.plan.powDelta) && ReadWhole(fields[3], head.plan.powStop);
    return true;
}

std::string ToneLine(std::string_view name, const ToneRange& tone, bool used) {
    return Joined(
        {std::string(name), Whole(tone.start), Whole(tone.delta), Whole(tone.stop), used ? "1" : "0"});
}

} // namespace

std::string CalibrationProtocol::Text() const {
    const CalibrationPlan& plan = m_Head.plan;
    std::string text =
        Joined({"model", Plain(m_Head.model)}) + Joined({"serial", Plain(m_Head.serial)}) +
        Joined({"firmware", Fixed(static_cast<double>(m_Head.firmware), 1)}) +
        Joined({"band", std::string(BandText(m_Head.band))}) + ToneLine("f1", plan.f1, plan.useF1) +
        ToneLine("f2", plan.f2, plan.useF2) +
        Joined({"levels_dbm", Whole(plan.powStart), Whole(plan.powDelta), Whole(plan.powStop)}) +
        Joined({"attenuation_db", Fixed(static_cast<double>(plan.attenuation), 3)}) +
        Joined({"receiver", Plain(m_Head.receiver)}) + std::string(Columns) + "\n";
    for (const CalibrationPoint& point : m_Points)
        text += LineOf(point, plan.attenuation);
    if (!m_End.empty())
        text += Joined({"end", Plain(m_End)});
    return text;
}

std::optional<CalibrationProtocol> CalibrationProtocol::Parse(std::string_view text) {
    CalibrationProtocol protocol;
    bool inPoints = false;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        if (end == std::string_view::npos)
            break; // a line that was being written when the program ended
        const std::string_view line = text.substr(0, end);
        text.remove_prefix(end + 1);
        const auto fields = FieldsOf(line);
        if (line == Columns) {
            inPoints = true;
        } else if (!inPoints) {
            if (!ReadHead(fields, protocol.m_Head))
                return std::nullopt;
        } else if (fields.front() == "end") {
            protocol.m_End = fields.size() > 1 ? fields[1] : std::string_view();
        } else if (const auto point = PointIn(fields)) {
            protocol.m_Points.push_back(*point);
            protocol.m_End.clear(); // it was continued
        } else {
            return std::nullopt;
        }
    }
    if (!inPoints || !FitsTables(protocol.m_Head.plan, protocol.m_Head.firmware) ||
        !HasPowerTable(protocol.m_Head.band))
        return std::nullopt;
    return protocol;
}

std::optional<CalibrationProtocol> CalibrationProtocol::FindUnfinished(const std::filesystem::path& folder,
                                                                       std::string_view model,
                                                                       std::string_view serial, int band) {
    const std::string begin = ProtocolNameBegin(Kind, model, serial, band);
    std::filesystem::path newest;
    std::error_code error;
    for (std::filesystem::directory_iterator at(folder, error), end; !error && at != end;
         at.increment(error)) {
        const std::string name = at->path().filename().string();
        if (name.starts_with(begin) && name.ends_with(".csv") && at->path().filename() > newest.filename())
            newest = at->path();
    }
    if (newest.empty() || std::filesystem::file_size(newest, error) > LargestFile || error)
        return std::nullopt;
    std::ifstream file(newest, std::ios::binary);
    const std::string text((std::istreambuf_iterator<char>(file)), {});
    auto protocol = Parse(text);
    if (!protocol || protocol->IsFinished() || protocol->m_Head.model != model ||
        protocol->m_Head.serial != Plain(serial) || protocol->m_Head.band != band)
        return std::nullopt;
    protocol->m_Path = newest;
    return protocol;
}

const CalibrationPoint* CalibrationProtocol::Find(int tone, int mhz, int dBm) const {
    const auto found = std::find_if(m_Points.rbegin(), m_Points.rend(), [&](const CalibrationPoint& point) {
        return point.tone == tone && point.mhz == mhz && point.dBm == dBm;
    });
    return found != m_Points.rend() && found->state != PointState::Unconfirmed ? &*found : nullptr;
}

bool CalibrationProtocol::Save() const {
    return WriteAtomically(m_Path, Text()).empty();
}

bool CalibrationProtocol::Add(const CalibrationPoint& point) {
    for (CalibrationPoint& earlier : m_Points)
        if (earlier.place == point.place && earlier.state == PointState::Written)
            earlier.state = PointState::Replaced;
    m_Points.push_back(point);
    m_End.clear();
    std::ofstream file(m_Path, std::ios::binary | std::ios::app);
    file << LineOf(point, m_Head.plan.attenuation) << std::flush;
    return file.good();
}

bool CalibrationProtocol::End(std::string_view how) {
    m_End = how;
    return Save();
}

} // namespace qor
