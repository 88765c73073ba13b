#include "sim/instrument.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace qor::sim {

namespace {

constexpr std::string_view End = "\r\n";
constexpr std::string_view SyntaxError = "SYNTAX ERROR\r\n";
constexpr std::string_view OutOfRange = "OUT OF RANGE\r\n";
constexpr std::string_view PllNotLocked = "PLL NOT LOCKED\r\n";

constexpr std::uint8_t StatusReflection = 0x20;

constexpr int LowestTone = 3000; // tenths of MHz that the synthesizers reach
constexpr int HighestTone = 40000;
constexpr int HighestPower = 460;

std::string Echo(std::string_view command) {
    return std::string(command.substr(1)).append(End);
}

// Digits only, of the given count; nothing otherwise.
std::optional<int> Digits(std::string_view text, std::size_t least, std::size_t most) {
    if (text.size() < least || text.size() > most)
        return {};
    int value = 0;
    for (const char c : text) {
        if (c < '0' || c > '9')
            return {};
        value = value * 10 + (c - '0');
    }
    return value;
}

std::string Padded(std::string text, std::size_t width, char fill) {
    return text.size() < width ? text.insert(0, width - text.size(), fill) : text;
}

std::string OneDecimal(double value) {
    const long tenths = std::lround(value * 10);
    const long size = std::labs(tenths);
    return (tenths < 0 ? "-" : "") + std::to_string(size / 10) + "." + std::to_string(size % 10);
}

const ModelHardware& CheckedModel(const InstrumentConfig& config) {
    const std::string fault = ConfigFault(config);
    if (!fault.empty())
        throw std::invalid_argument(fault);
    return *FindModel(config.model);
}

} // namespace

std::string ConfigFault(const InstrumentConfig& config) {
    const ModelHardware* model = FindModel(config.model);
    if (!model)
        return "unknown model: " + config.model;
    if (!ParseFirmware(config.firmware))
        return "unknown firmware: " + config.firmware + " (1.8 to 6.9, or ev1.0 to ev9.9)";
    const auto printable = [](char c) { return c > ' ' && c <= '~'; };
    if (config.serial.empty() || config.serial.size() > static_cast<std::size_t>(MemoryTextLength) ||
        !std::all_of(config.serial.begin(), config.serial.end(), printable))
        return "a serial number has 1 to 11 printable characters and no blank";
    if (!InstrumentMemory(*ParseFirmware(config.firmware), model->typeCode, {}, {}, false)
             .TakeLines(config.memory))
        return "the memory holds lines that are no page, address and value";
    if (config.position < 0 || config.position >= model->positions)
        return config.model + " has " + std::to_string(model->positions) + " band positions";
    return {};
}

/// A command text with a number behind it. A number of the wrong form is a syntax error, one outside
/// low..high is out of range, and otherwise it lands in its field and the command is echoed.
struct Instrument::NumberCommand {
    enum class Kind {
        Plain,
        Position,
        Order,
        Carriers,
        Equipment,
        Tone,
        Power,
        Drive,
        BandSetup,
        TwoToneTime
    };

    std::string_view text;
    std::size_t leastDigits;
    std::size_t mostDigits;
    int low;
    int high;
    int InstrumentSettings::*field;
    Kind kind = Kind::Plain;
    int since = 0; ///< firmware in tenths; unknown before it
};

