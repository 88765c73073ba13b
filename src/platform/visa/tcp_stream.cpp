#include "platform/visa/tcp_stream.h"

#include <array>
#include <cerrno>
#include <condition_variable>
#include <fcntl.h>
#include <memory>
#include <mutex>
#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

namespace qor::visa {

namespace {

struct FreeAddresses {
    void operator()(addrinfo* list) const { freeaddrinfo(list); }
};
using Addresses = std::unique_ptr<addrinfo, FreeAddresses>;

/// A question to the name server, which knows no deadline: it is asked on a thread of its own that is left
/// alone when the time is up.
Addresses Resolve(const std::string& host, std::uint16_t port, Deadline deadline) {
    struct Question {
        std::mutex mutex;
        std::condition_variable answered;
        bool done = false;
        Addresses addresses;
    };
    const auto question = std::make_shared<Question>();
    std::thread([question, host, service = std::to_string(port)] {
        addrinfo hints{};
        hints.ai_socktype = SOCK_STREAM;
        addrinfo* list = nullptr;
        const bool found = getaddrinfo(host.c_str(), service.c_str(), &hints, &list) == 0;
        const std::lock_guard lock(question->mutex);
        question->addresses.reset(found ? list : nullptr);
        question->done = true;
        question->answered.notify_one();
    }).detach();
    static_cast<void>(deadline.Until([&](int ms) {
        std::unique_lock lock(question->mutex);
        return question->answered.wait_for(lock, std::chrono::milliseconds(ms),
                                           [&] { return question->done; });
    }));
    const std::lock_guard lock(question->mutex);
    return std::move(question->addresses);
}

} // namespace

bool TcpStream::Wait(short events, Deadline deadline) const {
    pollfd one{m_Socket, events, 0};
    return deadline.Until([&](int ms) { return poll(&one, 1, ms) > 0; });
}

bool TcpStream::Connect(const std::string& host, std::uint16_t port, Deadline deadline) {
    Close();
    const Addresses addresses = Resolve(host, port, deadline);
    for (const addrinfo* one = addresses.get(); one; one = one->ai_next) {
        m_Socket = socket(one->ai_family, one->ai_socktype | SOCK_NONBLOCK | SOCK_CLOEXEC, one->ai_protocol);
        if (m_Socket < 0)
            continue;
        int error = connect(m_Socket, one->ai_addr, one->ai_addrlen) == 0 ? 0 : errno;
        if (error == EINPROGRESS) {
            socklen_t size = sizeof(error);
            if (!Wait(POLLOUT, deadline) || getsockopt(m_Socket, SOL_SOCKET, SO_ERROR, &error, &size) != 0)
                error = ETIMEDOUT;
        }
        if (error == 0) {
            const int on = 1; // short questions and answers: nothing gains by waiting for more
            setsockopt(m_Socket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof(on));
            return true;
        }
        Close();
    }
    return false;
}

bool TcpStream::Write(std::string_view bytes, Deadline deadline) {
    while (IsOpen() && !bytes.empty()) {
        const ssize_t sent = send(m_Socket, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (sent > 0)
            bytes.remove_prefix(static_cast<std::size_t>(sent));
        else if (sent < 0 && errno != EINTR && !(errno == EAGAIN && Wait(POLLOUT, deadline)))
            Close();
    }
    return IsOpen();
}

bool TcpStream::ReadSome(std::string& into, std::size_t limit, Deadline deadline) {
    std::array<char, 4096> piece;
    while (IsOpen()) {
        const ssize_t got = recv(m_Socket, piece.data(), std::min(limit, piece.size()), 0);
        if (got > 0) {
            into.append(piece.data(), static_cast<std::size_t>(got));
            return true;
        }
        if (got == 0 || (errno != EINTR && errno != EAGAIN)) {
            Close();
        } else if (errno == EAGAIN && !Wait(POLLIN, deadline)) {
            return false;
        }
    }
    return false;
}

bool TcpStream::ReadExactly(std::string& into, std::size_t count, Deadline deadline) {
    const std::size_t wanted = into.size() + count;
    while (into.size() < wanted) {
        if (!ReadSome(into, wanted - into.size(), deadline)) {
            Close(); // the rest would be taken for the beginning of the next message
            return false;
        }
    }
    return true;
}

void TcpStream::Drain() {
    std::string late;
    while (ReadSome(late, 4096, Deadline::In(0)))
        late.clear();
}

void TcpStream::Close() {
    if (m_Socket >= 0)
        close(m_Socket);
    m_Socket = -1;
}

} // namespace qor::visa
