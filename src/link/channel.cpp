#include "link/channel.h"

#include "link/commands.h"
#include "link/firmware.h"
#include "link/run_control.h"
#include "link/switch_unit.h"
#include "platform/clock.h"
#include "platform/port_list.h"
#include "platform/serial_control.h"

#include <algorithm>

namespace qor {

namespace {

/// The instrument wants a rest between two commands.
constexpr int SendPauseMs = 9;
/// Send ticks after which a chain that waits for nothing is begun anew: five seconds.
constexpr int ChainPatience = 500;
/// Time after which a line that brings bytes but never the reply's text counts as silent.
constexpr int DeafMs = 5000;
/// Ticks of the wait after which an open reply counts as complete, and after which silence is a loss.
constexpr int OpenTicks = 2;
constexpr int SilentTicks = 5;
/// An echo that never comes is not asked for without end.
constexpr int MostOffTries = 3;

/// The instrument and the port, for the operator who has to find them.
std::string WhereLeftOn(const RunMark::Left& left) {
    return left.instrument.empty() ? std::string() : "\n" + left.instrument + ", " + left.port;
}

} // namespace

Channel::Channel(LinkState& link, const LinkParts& parts, SwitchUnit& unit, RunMark& mark, LinkEvents& events,
                 RunControl& run)
    : m_Link(link), m_Parts(parts), m_Unit(unit), m_Mark(mark), m_Events(events), m_Run(run),
      m_SendTimer(parts.timers, commsendtimer, [this] { OnSendTimer(); }),
      m_WaitTimer(parts.timers, WaitCommTimer, [this] { OnWaitTimer(); }),
      m_StatusTimer(parts.timers, settingchecktimer, [this] { OnStatusTimer(); }) {
    link.queue.SetOnFirst([this] {
        if (m_Resting)
            Start();
    });
    unit.SetOnNoWayBack([this] { LoseContact(); });
}

void Channel::Start() {
    m_Resting = false;
    m_SendTimer.Start(SendPeriod);
}

void Channel::Stop() {
    m_Resting = false;
    m_SendTimer.Stop();
}

/// An idle line needs no hundred ticks a second: the next command that is queued wakes the timer.
void Channel::RestWhenIdle() {
    if (!LineIsIdle(m_Link) || m_Link.chain.IsUnderWay() || m_Run.IsRunOn() || m_Link.carriers.MayBeOn())
        return;
    m_SendTimer.Stop();
    m_Resting = true;
}

void Channel::QueueSwitchUnit(int band) {
    if (m_Link.unit.IsKnown())
        m_Link.queue.Append(command::SwitchUnit, TagPlain, 0, SwitchUnitBand(band));
}

void Channel::TakeLineBack() {
    m_Unit.Break();
}

void Channel::Reset() {
    m_Unit.Drop();
    m_Link.transaction.Reset();
    m_FirstSendMs = 0;
    m_LevelOwed = false;
    m_Link.queue.Clear();
}

void Channel::BeginConversation() {
    RememberDebt();
    Reset();
    m_Link.transaction.Text().clear();
    m_Link.given.Forget();
    m_Binary = false;
    m_FirstSendArmed = true;
    m_LevelsExpected = false;
    Start();
}

void Channel::ArmStatusPoll() {
    if (!TagSettingcheck)
        return;
    TagSettingcheck = false;
    m_StatusTimer.Start(StatusPollPeriod);
}

void Channel::PauseStatusPoll() {
    TagSettingcheck = true;
    m_StatusTimer.Stop();
}

void Channel::ResumeStatusPoll() {
    TagSettingcheck = false;
    m_StatusTimer.Start(StatusPollPeriod);
}

void Channel::ReopenBinary() {
    m_Parts.comm.SetPortOpen(false);
    m_Parts.comm.SetInputMode(CommInputMode::Binary);
    m_Parts.comm.SetPortOpen(true);
    m_Binary = true;
}

void Channel::ReopenText() {
    m_Parts.comm.SetPortOpen(false);
    m_Parts.comm.SetInputMode(CommInputMode::Text);
    m_Parts.comm.SetPortOpen(true);
    m_Binary = false;
}

void Channel::OnSendTimer() {
    if (!m_Link.transaction.IsIdle() || m_Link.queue.Empty()) {
        m_Events.LineIdle();
        WatchChain();
        SwitchOffWhenIdle();
        RestWhenIdle();
        return;
    }
    m_IdleTicks = 0;
    const std::int64_t now = m_Parts.clock.TickMs();
    if (m_Link.transaction.IsRecognised()) {
        m_DeafSinceMs = now; // the last reply was understood
    } else if (now - m_DeafSinceMs > DeafMs) {
        LoseContact();
        return;
    }
    if (m_Run.HoldsLine())
        return;
    m_Events.BeforeSend();
    if (!m_Link.queue.Empty())
        CommSend();
    // The next slot begins now: the pause before a send does not eat into it.
    m_SendTimer.Start(SendPeriod);
}

void Channel::CommSend() {
    m_Parts.clock.Sleep(SendPauseMs);
    CommandQueue& queue = m_Link.queue;
    Transaction& transaction = m_Link.transaction;
    LineCommand& head = queue.Head();
    const bool selectsBand = SelectsPosition(head.text) || head.text == command::SwitchUnit;
    if (selectsBand && m_Link.carriers.MayBeOn()) {
        LoseContact(); // the off commands before it were not echoed: no band is selected under carriers
        return;
    }
    if (TakePseudoCommand(head))
        return;

    const int tag = TagAsSent(head.tag);
    if (FormOf(tag) != ReplyForm::Text && !m_Binary)
        ReopenBinary();
    m_Bytes.clear();
    m_FirstSendMs = m_FirstSendArmed ? m_Parts.clock.TickMs() : 0;
    m_FirstSendArmed = false;
    ApplyMemoryPage(head.text, tag, m_Link.identity.Firmware());
    const bool isAnswered = head.text != command::SweepFollows;
    transaction.Begin(head, tag, isAnswered);
    m_Refused = false;
    m_LevelOwed = m_LevelsExpected && head.text == command::Level;
    m_Link.given.Sent(head.text);
    m_Link.carriers.Sent(head.text);
    if (Carriers::SwitchesOn(head.text)) {
        m_OffTries = 0;
        m_Carrying = m_Link.identity.Description();
        if (!m_Mark.IsSet(*m_Carrying))
            m_Mark.Set(m_Parts.ports.DeviceOf(m_Link.connection.LastPort()),
                       m_Link.carriers.OffCommands().front(), *m_Carrying);
    }
    queue.RemoveHead(); // `head` keeps its text until the next append
    if (isAnswered)
        m_WaitTimer.Start(head.waitMs);
    Write(head.text, head.payload);
    if (!isAnswered)
        transaction.GiveUp();
}

/// What stands in the queue and never goes out. True when the head was one of those.
bool Channel::TakePseudoCommand(const LineCommand& head) {
    // Only at the end of the chain: a status poll that a late reply has armed must not cut it short.
    if (m_Link.chain.IsUnderWay() && m_Link.chain.IsPastBand() &&
        head.text.starts_with(command::WriteStatus)) {
        EndOfChain();
        return true;
    }
    if (head.text.starts_with(command::Pause)) {
        if (head.text == command::InputBinary)
            ReopenBinary();
        else if (head.text == command::InputText)
            ReopenText();
    } else if (head.text == command::End) {
        m_Link.transaction.Pass(head);
        GiveUp();
    } else if (head.text == command::SwitchUnit) {
        const std::string band = head.payload;
        m_Link.queue.RemoveHead(); // what waits behind it goes out when the line is back
        LendLine(band);
        return true;
    } else {
        return false;
    }
    m_Link.queue.RemoveHead();
    return true;
}

void Channel::LendLine(std::string_view band) {
    m_WaitTimer.Stop();
    m_Link.transaction.Text().clear();
    m_Binary = false;
    m_Unit.SetBandByMpx(band);
}

void Channel::EndOfChain() {
    if (m_Link.carriers.MayBeOn()) { // what it was owed was not echoed
        LoseContact();
        return;
    }
    m_Link.transaction.Reset();
    m_Link.queue.RemoveHead(); // what the operator has chosen since the lamp turned green waits behind it
    m_Link.chain.End();
    SettleDebt();
    ArmStatusPoll(); // an instrument that falls silent is noticed from now on
    m_Events.Initialised();
}

/// A step of the chain whose answer was spoilt queues nothing more and awaits nothing. The instrument is then
/// looked for again, from its identity on: what is known of it may be spoilt, too.
void Channel::WatchChain() {
    const Chain& chain = m_Link.chain;
    const bool noAnswer =
        chain.Step() < InitBandText ||
        (chain.Step() == InitBandText && m_Link.position.Band() == BandNone && !chain.WaitsForChoice());
    const bool waits = chain.IsUnderWay() && noAnswer && LineIsIdle(m_Link);
    m_IdleTicks = waits ? m_IdleTicks + 1 : 0;
    if (m_IdleTicks < ChainPatience)
        return;
    m_IdleTicks = 0;
    m_Link.identity.ForgetModel();
    LoseContact();
}

void Channel::Write(const std::string& text, std::string_view payload) {
    CMSComm& comm = m_Parts.comm;
    if (!comm.GetPortOpen())
        comm.SetPortOpen(true);
    comm.SetOutput(text);
    if (!payload.empty())
        comm.SetOutput(payload);
    comm.SetOutput("\r");
}

// ----- carriers

void Channel::SwitchOffNow() {
    if (m_Link.carriers.MayBeOn() && m_Parts.comm.GetPortOpen() && IsOurPort(m_Link))
        WriteOffCommands();
}

void Channel::WriteOffCommands() {
    for (const std::string& off : m_Link.carriers.OffCommands()) {
        m_Parts.clock.Sleep(SendPauseMs);
        Write(off, {});
    }
}

void Channel::SwitchOffAtEnd() {
    Stop();
    Reset();
    if (m_Parts.comm.GetPortOpen() && (m_Link.identity.HasModel() || m_Link.carriers.MayBeOn()))
        WriteOffCommands();
}

/// No run is on and the line has nothing to do, but an off command was not echoed: it was refused, or its
/// echo was spoilt.
void Channel::SwitchOffWhenIdle() {
    if (!LineIsIdle(m_Link) || m_Run.IsRunOn() || m_Run.KeepsCarriers() || m_Link.chain.IsUnderWay())
        return;
    if (!m_Link.carriers.MayBeOn()) {
        DropMark();
    } else if (m_OffTries == MostOffTries) {
        LoseContact(); // it does not answer any more: begin anew, with what it is owed
    } else if (m_Parts.comm.GetPortOpen() && IsOurPort(m_Link)) {
        ++m_OffTries;
        for (const std::string& off : m_Link.carriers.OffCommands())
            m_Link.queue.Append(off);
    }
}

/// A conversation begins before the off commands of the last one were echoed.
void Channel::RememberDebt() {
    if (m_Link.carriers.MayBeOn() && m_Carrying)
        m_Owed = Debt{*m_Carrying, m_Link.carriers};
}

/// The instrument is known, and what was owed has been said to it. If it is not the one that was left
/// carrying, that one is told when it comes back.
void Channel::SettleDebt() {
    if (!m_Owed || m_Link.carriers.MayBeOn())
        return;
    if (m_Owed->to == m_Link.identity.Description())
        m_Owed.reset();
}

/// The instrument at hand is off; a mark of another stays until that one is.
void Channel::DropMark() {
    const std::string now = m_Link.identity.Description();
    if (m_Owed && m_Owed->to == now)
        return;
    m_Mark.Remove(now);
    if (m_OldMarks && !m_Link.chain.IsUnderWay() && m_Link.identity.HasModel())
        m_Mark.ClearOld(now);
    m_OldMarks = m_OldMarks && m_Owed;
}

void Channel::SwitchOffWhatIsOwed() {
    if (m_Owed)
        m_Link.carriers = m_Owed->carriers;
    if (m_Link.carriers.MayBeOn()) {
        m_OffTries = 0;
        for (const std::string& off : m_Link.carriers.OffCommands())
            m_Link.queue.Append(off);
    }
    if (m_LeftOn)
        m_Events.Tell(Outcome::Refused("The last run did not end in order." + WhereLeftOn(*m_LeftOn)));
    if (m_LostInRun)
        m_Events.Tell(Outcome::Refused("contact was lost during the run; the partial curve is kept"));
    m_LeftOn.reset();
    m_LostInRun = false;
}

void Channel::LookForOldMark() {
    m_LeftOn = m_Mark.FindOld();
    if (!m_LeftOn)
        return;
    m_OldMarks = true;
    m_Link.carriers.MayBeOnFromBefore(m_LeftOn->methodOff);
    if (!m_LeftOn->instrument.empty())
        m_Owed = Debt{m_LeftOn->instrument, m_Link.carriers};
}

// ----- silence

void Channel::OnStatusTimer() {
    // The chain has a watch of its own, which the answers to a poll would hold off.
    if (m_Parts.comm.GetPortOpen() && !m_Link.chain.IsUnderWay())
        m_Link.queue.Append(command::Status);
}

void Channel::OnWaitTimer() {
    Transaction& transaction = m_Link.transaction;
    const int ticks = transaction.Tick();
    if (HoldsUpOffCommands()) {
        GiveUp();
        return;
    }
    if (transaction.IsRecognised()) {
        if (transaction.IsIdle())
            m_WaitTimer.Stop();
        else if (ticks >= SilentTicks)
            LoseContact();
        return;
    }
    if (ticks == OpenTicks && (transaction.IsOpen() || transaction.Form() == ReplyForm::Echo))
        OpenReplyOver();
    else if (ticks >= SilentTicks)
        LoseContact();
    else if (AwaitsOffEcho() && m_Parts.comm.GetPortOpen())
        Write(transaction.Sent(), {}); // a line that was dead for a moment hears it now
}

bool Channel::IsOffCommand(std::string_view text) const {
    const auto off = m_Link.carriers.OffCommands();
    return std::find(off.begin(), off.end(), text) != off.end();
}

/// The run is over, and what is awaited belongs to it still: it must not hold up what switches the carriers
/// off.
bool Channel::HoldsUpOffCommands() const {
    if (m_Run.IsRunOn() || m_Link.transaction.IsIdle() || m_Link.chain.IsUnderWay())
        return false;
    const auto off = m_Link.carriers.OffCommands();
    return m_Link.carriers.MayBeOn() && !IsOffCommand(m_Link.transaction.Sent()) &&
           std::any_of(off.begin(), off.end(), [this](const auto& text) { return m_Link.queue.Holds(text); });
}

/// The run is over, and what switches a carrier off was not heard yet.
bool Channel::AwaitsOffEcho() const {
    return !m_Run.IsRunOn() && !m_Link.transaction.IsIdle() && m_Link.carriers.MayBeOn() &&
           IsOffCommand(m_Link.transaction.Sent());
}

/// The second tick of an open-ended command: what has come by now is the reply.
void Channel::OpenReplyOver() {
    const Transaction& transaction = m_Link.transaction;
    if (!m_Parts.comm.GetPortOpen()) {
        // Closed while it was waiting, for want of an identity: look for the instrument again.
        LoseContact();
        return;
    }
    if (transaction.Form() == ReplyForm::Bytes) {
        BytesAreOver();
    } else if (transaction.Form() == ReplyForm::Echo) {
        EchoIsOver(false);
    } else if (Asker* const asker = transaction.AskedBy()) {
        const int tag = transaction.Tag();
        GiveUp();
        asker->Answered(tag, {});
    } else if (!TagSettingcheck) {
        LoseContact();
    } else {
        GiveUp();
    }
}

/// Everything that was awaited is forgotten.
void Channel::GiveUp() {
    if (!m_Link.transaction.IsIdle())
        m_Link.given.NotEchoed(m_Link.transaction.Sent());
    m_Link.transaction.GiveUp();
    m_WaitTimer.Stop();
    AnswerLevelQuestion();
}

void Channel::LoseContact() {
    m_Unit.Drop();
    m_LevelOwed = false;
    m_Link.transaction.Text().clear();
    GiveUp();
    m_LostInRun = m_LostInRun || m_Run.IsRunOn();
    m_Run.AbandonRun(); // nor one that waits: no carriers come on when the cable is put back minutes later
    Stop();
    m_Link.queue.Clear();
    PauseStatusPoll();
    SwitchOffNow();
    m_Link.chain.Lose();
    m_Link.given.Forget();
    m_Link.connection.CountLoss();
    if (m_OnLoss)
        m_OnLoss();
}

} // namespace qor