// clang-format off
const Instrument::NumberCommand Instrument::NumberCommands[] = {
    {"#SAB",   1, 2, 0, 11,           &InstrumentSettings::position, NumberCommand::Kind::Position},
    {"#USEID", 1, 2, 3, 11,           &InstrumentSettings::order, NumberCommand::Kind::Order},
    {"#SFA",   5, 5, 0, 99999,        &InstrumentSettings::frequency1, NumberCommand::Kind::Tone},
    {"#SFB",   5, 5, 0, 99999,        &InstrumentSettings::frequency2, NumberCommand::Kind::Tone},
    {"#SSA",   5, 5, 0, 99999,        &InstrumentSettings::sweepStart1},
    {"#SSB",   5, 5, 0, 99999,        &InstrumentSettings::sweepStart2},
    {"#STA",   5, 5, 0, 99999,        &InstrumentSettings::sweepStop1},
    {"#STB",   5, 5, 0, 99999,        &InstrumentSettings::sweepStop2},
    {"#SWA",   5, 5, 0, 99999,        &InstrumentSettings::sweepStep},
    {"#SPWA",  5, 5, 0, HighestPower, &InstrumentSettings::power1, NumberCommand::Kind::Power},
    {"#SPWB",  5, 5, 0, HighestPower, &InstrumentSettings::power2, NumberCommand::Kind::Power},
    {"#SPA",   1, 1, 0, 1,            &InstrumentSettings::carrier1},
    {"#SPB",   1, 1, 0, 1,            &InstrumentSettings::carrier2},
    {"#M2T",   1, 1, 0, 1,            &InstrumentSettings::twoTone, NumberCommand::Kind::Carriers},
    {"#MSWL",  1, 1, 0, 1,            &InstrumentSettings::sweep},
    {"#MUPL",  1, 1, 0, 1,            &InstrumentSettings::passUp},
    {"#MDNL",  1, 1, 0, 1,            &InstrumentSettings::passDown},
    {"#RECUT", 1, 1, 1, 1,            nullptr, NumberCommand::Kind::Plain, 35},
    {"#KVTAL", 5, 5, 0, 6000,         &InstrumentSettings::drive, NumberCommand::Kind::Drive},
    {"#KVTPD", 1, 1, 0, 5,            nullptr, NumberCommand::Kind::Equipment},
    {"#KVTPA", 1, 1, 0, 0,            nullptr},
    {"#BDT",   1, 1, 0, 1,            &InstrumentSettings::bandSetup, NumberCommand::Kind::BandSetup},
    {"#2TTIM", 2, 2, 1, 30,           &InstrumentSettings::twoToneSeconds, NumberCommand::Kind::TwoToneTime},
};
// clang-format on

Instrument::Instrument(const InstrumentConfig& config)
    : m_Config(config), m_Model(CheckedModel(config)), m_Firmware(*ParseFirmware(config.firmware)),
      m_Memory(m_Firmware, m_Model.typeCode, config.model, config.serial, config.bridge3dB),
      m_Pim(config.seed), m_Power(m_Model.name, m_Firmware, config.seed) {
    (void)m_Memory.TakeLines(config.memory);
    m_Settings.position = config.position;
    m_AtPowerOn = m_Settings;
}

std::string Instrument::Execute(std::string_view command) {
    if (command == "#SR" || command == "#USESA" || command == "#SMREF" || command == "#SMTRA") {
        if (command == "#USESA")
            m_Settings.externalReceiver = 1;
        else if (command == "#SMREF")
            m_Settings.status |= StatusReflection;
        else if (command == "#SMTRA")
            m_Settings.status &= static_cast<std::uint8_t>(~StatusReflection);
        return Echo(command);
    }
    if (command == "#SWEEP")
        return {};
    // The version is looked for as the first "v" with a number, so no other may stand in the banner.
    if (command == "#IDN?")
        return "PIM analyser " + m_Config.model + ", " + (m_Firmware.tenths >= 100 ? "" : "v") +
               m_Config.firmware + std::string(End);
    if (command == "#SAB?")
        return "SAB" + std::to_string(m_Settings.position) + std::string(End);
    if (command == "#IMP?")
        return Level();
    if (command == "#ADC?")
        return Detector();
    if (command.starts_with("#SST"))
        return Status(command);
    if (command.starts_with("#KVTRE"))
        return ReadMemoryText(command);
    if (command.starts_with("$KVTRE"))
        return ReadMemoryBytes(command);
    if (command.starts_with("$KVTWE"))
        return WriteMemoryBytes(command);
    for (const NumberCommand& row : NumberCommands)
        if (command.starts_with(row.text) && m_Firmware.AtLeast(row.since))
            return SetNumber(row, command);
    return std::string(SyntaxError);
}

