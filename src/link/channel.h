#pragma once

#include "link/link_events.h"
#include "link/link_parts.h"
#include "link/link_state.h"
#include "link/run_mark.h"
#include "platform/timers.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace qor {

class RunControl;
class SwitchUnit;

/// Timers of the channel and their periods in ms.
enum ChannelTimer : int { commsendtimer = 3, WaitCommTimer = 10, settingchecktimer = 18 };
inline constexpr int SendPeriod = 10;
inline constexpr int StatusPollPeriod = 2000;

/// Where the channel takes what it hears to while the instrument is being initialised.
class ChainReplies {
public:
    ChainReplies() = default;
    ChainReplies(const ChainReplies&) = delete;
    ChainReplies& operator=(const ChainReplies&) = delete;
    virtual ~ChainReplies() = default;

    /// A complete reply while the instrument is not identified yet.
    virtual void IdentityReply() = 0;
    /// The instrument named its band switch position.
    virtual void PositionReply(int position) = 0;
};

/// All traffic to the instrument: takes the head of the queue when the line is free, assembles the reply,
/// hands it to whoever asked or tells by keywords what it means, and notices silence.
///
/// One command is in flight at a time and every wait is a timer tick. A recognised reply that never completes
/// is given up after five seconds, so that the line cannot hang.
///
/// The channel also answers for the carriers: what switches them off is written at once when contact is lost,
/// and again at the next contact if the instrument has not echoed it.
class Channel {
public:
    Channel(LinkState& link, const LinkParts& parts, SwitchUnit& unit, RunMark& mark, LinkEvents& events,
            RunControl& run);

    void SetReplies(ChainReplies& replies) { m_Replies = &replies; }
    /// Called when contact is lost: somebody has to look for the instrument again.
    void SetOnLoss(std::function<void()> onLoss) { m_OnLoss = std::move(onLoss); }

    void Start();  ///< commands go out
    void Stop();   ///< nothing goes out, whatever is queued, until Start
    void OnComm(); ///< the serial control's event
    /// The reply in flight is awaited no more.
    void StopWait() { m_WaitTimer.Stop(); }

    /// The band switch unit, where there is one, is told this band of the catalogue when the commands queued
    /// before are through. The carriers have to be off by then.
    void QueueSwitchUnit(int band);
    /// Ends what the band switch unit has the line for.
    void TakeLineBack();

    /// Empties the queue and forgets the transaction in flight.
    void Reset();
    /// The same, with the port in text input and the next command's reply time measured: a conversation
    /// begins.
    void BeginConversation();
    /// The instrument is gone, or is no use as it answers: ends a run, stops sending and begins the search.
    void LoseContact();
    /// Arms the status poll if it is marked as not armed.
    void ArmStatusPoll();
    /// Stops the status poll and marks it as not armed.
    void PauseStatusPoll();
    /// Stops it for as long as a service page is open; what the instrument says arms it no more than before.
    void HoldStatusPoll() { m_StatusTimer.Stop(); }
    void ResumeStatusPoll();
    /// A run is on: what the instrument answers from now on to a question for a level is a level of it. The
    /// answer that an earlier run still awaits is not.
    void ExpectLevels(bool run) {
        m_LevelsExpected = run;
        m_LevelOwed = false;
    }
    /// An error reply of an earlier run does not stand against what comes.
    void ForgetError() { m_ErrorOfRun.reset(); }

    /// Writes what switches the carriers off, past the queue and without waiting for an echo, if they may be
    /// on and the line is open.
    void SwitchOffNow();
    /// The program ends on a line that does not answer: what waits is dropped and the off commands are
    /// written, if an instrument has answered there.
    void SwitchOffAtEnd();
    /// The instrument has said who it is: carriers that a lost line has left on are switched off before
    /// anything else.
    void SwitchOffWhatIsOwed();
    /// A program that ended without order may have left carriers on, by the mark it left behind.
    void LookForOldMark();

private:
    void OnSendTimer();
    void OnWaitTimer();
    void OnStatusTimer();
    void RestWhenIdle();
    void SwitchOffWhenIdle();
    void WriteOffCommands();
    void DropMark();
    void RememberDebt();
    void SettleDebt();
    void CommSend();
    [[nodiscard]] bool TakePseudoCommand(const LineCommand& head);
    void LendLine(std::string_view band);
    void EndOfChain();
    void WatchChain();
    void Write(const std::string& text, std::string_view payload);
    void ReopenBinary();
    void ReopenText();

    void ReceiveBytes();
    void ReceiveEcho();
    void ReceiveText();
    void BytesAreOver();
    void EchoIsOver(bool whole);
    void EndBinary();
    void HandToAsker();
    void Dispatch();
    [[nodiscard]] bool ErrorReply();
    void ReplacedByError();
    void StatusReply();
    void BandReply(std::size_t at);
    void TakeLevel();
    [[nodiscard]] bool IsOffCommand(std::string_view text) const;
    [[nodiscard]] bool HoldsUpOffCommands() const;
    [[nodiscard]] bool AwaitsOffEcho() const;
    void OpenReplyOver();
    void ReplyIsHere();
    void Finish();
    void GiveUp();
    void AnswerLevelQuestion();

    LinkState& m_Link;
    LinkParts m_Parts;
    SwitchUnit& m_Unit;
    RunMark& m_Mark;
    LinkEvents& m_Events;
    RunControl& m_Run;
    ChainReplies* m_Replies = nullptr;
    std::function<void()> m_OnLoss;
    Timer m_SendTimer;
    Timer m_WaitTimer;
    Timer m_StatusTimer; ///< the heartbeat of the idle link

    std::string m_Input;           ///< the piece just read
    std::string m_Answer;          ///< text on its way to its asker
    std::string m_Bytes;           ///< of a byte-coded reply
    bool m_Binary = false;         ///< the port gives bytes
    bool TagSettingcheck = true;   ///< the status poll is not armed and must be at the next chance
    bool m_LevelsExpected = false; ///< a run is on
    bool m_LevelOwed = false;      ///< the command in flight asks for a level, and none has come
    bool m_Refused = false;        ///< an error stood in for the echo of the command in flight
    std::optional<InstrumentError> m_ErrorOfRun; ///< no level counts after it for the rest of the run
    std::int64_t m_FirstSendMs = 0; ///< when the first command of a conversation went out; 0: not under way
    bool m_FirstSendArmed = false;
    std::int64_t m_DeafSinceMs = 0; ///< when the last reply that was understood had gone out
    bool m_Resting = false;         ///< the send timer sleeps until a command is queued
    int m_IdleTicks = 0;            ///< send ticks for which the chain has waited for nothing
    int m_OffTries = 0;             ///< times the carriers were switched off again on an idle line
    /// An instrument that may be carrying since its line was lost. Another one's echoes settle nothing.
    struct Debt {
        std::string to; ///< Identity::Description
        Carriers carriers;
    };
    std::optional<std::string> m_Carrying; ///< the instrument whose carriers were switched on last
    std::optional<Debt> m_Owed;
    bool m_LostInRun = false; ///< contact was lost with a run on, and the operator is not told yet
    std::optional<RunMark::Left> m_LeftOn; ///< by a program that is gone, and the operator is not told yet
    bool m_OldMarks = false;               ///< marks of programs that are gone stand there
};

} // namespace qor
