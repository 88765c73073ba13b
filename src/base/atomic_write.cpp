#include "base/atomic_write.h"

#include <cerrno>
#include <climits>
#include <cstdio>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace qor {

namespace {

constexpr unsigned AllAccess = 07777;
constexpr unsigned AnyWrites = 0222;

/// The unfinished file: gone again unless it is moved to its place.
class PartFile {
public:
    PartFile(const std::filesystem::path& target, unsigned mode) {
        // A part of a program that was killed may carry our process number by chance.
        for (int attempt = 0; attempt < 100; ++attempt) {
            const std::string ending =
                '.' + std::to_string(::getpid()) + '-' + std::to_string(attempt) + ".part";
            // A name as long as a directory allows leaves no room behind it.
            const std::string name = target.filename().string().substr(0, NAME_MAX - ending.size());
            m_Name = (target.parent_path() / (name + ending)).string();
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

    /// Takes the owner of the file that is replaced, where we may, and its access.
    bool TakeOver(const struct stat& previous, unsigned access) {
        static_cast<void>(::fchown(m_File, previous.st_uid, previous.st_gid) == 0);
        return ::fchmod(m_File, access) == 0;
    }

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

/// Where the links of a path lead to, whether something is there or not; nothing when they lead in a circle.
std::optional<std::filesystem::path> PlaceOf(std::filesystem::path path) {
    constexpr int MostLinks = 40;
    std::error_code none;
    for (int links = 0; links < MostLinks; ++links) {
        const std::filesystem::path target = std::filesystem::read_symlink(path, none);
        if (none)
            return path;
        path = target.is_absolute() ? target : path.parent_path() / target;
    }
    return std::nullopt;
}

} // namespace

std::string WriteAtomically(const std::filesystem::path& path, std::string_view bytes, unsigned mode) {
    const auto because = [&path](const std::string& reason) { return path.string() + ": " + reason; };
    const auto system = [&because](int reason) { return because(std::generic_category().message(reason)); };
    const auto place = PlaceOf(path);
    if (!place)
        return system(ELOOP);
    struct stat previous {};
    const bool replaces = ::stat(place->c_str(), &previous) == 0;
    if (replaces && !S_ISREG(previous.st_mode))
        // shown to the operator
        return because("not a regular file"); // a rename would put the result in a device's place
    // The rename asks for the directory alone, and the superuser is not asked at all.
    if (replaces && ((previous.st_mode & AnyWrites) == 0 || ::access(place->c_str(), W_OK) != 0))
        return system(EACCES);
    PartFile part(*place, mode);
    const unsigned access = previous.st_mode & (mode == PublicFile ? AllAccess : mode);
    if (part.IsOpen() && (!replaces || part.TakeOver(previous, access)) && part.Write(bytes) &&
        part.MoveTo(*place))
        return {};
    return system(errno);
}

} // namespace qor
