#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct pollfd;

namespace qor::sim {

/// An instrument that is spoken to in messages. Times are ms on the host's clock.
class ScpiDevice {
public:
    ScpiDevice() = default;
    ScpiDevice(const ScpiDevice&) = delete;
    ScpiDevice& operator=(const ScpiDevice&) = delete;
    virtual ~ScpiDevice() = default;

    /// A message without its line end.
    virtual void Write(std::string_view message, std::int64_t nowMs) = 0;
    /// The answer without a line end, once it is ready; it is then taken.
    [[nodiscard]] virtual std::optional<std::string> Read(std::int64_t nowMs) = 0;
    /// Forgets what was asked.
    virtual void Clear() = 0;
    /// True once: the connections are to be cut now.
    [[nodiscard]] virtual bool CutsNow() { return false; }
};

/// Serves one instrument on the loopback interface over raw sockets, VXI-11 (with a port mapper of its own)
/// and HiSLIP, all in one thread: Poll does what is due and comes back.
class ScpiHost {
public:
    explicit ScpiHost(ScpiDevice& device) : m_Device(device) {}
    ~ScpiHost();
    ScpiHost(const ScpiHost&) = delete;
    ScpiHost& operator=(const ScpiHost&) = delete;

    /// Each listens on a port, 0 for any free one, and gives the port; 0 when it cannot.
    std::uint16_t ListenSocket(std::uint16_t port);
    std::uint16_t ListenHislip(std::uint16_t port);
    /// The core channel takes any free port, which the port mapper on `mapperPort` tells.
    std::uint16_t ListenVxi11(std::uint16_t mapperPort);

    /// What a loop has to watch for input.
    void Watch(std::vector<pollfd>& files) const;
    /// Does what is due and comes back at once.
    void Serve();
    /// ms after which Serve has something to do without any input, -1 for never: an answer is in the making.
    [[nodiscard]] int DueInMs() const;
    /// Serves what comes within `waitMs`, for a loop that has nothing else to do.
    void Poll(int waitMs);

private:
    enum class Kind { Socket, Mapper, Core, HislipSync };
    struct Listener {
        int file;
        Kind kind;
    };
    struct Connection {
        int file = -1;
        Kind kind = Kind::Socket;
        std::string input;
        std::string message;        ///< parts of a record or message that is not at its end
        bool asked = false;         ///< a question was put and not answered
        std::uint32_t question = 0; ///< HiSLIP: its number
        std::uint32_t call = 0;     ///< VXI-11: number of the read that waits
        bool reads = false;         ///< VXI-11: a read waits
        std::size_t most = 0;       ///< VXI-11: bytes that it takes
        std::int64_t until = 0;     ///< VXI-11: its end
        std::string written;        ///< VXI-11: parts of a message that is not at its end
        std::string unread;         ///< VXI-11: of an answer longer than the read
        bool gone = false;
    };

    std::uint16_t Listen(std::uint16_t port, Kind kind);
    void Accept(const Listener& listener);
    void Take(Connection& connection);
    void TakeLines(Connection& connection);
    void TakeCalls(Connection& connection);
    void TakeHislip(Connection& connection);
    void Call(Connection& connection, std::string_view record);
    void CoreCall(Connection& connection, std::uint32_t number, std::uint32_t procedure,
                  std::string_view arguments);
    void Answer(Connection& connection, std::int64_t now);
    void Put(std::string_view message, Connection& connection);
    static void Send(Connection& connection, std::string_view bytes);

    ScpiDevice& m_Device;
    std::vector<Listener> m_Listeners;
    std::vector<std::unique_ptr<Connection>> m_Connections;
    std::uint16_t m_CorePort = 0;
    std::uint32_t m_HislipSessions = 0;
};

} // namespace qor::sim
