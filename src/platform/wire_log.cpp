#include "platform/wire_log.h"

#include <charconv>
#include <fcntl.h>

namespace qor {

WireLog::WireLog(const WallClock& clock) : m_Clock(clock), m_StartMs(clock.TickMs()) {
    m_Line.reserve(256);
}

WireLog::~WireLog() {
    if (m_File)
        std::fclose(m_File);
}

bool WireLog::OpenFile(const std::string& path) {
    // A pipe with nobody at its other end, or with a reader that has stopped reading, must not hold up
    // whoever drives carriers: it is refused, or costs its own lines.
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NONBLOCK, 0666);
    if (file >= 0)
        m_File = fdopen(file, "w");
    return m_File != nullptr;
}

void WireLog::Record(char direction, std::string_view bytes) {
    const std::int64_t ms = m_Clock.TickMs() - m_StartMs;
    if (m_Ring.size() < Kept)
        m_Ring.emplace_back();
    Transfer& kept = m_Ring[m_Next];
    m_Next = (m_Next + 1) % Kept;
    kept.ms = ms;
    kept.direction = direction;
    kept.length = static_cast<std::uint8_t>(std::min(bytes.size(), KeptBytes));
    std::copy_n(bytes.data(), kept.length, kept.bytes.data());
    if (m_File) {
        m_Line.clear();
        AppendLine(m_Line, ms, direction, bytes);
        // Each line is out at once: the log is wanted most after a crash.
        const bool written = std::fwrite(m_Line.data(), 1, m_Line.size(), m_File) == m_Line.size();
        m_FileIsWhole = (std::fflush(m_File) == 0) && written && m_FileIsWhole;
    }
}

std::string WireLog::Recent() const {
    std::string text;
    const std::size_t first = m_Ring.size() < Kept ? 0 : m_Next;
    for (std::size_t i = 0; i < m_Ring.size(); ++i) {
        const Transfer& kept = m_Ring[(first + i) % m_Ring.size()];
        AppendLine(text, kept.ms, kept.direction, {kept.bytes.data(), kept.length});
    }
    return text;
}

void WireLog::AppendLine(std::string& out, std::int64_t ms, char direction, std::string_view bytes) {
    std::array<char, 24> number{};
    const auto end = std::to_chars(number.data(), number.data() + number.size(), ms).ptr;
    out.append(number.data(), end);
    out += ' ';
    out += direction;
    out += ' ';
    static constexpr char Hex[] = "0123456789abcdef";
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '\r') {
            out += "\\r";
        } else if (c == '\n') {
            out += "\\n";
        } else if (c == '\\') {
            out += "\\\\";
        } else if (byte < 0x20 || byte >= 0x7f) {
            out += "\\x";
            out += Hex[byte >> 4];
            out += Hex[byte & 15];
        } else {
            out += c;
        }
    }
    out += '\n';
}

LoggedComm::LoggedComm(CMSComm& line, WireLog& log) : m_Line(line), m_Log(log) {
    m_Line.SetHandler([this] { Report(m_Line.GetCommEvent()); });
}

void LoggedComm::SetOutput(std::string_view bytes) {
    m_Log.Record('>', bytes);
    m_Line.SetOutput(bytes);
}

void LoggedComm::GetInput(std::string& bytes) {
    m_Line.GetInput(bytes);
    if (!bytes.empty())
        m_Log.Record('<', bytes);
}

} // namespace qor
