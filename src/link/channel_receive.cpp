// The receiving half of the channel: from bytes on the line to what they mean.
#include "link/channel.h"
#include "link/commands.h"
#include "link/run_control.h"
#include "link/switch_unit.h"
#include "platform/clock.h"
#include "platform/serial_control.h"

namespace qor {

namespace {

struct ErrorWords {
    std::string_view words;
    InstrumentError error;
};
constexpr ErrorWords Errors[] = {
    {"SYNTAX ERROR", InstrumentError::Syntax},
    {"OUT OF RANGE", InstrumentError::OutOfRange},
    {"PLL NOT LOCKED", InstrumentError::PllNotLocked},
};

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

} // namespace

void Channel::OnComm() {
    if (m_Link.unit.HasLine())
        return m_Unit.OnComm();
    switch (m_Parts.comm.GetCommEvent()) {
    case CommEvent::Lost:
        LoseContact();
        return;
    case CommEvent::Receive:
        break;
    case CommEvent::None:
        return;
    }
    switch (m_Link.transaction.Form()) {
    case ReplyForm::Bytes:
        ReceiveBytes();
        return;
    case ReplyForm::Echo:
        ReceiveEcho();
        return;
    case ReplyForm::Text:
        ReceiveText();
        return;
    }
}

void Channel::ReceiveBytes() {
    m_Parts.comm.GetInput(m_Input);
    m_Bytes += m_Input;
    if (!m_Link.transaction.IsIdle() && HoldsMemoryByte(m_Bytes, m_Link.transaction.Sent()))
        BytesAreOver();
}

/// A byte-coded reply is here, or as much of it as will come.
void Channel::BytesAreOver() {
    const int tag = m_Link.transaction.Tag();
    Asker* const asker = m_Link.transaction.AskedBy();
    EndBinary();
    GiveUp();
    if (asker)
        asker->Answered(tag, m_Bytes);
}

/// Behind the last of several byte-coded commands the port goes back to text; where a pseudo-command follows,
/// that says when.
void Channel::EndBinary() {
    const bool moreFollow =
        !m_Link.queue.Empty() && (FormOf(TagAsSent(m_Link.queue.Head().tag)) != ReplyForm::Text ||
                                  m_Link.queue.Head().text.starts_with(command::Pause));
    if (m_Binary && !moreFollow)
        ReopenText();
}

void Channel::ReceiveEcho() {
    m_Parts.comm.GetInput(m_Input);
    if (m_Link.transaction.IsIdle())
        return; // late
    if (!m_Binary)
        m_Events.Heard(m_Input);
    m_Bytes += m_Input;
    const Echo echo = EchoIn(m_Bytes, m_Link.transaction.Echo());
    if (echo != Echo::Awaited)
        EchoIsOver(echo == Echo::Whole);
}

/// The echo is in, or something else came in its place, or nothing.
void Channel::EchoIsOver(bool whole) {
    const Transaction& transaction = m_Link.transaction;
    const int tag = transaction.Tag();
    Asker* const asker = transaction.AskedBy();
    GiveUp();
    if (whole) {
        m_Link.given.Echoed(transaction.Sent());
        m_Link.carriers.Echoed(transaction.Sent());
    }
    EndBinary();
    if (asker)
        asker->Answered(tag, whole ? std::string_view(transaction.Echo()) : std::string_view());
}

void Channel::ReceiveText() {
    Transaction& transaction = m_Link.transaction;
    m_Parts.comm.GetInput(m_Input);
    m_Events.Heard(m_Input);
    const bool wasRecognised = transaction.IsRecognised();
    const bool isComplete = transaction.Take(m_Input);
    if (!wasRecognised && transaction.IsRecognised() && !transaction.IsIdle())
        m_WaitTimer.Start(OrdinaryWaitMs); // a watch over the rest of it
    if (!isComplete)
        return;

    if (m_Link.chain.AwaitsIdentity() && !m_Link.connection.IsClosing()) { // closing begins no new chain
        if (m_Replies)
            m_Replies->IdentityReply();
    } else if (transaction.Holds("KVTWE") || (transaction.AskedBy() && transaction.RepeatsCommand())) {
        HandToAsker();
    }
    Dispatch();
    if (transaction.HasItsBytes())
        ReplyIsHere();
    if (transaction.IsIdle() && transaction.IsRecognised())
        m_WaitTimer.Stop();
    const int step = m_Link.chain.Step();
    if (step >= InitBandPosition && step <= InitEnd && !m_Link.connection.IsProbing())
        transaction.Text().clear();
}

void Channel::ReplyIsHere() {
    if (m_FirstSendMs != 0) { // no answer to a probe, nor to a later command
        m_Events.ReplyTime(static_cast<int>(m_Parts.clock.TickMs() - m_FirstSendMs) + 10);
        m_FirstSendMs = 0;
    }
    Finish();
}

/// The reply in flight is complete.
void Channel::Finish() {
    const Transaction& transaction = m_Link.transaction;
    if (!transaction.IsIdle() && transaction.IsRecognised() && transaction.EndsLine() && !m_Refused) {
        m_Link.given.Echoed(transaction.Sent());
        m_Link.carriers.Echoed(transaction.Sent());
    } else if (!transaction.IsIdle()) {
        m_Link.given.NotEchoed(transaction.Sent());
    }
    m_Link.transaction.Finish();
    AnswerLevelQuestion();
}

/// A question for a level that was answered without one: the level was spoilt.
void Channel::AnswerLevelQuestion() {
    if (!m_LevelOwed)
        return;
    m_LevelOwed = false;
    m_Events.LevelReply(Reading::Spoilt());
}

/// A reply that was asked for, or one of the memory. One that came too late must not count for the address
/// asked now.
void Channel::HandToAsker() {
    Transaction& transaction = m_Link.transaction;
    Asker* const asker = transaction.AskedBy();
    const bool isAnswer =
        asker && !transaction.IsIdle() && transaction.RepeatsCommand() && transaction.EndsLine();
    m_Answer = transaction.Text();
    transaction.Text().clear();
    if (!isAnswer)
        return;
    const int tag = transaction.Tag();
    Finish();
    asker->Answered(tag, m_Answer);
}

/// Acts on what the assembled text holds, first match wins.
void Channel::Dispatch() {
    Transaction& transaction = m_Link.transaction;
    std::string& text = transaction.Text();
    if (transaction.Holds("SST")) {
        StatusReply();
    } else if (ErrorReply()) {
        ReplacedByError();
    } else if (transaction.Holds("M2T")) {
        text.clear();
    } else if (transaction.Holds("RECUT")) {
        m_Link.chain.Answered(LampRecut);
        text.clear();
    } else if (transaction.Holds("SPWA")) {
        m_Link.chain.Answered(LampPower);
        text.clear();
    } else if (transaction.Holds("SPWB")) {
        text.clear();
    } else if (const std::size_t at = text.find("SAB");
               at != std::string::npos && at + 3 < text.size() && IsDigit(text[at + 3])) {
        BandReply(at + 3);
    } else if (transaction.Holds("dBm")) {
        TakeLevel();
    }
}

/// True for the words of an error, and for every reply behind them in the same run.
bool Channel::ErrorReply() {
    if (!m_Run.IsRunOn())
        m_ErrorOfRun.reset();
    std::optional<InstrumentError> found = m_ErrorOfRun;
    for (const auto& [words, error] : Errors) {
        if (!m_Link.transaction.Holds(words))
            continue;
        found = error;
        m_Refused = true;
        break;
    }
    if (!found)
        return false;
    if (m_Run.IsRunOn())
        m_ErrorOfRun = found;
    m_Link.transaction.Text().clear();
    m_Events.ErrorReply(*found);
    return true;
}

/// The error stands in for the echo, whatever length was awaited; the queue goes on.
void Channel::ReplacedByError() {
    const Transaction& transaction = m_Link.transaction;
    if (transaction.IsRecognised())
        return;
    Asker* const asker = transaction.AskedBy();
    const int tag = transaction.Tag();
    GiveUp();
    if (asker)
        asker->Answered(tag, {});
}

void Channel::StatusReply() {
    std::string& text = m_Link.transaction.Text();
    m_Link.chain.Answered(LampStatus);
    // Behind "SST" itself: an echo of #SMTRA or #STA may stand before it in the text.
    const std::string_view rest = std::string_view(text).substr(text.find("SST") + 3);
    if (!rest.empty() && rest != "\r\n")
        m_Link.chain.TakeStatus(static_cast<std::uint8_t>(rest.front()));
    text.clear();
    Finish();
    ArmStatusPoll();
}

/// "SAB" and the digits at `at`; "10" and "11" are no position 1.
void Channel::BandReply(std::size_t at) {
    const std::string_view digits = std::string_view(m_Link.transaction.Text()).substr(at);
    const bool twoDigits = digits.starts_with("10") || digits.starts_with("11");
    const int position = twoDigits ? 10 + (digits[1] - '0') : digits[0] - '0';
    m_Link.transaction.Text().clear();
    if (m_Replies)
        m_Replies->PositionReply(position);
}

void Channel::TakeLevel() {
    std::string& text = m_Link.transaction.Text();
    const bool isWhole = m_Link.transaction.EndsLine();
    const Reading level = Reading::In(LevelText(text));
    text.clear();
    if (!m_LevelOwed || !isWhole || !level.IsLevel()) // a spoilt one makes no point
        return;
    m_LevelOwed = false;
    m_Events.LevelReply(level);
}

} // namespace qor
