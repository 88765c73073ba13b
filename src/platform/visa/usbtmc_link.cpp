#include "platform/visa/usbtmc_link.h"

#include <array>
#include <cerrno>
#include <cstdint>
#include <fcntl.h>
#include <fstream>
#include <linux/usb/tmc.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace qor::visa {

namespace {

std::string FirstLine(const std::filesystem::path& path) {
    std::string line;
    std::ifstream file(path);
    std::getline(file, line);
    return line;
}

std::string Hex4(std::uint16_t value) {
    constexpr const char* Digits = "0123456789abcdef";
    std::string text;
    for (int shift = 12; shift >= 0; shift -= 4)
        text.push_back(Digits[value >> shift & 0xf]);
    return text;
}

} // namespace

std::filesystem::path UsbtmcDevice(const Address& address, const std::filesystem::path& classes) {
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(classes, error)) {
        const std::string name = entry.path().filename().string();
        if (!name.starts_with("usbtmc"))
            continue;
        // The link leads to the interface; the device stands above it.
        const std::filesystem::path device =
            std::filesystem::canonical(entry.path() / "device", error).parent_path();
        if (!error && FirstLine(device / "idVendor") == Hex4(address.vendor) &&
            FirstLine(device / "idProduct") == Hex4(address.product) &&
            FirstLine(device / "serial") == address.serial)
            return std::filesystem::path("/dev") / name;
        error.clear();
    }
    return {};
}

UsbtmcLink::~UsbtmcLink() {
    Close();
}

void UsbtmcLink::Close() {
    if (m_File >= 0)
        close(m_File);
    m_File = -1;
}

LinkResult UsbtmcLink::Open(Deadline) {
    Close();
    m_File = m_Opener(m_Address);
    struct stat info {};
    m_Kernel = m_File >= 0 && fstat(m_File, &info) == 0 && S_ISCHR(info.st_mode);
    return m_File >= 0 ? LinkResult::Done : LinkResult::Gone;
}

bool UsbtmcLink::Wait(short events, Deadline deadline) const {
    if (m_Kernel) {
        auto ms = static_cast<std::uint32_t>(std::max(deadline.LeftMs(), 100)); // the driver takes no less
        ioctl(m_File, USBTMC_IOCTL_SET_TIMEOUT, &ms);
        return deadline.LeftMs() > 0;
    }
    pollfd one{m_File, events, 0};
    return poll(&one, 1, deadline.LeftMs()) > 0;
}

LinkResult UsbtmcLink::Write(std::string_view message, Deadline deadline) {
    if (m_File < 0) {
        if (const LinkResult opened = Open(deadline); opened != LinkResult::Done)
            return opened;
    }
    if (!Wait(POLLOUT, deadline))
        return LinkResult::TimedOut;
    const ssize_t written = write(m_File, message.data(), message.size());
    if (written == static_cast<ssize_t>(message.size()))
        return LinkResult::Done;
    const bool late = written < 0 && errno == ETIMEDOUT;
    Close();
    return late ? LinkResult::TimedOut : LinkResult::Gone;
}

LinkResult UsbtmcLink::Read(std::string& message, Deadline deadline) {
    message.clear();
    if (m_File < 0)
        return LinkResult::Gone;
    std::array<char, 4096> piece;
    for (;;) {
        const bool ready = Wait(POLLIN, deadline);
        const ssize_t got = ready ? read(m_File, piece.data(), piece.size()) : -1;
        if (got <= 0) {
            const bool late = !ready || (got < 0 && errno == ETIMEDOUT);
            if (m_Kernel) { // the answer that is still made must not meet the next question
                ioctl(m_File, USBTMC_IOCTL_ABORT_BULK_IN);
                ioctl(m_File, USBTMC_IOCTL_CLEAR);
            }
            Close();
            return late ? LinkResult::TimedOut : LinkResult::Gone;
        }
        if (message.size() < LongestMessage)
            message.append(piece.data(), static_cast<std::size_t>(got));
        // The driver ends a read where the message ends; one that fills the buffer may go on.
        if (static_cast<std::size_t>(got) < piece.size())
            return LinkResult::Done;
    }
}

} // namespace qor::visa
