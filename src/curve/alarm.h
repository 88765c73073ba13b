#pragma once

#include <string_view>

namespace qor {

/// Timers of the beeper and their periods in ms: over the limit, far over it, within it.
enum BeepTimer : int { SlowBeepTimer = 16, FastBeepTimer = 17, UnderBeepTimer = 28 };
inline constexpr int SlowBeepPeriod = 800;
inline constexpr int FastBeepPeriod = 300;
inline constexpr int UnderBeepPeriod = 1500;

class SetupStore;
struct Platform;
struct Session;

/// Tones of the beeper and how many beeps of each kind have been given since its condition began.
struct AlarmState {
    int g_beepTone = 0;      ///< Hz, over the limit: 0 (silent), 500, 1500 or 2200
    int g_underBeepTone = 0; ///< Hz, within the limit: 0 or 1900
    int g_beepCountSlow = 3; ///< at its limit, as here, a kind is silent
    int g_beepCountFast = 7;
    int g_beepCountUnder = 1;
};

/// Fills the tones from `BeepVolume.ccz` and `UnderBeepVolume.ccz`; a tone that is none of the beeper's is
/// silence.
[[nodiscard]] AlarmState LoadAlarmTones(const SetupStore& store);

/// The alarm off takes the stamp with it; the stamp on takes the alarm with it. Both are kept.
void FlipAlarm(Session& session, SetupStore& store);
void FlipStamp(Session& session, SetupStore& store);
void ChooseBeepTone(int hz, AlarmState& alarm, SetupStore& store);
void FlipUnderLimitBeep(AlarmState& alarm, SetupStore& store);

/// True for a limit that can be set, in the unit shown: 0 to -200.
[[nodiscard]] bool IsLimit(double level);

/// Takes a limit as it was typed, 0 to -200 in the unit shown, and keeps it in `AlarmUp.ccz` in dBm. A
/// verdict about the curve is given anew. False, with a message and nothing changed, for anything else.
bool EnterLimit(std::string_view text, Session& session, const Platform& platform, SetupStore& store);

/// True when the level box is red: the level shown is over the limit by more than 0.1 dB.
[[nodiscard]] bool IsOverLimit(const Session& session);

/// A new level is shown: decides which of the three beeps goes on.
void LevelShown(Session& session);
/// Arms the beeper for a run; nothing sounds before its first level.
void StartBeeper(Session& session, const Platform& platform);
void StopBeeper(const Platform& platform);
/// A tick of SlowBeepTimer, FastBeepTimer or UnderBeepTimer.
void OnBeepTimer(int timer, AlarmState& alarm, const Platform& platform);

} // namespace qor
