#include "link/switch_unit.h"

#include "bands/catalogue.h"
#include "link/commands.h"
#include "link/link_events.h"
#include "link/link_state.h"
#include "platform/port_list.h"
#include "platform/serial_control.h"

#include <array>

namespace qor {

namespace {

constexpr std::array Banks{command::RelaysA, command::RelaysB, command::RelaysC};
constexpr int AllAnswers = static_cast<int>(Banks.size());
constexpr std::string_view RelaysOff = "0x0000";
constexpr std::string_view WifiText = "2400Wifi"; ///< the unit's name for it

struct Position {
    std::string_view band;
    std::string_view mask;
};
constexpr Position Positions[] = {
    {"LTE", "0x0001"},        {"DIG-DIV", "0x0002"}, {"AMPS", "0x0004"},       {"EGSM", "0x0008"},
    {"DCS", "0x0010"},        {"PCS", "0x0020"},     {"TD-SCDMA-A", "0x0100"}, {"UMTS", "0x0200"},
    {"TD-SCDMA-F", "0x0400"}, {"UMTS2", "0x0001"},   {WifiText, "0x0002"},     {"TD-SCDMA-E", "0x0004"},
};

void OpenForText(CMSComm& comm, int number, std::string_view settings) {
    comm.SetPortOpen(false);
    comm.SetCommPort(number);
    comm.SetSettings(settings);
    comm.SetInputMode(CommInputMode::Text);
    comm.SetRThreshold(1);
    comm.SetSThreshold(1);
    comm.SetPortOpen(true);
}

} // namespace

std::string_view SwitchUnitBand(int band) {
    return band == BandWifi ? WifiText : BandText(band);
}

std::string_view RelayMask(std::string_view band) {
    for (const Position& position : Positions)
        if (position.band == band)
            return position.mask;
    return {};
}

SwitchUnit::SwitchUnit(LinkState& link, const LinkParts& parts, LinkEvents& events)
    : m_Link(link), m_Parts(parts), m_Events(events),
      m_WaitTimer(parts.timers, SwitchUnitTimer, [this] { OnWaitOver(); }) {}

bool SwitchUnit::OpenUnit() {
    OpenForText(m_Parts.comm, m_Link.unit.Port(), m_Link.unit.Settings());
    return m_Parts.comm.GetPortOpen();
}

void SwitchUnit::Write(std::string_view mask) {
    for (const std::string_view bank : Banks) {
        m_Parts.comm.SetOutput(std::string(bank).append(mask));
        m_Parts.comm.SetOutput("\r");
    }
}

void SwitchUnit::SetBandByMpx(std::string_view band) {
    if (!m_Link.unit.IsKnown())
        return;
    m_Wanted = band;
    g_MpxReplyCt = m_Lines = 0;
    m_InLine = false;
    m_Link.unit.Lend();
    m_Link.transaction.BeginUnasked(); // the line is not free: the queue waits
    if (!OpenUnit())
        return EndSilent(0);
    m_WaitTimer.Start(SwitchUnitWait);
    Write(RelayMask(m_Wanted));
}

void SwitchUnit::OnComm() {
    switch (m_Parts.comm.GetCommEvent()) {
    case CommEvent::Lost:
        return EndSilent(m_Lines);
    case CommEvent::Receive:
        CountAnswers();
        if (m_Lines >= AllAnswers)
            GoBack();
        return;
    case CommEvent::None:
        return;
    }
}

/// An answer is a line: several of them can arrive at once, and one in pieces.
void SwitchUnit::CountAnswers() {
    m_Parts.comm.GetInput(m_Input);
    if (m_Input.empty())
        return;
    ++g_MpxReplyCt;
    for (const char c : m_Input) {
        const bool isEnd = c == '\r' || c == '\n';
        if (isEnd && m_InLine)
            ++m_Lines;
        m_InLine = !isEnd;
    }
}

/// A unit whose answers have no line ends is counted by their arrivals.
void SwitchUnit::OnWaitOver() {
    if (!m_Link.unit.HasLine())
        return TellSilent();
    const int answers = m_Lines > 0 ? m_Lines : g_MpxReplyCt;
    if (answers >= AllAnswers)
        GoBack();
    else
        EndSilent(answers);
}

void SwitchUnit::GoBack() {
    m_Link.unit.StandsAt(m_Wanted, !RelayMask(m_Wanted).empty());
    ReturnLine();
}

void SwitchUnit::EndSilent(int answers) {
    m_Link.unit.WasSilent();
    m_Answers = answers;
    ReturnLine();
    m_WaitTimer.Start(1); // the line does not wait for whoever reads the message
}

void SwitchUnit::TellSilent() {
    m_WaitTimer.Stop();
    const int port = m_Link.unit.Port();
    m_Events.Tell(Outcome::Refused("Das Umschaltgeraet hat nicht geantwortet, seine Relais koennen falsch "
                                   "stehen.\nAntworten von drei: " +
                                   std::to_string(m_Answers) + "\nCOM" + std::to_string(port) + " (" +
                                   m_Parts.ports.DeviceOf(port) + ")"));
}

void SwitchUnit::Break() {
    if (m_Link.unit.HasLine())
        ReturnLine();
}

void SwitchUnit::Drop() {
    m_WaitTimer.Stop();
    m_Link.unit.Return();
}

/// The conversation with the instrument goes on where it was: nothing of it was said or heard meanwhile.
void SwitchUnit::ReturnLine() {
    Drop();
    m_Link.transaction.GiveUp();
    OpenForText(m_Parts.comm, m_Link.connection.LastPort(), InstrumentSettings);
    if (!m_Parts.comm.GetPortOpen() && m_OnNoWayBack)
        m_OnNoWayBack();
}

void SwitchUnit::ResetMpx() {
    if (m_Link.unit.IsKnown() && OpenUnit())
        Write(RelaysOff);
}

} // namespace qor
