#include "sim/scpi_host.h"

#include "platform/visa/hislip_link.h"
#include "platform/visa/rpc_client.h"
#include "platform/visa/vxi11_link.h"
#include "platform/visa/xdr.h"

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <cerrno>
#include <chrono>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace qor::sim {

namespace {

using namespace qor::visa;

constexpr std::size_t LongestInput = 256 * 1024;
constexpr std::uint32_t LongestWrite = 64 * 1024;
constexpr int AnswerPollMs = 2; ///< while an answer is in the making

std::int64_t Now() {
    return std::chrono::duration_cast<std::chrono::milliseconds>(
               std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

/// An accepted reply to a call, its record mark in front.
std::string ReplyTo(std::uint32_t number, const XdrWriter& results) {
    XdrWriter body;
    body.Word(number).Word(RpcReplyMessage).Word(0).Word(0).Word(0).Word(0);
    const std::size_t size = body.Text().size() + results.Text().size();
    return XdrWriter().Word(RpcLastFragment | static_cast<std::uint32_t>(size)).Text() + body.Text() +
           results.Text();
}

} // namespace

ScpiHost::~ScpiHost() {
    for (const Listener& listener : m_Listeners)
        close(listener.file);
    for (const auto& connection : m_Connections)
        close(connection->file);
}

std::uint16_t ScpiHost::Listen(std::uint16_t port, Kind kind) {
    const int file = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    const int on = 1;
    sockaddr_in at{};
    at.sin_family = AF_INET;
    at.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    at.sin_port = htons(port);
    socklen_t size = sizeof(at);
    if (file < 0 || setsockopt(file, SOL_SOCKET, SO_REUSEADDR, &on, sizeof(on)) != 0 ||
        bind(file, reinterpret_cast<const sockaddr*>(&at), size) != 0 || listen(file, 8) != 0 ||
        getsockname(file, reinterpret_cast<sockaddr*>(&at), &size) != 0) {
        if (file >= 0)
            close(file);
        return 0;
    }
    m_Listeners.push_back({file, kind});
    return ntohs(at.sin_port);
}

std::uint16_t ScpiHost::ListenSocket(std::uint16_t port) {
    return Listen(port, Kind::Socket);
}

std::uint16_t ScpiHost::ListenHislip(std::uint16_t port) {
    return Listen(port, Kind::HislipSync);
}

std::uint16_t ScpiHost::ListenVxi11(std::uint16_t mapperPort) {
    m_CorePort = Listen(0, Kind::Core);
    return m_CorePort == 0 ? std::uint16_t{0} : Listen(mapperPort, Kind::Mapper);
}

void ScpiHost::Watch(std::vector<pollfd>& files) const {
    for (const Listener& listener : m_Listeners)
        files.push_back({listener.file, POLLIN, 0});
    for (const auto& connection : m_Connections)
        files.push_back({connection->file, POLLIN, 0});
}

int ScpiHost::DueInMs() const {
    const bool due = std::any_of(m_Connections.begin(), m_Connections.end(), [](const auto& connection) {
        return connection->asked || connection->reads;
    });
    return due ? AnswerPollMs : -1;
}

void ScpiHost::Poll(int waitMs) {
    std::vector<pollfd> files;
    Watch(files);
    const int due = DueInMs();
    poll(files.data(), files.size(), due < 0 ? waitMs : std::min(waitMs, due));
    Serve();
}

void ScpiHost::Serve() {
    for (const auto& connection : m_Connections)
        Take(*connection);
    for (const Listener& listener : m_Listeners)
        Accept(listener);
    const bool cut = m_Device.CutsNow();
    const std::int64_t now = Now();
    for (const auto& connection : m_Connections) {
        connection->gone = connection->gone || cut;
        if (!connection->gone)
            Answer(*connection, now);
    }
    std::erase_if(m_Connections, [](const auto& connection) {
        if (connection->gone)
            close(connection->file);
        return connection->gone;
    });
}

void ScpiHost::Accept(const Listener& listener) {
    const int file = accept4(listener.file, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
    if (file < 0)
        return;
    const int on = 1;
    setsockopt(file, IPPROTO_TCP, TCP_NODELAY, &on, sizeof(on));
    auto connection = std::make_unique<Connection>();
    connection->file = file;
    connection->kind = listener.kind;
    m_Connections.push_back(std::move(connection));
}

void ScpiHost::Take(Connection& connection) {
    std::array<char, 16384> piece;
    const ssize_t got = recv(connection.file, piece.data(), piece.size(), 0);
    if (got <= 0) {
        connection.gone = got == 0 || (errno != EAGAIN && errno != EINTR);
        return;
    }
    connection.input.append(piece.data(), static_cast<std::size_t>(got));
    if (connection.input.size() > LongestInput) {
        connection.gone = true;
        return;
    }
    switch (connection.kind) {
    case Kind::Socket:
        return TakeLines(connection);
    case Kind::Mapper:
    case Kind::Core:
        return TakeCalls(connection);
    case Kind::HislipSync:
        return TakeHislip(connection);
    }
}

/// Hands a whole message to the instrument.
void ScpiHost::Put(std::string_view message, Connection& connection) {
    while (message.ends_with('\n') || message.ends_with('\r'))
        message.remove_suffix(1);
    connection.asked = connection.asked || message.find('?') != std::string_view::npos;
    m_Device.Write(message, Now());
}

void ScpiHost::TakeLines(Connection& connection) {
    for (std::size_t end; (end = connection.input.find('\n')) != std::string::npos;) {
        const std::string line = connection.input.substr(0, end);
        connection.input.erase(0, end + 1);
        Put(line, connection);
    }
}

void ScpiHost::TakeCalls(Connection& connection) {
    while (connection.input.size() >= 4) {
        const std::uint32_t mark = XdrReader(connection.input).Word().value_or(0);
        const std::size_t size = mark & ~RpcLastFragment;
        if (size > LongestInput) {
            connection.gone = true;
            return;
        }
        if (connection.input.size() < 4 + size)
            return;
        connection.message += connection.input.substr(4, size);
        connection.input.erase(0, 4 + size);
        if (connection.message.size() > LongestInput) {
            connection.gone = true;
            return;
        }
        if (mark & RpcLastFragment) {
            const std::string record = std::move(connection.message);
            connection.message.clear();
            Call(connection, record);
        }
    }
}

void ScpiHost::Call(Connection& connection, std::string_view record) {
    XdrReader reader(record);
    const auto number = reader.Word();
    const auto kind = reader.Word();
    static_cast<void>(reader.Word()); // version of the protocol
    const auto program = reader.Word();
    static_cast<void>(reader.Word()); // version of the program
    const auto procedure = reader.Word();
    static_cast<void>(reader.Word());
    const auto credentials = reader.Bytes();
    static_cast<void>(reader.Word());
    const auto verifier = reader.Bytes();
    if (kind != RpcCall || !program || !procedure || !credentials || !verifier) {
        connection.gone = true;
        return;
    }
    const std::size_t filled = (credentials->size() + 3) / 4 * 4 + (verifier->size() + 3) / 4 * 4;
    const std::string_view arguments = record.substr(std::min(record.size(), 40 + filled));
    if (*program == PortMapperProgram) {
        const std::uint32_t asked = XdrReader(arguments).Word().value_or(0);
        const std::uint32_t port = *procedure == PortMapperGetPort && asked == Vxi11Core ? m_CorePort : 0u;
        Send(connection, ReplyTo(*number, XdrWriter().Word(port)));
    } else if (*program == Vxi11Core) {
        CoreCall(connection, *number, *procedure, arguments);
    } else {
        connection.gone = true;
    }
}

void ScpiHost::CoreCall(Connection& connection, std::uint32_t number, std::uint32_t procedure,
                        std::string_view arguments) {
    XdrReader reader(arguments);
    XdrWriter results;
    switch (procedure) {
    case Vxi11CreateLink:
        results.Word(0).Word(1).Word(0).Word(LongestWrite);
        break;
    case Vxi11DeviceWrite: {
        for (int n = 0; n < 3; ++n)
            static_cast<void>(reader.Word()); // link, times
        const std::uint32_t flags = reader.Word().value_or(0);
        const std::string_view data = reader.Bytes().value_or(std::string_view());
        connection.written.append(data);
        if (flags & Vxi11FlagEnd) {
            const std::string message = std::move(connection.written);
            connection.written.clear();
            Put(message, connection);
        }
        results.Word(0).Word(static_cast<std::uint32_t>(data.size()));
        break;
    }
    case Vxi11DeviceRead: {
        static_cast<void>(reader.Word());
        connection.most = std::max<std::uint32_t>(reader.Word().value_or(1), 1);
        connection.until = Now() + reader.Word().value_or(0);
        connection.call = number;
        connection.reads = true;
        return; // answered when the instrument has answered, or its time is up
    }
    default:
        results.Word(0);
        break;
    }
    Send(connection, ReplyTo(number, results));
}

void ScpiHost::TakeHislip(Connection& connection) {
    while (const auto head = ParseHislipHead(connection.input)) {
        if (head->length > LongestInput) {
            connection.gone = true;
            return;
        }
        const auto length = static_cast<std::size_t>(head->length);
        if (connection.input.size() < HislipHeadSize + length)
            return;
        const std::string payload = connection.input.substr(HislipHeadSize, length);
        connection.input.erase(0, HislipHeadSize + length);
        switch (head->type) {
        case HislipType::Initialize:
            ++m_HislipSessions;
            Send(connection, HislipBytes({HislipType::InitializeResponse, 0,
                                          HislipVersion << 16 | (m_HislipSessions & 0xffff), 0}));
            break;
        case HislipType::AsyncInitialize:
            Send(connection, HislipBytes({HislipType::AsyncInitializeResponse, 0, 0x514f, 0}));
            break;
        case HislipType::AsyncMaximumMessageSize: {
            std::string size;
            for (int shift = 56; shift >= 0; shift -= 8)
                size.push_back(static_cast<char>(std::uint64_t{LongestWrite} >> shift & 0xff));
            Send(connection,
                 HislipBytes({HislipType::AsyncMaximumMessageSizeResponse, 0, 0, size.size()}) + size);
            break;
        }
        case HislipType::Data:
        case HislipType::DataEnd:
            connection.message += payload;
            connection.question = head->parameter;
            if (head->type == HislipType::DataEnd) {
                const std::string message = std::move(connection.message);
                connection.message.clear();
                Put(message, connection);
            }
            break;
        default:
            break;
        }
    }
    if (connection.input.size() >= HislipHeadSize)
        connection.gone = true; // no head
}

void ScpiHost::Answer(Connection& connection, std::int64_t now) {
    if (connection.kind == Kind::Core) {
        if (!connection.reads)
            return;
        std::optional<std::string> reply;
        if (!connection.unread.empty()) { // the rest of an answer
            reply = std::move(connection.unread);
            connection.unread.clear();
        } else if ((reply = m_Device.Read(now))) {
            *reply += '\n';
        }
        XdrWriter results;
        if (reply) {
            connection.asked = false;
            const bool whole = reply->size() <= connection.most;
            if (!whole) {
                connection.unread = reply->substr(connection.most);
                reply->resize(connection.most);
            }
            results.Word(0).Word(whole ? Vxi11ReasonEnd : 1u).Bytes(*reply);
        } else if (now >= connection.until) {
            results.Word(Vxi11TimedOut).Word(0).Bytes({});
        } else {
            return;
        }
        connection.reads = false;
        Send(connection, ReplyTo(connection.call, results));
        return;
    }
    if (!connection.asked)
        return;
    auto reply = m_Device.Read(now);
    if (!reply)
        return;
    connection.asked = false;
    *reply += '\n';
    if (connection.kind == Kind::Socket)
        Send(connection, *reply);
    else
        Send(connection, HislipBytes({HislipType::DataEnd, 0, connection.question, reply->size()}) + *reply);
}

void ScpiHost::Send(Connection& connection, std::string_view bytes) {
    // Answers are short and the peer reads them: what does not fit into the line at once is a peer that is
    // gone.
    const ssize_t sent = send(connection.file, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    connection.gone = connection.gone || sent != static_cast<ssize_t>(bytes.size());
}

} // namespace qor::sim
