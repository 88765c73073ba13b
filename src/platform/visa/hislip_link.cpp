#include "platform/visa/hislip_link.h"

namespace qor::visa {

namespace {

constexpr std::uint32_t VendorId = 0x514f; ///< "QO"
constexpr std::uint8_t RmtDelivered = 1;   ///< the last answer was read to its end

LinkResult Failed(Deadline deadline) {
    return deadline.LeftMs() == 0 ? LinkResult::TimedOut : LinkResult::Gone;
}

} // namespace

std::string HislipBytes(const HislipHead& head) {
    std::string bytes = "HS";
    bytes.push_back(static_cast<char>(head.type));
    bytes.push_back(static_cast<char>(head.control));
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes.push_back(static_cast<char>(head.parameter >> shift & 0xff));
    for (int shift = 56; shift >= 0; shift -= 8)
        bytes.push_back(static_cast<char>(head.length >> shift & 0xff));
    return bytes;
}

std::optional<HislipHead> ParseHislipHead(std::string_view bytes) {
    if (bytes.size() < HislipHeadSize || !bytes.starts_with("HS"))
        return std::nullopt;
    const auto byte = [&](std::size_t n) { return static_cast<unsigned char>(bytes[n]); };
    HislipHead head;
    head.type = static_cast<HislipType>(byte(2));
    head.control = byte(3);
    for (std::size_t n = 4; n < 8; ++n)
        head.parameter = head.parameter << 8 | byte(n);
    for (std::size_t n = 8; n < 16; ++n)
        head.length = head.length << 8 | byte(n);
    return head;
}

LinkResult HislipLink::Send(TcpStream& stream, const HislipHead& head, std::string_view payload,
                            Deadline deadline) {
    HislipHead whole = head;
    whole.length = payload.size();
    return stream.Write(HislipBytes(whole) + std::string(payload), deadline) ? LinkResult::Done
                                                                             : Failed(deadline);
}

LinkResult HislipLink::Receive(TcpStream& stream, HislipHead& head, std::string& payload, Deadline deadline) {
    std::string bytes;
    if (!stream.ReadExactly(bytes, HislipHeadSize, deadline))
        return Failed(deadline);
    const auto parsed = ParseHislipHead(bytes);
    if (!parsed) {
        stream.Close();
        return LinkResult::Gone;
    }
    head = *parsed;
    payload.clear();
    std::string piece;
    for (std::uint64_t left = head.length; left > 0;) {
        piece.clear();
        if (!stream.ReadSome(piece, static_cast<std::size_t>(std::min<std::uint64_t>(left, 4096)),
                             deadline)) {
            stream.Close();
            return Failed(deadline);
        }
        left -= piece.size();
        if (payload.size() < LongestMessage)
            payload.append(piece, 0, LongestMessage - payload.size());
    }
    return LinkResult::Done;
}

void HislipLink::Close() {
    m_Sync.Close();
    m_Async.Close();
}

LinkResult HislipLink::Open(Deadline deadline) {
    Close();
    m_Message = HislipFirstMessage;
    HislipHead head;
    std::string payload;
    LinkResult result =
        m_Sync.Connect(m_Address.host, m_Address.port, deadline) ? LinkResult::Done : Failed(deadline);
    if (result == LinkResult::Done)
        result = Send(m_Sync, {HislipType::Initialize, 0, HislipVersion << 16 | VendorId, 0},
                      m_Address.device, deadline);
    if (result == LinkResult::Done)
        result = Receive(m_Sync, head, payload, deadline);
    if (result == LinkResult::Done && head.type != HislipType::InitializeResponse)
        result = LinkResult::Gone;
    // An instrument answers on its first connection once the second stands.
    const std::uint32_t session = head.parameter & 0xffff;
    if (result == LinkResult::Done)
        result =
            m_Async.Connect(m_Address.host, m_Address.port, deadline) ? LinkResult::Done : Failed(deadline);
    if (result == LinkResult::Done)
        result = Send(m_Async, {HislipType::AsyncInitialize, 0, session, 0}, {}, deadline);
    if (result == LinkResult::Done)
        result = Receive(m_Async, head, payload, deadline);
    if (result == LinkResult::Done && head.type != HislipType::AsyncInitializeResponse)
        result = LinkResult::Gone;
    if (result != LinkResult::Done)
        Close();
    return result;
}

LinkResult HislipLink::Write(std::string_view message, Deadline deadline) {
    if (!m_Sync.IsOpen()) {
        if (const LinkResult opened = Open(deadline); opened != LinkResult::Done)
            return opened;
    }
    m_Asked = m_Message;
    m_Message += 2;
    const LinkResult sent = Send(m_Sync, {HislipType::DataEnd, RmtDelivered, m_Asked, 0}, message, deadline);
    if (sent != LinkResult::Done)
        Close();
    return sent;
}

LinkResult HislipLink::Read(std::string& message, Deadline deadline) {
    message.clear();
    for (;;) {
        HislipHead head;
        std::string payload;
        if (!m_Sync.IsOpen())
            return LinkResult::Gone;
        if (const LinkResult result = Receive(m_Sync, head, payload, deadline); result != LinkResult::Done) {
            Close();
            return result;
        }
        const bool data = head.type == HislipType::Data || head.type == HislipType::DataEnd;
        if (!data) {
            Close(); // an error, or nothing that belongs here
            return LinkResult::Gone;
        }
        if (head.parameter != m_Asked)
            continue; // of a question that was given up
        if (message.size() < LongestMessage)
            message.append(payload, 0, LongestMessage - message.size());
        if (head.type == HislipType::DataEnd)
            return LinkResult::Done;
    }
}

} // namespace qor::visa
