#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qor {

/// Whether the instrument may be carrying: from the moment a command that switches a carrier on goes out
/// until the echo of the one that switches it off. A line that is lost in between leaves it open; then the
/// off commands are owed.
class Carriers {
public:
    [[nodiscard]] bool MayBeOn() const { return m_TwoTone || m_Tone1 || m_Tone2; }
    /// What switches them off: the method's command, that of the other method where it is owed too, then both
    /// tones.
    [[nodiscard]] std::vector<std::string> OffCommands() const;
    [[nodiscard]] static bool SwitchesOn(std::string_view command);

    void Sent(std::string_view command);
    void Echoed(std::string_view command);
    /// A program that ended without order may have left them on; the method's command it would have sent.
    void MayBeOnFromBefore(std::string_view methodOff);

private:
    bool m_TwoTone = false;
    bool m_Tone1 = false;
    bool m_Tone2 = false;
    bool m_Sweep = false; ///< the last method to switch them on was a sweep
};

} // namespace qor
