#include "platform/visa/rpc_client.h"

#include "platform/visa/xdr.h"

namespace qor::visa {

namespace {

constexpr std::uint32_t Tcp = 6;
/// A message of the longest size with its head.
constexpr std::size_t LongestRecord = LongestMessage + 1024;

} // namespace

LinkResult RpcClient::Connect(const std::string& host, std::uint16_t port, Deadline deadline) {
    if (m_Stream.Connect(host, port, deadline))
        return LinkResult::Done;
    return deadline.LeftMs() == 0 ? LinkResult::TimedOut : LinkResult::Gone;
}

std::optional<RpcReply> ParseReply(std::string_view record) {
    XdrReader reader(record);
    const auto number = reader.Word();
    if (!number || reader.Word() != RpcReplyMessage)
        return std::nullopt;
    RpcReply reply;
    reply.number = *number;
    const bool accepted = reader.Word() == 0u;
    static_cast<void>(reader.Word()); // kind of verifier
    const auto verifier = reader.Bytes();
    const auto status = reader.Word();
    reply.accepted = accepted && verifier && status == 0u;
    if (reply.accepted)
        reply.results = record.substr(std::min(record.size(), 24 + (verifier->size() + 3) / 4 * 4));
    return reply;
}

LinkResult RpcClient::ReadRecord(std::string& record, Deadline deadline) {
    record.clear();
    for (;;) {
        std::string head;
        if (!m_Stream.ReadExactly(head, 4, deadline))
            return deadline.LeftMs() == 0 ? LinkResult::TimedOut : LinkResult::Gone;
        const std::uint32_t word = XdrReader(head).Word().value_or(0);
        const std::size_t size = word & ~RpcLastFragment;
        if (record.size() + size > LongestRecord) {
            m_Stream.Close();
            return LinkResult::Gone;
        }
        if (!m_Stream.ReadExactly(record, size, deadline))
            return deadline.LeftMs() == 0 ? LinkResult::TimedOut : LinkResult::Gone;
        if (word & RpcLastFragment)
            return LinkResult::Done;
    }
}

LinkResult RpcClient::Call(std::uint32_t procedure, std::string_view arguments, std::string& results,
                           Deadline deadline) {
    XdrWriter body;
    body.Word(++m_Number).Word(RpcCall).Word(RpcVersion).Word(m_Program).Word(m_Version).Word(procedure);
    body.Word(0).Word(0).Word(0).Word(0); // no credentials, no verifier
    const std::size_t size = body.Text().size() + arguments.size();
    const std::string head = XdrWriter().Word(RpcLastFragment | static_cast<std::uint32_t>(size)).Text();
    if (!m_Stream.Write(head + body.Text() + std::string(arguments), deadline))
        return deadline.LeftMs() == 0 ? LinkResult::TimedOut : LinkResult::Gone;
    for (;;) {
        std::string record;
        if (const LinkResult read = ReadRecord(record, deadline); read != LinkResult::Done)
            return read;
        const auto reply = ParseReply(record);
        if (!reply || reply->number != m_Number)
            continue; // a late one
        if (!reply->accepted)
            return LinkResult::Gone;
        results.assign(reply->results);
        return LinkResult::Done;
    }
}

LinkResult PortOf(const std::string& host, std::uint16_t mapperPort, std::uint32_t program,
                  std::uint32_t version, std::uint16_t& port, Deadline deadline) {
    RpcClient mapper(PortMapperProgram, PortMapperVersion);
    if (const LinkResult connected = mapper.Connect(host, mapperPort, deadline);
        connected != LinkResult::Done)
        return connected;
    std::string results;
    const std::string asked = XdrWriter().Word(program).Word(version).Word(Tcp).Word(0).Text();
    const LinkResult called = mapper.Call(PortMapperGetPort, asked, results, deadline);
    if (called == LinkResult::Done)
        port = static_cast<std::uint16_t>(XdrReader(results).Word().value_or(0));
    return called;
}

} // namespace qor::visa