std::string Instrument::SetNumber(const NumberCommand& row, std::string_view command) {
    using Kind = NumberCommand::Kind;
    const std::string_view text = command.substr(row.text.size());
    const std::optional<int> value = Digits(text, row.leastDigits, row.mostDigits);
    const bool paddedWhereNotAllowed = row.leastDigits < row.mostDigits && text.size() > 1 && text[0] == '0';
    if (!value || paddedWhereNotAllowed)
        return std::string(SyntaxError);
    if (*value < row.low || *value > row.high)
        return std::string(OutOfRange);
    if (row.kind == Kind::Order && *value % 2 == 0)
        return std::string(OutOfRange);
    // While the band settings are opened for the factory, the switch may be set for another equipment type.
    if (row.kind == Kind::Position && m_Settings.bandSetup != 0 && *value >= m_Model.positions)
        return std::string(OutOfRange);
    if (row.kind == Kind::Tone && (*value < LowestTone || *value > HighestTone))
        return std::string(PllNotLocked);

    if (row.kind == Kind::Power && (*value < m_Memory.LowerLimit() || *value > m_Memory.UpperLimit()))
        return std::string(OutOfRange);

    if (row.field)
        m_Settings.*row.field = *value;
    if (row.kind == Kind::Drive)
        m_Settings.drivenByHand = 1;
    if (row.kind == Kind::Tone || row.kind == Kind::Power)
        m_Settings.drivenByHand = 0;
    if (row.kind == Kind::Order)
        m_Settings.externalReceiver = 0;
    if (row.kind == Kind::Carriers)
        m_Settings.carrier1 = m_Settings.carrier2 = *value;
    if (row.kind == Kind::Equipment)
        m_Memory.SetOwn(AddressOption, (m_Memory.Own(AddressOption) & ~7) | *TypeCodeOfEquipment(*value));
    if (row.kind == Kind::BandSetup && *value == 1) // closed again: the band stays
        m_AtPowerOn.position = m_Settings.position;
    if (row.kind == Kind::TwoToneTime)
        m_AtPowerOn.twoToneSeconds = *value;
    return Echo(command);
}

std::string Instrument::ReadMemoryText(std::string_view command) const {
    // Before firmware 6.1 only the byte-coded form is known, and this one is met with silence.
    if (!m_Firmware.AtLeast(61))
        return {};
    static constexpr std::string_view Head = "#KVTRE,125,0,";
    if (!command.starts_with(Head))
        return std::string(SyntaxError);
    const std::optional<int> address = Digits(command.substr(Head.size()), 3, 3);
    if (!address)
        return std::string(SyntaxError);
    if (*address > 255)
        return std::string(OutOfRange);
    std::string reply = "KVTWE";
    reply.append(command.substr(6)).append(",").append(std::to_string(m_Memory.Own(*address))).append(End);
    return reply;
}

std::string Instrument::ReadMemoryBytes(std::string_view command) const {
    if (command.size() != 8 && command.size() != 9)
        return std::string(SyntaxError);
    const auto value =
        m_Memory.Read(static_cast<std::uint8_t>(command[6]), static_cast<std::uint8_t>(command[7]));
    if (!value)
        return {};
    std::string reply(command.substr(1, 7));
    reply += static_cast<char>(*value);
    return reply.append(End);
}

std::string Instrument::WriteMemoryBytes(std::string_view command) {
    if (command.size() != 9)
        return std::string(SyntaxError);
    const auto byteAt = [command](std::size_t index) { return static_cast<std::uint8_t>(command[index]); };
    return m_Memory.Write(byteAt(6), byteAt(7), byteAt(8)) ? Echo(command) : std::string();
}

std::string Instrument::Status(std::string_view command) {
    if (command.size() != 5)
        return std::string(SyntaxError);
    if (command[4] != '?')
        m_Settings.status = static_cast<std::uint8_t>(command[4]);
    std::string reply = "SST";
    reply += static_cast<char>(m_Settings.status);
    return reply.append(End);
}

