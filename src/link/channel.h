#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace qor {

class RunControl;
struct Platform;
struct Session;

/// What the channel tells the rest of the program.
class ChannelEvents {
public:
    ChannelEvents() = default;
    ChannelEvents(const ChannelEvents&) = delete;
    ChannelEvents& operator=(const ChannelEvents&) = delete;
    virtual ~ChannelEvents() = default;

    /// The head of the queue is about to go out.
    virtual void BeforeSend() = 0;
    /// A send tick that sends nothing: a reply is awaited or the queue is empty.
    virtual void LineIdle() = 0;
    /// A complete reply while the instrument is not identified yet.
    virtual void IdentityReply() = 0;
    /// A complete text-form memory reply.
    virtual void MemoryReply() = 0;
    /// A memory read of the chain is over without a text reply: read on the wait timer, refused, or silent.
    virtual void MemoryReadMissed(int tag) = 0;
    /// The instrument named its band switch position.
    virtual void PositionReply(int position) = 0;
    /// A level with a run on. `level` is the decimal text in dBm.
    virtual void LevelReply(std::string_view level) = 0;
    /// The end of an initialisation: the queue has just been wiped.
    virtual void Initialised() = 0;
};

/// All traffic to the instrument: takes the head of the queue when the line is free, assembles the reply,
/// dispatches it on keywords and tags, and notices silence.
///
/// One command is in flight at a time and every wait is a timer tick. A transaction is idle (tagCommPend 0),
/// in flight, or recognised: the reply's text has been seen but its bytes fall short. A recognised reply that
/// never completes is given up after five more seconds, so that the line cannot hang.
class Channel {
public:
    Channel(Session& session, const Platform& platform, ChannelEvents& events, RunControl& run);

    void Start();         ///< starts commsendtimer
    void Stop();          ///< stops it: nothing goes out, whatever is queued, until Start
    void OnSendTimer();   ///< commsendtimer
    void OnWaitTimer();   ///< WaitCommTimer
    void OnStatusTimer(); ///< settingchecktimer: the heartbeat of the idle link
    void OnComm();        ///< the serial control's event

    /// Empties the queue and forgets the transaction in flight.
    void Reset();
    /// The instrument is gone, or is no use as it answers: stops sending and begins the search.
    void LoseContact(bool stopRun);
    /// Arms the status poll if it is marked as not armed.
    void ArmStatusPoll();
    /// Stops the status poll and marks it as not armed.
    void PauseStatusPoll();
    /// Closes the port and opens it again with this input.
    void ReopenBinary();
    void ReopenText();

private:
    void CommSend();
    void EndOfChain();
    void WatchChain();
    void RestWhenIdle();
    void Write(const std::string& text, std::string_view payload);
    void ReceiveCounted();
    void ReceiveText();
    void Dispatch();
    [[nodiscard]] bool ErrorReply();
    void StatusReply();
    void PowerReply(char tone, std::string& shown);
    void LevelOrOrder();
    void OpenReplyOver();
    [[nodiscard]] int ReadMemoryByte(char address);
    void ReadSerialByte(bool high);
    void ReadOption();
    void FinishTransaction();

    Session& m_Session;
    const Platform& m_Platform;
    ChannelEvents& m_Events;
    RunControl& m_Run;
    std::string m_Input;            ///< the piece just read
    std::int64_t m_DeafSinceMs = 0; ///< when the last reply that was understood had gone out
    bool m_Resting = false;         ///< commsendtimer sleeps until a command is queued
    int m_IdleTicks = 0;            ///< send ticks for which the chain has waited for nothing
};

} // namespace qor
