#pragma once

#include <cstddef>
#include <vector>

namespace qor {

/// Drive values of one frequency, one for each level, found by halving. Volts and dBm.
///
/// Each reading narrows the bounds of every level that it says something about, not only of the one looked
/// for.
class DriveRow {
public:
    static constexpr float Highest = 5.0f; ///< V

    struct Entry {
        float target;
        float low;
        float high;
        float firstLow; ///< bounds with which the search of this entry began
        float firstHigh;
    };

    DriveRow() = default;
    /// Nothing is known: 0 to 5 V everywhere.
    explicit DriveRow(const std::vector<int>& levels);
    /// The drives of another frequency are near: 0.2 V to each side of what was found there.
    [[nodiscard]] DriveRow Neighbour() const;

    [[nodiscard]] std::size_t Size() const { return m_Entries.size(); }
    [[nodiscard]] const Entry& At(std::size_t index) const { return m_Entries[index]; }
    /// The next drive to try for an entry.
    [[nodiscard]] float Middle(std::size_t index) const;
    /// `level` was measured at `drive`, by entries `from` up to but not `to`.
    void Learn(std::size_t from, std::size_t to, float drive, float level);
    /// The bounds have met.
    [[nodiscard]] bool IsFound(std::size_t index) const;
    /// They have met at one with which the search began: the level may lie beyond.
    [[nodiscard]] bool IsAtFirstBound(std::size_t index) const;
    /// Begins the search of an entry anew, from 0 to 5 V.
    void BeginAgain(std::size_t index);
    /// An entry that was found before.
    void Know(std::size_t index, float drive);

private:
    std::vector<Entry> m_Entries;
};

} // namespace qor
