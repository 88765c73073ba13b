#include "link/transaction.h"

#include "link/commands.h"

#include <algorithm>

namespace qor {

namespace {

/// A line that never ends must not fill the memory: no reply that means anything is longer.
constexpr std::size_t LongestText = 4096;

bool IsLineEnd(std::string_view piece) {
    return piece.ends_with('\n') || piece.ends_with('\r');
}

} // namespace

bool Transaction::IsOpen() const {
    return tagCommPend >= OpenReply;
}

void Transaction::Begin(const LineCommand& command, int tag, bool isAnswered) {
    m_Sent.assign(command.text);
    m_Asker = command.asker;
    m_IsEcho = command.echo;
    EchoOf(command.text, command.payload, m_Echo);
    g_CurTag = tag;
    g_CurParam = command.param;
    ReplyText(command.text, TagCurrentCommand);
    tagCommPend = ReplyLength(command.text, tag);
    if (!isAnswered)
        return;
    CommPendCt = 0;
    TagWaitTimerIsKilled = false;
}

void Transaction::BeginUnasked() {
    m_Asker = nullptr;
    m_IsEcho = false;
    g_CurTag = TagPlain;
    tagCommPend = OpenReply;
}

void Transaction::Pass(const LineCommand& command) {
    g_CurTag = command.tag;
    g_CurParam = command.param;
    GiveUp();
}

bool Transaction::Take(std::string_view piece) {
    m_revdatastr += piece;
    if (m_revdatastr.size() > LongestText)
        m_revdatastr.erase(0, m_revdatastr.size() - LongestText / 2);
    tagtemp += static_cast<int>(std::min(piece.size(), LongestText));
    if (!TagWaitTimerIsKilled && (TagCurrentCommand == "IDN" || RepeatsCommand()))
        Recognise();
    m_EndsLine = IsLineEnd(piece);
    return m_EndsLine || HasItsBytes();
}

/// The wait goes on as a watch over a reply that begins and never completes.
void Transaction::Recognise() {
    CommPendCt = 0;
    TagWaitTimerIsKilled = true;
}

} // namespace qor
