#include "sim/analyser.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <utility>

namespace qor::sim {

namespace {

constexpr double ThermalDbmHz = -174;
constexpr double NoiseFigureDb = 24;
constexpr double NoiseFigureWithPreampDb = 9;
constexpr double OverloadDb = 5;       // above the reference level
constexpr double BroadbandFloor = -80; // of level meter and sensor, dBm
constexpr double ShortestSweepMs = 15;

struct FaultName {
    std::string_view name;
    ReceiverFault::Kind kind;
    int usual;
};
constexpr FaultName FaultNames[] = {{"silence", ReceiverFault::Kind::Silence, 0},
                                    {"late", ReceiverFault::Kind::Late, 200},
                                    {"garbage", ReceiverFault::Kind::Garbage, 0},
                                    {"cut", ReceiverFault::Kind::Cut, 0}};

std::string Upper(std::string_view text) {
    std::string upper(text);
    std::transform(upper.begin(), upper.end(), upper.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    return upper;
}

std::string_view Trimmed(std::string_view text) {
    const std::size_t from = text.find_first_not_of(" \t\r\n");
    if (from == std::string_view::npos)
        return {};
    return text.substr(from, text.find_last_not_of(" \t\r\n") - from + 1);
}

/// A number with a unit behind it: "915000000Hz", "3kHz", "-60dBm".
std::optional<double> WithUnit(std::string_view text) {
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc())
        return std::nullopt;
    const std::string unit = Upper(Trimmed(text.substr(static_cast<std::size_t>(end - text.data()))));
    if (unit == "KHZ")
        return value * 1e3;
    if (unit == "MHZ")
        return value * 1e6;
    if (unit == "GHZ")
        return value * 1e9;
    return unit.empty() || unit == "HZ" || unit == "DB" || unit == "DBM" ? std::optional(value)
                                                                         : std::nullopt;
}

double PowerSum(double a, double b) {
    return 10 * std::log10(std::pow(10, a / 10) + std::pow(10, b / 10));
}

std::string Decimals(double value, int places) {
    char text[40];
    std::snprintf(text, sizeof text, "%.*f", places, value);
    return text;
}

/// The long forms of a header are cut to the short ones: "FREQUENCY:CENTER" is "FREQ:CENT".
std::string ShortForm(std::string_view header) {
    static constexpr std::pair<std::string_view, std::string_view> Long[] = {
        {"FREQUENCY", "FREQ"}, {"CENTER", "CENT"},     {"DISPLAY", "DISP"},    {"WINDOW", "WIND"},
        {"TRACE", "TRAC"},     {"INPUT", "INP"},       {"STATE", "STAT"},      {"BANDWIDTH", "BAND"},
        {"VIDEO", "VID"},      {"RESOLUTION", "RES"},  {"CALCULATE", "CALC"},  {"MARKER", "MARK"},
        {"INITIATE", "INIT"},  {"CONTINUOUS", "CONT"}, {"ATTENUATION", "ATT"}, {"MAXIMUM", "MAX"},
        {"SPACING", "SPAC"},   {"SCALE", "SCAL"}};
    std::string upper = Upper(header);
    for (const auto& [word, cut] : Long)
        for (std::size_t at = upper.find(word); at != std::string::npos; at = upper.find(word, at))
            upper.replace(at, word.size(), cut);
    if (upper.starts_with(':'))
        upper.erase(0, 1);
    return upper;
}

} // namespace

std::optional<ReceiverFault> ParseReceiverFault(std::string_view text) {
    const std::size_t colon = text.find(':');
    const std::string_view name = text.substr(0, colon);
    for (const FaultName& row : FaultNames) {
        if (row.name != name)
            continue;
        ReceiverFault fault{row.kind, row.usual};
        if (colon == std::string_view::npos)
            return fault;
        const std::string_view number = text.substr(colon + 1);
        const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), fault.number);
        const bool whole = error == std::errc() && end == number.data() + number.size() && fault.number >= 0;
        return whole ? std::optional(fault) : std::nullopt;
    }
    return std::nullopt;
}

Receiver::Receiver(ReceiverKind kind, const Instrument& instrument, std::uint64_t seed)
    : m_Kind(kind), m_Instrument(instrument), m_Noise(seed ^ 0x5ec) {}

