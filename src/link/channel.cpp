#include "link/channel.h"

#include "bands/tenths.h"
#include "core/run_control.h"
#include "core/session.h"
#include "core/text_format.h"
#include "core/timer_ids.h"
#include "display/curve_store.h"
#include "link/commands.h"
#include "platform/clock.h"
#include "platform/platform.h"
#include "platform/serial_control.h"
#include "platform/timers.h"

namespace qor {

namespace {

/// The instrument wants a rest between two commands.
constexpr int SendPauseMs = 9;
/// Send ticks after which a chain that waits for nothing is begun anew: five seconds.
constexpr int ChainPatience = 500;
/// Time after which a line that brings bytes but never the reply's text counts as silent.
constexpr int DeafMs = 5000;

} // namespace

Channel::Channel(Session& session, const Platform& platform, ChannelEvents& events, RunControl& run)
    : m_Session(session), m_Platform(platform), m_Events(events), m_Run(run) {
    session.link.queue.SetOnFirst([this] {
        if (m_Resting)
            Start();
    });
}

void Channel::Start() {
    m_Resting = false;
    m_Platform.timers.SetTimer(commsendtimer, SendPeriod);
}

void Channel::Stop() {
    m_Resting = false;
    m_Platform.timers.KillTimer(commsendtimer);
}

/// An idle line needs no hundred ticks a second: the next command that is queued wakes the timer.
void Channel::RestWhenIdle() {
    const LinkState& link = m_Session.link;
    const RunState& run = m_Session.run;
    if (!link.queue.Empty() || link.tagCommPend != 0 || link.g_bInitFlush || run.runOn ||
        run.g_SweepPhase != PhaseIdle)
        return;
    m_Platform.timers.KillTimer(commsendtimer);
    m_Resting = true;
}

void Channel::Reset() {
    LinkState& link = m_Session.link;
    link.tagtemp = 0;
    link.tagCommPend = 0;
    link.CommPendCt = 0;
    link.firstSendMs = 0;
    link.queue.Clear();
}

void Channel::ArmStatusPoll() {
    LinkState& link = m_Session.link;
    if (!link.TagSettingcheck)
        return;
    link.TagSettingcheck = false;
    m_Platform.timers.SetTimer(settingchecktimer, StatusPollPeriod);
}

void Channel::PauseStatusPoll() {
    m_Session.link.TagSettingcheck = true;
    m_Platform.timers.KillTimer(settingchecktimer);
}

void Channel::ReopenBinary() {
    CMSComm& comm = m_Platform.comm;
    comm.SetPortOpen(false);
    comm.SetInputMode(CommInputMode::Binary);
    comm.SetPortOpen(true);
}

void Channel::ReopenText() {
    CMSComm& comm = m_Platform.comm;
    comm.SetPortOpen(false);
    comm.SetInputMode(CommInputMode::Text);
    comm.SetPortOpen(true);
}

void Channel::OnSendTimer() {
    LinkState& link = m_Session.link;
    if (link.tagCommPend != 0 || link.queue.Empty()) {
        m_Events.LineIdle();
        WatchChain();
        RestWhenIdle();
        return;
    }
    m_IdleTicks = 0;
    const std::int64_t now = m_Platform.clock.TickMs();
    if (link.TagWaitTimerIsKilled) {
        m_DeafSinceMs = now; // the last reply was understood
    } else if (now - m_DeafSinceMs > DeafMs) {
        LoseContact(true);
        return;
    }
    m_Events.BeforeSend();
    if (!link.queue.Empty())
        CommSend();
    // The next slot begins now: the pause before a send does not eat into it.
    m_Platform.timers.SetTimer(commsendtimer, SendPeriod);
}

void Channel::CommSend() {
    LinkState& link = m_Session.link;
    m_Platform.clock.Sleep(SendPauseMs);

    CommandQueue::Entry& head = link.queue.Head();
    if (head.text.starts_with("#WAITE")) {
        if (head.text == "#WAITE0")
            ReopenBinary();
        else if (head.text == "#WAITE1")
            ReopenText();
        link.queue.RemoveHead();
        return;
    }
    if (head.text == "#M2T1" || head.text == "#SPA1") {
        std::string& row = m_Session.results.g_reportLines[ReportBand];
        if (row.find(link.g_DeviceSN) == std::string::npos)
            row += link.g_DeviceSN;
    }
    // Only at the end of the chain: a status poll that a late reply has armed must not cut it short.
    if (link.g_bInitFlush && link.g_init >= InitSerial && head.text.starts_with("#SST")) {
        EndOfChain();
        return;
    }
    if (head.tag == TagSerialHigh)
        ReopenBinary();
    if (head.text == "#NULL") {
        link.g_CurTag = head.tag;
        link.g_CurParam = head.param;
        link.queue.RemoveHead();
        FinishTransaction();
        return;
    }

    link.firstSendMs = link.firstSendArmed ? m_Platform.clock.TickMs() : 0;
    link.firstSendArmed = false;
    const int tag = TagAsSent(head.tag);
    ApplyMemoryPage(head.text, link.FirmVersion);
    ReplyText(head.text, link.TagCurrentCommand);
    link.tagCommPend = ReplyLength(head.text, tag) + PayloadReplyLength(head.text, tag);
    link.g_CurParam = head.param;
    link.g_CurTag = tag;
    link.queue.RemoveHead(); // `head` keeps its text until the next append
    if (head.text != "#SWEEP") {
        link.CommPendCt = 0;
        link.TagWaitTimerIsKilled = false;
        m_Platform.timers.SetTimer(WaitCommTimer, WaitPeriod);
    }
    Write(head.text, head.payload);
}

void Channel::EndOfChain() {
    LinkState& link = m_Session.link;
    link.tagtemp = 0;
    link.tagCommPend = 0;
    link.CommPendCt = 0;
    link.queue.RemoveHead(); // what the operator has chosen since the lamp turned green waits behind it
    // The grid of the band stays, the empty plot has its axis from it; and so does a run cut short by a lost
    // line, it can still be saved.
    if (!HoldsPoints(m_Session.curve))
        m_Session.curve.g_MeasVerdict = VerdictNone;
    link.g_bInitFlush = false;
    if (link.g_InitLamp == LampNothing)
        ArmStatusPoll(); // none of the echoes was understood: its reply releases the start button
    m_Events.Initialised();
}

/// A step of the chain whose answer was spoilt queues nothing more and awaits nothing. The instrument is then
/// looked for again, from its identity on: what is known of it may be spoilt, too.
void Channel::WatchChain() {
    LinkState& link = m_Session.link;
    const bool noAnswer = link.g_init < InitBandText ||
                          (link.g_init == InitBandText && m_Session.panel.m_Band_sel == NoBandText);
    const bool waits = link.g_bInitFlush && noAnswer && link.tagCommPend == 0 && link.queue.Empty();
    m_IdleTicks = waits ? m_IdleTicks + 1 : 0;
    if (m_IdleTicks < ChainPatience)
        return;
    m_IdleTicks = 0;
    link.m_Type.clear();
    LoseContact(false);
}

void Channel::Write(const std::string& text, std::string_view payload) {
    CMSComm& comm = m_Platform.comm;
    if (!comm.GetPortOpen())
        comm.SetPortOpen(true);
    comm.SetOutput(text);
    if (!payload.empty())
        comm.SetOutput(payload);
    comm.SetOutput("\r");
}

void Channel::OnStatusTimer() {
    // The chain has a watch of its own, which the answers to a poll would hold off.
    if (m_Platform.comm.GetPortOpen() && !m_Session.link.g_bInitFlush)
        m_Session.link.queue.Append("#SST?");
}

void Channel::OnWaitTimer() {
    LinkState& link = m_Session.link;
    ++link.CommPendCt;
    if (link.TagWaitTimerIsKilled) {
        if (link.tagCommPend == 0)
            m_Platform.timers.KillTimer(WaitCommTimer);
        else if (link.CommPendCt > 4)
            LoseContact(true);
        return;
    }
    if (link.CommPendCt == 2 && link.tagCommPend >= OpenReply)
        OpenReplyOver();
    else if (link.CommPendCt > 4)
        LoseContact(true);
}

/// The second tick of an open-ended command: what has come by now is the reply.
void Channel::OpenReplyOver() {
    LinkState& link = m_Session.link;
    const int tag = link.g_CurTag;
    const bool chainRead = IsMemoryTag(tag);
    if (!m_Platform.comm.GetPortOpen()) {
        // Closed while it was waiting, for want of an identity: look for the instrument again.
        LoseContact(false);
        return;
    }
    if (tag == TagSerialHigh || tag == TagSerialLow) {
        ReadSerialByte(tag == TagSerialHigh);
    } else if (tag == TagOption) {
        ReadOption();
    } else if (tag == TagMemoryEditor) {
        ReopenText();
    } else if (tag >= TagReceiverCalFirst && tag <= TagReceiverCalLast) {
        m_Platform.comm.GetInput(m_Input);
    } else if (!chainRead && tag != TagPathTable && !link.TagSettingcheck && !link.TagCalf1f2) {
        LoseContact(false);
        return;
    }
    FinishTransaction();
    if (chainRead || tag == TagOption)
        m_Events.MemoryReadMissed(tag);
}

/// Value of the byte-coded reply that lies in the port: five letters, page, address, value. -1 when the reply
/// is too short or is none to this address, as the words of an error are not.
int Channel::ReadMemoryByte(char address) {
    constexpr std::size_t AddressAt = 6;
    constexpr std::size_t ValueAt = 7;
    m_Platform.comm.GetInput(m_Input);
    if (m_Input.size() <= ValueAt || m_Input[AddressAt] != address)
        return -1;
    return static_cast<unsigned char>(m_Input[ValueAt]);
}

void Channel::ReadSerialByte(bool high) {
    LinkState& link = m_Session.link;
    const int value = ReadMemoryByte(high ? 'x' : 'y');
    if (value < 0)
        return;
    if (high) {
        link.g_DeviceSN = std::to_string(value * 256);
    } else {
        link.g_DeviceSN = ZeroPadded(WholeNumberIn(link.g_DeviceSN) + value, 5);
        link.m_devSN = link.g_DeviceSN;
    }
}

void Channel::ReadOption() {
    if (const int value = ReadMemoryByte('t'); value >= 0)
        m_Session.plan.g_bridge3dB = value & 1;
    ReopenText();
}

void Channel::FinishTransaction() {
    LinkState& link = m_Session.link;
    link.CommPendCt = 0;
    link.tagCommPend = 0;
    link.tagtemp = 0;
    link.TagWaitTimerIsKilled = true;
    m_Platform.timers.KillTimer(WaitCommTimer);
}

void Channel::LoseContact(bool stopRun) {
    LinkState& link = m_Session.link;
    link.m_revdatastr.clear();
    FinishTransaction();
    if (link.TagCalf1f2)
        return;
    if (stopRun)
        m_Run.AbandonRun();
    Stop();
    link.queue.Clear();
    PauseStatusPoll();
    m_Session.panel.lamp = Lamp::NotReady;
    link.g_InstrStatus &= static_cast<std::uint8_t>(~0x04);
    ++link.contactLosses;
    if (link.identifyAfterLoss)
        link.g_isSWStart = true;
    link.g_bStartAfterConnect = false; // carriers must not come on when the cable is put back minutes later
    if (link.m_CloseCountdown == 0)    // else the operator is closing the port
        m_Platform.timers.SetTimer(scanCommtimer, SearchPeriod);
}

} // namespace qor
