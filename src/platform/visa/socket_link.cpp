#include "platform/visa/socket_link.h"

namespace qor::visa {

LinkResult SocketLink::Open(Deadline deadline) {
    m_Input.clear();
    m_GivenUp = false;
    if (m_Stream.Connect(m_Address.host, m_Address.port, deadline))
        return LinkResult::Done;
    return deadline.LeftMs() == 0 ? LinkResult::TimedOut : LinkResult::Gone;
}

LinkResult SocketLink::Write(std::string_view message, Deadline deadline) {
    if (m_GivenUp || !m_Stream.IsOpen()) {
        // Nothing in the bytes tells whose answer they are: only a new connection keeps a late one out.
        if (const LinkResult opened = Open(deadline); opened != LinkResult::Done)
            return opened;
    }
    m_Input.clear();
    m_Stream.Drain();
    std::string line(message);
    line += '\n';
    if (m_Stream.Write(line, deadline))
        return LinkResult::Done;
    return deadline.LeftMs() == 0 ? LinkResult::TimedOut : LinkResult::Gone;
}

LinkResult SocketLink::Read(std::string& message, Deadline deadline) {
    std::size_t searched = 0;
    for (;;) {
        const std::size_t end = m_Input.find('\n', searched);
        if (end != std::string::npos) {
            message.assign(m_Input, 0, end + 1);
            m_Input.erase(0, end + 1);
            return LinkResult::Done;
        }
        if (m_Input.size() > LongestMessage)
            m_Input.resize(LongestMessage); // its end is still looked for
        searched = m_Input.size();
        if (!m_Stream.ReadSome(m_Input, 4096, deadline)) {
            m_GivenUp = true;
            return m_Stream.IsOpen() ? LinkResult::TimedOut : LinkResult::Gone;
        }
    }
}

} // namespace qor::visa
