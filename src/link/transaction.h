#pragma once

#include "link/command_queue.h"

#include <string>
#include <string_view>

namespace qor {

/// The command in flight and what has come of its reply.
///
/// Idle: the next command may go. In flight: its reply is awaited. Recognised: the reply's text has been seen
/// but its bytes fall short. The text outlives the command: an error reply stands in it until the run is
/// over.
class Transaction {
public:
    [[nodiscard]] bool IsIdle() const { return tagCommPend == 0; }
    /// The reply's text has been seen, or nothing was sent yet: what comes is understood.
    [[nodiscard]] bool IsRecognised() const { return TagWaitTimerIsKilled; }
    /// Its length is not known: a line end tells its end, or the wait.
    [[nodiscard]] bool IsOpen() const;
    [[nodiscard]] bool HasItsBytes() const { return tagtemp >= tagCommPend; }
    /// What has come ends a line: a stream without line ends is no reply, whatever it holds.
    [[nodiscard]] bool EndsLine() const { return m_EndsLine; }

    [[nodiscard]] int Tag() const { return g_CurTag; }
    /// IM frequency of the step that the command belongs to, MHz; 0 when none.
    [[nodiscard]] float Param() const { return g_CurParam; }
    [[nodiscard]] ReplyForm Form() const { return m_IsEcho ? ReplyForm::Echo : FormOf(g_CurTag); }
    [[nodiscard]] Asker* AskedBy() const { return m_Asker; }
    /// The command as it went out, without its payload.
    [[nodiscard]] const std::string& Sent() const { return m_Sent; }
    /// The reply that is the command's own bytes.
    [[nodiscard]] const std::string& Echo() const { return m_Echo; }
    /// Reply text assembled so far; it can hold several replies.
    [[nodiscard]] std::string& Text() { return m_revdatastr; }
    [[nodiscard]] const std::string& Text() const { return m_revdatastr; }
    [[nodiscard]] bool Holds(std::string_view part) const {
        return m_revdatastr.find(part) != std::string::npos;
    }
    /// True when the reply is one to the command in flight, and no late one to a command before it.
    [[nodiscard]] bool RepeatsCommand() const { return Holds(TagCurrentCommand); }

    /// `command` goes out with `tag`. `isAnswered` is false for the one command that no reply follows.
    void Begin(const LineCommand& command, int tag, bool isAnswered);
    /// Something that is not of the queue was sent, whose reply has no known length.
    void BeginUnasked();
    /// A command that never goes out is passed over.
    void Pass(const LineCommand& command);
    /// A piece of the reply. True when it ends a line, or the reply has its bytes.
    bool Take(std::string_view piece);
    /// The reply is here: the next command may go.
    void Finish() {
        tagCommPend = 0;
        tagtemp = 0;
    }
    /// The same, and nothing more is awaited.
    void GiveUp() {
        Finish();
        CommPendCt = 0;
        TagWaitTimerIsKilled = true;
    }
    /// Forgets the command, as for a new conversation.
    void Reset() {
        Finish();
        CommPendCt = 0;
    }
    /// The step that the command belongs to is of no interest any more.
    void ForgetStep() { g_CurParam = 0; }
    /// A tick of the wait; counts those since the command went out or was recognised.
    int Tick() { return ++CommPendCt; }

private:
    void Recognise();

    int tagCommPend = 0;              ///< reply bytes awaited; 1000 and up: the length is not known
    int tagtemp = 0;                  ///< reply bytes counted
    std::string TagCurrentCommand;    ///< text that identifies the reply
    int CommPendCt = 0;               ///< ticks of the wait
    bool TagWaitTimerIsKilled = true; ///< the reply's text has been seen, or nothing is in flight
    std::string m_revdatastr;         ///< reply text assembled so far
    int g_CurTag = 0;                 ///< tag of the command
    float g_CurParam = 0;             ///< step parameter of the command
    std::string m_Sent;
    std::string m_Echo;
    bool m_IsEcho = false; ///< nothing but the echo is taken as the reply
    bool m_EndsLine = false;
    Asker* m_Asker = nullptr;
};

} // namespace qor
