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
    TagTableLow = 5,  ///< the same; returns the port to text input
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
    TagReceiverCalLast = 18,
    TagPrimeQueued = 21,   ///< goes out as 11
    TagLevelUpQueued = 22, ///< goes out as 12
    TagTypeCode = 95,
    TagSerialFirst = 200,
    TagSerialLast = 210,
    TagModelFirst = 211,
    TagModelLast = 221,
};

/// Tags of the text-form memory reads that the chain makes.
[[nodiscard]] constexpr bool IsMemoryTag(int tag) {
    return tag == TagTypeCode || (tag >= TagSerialFirst && tag <= TagModelLast);
}

/// Commands waiting for the line, first in first out.
///
/// A ring whose entries keep their memory, so that a long run allocates nothing. A command that finds the
/// queue full is dropped: StopMeas empties the queue before it appends, so the carriers can always be
/// switched off.
class CommandQueue {
public:
    static constexpr std::size_t Capacity = 1000;

    struct Entry {
        std::string text;
        int tag = 0;
        float param = 0;     ///< IM frequency of a sweep step, MHz; 0 when none
        std::string payload; ///< bytes behind a $KVTWE text, before the carriage return
    };

    void Append(std::string_view text, int tag = TagPlain, float param = 0, std::string_view payload = {}) {
        if (m_Count == Capacity)
            return;
        Entry& entry = m_Ring[(m_Head + m_Count) % Capacity];
        entry.text.assign(text);
        entry.tag = tag;
        entry.param = param;
        entry.payload.assign(payload);
        if (++m_Count == 1 && m_OnFirst)
            m_OnFirst();
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
    [[nodiscard]] Entry& Head() { return m_Ring[m_Head]; }
    /// The entry queued last. The queue must not be empty.
    [[nodiscard]] Entry& Last() { return m_Ring[(m_Head + m_Count + Capacity - 1) % Capacity]; }
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
    std::array<Entry, Capacity> m_Ring;
    std::size_t m_Head = 0;
    std::size_t m_Count = 0;
    std::function<void()> m_OnFirst;
};

} // namespace qor
