#include "link/identity.h"

#include "base/text_format.h"
#include "link/firmware.h"

namespace qor {

namespace {

/// Model of the type code in the option byte; empty for a code that names none.
std::string_view ModelOfType(int optionByte) {
    switch (optionByte & 7) {
    case 0:
        return "RT-DA10";
    case 1:
        return "RT-K022";
    case 2:
        return "RT-N026";
    case 3:
        return "RT-S036";
    case 4:
        return "RT-DB22";
    case 6:
        return "RT-TETRA";
    default:
        return {};
    }
}

} // namespace

std::string Identity::Description() const {
    return m_Type + " " + Fixed(static_cast<double>(FirmVersion), 1) + ", SN " + g_DeviceSN;
}

void Identity::AwaitAnyAnswer() {
    FirmVersion = UnidentifiedFirmware;
}

bool Identity::TakeBanner(std::string_view text) {
    if (const auto version = VersionInBanner(text))
        FirmVersion = *version;
    if (std::string model = ModelInBanner(text); !model.empty()) {
        g_ModelName = model;
        m_Type = std::move(model);
    }
    return IsInstrument(FirmVersion);
}

void Identity::TakeTypeCode(std::optional<int> optionByte) {
    if (!optionByte)
        return;
    if (const std::string_view model = ModelOfType(*optionByte); !model.empty())
        m_Type = model;
}

void Identity::BeginText() {
    m_Text.clear();
    m_Missed = false;
}

void Identity::TakeCharacter(std::optional<int> value) {
    if (!value)
        m_Missed = true;
    else if (*value > 0 && *value < 128)
        m_Text += static_cast<char>(*value);
}

void Identity::EndModelText() {
    if (!m_Missed && !m_Text.empty())
        g_ModelName = m_Text;
}

void Identity::EndSerialText() {
    if (m_Missed || m_Text.empty())
        return;
    g_DeviceSN = m_Text;
    m_HasSerial = true;
}

void Identity::TakeSerialLow(std::optional<int> value) {
    if (!value || !m_SerialHigh)
        return;
    constexpr int Digits = 5;
    g_DeviceSN = ZeroPadded(*m_SerialHigh * 256 + *value, Digits);
    m_HasSerial = true;
}

} // namespace qor
