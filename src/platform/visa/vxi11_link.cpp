#include "platform/visa/vxi11_link.h"

#include "platform/visa/xdr.h"

namespace qor::visa {

namespace {

/// The instrument is given a little less than there is, so that its own word about the time comes first.
std::uint32_t TimeFor(Deadline deadline) {
    return static_cast<std::uint32_t>(std::max(deadline.LeftMs() - 20, 1));
}

LinkResult ResultOf(std::optional<std::uint32_t> error) {
    if (!error)
        return LinkResult::Gone;
    return *error == 0 ? LinkResult::Done : *error == Vxi11TimedOut ? LinkResult::TimedOut : LinkResult::Gone;
}

} // namespace

Vxi11Link::~Vxi11Link() {
    std::string ignored;
    if (m_Core.IsOpen()) // the peer frees its side; whether it does is no matter of ours
        static_cast<void>(
            m_Core.Call(Vxi11DestroyLink, XdrWriter().Word(m_Link).Text(), ignored, Deadline::In(100)));
}

LinkResult Vxi11Link::Open(Deadline deadline) {
    std::uint16_t port = 0;
    LinkResult result = PortOf(m_Address.host, m_MapperPort, Vxi11Core, Vxi11Version, port, deadline);
    if (result == LinkResult::Done && port == 0)
        result = LinkResult::Gone;
    if (result == LinkResult::Done)
        result = m_Core.Connect(m_Address.host, port, deadline);
    if (result != LinkResult::Done)
        return result;
    std::string results;
    const std::string asked =
        XdrWriter().Word(1).Word(0).Word(TimeFor(deadline)).Bytes(m_Address.device).Text();
    result = m_Core.Call(Vxi11CreateLink, asked, results, deadline);
    if (result == LinkResult::Done) {
        XdrReader reader(results);
        result = ResultOf(reader.Word());
        m_Link = reader.Word().value_or(0);
        static_cast<void>(reader.Word()); // the port of the abort channel
        if (const auto longest = reader.Word(); longest && *longest != 0)
            m_LongestWrite = *longest;
    }
    if (result != LinkResult::Done)
        m_Core.Close();
    return result;
}

LinkResult Vxi11Link::Write(std::string_view message, Deadline deadline) {
    if (!m_Core.IsOpen()) { // given up, or gone: the new link knows nothing of old answers
        if (const LinkResult opened = Open(deadline); opened != LinkResult::Done)
            return opened;
    }
    do {
        const std::string_view piece = message.substr(0, m_LongestWrite);
        message.remove_prefix(piece.size());
        XdrWriter asked;
        asked.Word(m_Link)
            .Word(TimeFor(deadline))
            .Word(0)
            .Word(message.empty() ? Vxi11FlagEnd : 0)
            .Bytes(piece);
        std::string results;
        LinkResult result = m_Core.Call(Vxi11DeviceWrite, asked.Text(), results, deadline);
        if (result == LinkResult::Done)
            result = ResultOf(XdrReader(results).Word());
        if (result != LinkResult::Done) {
            m_Core.Close();
            return result;
        }
    } while (!message.empty());
    return LinkResult::Done;
}

LinkResult Vxi11Link::Read(std::string& message, Deadline deadline) {
    message.clear();
    if (!m_Core.IsOpen())
        return LinkResult::Gone;
    for (;;) {
        XdrWriter asked;
        asked.Word(m_Link).Word(4096).Word(TimeFor(deadline)).Word(0).Word(0).Word(0);
        std::string results;
        LinkResult result = m_Core.Call(Vxi11DeviceRead, asked.Text(), results, deadline);
        std::uint32_t reason = 0;
        if (result == LinkResult::Done) {
            XdrReader reader(results);
            result = ResultOf(reader.Word());
            reason = reader.Word().value_or(0);
            const auto data = reader.Bytes();
            if (result == LinkResult::Done && !data)
                result = LinkResult::Gone;
            if (data && message.size() < LongestMessage)
                message.append(data->substr(0, LongestMessage - message.size()));
        }
        if (result != LinkResult::Done) {
            m_Core.Close(); // an answer that is still made belongs to a link that is no more
            return result;
        }
        if (reason & Vxi11ReasonEnd)
            return LinkResult::Done;
    }
}

} // namespace qor::visa