std::string Instrument::Level() {
    // The character ahead of the level names the order the receiver is tuned to, "B" standing for 11. It is
    // never "0": that would make an idle program believe that a run is on.
    const char order = "0123456789AB"[m_Settings.order];
    const double read = ReadReceiver();
    // A signal that is no number is one that the receiver cannot read: dashes stand in the place of its
    // level.
    const std::string text =
        std::isnan(read) ? "-------"
                         : Padded(OneDecimal(std::clamp(LevelBehindDetector(read), -199.9, 99.9)), 7, ' ');
    return std::string("IMP") + order + text + "dBm" + std::string(End);
}

std::string Instrument::Detector() {
    const double read = ReadReceiver();
    return "ADC" + Padded(std::to_string(std::lround(Millivolts(read))), 5, '0') + std::string(End);
}

/// A logarithmic detector, with a rest voltage where the signal is too weak for it.
double Instrument::Millivolts(double dbm) const {
    constexpr double Rest = 12;
    return std::isnan(dbm)
               ? Rest
               : std::clamp(m_Config.detectorOffset + m_Config.detectorSlope * dbm, Rest, 99999.0);
}

/// The level that the instrument makes of its detector, by the slope and the offset in its memory. An
/// instrument whose receiver was never calibrated reads right.
double Instrument::LevelBehindDetector(double dbm) const {
    const int offsetAt =
        m_Firmware.AtLeast(50) ? AddressPositionOffset + 2 * m_Settings.position : int{AddressReceiverOffset};
    const auto wasWritten = [this](int address) {
        return m_Memory.Written(m_Memory.OwnPage(), static_cast<std::uint8_t>(address + 1)).has_value();
    };
    if (!wasWritten(AddressReceiverSlope) && !wasWritten(offsetAt))
        return dbm;
    const auto pair = [this](int address) { return m_Memory.Own(address) * 256 + m_Memory.Own(address + 1); };
    const int slope = pair(AddressReceiverSlope);
    return slope == 0 ? 0 : (std::round(Millivolts(dbm)) - pair(offsetAt)) / slope;
}

double Instrument::ReadReceiver() {
    Excitation at = AtPort();
    if (m_Settings.externalReceiver) {
        // The signal goes out to the external receiver: the own one sees only its noise.
        at.tone1.on = false;
        at.generatorDbm.reset();
    }
    return m_Pim.Read(at);
}

void Instrument::SetTime(std::int64_t microseconds) {
    if (m_TimeUs && microseconds > *m_TimeUs)
        m_Pim.Advance(static_cast<double>(microseconds - *m_TimeUs) * 1e-6,
                      m_Settings.carrier1 != 0 && m_Settings.carrier2 != 0);
    m_TimeUs = m_TimeUs ? std::max(*m_TimeUs, microseconds) : microseconds;
}

const BandHardware* Instrument::Band() const {
    return BandAt(m_Config.model, m_Firmware, m_Settings.position);
}

/// A tone as its amplifier makes it: by hand during a calibration, else by the tables.
Tone Instrument::AtPort(int tone) const {
    const InstrumentSettings& now = m_Settings;
    const bool first = tone == 1;
    const ToneRequest request{tone, (first ? now.frequency1 : now.frequency2) / 10.0,
                              (first ? now.power1 : now.power2) / 10.0, Band()};
    const double level = now.drivenByHand ? m_Power.Level(request, now.drive / 1000.0)
                                          : m_Power.LevelByTable(request, m_Memory);
    return {request.mhz, level, (first ? now.carrier1 : now.carrier2) != 0};
}

Excitation Instrument::AtPort() const {
    const InstrumentSettings& now = m_Settings;
    Excitation at;
    at.tone1 = AtPort(1);
    at.tone2 = AtPort(2);
    at.order = now.order;
    at.band = Band();
    at.transmission = (now.status & StatusReflection) == 0;
    at.generatorDbm = m_Generator;
    return at;
}

} // namespace qor::sim
