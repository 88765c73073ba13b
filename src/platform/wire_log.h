#pragma once

#include "platform/clock.h"
#include "platform/serial_control.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

namespace qor {

/// The last few thousand transfers, always kept, and on demand every transfer in a file.
///
/// One line a transfer: milliseconds since the start, `>` (to the instrument) or `<`, the bytes with
/// C escapes. Recording allocates nothing.
class WireLog {
public:
    explicit WireLog(const WallClock& clock);
    ~WireLog();
    WireLog(const WireLog&) = delete;
    WireLog& operator=(const WireLog&) = delete;

    /// Also writes to `path` from now on. False when it cannot be opened, as a pipe without a reader.
    [[nodiscard]] bool OpenFile(const std::string& path);
    void Record(char direction, std::string_view bytes);
    /// The kept transfers, oldest first, in the form of the file.
    [[nodiscard]] std::string Recent() const;
    /// False once a write to the file has failed.
    [[nodiscard]] bool FileIsWhole() const { return m_FileIsWhole; }

private:
    static constexpr std::size_t Kept = 4096;
    static constexpr std::size_t KeptBytes = 46;
    struct Transfer {
        std::int64_t ms = 0;
        char direction = 0;
        std::uint8_t length = 0;
        std::array<char, KeptBytes> bytes{};
    };

    static void AppendLine(std::string& out, std::int64_t ms, char direction, std::string_view bytes);

    const WallClock& m_Clock;
    std::int64_t m_StartMs;
    std::vector<Transfer> m_Ring; ///< grows up to Kept, then wraps
    std::size_t m_Next = 0;
    std::FILE* m_File = nullptr;
    bool m_FileIsWhole = true;
    std::string m_Line;
};

/// A serial control that passes everything through to another and records each transfer.
class LoggedComm final : public CMSComm {
public:
    LoggedComm(CMSComm& line, WireLog& log);

    void SetCommPort(int number) override { m_Line.SetCommPort(number); }
    void SetSettings(std::string_view settings) override { m_Line.SetSettings(settings); }
    void SetInputMode(CommInputMode mode) override { m_Line.SetInputMode(mode); }
    void SetInputLen(int length) override { m_Line.SetInputLen(length); }
    void SetRThreshold(int count) override { m_Line.SetRThreshold(count); }
    void SetSThreshold(int count) override { m_Line.SetSThreshold(count); }
    void SetPortOpen(bool open) override { m_Line.SetPortOpen(open); }
    [[nodiscard]] bool GetPortOpen() const override { return m_Line.GetPortOpen(); }
    void SetOutput(std::string_view bytes) override;
    void GetInput(std::string& bytes) override;

private:
    CMSComm& m_Line;
    WireLog& m_Log;
};

} // namespace qor
