#pragma once

#include "platform/visa/deadline.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace qor::visa {

/// One TCP connection whose every call comes back by its deadline, whatever name server, host and line do.
class TcpStream {
public:
    TcpStream() = default;
    TcpStream(const TcpStream&) = delete;
    TcpStream& operator=(const TcpStream&) = delete;
    ~TcpStream() { Close(); }

    /// The host's addresses are tried one after the other. False when none takes the connection in time.
    [[nodiscard]] bool Connect(const std::string& host, std::uint16_t port, Deadline deadline);
    /// Writes everything. False leaves the connection closed: part of the bytes may have gone out.
    [[nodiscard]] bool Write(std::string_view bytes, Deadline deadline);
    /// Appends what has come, at least a byte, at most `limit`. False, and closed, when the peer is gone;
    /// false, and open, when the time is up.
    [[nodiscard]] bool ReadSome(std::string& into, std::size_t limit, Deadline deadline);
    /// Appends exactly `count` bytes, or is closed.
    [[nodiscard]] bool ReadExactly(std::string& into, std::size_t count, Deadline deadline);
    /// Throws away what has come and was not read: answers to questions that nobody waits for any more.
    void Drain();
    void Close();
    [[nodiscard]] bool IsOpen() const { return m_Socket >= 0; }

private:
    [[nodiscard]] bool Wait(short events, Deadline deadline) const;

    int m_Socket = -1;
};

} // namespace qor::visa
