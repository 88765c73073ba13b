#pragma once

#include "base/outcome.h"
#include "service/memory_file.h"
#include "service/memory_talk.h"
#include "service/service_activity.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace qor {

class SetupStore;
struct Platform;
struct Session;

/// The instrument's memory as the service works on it: one byte at a time, a copy of it before anything is
/// changed, and that copy brought back.
class MemoryDesk final : public ServiceActivity {
public:
    MemoryDesk(Session& session, const Platform& platform, SetupStore& store);

    /// Writes one byte. Nothing happens for a page above 127 or an address or value outside 0 to 255.
    Outcome Write(const MemoryCell& cell);
    /// Reads one byte, for EditorValue.
    Outcome Read(int page, int address);
    /// What was read last; nothing while it is on its way.
    [[nodiscard]] std::optional<int> EditorValue() const { return m_EditorValue; }
    /// Grows with each value that was read.
    [[nodiscard]] unsigned ValuesRead() const { return m_ValuesRead; }

    /// Keeps the places of the instrument's own page, once for each instrument in a session, and whatever
    /// `places` has besides, in a file beside the stores. `then` is called when that is done, or need not be,
    /// or cannot be.
    void BackUp(std::vector<MemoryCell> places, std::function<void()> then);
    /// Writes a file back: compared with the instrument, asked for, written, and read once more.
    Outcome Restore();

    /// A line in the record of what was written: see docs/service.md. `before` where it is known.
    void Record(std::string_view what, const MemoryCell& cell, std::optional<int> before, bool confirmed);

    void Stop() override;
    void ContactIsLost() override;

private:
    [[nodiscard]] Outcome MayBegin() const;
    void KeepRead(const MemoryCell& cell);
    void BackedUp();
    void Compare(const Outcome& read);
    [[nodiscard]] bool MayRestore();
    void WriteDifferences();
    void Verify();
    void RecordPending(std::string_view what);
    void EndRestore(const Outcome& outcome);
    [[nodiscard]] MemoryFile NewFile() const;
    void ShowProgress(std::string_view what, std::size_t step, std::size_t steps);

    Session& m_Session;
    const Platform& m_Platform;
    SetupStore& m_Store;
    MemoryTalk m_Talk;

    std::optional<int> m_EditorValue;
    unsigned m_ValuesRead = 0;

    MemoryFile m_Kept; ///< of the instrument that is connected, as it was found
    std::filesystem::path m_KeptIn;
    std::function<void()> m_Then;

    MemoryFile m_Wanted;                 ///< what is to be brought back
    std::vector<MemoryCell> m_Found;     ///< what stands there now
    std::vector<MemoryCell> m_Differing; ///< and is to be written, each with its wanted value
};

} // namespace qor
