#include "results/atomic_write.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>

namespace qor {

namespace {

/// The unfinished file: gone again unless it is moved to its place.
class PartFile {
public:
    PartFile(const std::filesystem::path& target, unsigned mode) {
        // A part of a program that was killed may carry our process number by chance.
        for (int attempt = 0; attempt < 100; ++attempt) {
            m_Name =
                target.string() + '.' + std::to_string(::getpid()) + '-' + std::to_string(attempt) + ".part";
            m_File = ::open(m_Name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
            m_Made = m_File >= 0;
            if (m_Made || errno != EEXIST)
                return;
        }
    }
    PartFile(const PartFile&) = delete;
    PartFile& operator=(const PartFile&) = delete;
    ~PartFile() {
        if (m_File >= 0)
            ::close(m_File);
        if (m_Made)
            ::unlink(m_Name.c_str());
    }

    [[nodiscard]] bool IsOpen() const { return m_Made; }

    bool Write(std::string_view bytes) {
        while (!bytes.empty()) {
            const ssize_t count = ::write(m_File, bytes.data(), bytes.size());
            if (count < 0 && errno != EINTR)
                return false;
            bytes.remove_prefix(static_cast<std::size_t>(count > 0 ? count : 0));
        }
        return ::fsync(m_File) == 0;
    }

    bool MoveTo(const std::filesystem::path& target) {
        const int file = m_File;
        m_File = -1;
        if (::close(file) != 0 || std::rename(m_Name.c_str(), target.c_str()) != 0)
            return false;
        m_Made = false;
        return true;
    }

private:
    std::string m_Name;
    int m_File = -1;
    bool m_Made = false;
};

} // namespace

std::string WriteAtomically(const std::filesystem::path& path, std::string_view bytes, unsigned mode) {
    std::error_code unknown;
    const auto status = std::filesystem::status(path, unknown);
    if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status))
        // shown to the operator
        return path.string() + ": not a regular file"; // a rename would put the result in a device's place
    PartFile part(path, mode);
    if (part.IsOpen() && part.Write(bytes) && part.MoveTo(path))
        return {};
    const int reason = errno;
    return path.string() + ": " + std::generic_category().message(reason);
}

} // namespace qor