bool Receiver::Struck(ReceiverFault::Kind kind) const {
    return std::any_of(m_Faults.begin(), m_Faults.end(), [&](const ReceiverFault& fault) {
        return fault.kind == kind && m_Served > fault.number;
    });
}

void Receiver::Write(std::string_view message, std::int64_t nowMs) {
    ++m_Served;
    m_NowMs = m_AskedMs = nowMs;
    m_Answer.reset(); // what was not read is lost with the next message
    while (!message.empty()) {
        const std::size_t end = std::min(message.find(';'), message.size());
        Execute(Trimmed(message.substr(0, end)));
        message.remove_prefix(std::min(end + 1, message.size()));
    }
}

void Receiver::Execute(std::string_view command) {
    if (command.empty())
        return;
    const std::size_t blank = std::min(command.find(' '), command.size());
    std::string header = ShortForm(command.substr(0, blank));
    if (header.ends_with('?')) {
        header.pop_back();
        m_Answer = Query(header);
        if (!m_Answer)
            ++m_Errors;
        return;
    }
    if (!Set(header, Trimmed(command.substr(blank))))
        ++m_Errors;
}

/// True for a command that the receiver has.
bool Receiver::Set(std::string_view header, std::string_view value) {
    const auto number = [&](double& into, double low, double high) {
        const auto read = WithUnit(value);
        if (read && *read >= low && *read <= high)
            into = *read;
        return read.has_value();
    };
    if (header == "*RST") {
        m_Settings = {};
        return true;
    }
    if (header == "*CLS" || header == "*WAI")
        return true;
    if (m_Kind != ReceiverKind::Analyser)
        return header == "DISP:WIND:TRAC:Y:SPAC" || header == "UNIT:POW"; // a meter takes both
    if (header == "FREQ:CENT")
        return number(m_Settings.centreHz, 1e3, 8e9);
    if (header == "FREQ:SPAN")
        return number(m_Settings.spanHz, 0, 8e9);
    if (header == "DISP:WIND:TRAC:Y:RLEV")
        return number(m_Settings.referenceDbm, -150, 30);
    if (header == "DISP:WIND:TRAC:Y:SCAL")
        return number(m_Settings.scaleDb, 1, 200);
    if (header == "INP:ATT")
        return number(m_Settings.attenuationDb, 0, 70);
    if (header == "BAND:RES")
        return number(m_Settings.resolutionHz, 10, 10e6);
    if (header == "BAND:VID")
        return number(m_Settings.videoHz, 10, 10e6);
    const std::string upper = Upper(value);
    const bool isSwitch = upper == "ON" || upper == "OFF" || upper == "0" || upper == "1";
    const bool on = upper == "ON" || upper == "1";
    if (header == "INP:GAIN:STAT" && isSwitch) {
        m_Settings.preamplifier = on;
        return true;
    }
    if (header == "INIT:CONT" && isSwitch) {
        m_Settings.continuous = on;
        return true;
    }
    if (header == "INIT") {
        m_BusyUntilMs = m_NowMs + static_cast<std::int64_t>(SweepMs());
        return true;
    }
    return header == "DISP:WIND:TRAC:Y:SPAC" || header == "CALC:MARK1" || header == "CALC:MARK" ||
           header == "CALC:MARK:STAT" || header == "CALC:MARK:TRAC" || header == "CALC:MARK:MAX:AUTO" ||
           header == "UNIT:POW";
}

std::optional<std::string> Receiver::Query(std::string_view header) {
    if (header == "*IDN") {
        static constexpr const char* Names[] = {"QOR,SIM-ANALYSER,SIM01,1.0", "QOR,SIM-NRV,SIM01,1.0",
                                                "QOR,SIM-NRP,SIM01,1.0"};
        return Names[static_cast<int>(m_Kind)];
    }
    if (header == "*OPC")
        return "1";
    if (header == "SYST:ERR")
        return std::exchange(m_Errors, 0) == 0 ? "0,\"No error\"" : "-113,\"Undefined header\"";
    switch (m_Kind) {
    case ReceiverKind::Nrv:
        return header == "SENS:DATA:AMPL" ? std::optional(Decimals(Level(), 3)) : std::nullopt;
    case ReceiverKind::Nrp:
        return header == "MEAS" ? std::optional(Decimals(Level(), 3)) : std::nullopt;
    case ReceiverKind::Analyser:
        break;
    }
    if (header == "CALC:MARK1:Y" || header == "CALC:MARK:Y")
        return Decimals(Level(), 2);
    if (header == "FREQ:CENT")
        return Decimals(m_Settings.centreHz, 0);
    if (header == "FREQ:SPAN")
        return Decimals(m_Settings.spanHz, 0);
    if (header == "DISP:TRAC:Y:RLEV" || header == "DISP:WIND:TRAC:Y:RLEV")
        return Decimals(m_Settings.referenceDbm, 0);
    return std::nullopt;
}

