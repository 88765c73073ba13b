// The receiving half of the channel: from bytes on the line to what they mean.
#include "bands/tenths.h"
#include "core/run_control.h"
#include "core/session.h"
#include "core/timer_ids.h"
#include "link/channel.h"
#include "link/commands.h"
#include "platform/clock.h"
#include "platform/platform.h"
#include "platform/serial_control.h"
#include "platform/timers.h"

namespace qor {

namespace {

/// A line that never ends must not fill the memory: no reply that means anything is longer.
constexpr std::size_t LongestText = 4096;
/// No receiver reads beyond these, dBm: a level that does has lost its sign or its point on the line.
constexpr double LowestLevel = -250.0;
constexpr double HighestLevel = 100.0;

bool EndsLine(std::string_view piece) {
    return piece.ends_with('\n') || piece.ends_with('\r');
}

} // namespace

void Channel::OnComm() {
    switch (m_Platform.comm.GetCommEvent()) {
    case CommEvent::Lost:
        LoseContact(true);
        return;
    case CommEvent::Receive:
        break;
    case CommEvent::None:
        return;
    }
    switch (m_Session.link.g_CurTag) {
    case TagMemoryEditor:
    case TagSerialHigh:
    case TagSerialLow:
    case TagOption:
        return; // left in the port for the wait timer
    case TagTableHigh:
    case TagTableLow:
        ReceiveCounted();
        return;
    default:
        ReceiveText();
    }
}

void Channel::ReceiveCounted() {
    LinkState& link = m_Session.link;
    m_Platform.comm.GetInput(m_Input);
    link.tagtemp += static_cast<int>(m_Input.size());
    if (link.tagtemp < link.tagCommPend)
        return;
    if (link.g_CurTag == TagTableLow)
        ReopenText();
    FinishTransaction();
}

void Channel::ReceiveText() {
    LinkState& link = m_Session.link;
    m_Platform.comm.GetInput(m_Input);
    const std::string_view piece = m_Input;
    link.m_revdatastr += piece;
    if (link.m_revdatastr.size() > LongestText)
        link.m_revdatastr.erase(0, link.m_revdatastr.size() - LongestText / 2);
    link.tagtemp += static_cast<int>(std::min(piece.size(), LongestText));

    if (!link.TagWaitTimerIsKilled && (link.TagCurrentCommand == "IDN" ||
                                       link.m_revdatastr.find(link.TagCurrentCommand) != std::string::npos)) {
        // The wait goes on as a watch over a reply that begins and never completes.
        link.CommPendCt = 0;
        link.TagWaitTimerIsKilled = true;
    }
    if (!EndsLine(piece) && link.tagtemp < link.tagCommPend)
        return;

    if (link.g_init == InitIdentity && link.m_CloseCountdown == 0) // closing begins no new chain
        m_Events.IdentityReply();
    else if (link.m_revdatastr.find("KVTWE") != std::string::npos)
        m_Events.MemoryReply();
    Dispatch();

    if (link.tagtemp >= link.tagCommPend) {
        int& measured = m_Session.curve.RealReceiveTime;
        if (measured == 0 && link.firstSendMs != 0) // no answer to a probe, nor to a later command
            measured = static_cast<int>(m_Platform.clock.TickMs() - link.firstSendMs) + 10;
        link.tagtemp = 0;
        link.tagCommPend = 0;
    }
    if (link.tagCommPend == 0 && link.TagWaitTimerIsKilled)
        m_Platform.timers.KillTimer(WaitCommTimer);
    if (link.g_init >= InitBandPosition && link.g_init <= InitEnd && !link.g_bProbing)
        link.m_revdatastr.clear();
}

/// Acts on what the assembled text holds, first match wins.
void Channel::Dispatch() {
    LinkState& link = m_Session.link;
    std::string& text = link.m_revdatastr;
    const auto holds = [&text](std::string_view part) { return text.find(part) != std::string::npos; };

    if (holds("SST")) {
        StatusReply();
    } else if (ErrorReply()) {
        // It stands in for the echo, whatever length was awaited; the queue goes on.
        if (!link.TagWaitTimerIsKilled) {
            FinishTransaction();
            if (IsMemoryTag(link.g_CurTag))
                m_Events.MemoryReadMissed(link.g_CurTag);
        }
    } else if (holds("M2T")) {
        link.TagStartMeasStart = !link.TagStartMeasStart;
        text.clear();
    } else if (holds("RECUT")) {
        if (link.g_InitLamp < LampStatus) {
            m_Session.panel.lamp = Lamp::Ready;
            link.g_InitLamp = LampRecut;
        }
        text.clear();
    } else if (holds("SPWA")) {
        link.g_InitLamp = LampPower;
        PowerReply('A', link.g_PowerTextA);
    } else if (holds("SPWB")) {
        PowerReply('B', link.g_PowerTextB);
    } else if (const std::size_t at = text.find("SAB"); at != std::string::npos && at + 3 < text.size() &&
                                                        text[at + 3] >= '0' && text[at + 3] <= '9') {
        const std::string_view digits = std::string_view(text).substr(at + 3);
        const bool twoDigits = digits.starts_with("10") || digits.starts_with("11");
        const int position = twoDigits ? 10 + (digits[1] - '0') : digits[0] - '0';
        text.clear();
        m_Events.PositionReply(position);
    } else if (holds("dBm")) {
        LevelOrOrder();
    }
}

bool Channel::ErrorReply() {
    static constexpr std::pair<std::string_view, Verdict> Errors[] = {
        {"SYNTAX ERROR", VerdictSyntaxError},
        {"OUT OF RANGE", VerdictOutOfRange},
        {"PLL NOT LOCKED", VerdictPllNotLocked},
    };
    for (const auto& [words, verdict] : Errors) {
        if (m_Session.link.m_revdatastr.find(words) != std::string::npos) {
            m_Session.curve.g_MeasVerdict = verdict;
            // In a run the words stay, so that no level counts after an error for the rest of it.
            m_Session.link.m_revdatastr = m_Session.run.runOn ? words : std::string_view();
            return true;
        }
    }
    return false;
}

void Channel::StatusReply() {
    LinkState& link = m_Session.link;
    if (link.g_InitLamp < LampStatus) {
        m_Session.panel.lamp = Lamp::Ready;
        link.g_InitLamp = LampStatus;
    }
    link.tagCommPend = 0;
    link.tagtemp = 0;
    // Behind "SST" itself: an echo of #SMTRA or #STA may stand before it in the text.
    const std::string_view rest =
        std::string_view(link.m_revdatastr).substr(link.m_revdatastr.find("SST") + 3);
    if (!rest.empty() && rest != "\r\n")
        link.g_InstrStatus = static_cast<std::uint8_t>(rest.front());
    link.m_revdatastr.clear();
    ArmStatusPoll();
}

/// "SPWA00430" shows as "43.0".
void Channel::PowerReply(char tone, std::string& shown) {
    std::string& text = m_Session.link.m_revdatastr;
    const char sought[] = {'S', 'P', 'W', tone};
    const std::size_t at = text.find(std::string_view(sought, sizeof sought)) + sizeof sought + 2;
    if (text.size() >= at + 3)
        shown = text.substr(at, 2) + '.' + text[at + 2];
    text.clear();
}

void Channel::LevelOrOrder() {
    LinkState& link = m_Session.link;
    if (link.m_SetIMOrder == "0") {
        const std::string level(LevelText(link.m_revdatastr)); // at most ten characters: no allocation
        link.m_revdatastr.clear();
        const double dBm = NumberIn(level);
        if (!level.empty() && dBm > LowestLevel && dBm < HighestLevel) // a spoilt one makes no point
            m_Events.LevelReply(level);
        return;
    }
    const std::size_t at = link.m_revdatastr.find('P');
    if (at != std::string::npos && at + 1 < link.m_revdatastr.size())
        link.m_SetIMOrder = link.m_revdatastr[at + 1];
    link.m_revdatastr.clear();
}

} // namespace qor
