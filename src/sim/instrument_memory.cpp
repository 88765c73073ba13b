#include "sim/instrument_memory.h"

#include <algorithm>

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
    : m_OwnPage(MemoryPage(firmware)), m_Pages{{m_OwnPage, Page{}}} {
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
    m_Pages[m_OwnPage][static_cast<std::uint8_t>(address)] = static_cast<std::uint8_t>(value & 0xff);
}

} // namespace qor::sim
