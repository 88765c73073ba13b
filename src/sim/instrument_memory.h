#pragma once

#include "sim/models.h"

#include <array>
#include <bitset>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string_view>

namespace qor::sim {

/// Addresses of the instrument's own page.
enum MemoryAddress : int {
    AddressReceiverOffset = 96, ///< two bytes, page "d" only
    AddressReceiverSlope = 98,  ///< two bytes
    AddressLowerPower = 100,    ///< tenths of dBm, low byte
    AddressUpperPower = 101,    ///< tenths of dBm, low byte
    AddressLowerPowerHigh = 102,
    AddressOption = 95,
    AddressGaugeDelay = 115,
    AddressSweepDelay = 116, ///< bit 0: 3-dB bridge
    AddressSerialHigh = 120,
    AddressSerialLow = 121,
    AddressPositionOffset = 154, ///< two bytes a switch position, pages "n" and "}"
    AddressSerialText = 200,     ///< 11 characters
    AddressModelText = 211,      ///< 11 characters
};

inline constexpr int MemoryTextLength = 11;

/// Non-volatile memory: the instrument's own page, whose number depends on the firmware, and the pages of the
/// calibration tables. A page to which nothing was ever written does not answer, nor do the own pages of
/// other firmwares.
class InstrumentMemory {
public:
    InstrumentMemory(Firmware firmware, int typeCode, std::string_view model, std::string_view serial,
                     bool bridge3dB);

    [[nodiscard]] std::uint8_t OwnPage() const { return m_OwnPage; }
    [[nodiscard]] std::optional<std::uint8_t> Read(std::uint8_t page, std::uint8_t address) const;
    /// False when the page cannot be written.
    bool Write(std::uint8_t page, std::uint8_t address, std::uint8_t value);
    /// The byte, if it was ever written from outside.
    [[nodiscard]] std::optional<std::uint8_t> Written(std::uint8_t page, std::uint8_t address) const;

    /// Called with each byte that is written: page, address, value.
    void SetOnWrite(std::function<void(int, int, int)> onWrite) { m_OnWrite = std::move(onWrite); }
    /// Takes bytes that were written before, a line each, "125 095 36": page, address, value. False, and
    /// nothing has changed, where a line says something else.
    bool TakeLines(std::string_view text);

    /// Power limits, tenths of dBm.
    [[nodiscard]] int LowerLimit() const;
    [[nodiscard]] int UpperLimit() const;

    [[nodiscard]] std::uint8_t Own(int address) const;
    void SetOwn(int address, int value);

private:
    using Page = std::array<std::uint8_t, 256>;
    std::uint8_t m_OwnPage;
    std::map<std::uint8_t, Page> m_Pages;
    std::map<std::uint8_t, std::bitset<256>> m_Written;
    bool m_KeepsLowerHigh; ///< the lower limit has a high byte of its own
    std::function<void(int, int, int)> m_OnWrite;
};

} // namespace qor::sim
