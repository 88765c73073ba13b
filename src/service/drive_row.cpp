#include "service/drive_row.h"

#include <algorithm>

namespace qor {

namespace {

constexpr float Met = 0.007f;         // V between the bounds of a drive that is found
constexpr float Near = 0.04f;         // dB: a reading so near ends the search
constexpr float NearBound = 0.002f;   // V that the other bound is then set to
constexpr float Neighbourhood = 0.2f; // V

} // namespace

DriveRow::DriveRow(const std::vector<int>& levels) {
    for (const int dBm : levels)
        m_Entries.push_back({static_cast<float>(dBm), 0, Highest, 0, Highest});
}

DriveRow DriveRow::Neighbour() const {
    DriveRow row;
    for (const Entry& entry : m_Entries) {
        const float low = std::max(entry.low - Neighbourhood, 0.0f);
        const float high = std::min(entry.high + Neighbourhood, Highest);
        row.m_Entries.push_back({entry.target, low, high, low, high});
    }
    return row;
}

float DriveRow::Middle(std::size_t index) const {
    const Entry& entry = m_Entries[index];
    return (entry.low + entry.high) / 2;
}

void DriveRow::Learn(std::size_t from, std::size_t to, float drive, float level) {
    for (std::size_t i = from; i < std::min(to, m_Entries.size()); ++i) {
        Entry& entry = m_Entries[i];
        if (level <= entry.target) {
            entry.low = std::max(entry.low, drive);
            if (entry.target - level < Near)
                entry.high = drive + NearBound;
        } else {
            entry.high = std::min(entry.high, drive);
            if (level - entry.target < Near)
                entry.low = drive - NearBound;
        }
    }
}

bool DriveRow::IsFound(std::size_t index) const {
    const Entry& entry = m_Entries[index];
    return entry.high - entry.low < Met;
}

bool DriveRow::IsAtFirstBound(std::size_t index) const {
    const Entry& entry = m_Entries[index];
    return entry.low <= entry.firstLow || entry.high >= entry.firstHigh || entry.low > entry.high;
}

void DriveRow::BeginAgain(std::size_t index) {
    Entry& entry = m_Entries[index];
    entry = {entry.target, 0, Highest, 0, Highest};
}

void DriveRow::Know(std::size_t index, float drive) {
    Entry& entry = m_Entries[index];
    entry = {entry.target, drive, drive, drive, drive};
}

} // namespace qor
