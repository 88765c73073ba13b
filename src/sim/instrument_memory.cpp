#include "sim/instrument_memory.h"

#include <algorithm>
#include <charconv>
#include <vector>

namespace qor::sim {

namespace {

constexpr int LevelDetectorInserted = 0x20;
constexpr int PresetSlope = 31;
constexpr int PresetOffset = 2780;

// Instruments before the serial text carry only a number: the digits of the text, at most 65535.
int SerialNumber(std::string_view serial) {
    int number = 0;
    for (const char c : serial)
        if (c >= '0' && c <= '9')
            number = std::min(number * 10 + (c - '0'), 65535);
    return number;
}

} // namespace

InstrumentMemory::InstrumentMemory(Firmware firmware, int typeCode, std::string_view model,
                                   std::string_view serial, bool bridge3dB)
    : m_OwnPage(MemoryPage(firmware)), m_Pages{{m_OwnPage, Page{}}}, m_KeepsLowerHigh(firmware.AtLeast(50)) {
    const auto setPair = [this](int address, int value) {
        SetOwn(address, value >> 8);
        SetOwn(address + 1, value);
    };
    const auto setText = [this](int address, std::string_view text) {
        for (const char c : text.substr(0, MemoryTextLength))
            SetOwn(address++, static_cast<unsigned char>(c));
    };
    SetOwn(AddressOption, typeCode | LevelDetectorInserted);
    SetOwn(AddressLowerPower, 200);
    SetOwn(AddressUpperPower, 460);
    if (firmware.AtLeast(50)) {
        SetOwn(AddressLowerPowerHigh, 200 >> 8);
        for (int position = 0; position < 12; ++position)
            setPair(AddressPositionOffset + 2 * position, PresetOffset);
    } else {
        setPair(AddressReceiverOffset, PresetOffset);
    }
    setPair(AddressReceiverSlope, PresetSlope);
    SetOwn(AddressSweepDelay, bridge3dB ? 1 : 0);
    if (!firmware.AtLeast(61))
        setPair(AddressSerialHigh, SerialNumber(serial));
    setText(AddressSerialText, serial);
    setText(AddressModelText, model);
}

std::optional<std::uint8_t> InstrumentMemory::Read(std::uint8_t page, std::uint8_t address) const {
    const auto found = m_Pages.find(page);
    if (found == m_Pages.end())
        return {};
    return found->second[address];
}

bool InstrumentMemory::Write(std::uint8_t page, std::uint8_t address, std::uint8_t value) {
    // From firmware 5.0 the tables reach over page "d", which is why the own page moved away from it.
    const bool foreign = page != m_OwnPage && (page == 'n' || page == '}');
    if (foreign)
        return false;
    m_Pages[page][address] = value;
    m_Written[page].set(address);
    if (m_OnWrite)
        m_OnWrite(page, address, value);
    return true;
}

std::optional<std::uint8_t> InstrumentMemory::Written(std::uint8_t page, std::uint8_t address) const {
    const auto found = m_Written.find(page);
    return found != m_Written.end() && found->second.test(address) ? Read(page, address) : std::nullopt;
}

std::uint8_t InstrumentMemory::Own(int address) const {
    return m_Pages.at(m_OwnPage)[static_cast<std::uint8_t>(address)];
}

void InstrumentMemory::SetOwn(int address, int value) {
    const auto at = static_cast<std::uint8_t>(address);
    m_Pages[m_OwnPage][at] = static_cast<std::uint8_t>(value & 0xff);
    if (m_OnWrite)
        m_OnWrite(m_OwnPage, at, m_Pages[m_OwnPage][at]);
}

bool InstrumentMemory::TakeLines(std::string_view text) {
    std::vector<std::array<std::uint8_t, 3>> bytes;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        std::array<std::uint8_t, 3> byte{};
        for (std::uint8_t& value : byte) {
            const auto [rest, error] = std::from_chars(line.data(), line.data() + line.size(), value);
            if (error != std::errc())
                return false;
            line.remove_prefix(static_cast<std::size_t>(rest - line.data()));
            line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
        }
        if (!line.empty())
            return false;
        bytes.push_back(byte);
    }
    for (const auto& [page, address, value] : bytes) {
        m_Pages[page][address] = value;
        m_Written[page].set(address);
    }
    return true;
}

/// Up to 47.0 dBm: what the low byte alone can say lies between 20.0 and 45.5 dBm.
int InstrumentMemory::LowerLimit() const {
    const int low = Own(AddressLowerPower);
    const bool high = m_KeepsLowerHigh ? Own(AddressLowerPowerHigh) != 0 : low < 200;
    return low + (high ? 256 : 0);
}

/// There is no high byte: 21.5 dBm and more are told from what lies 25.6 dB above by it, 20.0 to 21.4 are
/// not.
int InstrumentMemory::UpperLimit() const {
    const int low = Own(AddressUpperPower);
    return low + (low <= 470 - 256 ? 256 : 0);
}

} // namespace qor::sim
