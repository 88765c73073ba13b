#pragma once

#include "link/link_parts.h"
#include "platform/timers.h"

#include <functional>
#include <string>
#include <string_view>

namespace qor {

class LinkEvents;
struct LinkState;

inline constexpr int SwitchUnitTimer = 52;
/// Time in ms that the unit has for its answers.
inline constexpr int SwitchUnitWait = 2000;

/// Text under which the unit's table has a band number of the catalogue.
[[nodiscard]] std::string_view SwitchUnitBand(int band);
/// Relay mask of a band text, "0x0008"; empty for a band that the unit has no position for.
[[nodiscard]] std::string_view RelayMask(std::string_view band);

/// The band switch unit: three relay banks behind the serial object of the instrument, which is lent to it.
///
/// An exchange closes the instrument's port, opens the unit's, writes three commands, counts the answers and
/// goes back. Meanwhile nothing of the queue goes out, and none of it is lost. The caller answers for the
/// carriers: relays move in an exchange.
class SwitchUnit {
public:
    SwitchUnit(LinkState& link, const LinkParts& parts, LinkEvents& events);

    /// The instrument's port cannot be opened again behind an exchange.
    void SetOnNoWayBack(std::function<void()> onNoWayBack) { m_OnNoWayBack = std::move(onNoWayBack); }

    /// Begins the exchange that sets the relays for a band text. Nothing happens while no unit is known.
    void SetBandByMpx(std::string_view band);
    /// The serial control's event while the unit has the line.
    void OnComm();
    /// The instrument's line is wanted back now: ends an exchange without its answers.
    void Break();
    /// The same where the port is closed or opened anew anyway.
    void Drop();
    /// All relays off; the port is left on the unit. Nothing happens while no unit is known.
    void ResetMpx();

private:
    [[nodiscard]] bool OpenUnit();
    void Write(std::string_view mask);
    void CountAnswers();
    void OnWaitOver();
    void GoBack();
    void EndSilent(int answers);
    void TellSilent();
    void ReturnLine();

    LinkState& m_Link;
    LinkParts m_Parts;
    LinkEvents& m_Events;
    std::function<void()> m_OnNoWayBack;
    Timer m_WaitTimer;
    std::string m_Input;
    std::string m_Wanted;  ///< band of the exchange
    int g_MpxReplyCt = 0;  ///< arrivals in it
    int m_Lines = 0;       ///< line ends in them
    bool m_InLine = false; ///< the last arrival has not ended its line
    int m_Answers = 0;     ///< of an exchange that lacked some
};

} // namespace qor