/// Time of one sweep: a filter needs about two periods of its bandwidth for each of its widths.
double Receiver::SweepMs() const {
    const double narrow = std::min(m_Settings.resolutionHz, m_Settings.videoHz);
    const double widths = std::max(1.0, m_Settings.spanHz / m_Settings.resolutionHz);
    return std::clamp(2e3 * widths / narrow, ShortestSweepMs, 5000.0);
}

/// Both carriers behind the attenuator, of those between two frequencies; nothing without it.
double Receiver::CarriersWithin(double lowMhz, double highMhz) const {
    double sum = -400;
    if (!m_CellDb)
        return sum;
    const Excitation port = m_Instrument.AtPort();
    for (const Tone& tone : {port.tone1, port.tone2})
        if (tone.mhz >= lowMhz && tone.mhz <= highMhz)
            sum = PowerSum(sum, PimModel::CarrierDbm(tone, port.band) - *m_CellDb);
    return sum;
}

double Receiver::AnalyserLevel() {
    Excitation port = m_Instrument.AtPort();
    const double half = std::max(m_Settings.spanHz, m_Settings.resolutionHz) / 2e6; // MHz
    const double centre = m_Settings.centreHz / 1e6;
    double signal = CarriersWithin(centre - half, centre + half);
    for (const int order : {3, 5, 7, 9, 11}) {
        port.order = order;
        if (std::abs(PimModel::ProductMhz(port) - centre) <= half)
            signal = PowerSum(signal, m_Instrument.Pim().ProductDbm(port) - m_CellDb.value_or(0));
    }
    const double figure = m_Settings.preamplifier ? NoiseFigureWithPreampDb : NoiseFigureDb;
    const double floor =
        ThermalDbmHz + figure + m_Settings.attenuationDb + 10 * std::log10(m_Settings.resolutionHz);
    // A video filter averages over as many samples as it is narrower than the resolution.
    const double calm = std::sqrt(std::max(1.0, m_Settings.resolutionHz / m_Settings.videoHz));
    const double level = PowerSum(signal, floor + 2.0 / calm * m_Noise.Normal()) +
                         (m_CellDb ? 0.005 : 0.05) * m_Noise.Normal();
    return std::min(level, m_Settings.referenceDbm + OverloadDb);
}

double Receiver::Level() {
    if (m_Kind == ReceiverKind::Analyser)
        return AnalyserLevel();
    Excitation port = m_Instrument.AtPort();
    double sum = PowerSum(BroadbandFloor + 0.1 * m_Noise.Normal(), CarriersWithin(0, 1e6));
    for (const int order : {3, 5, 7, 9, 11}) {
        port.order = order;
        sum = PowerSum(sum, m_Instrument.Pim().ProductDbm(port) - m_CellDb.value_or(0));
    }
    return sum;
}

std::optional<std::string> Receiver::Read(std::int64_t nowMs) {
    m_NowMs = nowMs;
    if (!m_Answer || Struck(ReceiverFault::Kind::Silence))
        return std::nullopt;
    std::int64_t ready = std::max(m_BusyUntilMs, m_AskedMs);
    for (const ReceiverFault& fault : m_Faults)
        if (fault.kind == ReceiverFault::Kind::Late)
            ready += fault.number;
    if (nowMs < ready)
        return std::nullopt;
    std::string answer = std::move(*m_Answer);
    m_Answer.reset();
    return Struck(ReceiverFault::Kind::Garbage) ? "#?" + answer.substr(0, answer.size() / 2) + "x" : answer;
}

bool Receiver::CutsNow() {
    if (m_WasCut || !Struck(ReceiverFault::Kind::Cut))
        return false;
    return m_WasCut = true;
}

} // namespace qor::sim
