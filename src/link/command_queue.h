#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace qor {

/// How the reply to a queued command is treated. Sweep readings are queued 20 up and lowered when sent.
enum Tag : int {
    TagPlain = 0,
    TagLevel = 1,     ///< level stored as the next point of a 2-tone run
    TagStepUp = 2,    ///< #SFA of a sweep step
    TagStepDown = 3,  ///< #SFB of a sweep step
    TagTableHigh = 4, ///< calibration table write, bytes counted
    TagTableLow = 5,  ///< the same
    TagMemoryEditor = 6,
    TagSerialHigh = 7,
    TagSerialLow = 8,
    TagPathTable = 9,
    TagPrimed = 11,    ///< a level that makes no point
    TagLevelUp = 12,   ///< level of an up step
    TagLevelDown = 13, ///< level of a down step
    TagOption = 14,
    TagReceiverCalFirst = 15,
    TagReceiverCalDone = 16,
    TagReceiverCalSlope = 17,
    TagReceiverCalLast = 18,
    TagPrimeQueued = 21,   ///< goes out as 11
    TagLevelUpQueued = 22, ///< goes out as 12
    TagTypeCode = 95,
    TagSerialFirst = 200,
    TagSerialLast = 210,
    TagModelFirst = 211,
    TagModelLast = 221,
};

/// Where the reply to a command is read, and what tells its end.
enum class ReplyForm {
    Text,  ///< characters, to the line end or the length that follows from the command
    Bytes, ///< a byte-coded memory reply, read in binary: by its length, or what has come after two seconds
    Echo,  ///< the bytes of the command themselves, its payload among them: to the last of them
};

/// Form of the reply to a command with this tag.
[[nodiscard]] constexpr ReplyForm FormOf(int tag) {
    const bool bytes = (tag >= TagMemoryEditor && tag <= TagSerialLow) || tag == TagOption;
    return bytes                                       ? ReplyForm::Bytes
           : tag == TagTableHigh || tag == TagTableLow ? ReplyForm::Echo
                                                       : ReplyForm::Text;
}

/// Whoever asks the instrument something whose answer only he can read.
class Asker {
public:
    Asker() = default;
    Asker(const Asker&) = delete;
    Asker& operator=(const Asker&) = delete;
    virtual ~Asker() = default;

    /// The reply to his command with this tag is complete, or what there is of it: empty when it was refused
    /// or never came. Of a command whose echo was asked for: the echo, or empty when another came or none.
    virtual void Answered(int tag, std::string_view reply) = 0;
};

/// Period of the wait's ticks.
inline constexpr int OrdinaryWaitMs = 1000;

/// A command that waits for the line.
struct LineCommand {
    std::string text;
    int tag = 0;
    float param = 0;             ///< IM frequency of a sweep step, MHz; 0 when none
    std::string payload;         ///< bytes behind a $KVTWE text, before the carriage return
    Asker* asker = nullptr;      ///< takes the reply; null: the channel tells by keywords what it means
    bool echo = false;           ///< its reply is its own bytes, and nothing else will do
    int waitMs = OrdinaryWaitMs; ///< period of the wait's ticks: two of them end an open reply
};

/// Commands waiting for the line, first in first out.
///
/// A ring whose entries keep their memory, so that a long run allocates nothing. A command that finds the
/// queue full is dropped: a stop empties the queue before it appends, so the carriers can always be switched
/// off.
class CommandQueue {
public:
    static constexpr std::size_t Capacity = 1000;

    void Append(std::string_view text, int tag = TagPlain, float param = 0, std::string_view payload = {}) {
        if (m_Count == Capacity)
            return;
        ++m_Count;
        Put(Last(), text, tag, param, payload);
    }
    /// Goes out before all that waits.
    void AppendFirst(std::string_view text, int tag = TagPlain, float param = 0) {
        if (m_Count == Capacity)
            return;
        ++m_Count;
        m_Head = (m_Head + Capacity - 1) % Capacity;
        Put(Head(), text, tag, param, {});
    }
    /// The same as Append for a command whose reply goes to `asker`.
    void Ask(std::string_view text, int tag, Asker& asker) {
        if (m_Count == Capacity)
            return;
        Append(text, tag);
        Last().asker = &asker;
    }
    /// A command that stands only when the instrument repeats it to the byte, `payload` included, within two
    /// ticks of the wait. Bytes of any value may stand in it.
    void AskEcho(std::string_view text, int tag, Asker& asker, std::string_view payload = {}) {
        if (m_Count == Capacity)
            return;
        Append(text, tag, 0, payload);
        Last().asker = &asker;
        Last().echo = true;
    }
    /// The answers that `asker` still waits for come soon, or never.
    void ShortenWaits(const Asker& asker, int waitMs) {
        for (std::size_t i = 0; i < m_Count; ++i)
            if (LineCommand& waiting = m_Ring[(m_Head + i) % Capacity]; waiting.asker == &asker)
                waiting.waitMs = waitMs;
    }
    /// Called when a command joins an empty queue.
    void SetOnFirst(std::function<void()> onFirst) { m_OnFirst = std::move(onFirst); }
    [[nodiscard]] std::size_t CommSendPoint() const { return m_Count; }
    [[nodiscard]] bool Empty() const { return m_Count == 0; }
    [[nodiscard]] bool Holds(std::string_view begin) const {
        for (std::size_t i = 0; i < m_Count; ++i)
            if (m_Ring[(m_Head + i) % Capacity].text.starts_with(begin))
                return true;
        return false;
    }
    /// `visit` gets the text of each that waits, in their order.
    template <typename Visit> void ForEach(Visit visit) const {
        for (std::size_t i = 0; i < m_Count; ++i)
            visit(m_Ring[(m_Head + i) % Capacity].text);
    }
    [[nodiscard]] LineCommand& Head() { return m_Ring[m_Head]; }
    /// The entry queued last. The queue must not be empty.
    [[nodiscard]] LineCommand& Last() { return m_Ring[(m_Head + m_Count + Capacity - 1) % Capacity]; }
    void RemoveHead() {
        m_Head = (m_Head + 1) % Capacity;
        --m_Count;
    }
    void Clear() { m_Count = 0; }
    /// Takes the step parameters off all waiting commands.
    void ClearParams() {
        for (std::size_t i = 0; i < m_Count; ++i)
            m_Ring[(m_Head + i) % Capacity].param = 0;
    }

private:
    void Put(LineCommand& entry, std::string_view text, int tag, float param, std::string_view payload) {
        entry.text.assign(text);
        entry.tag = tag;
        entry.param = param;
        entry.payload.assign(payload);
        entry.asker = nullptr;
        entry.echo = false;
        entry.waitMs = OrdinaryWaitMs;
        if (m_Count == 1 && m_OnFirst)
            m_OnFirst();
    }

    std::array<LineCommand, Capacity> m_Ring;
    std::size_t m_Head = 0;
    std::size_t m_Count = 0;
    std::function<void()> m_OnFirst;
};

} // namespace qor
