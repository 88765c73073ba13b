#pragma once

#include "base/outcome.h"
#include "link/command_queue.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace qor {

/// A place of the instrument's memory and what stands there, or is to stand there.
struct MemoryCell {
    int page = 0;    ///< 0 to 255
    int address = 0; ///< 0 to 255
    int value = 0;   ///< 0 to 255
    bool operator==(const MemoryCell&) const = default;
};

/// Page and address as the operator reads them: "125/100".
[[nodiscard]] std::string PlaceText(int page, int address);

/// A command that has to be confirmed by its echo: the text, and the bytes that the channel appends.
struct MemoryWriteCommand {
    std::string text;
    std::string payload{};
    int tag = TagPlain;
    std::optional<MemoryCell> cell{}; ///< what it writes; nothing for a command that is no write
};

/// "$KVTWE" page address, the value behind it.
[[nodiscard]] MemoryWriteCommand WriteByte(const MemoryCell& cell, int tag = TagPlain);
/// "$KVTWE" alone, page, address and value behind it: an entry of a calibration table. The tag is that of its
/// high or its low byte.
[[nodiscard]] MemoryWriteCommand WriteTableByte(const MemoryCell& cell, int tag);

/// A conversation with the instrument's memory, one step after the other: the next goes out only when the one
/// before it has its whole reply. The first that has not stops it; what it has done until then stands.
///
/// Each user has his own. `onEnd` comes exactly once, unless Drop is called: the line was lost or given up
/// then, and nothing is said.
class MemoryTalk final : private Asker {
public:
    /// A step of the list was answered: its index, and the byte read or written.
    using OnStep = std::function<void(std::size_t step, const MemoryCell& cell)>;
    using OnEnd = std::function<void(const Outcome& outcome)>;

    explicit MemoryTalk(CommandQueue& queue) : m_Queue(queue) {}
    ~MemoryTalk() override { Drop(); }

    [[nodiscard]] bool IsOn() const { return m_IsOn; }
    /// The write that went out last and was not confirmed, while it is awaited and behind a refusal: it may
    /// stand there or not.
    [[nodiscard]] std::optional<MemoryCell> Pending() const {
        return m_Step < m_Writes.size() ? m_Writes[m_Step].cell : std::nullopt;
    }
    /// Reads the places, in order. A page that leaves one unanswered is asked no more; the others are.
    /// `filler` stands behind each command's address.
    void Read(std::vector<MemoryCell> places, OnStep onStep, OnEnd onEnd, std::string_view filler = {});
    /// Writes, each confirmed by its echo before the next. Refused with page and address, or the command, of
    /// the first that is not.
    void Write(std::vector<MemoryWriteCommand> writes, OnStep onStep, OnEnd onEnd);
    /// No further step goes out; the one under way ends by itself, and `onEnd` comes then, as Refused without
    /// words.
    void Stop() { m_Stopped = true; }
    /// Everything is forgotten: the queue was emptied.
    void Drop();

private:
    void Answered(int tag, std::string_view reply) override;
    void Begin(OnStep onStep, OnEnd onEnd);
    void Next();
    void TakeRead(std::string_view reply);
    void TakeEcho(std::string_view reply);
    void End(const Outcome& outcome);

    CommandQueue& m_Queue;
    std::vector<MemoryCell> m_Reads;
    std::string m_Filler;
    std::vector<MemoryWriteCommand> m_Writes;
    std::size_t m_Step = 0;
    std::optional<int> m_SilentPage;
    OnStep m_OnStep;
    OnEnd m_OnEnd;
    bool m_IsOn = false;
    bool m_Stopped = false;
};

} // namespace qor
