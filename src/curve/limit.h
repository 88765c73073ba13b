#pragma once

namespace qor {

/// The limit, and whether it is watched and its verdict stamped upon the plot.
class Limit {
public:
    [[nodiscard]] float Level() const { return g_alarmLevel; } ///< in the unit shown
    [[nodiscard]] bool AlarmOn() const { return g_alarmOff == 0; }
    [[nodiscard]] bool StampOn() const { return g_stampOff == 0; }

    void Take(float level) { g_alarmLevel = level; } ///< in the unit shown
    void SetAlarm(bool on) { g_alarmOff = on ? 0 : 1; }
    void SetStamp(bool on) { g_stampOff = on ? 0 : 1; }

private:
    float g_alarmLevel = -90.0f; ///< in the unit shown
    int g_alarmOff = 0;          ///< 1: nothing is judged
    int g_stampOff = 0;          ///< 1: the verdict is not stamped
};

} // namespace qor
