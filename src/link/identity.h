#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace qor {

/// Who answers: read anew in every conversation, nothing of the instrument before is kept.
class Identity {
public:
    /// Firmware from the banner in steps of 0.1; 10 more for an "ev" banner. 0 while it is not known.
    [[nodiscard]] float Firmware() const { return FirmVersion; }
    /// Model that all decisions test; empty while it is not known.
    [[nodiscard]] const std::string& Model() const { return m_Type; }
    [[nodiscard]] bool HasModel() const { return !m_Type.empty(); }
    /// Model as it is shown and filed.
    [[nodiscard]] const std::string& ModelName() const { return g_ModelName; }
    /// "00000" when there is none, or it could not be read.
    [[nodiscard]] const std::string& Serial() const { return g_DeviceSN; }
    [[nodiscard]] bool HasSerial() const { return m_HasSerial; }
    /// Model, firmware and serial number in a line: what one instrument is told from another by.
    [[nodiscard]] std::string Description() const;

    void Forget() { *this = {}; }
    /// The answer to come counts as one of an instrument, whatever it is: a port is looked at.
    void AwaitAnyAnswer();
    /// What identified the instrument is spoilt.
    void ForgetModel() { m_Type.clear(); }

    /// Takes version and model from a banner. True when the version says that this is an instrument.
    bool TakeBanner(std::string_view text);
    /// The type code decides the model; without one that names a model the banner's stays in force.
    void TakeTypeCode(std::optional<int> optionByte);
    /// A text is read from memory, a character a reply.
    void BeginText();
    /// Nothing: the character was never told. 0, or 128 and above, are no characters and add nothing.
    void TakeCharacter(std::optional<int> value);
    [[nodiscard]] bool HasMissedCharacter() const { return m_Missed; }
    /// The text was the model's name or the serial number; one with a hole in it, or without a character, is
    /// none.
    void EndModelText();
    void EndSerialText();
    /// The serial number as two bytes; one of them alone is none.
    void TakeSerialHigh(std::optional<int> value) { m_SerialHigh = value; }
    void TakeSerialLow(std::optional<int> value);

private:
    float FirmVersion = 0;            ///< from the banner
    std::string m_Type;               ///< model that all decisions test
    std::string g_ModelName;          ///< model as it is shown and filed
    std::string g_DeviceSN = "00000"; ///< serial number as it is shown and filed
    bool m_HasSerial = false;
    std::string m_Text; ///< the text being read
    bool m_Missed = false;
    std::optional<int> m_SerialHigh;
};

} // namespace qor
