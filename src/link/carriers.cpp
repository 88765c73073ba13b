#include "link/carriers.h"

#include "link/commands.h"

namespace qor {

bool Carriers::SwitchesOn(std::string_view text) {
    return text == command::TwoToneOn || text == command::Tone1On || text == command::Tone2On;
}

std::vector<std::string> Carriers::OffCommands() const {
    std::vector<std::string> off{std::string(m_Sweep ? command::SweepOff : command::TwoToneOff)};
    if (m_Sweep && m_TwoTone) // of a 2-tone run before, whose off command was not echoed
        off.emplace_back(command::TwoToneOff);
    off.emplace_back(command::Tone1Off);
    off.emplace_back(command::Tone2Off);
    return off;
}

void Carriers::Sent(std::string_view text) {
    if (!SwitchesOn(text))
        return;
    m_Sweep = text != command::TwoToneOn;
    m_TwoTone = m_TwoTone || text == command::TwoToneOn;
    m_Tone1 = m_Tone1 || text == command::Tone1On;
    m_Tone2 = m_Tone2 || text == command::Tone2On;
}

void Carriers::Echoed(std::string_view text) {
    if (text == command::TwoToneOff)
        m_TwoTone = false;
    else if (text == command::Tone1Off)
        m_Tone1 = false;
    else if (text == command::Tone2Off)
        m_Tone2 = false;
}

void Carriers::MayBeOnFromBefore(std::string_view methodOff) {
    m_Sweep = methodOff == command::SweepOff;
    m_TwoTone = !m_Sweep;
    m_Tone1 = m_Tone2 = true;
}

} // namespace qor
