#pragma once

#include "base/outcome.h"

#include <array>
#include <string_view>

namespace qor {

/// Timers of the beeper and their periods in ms: over the limit, far over it, within it.
enum BeepTimer : int { SlowBeepTimer = 16, FastBeepTimer = 17, UnderBeepTimer = 28 };
inline constexpr std::array BeepTimers{SlowBeepTimer, FastBeepTimer, UnderBeepTimer};
inline constexpr int SlowBeepPeriod = 800;
inline constexpr int FastBeepPeriod = 300;
inline constexpr int UnderBeepPeriod = 1500;

class Curve;
class Limit;
class Readout;
class SetupStore;
struct Platform;

/// The beeper: its tones, and how many beeps of each kind have been given since its condition began. At its
/// limit, as at first, a kind is silent.
class AlarmState {
public:
    /// Takes the tones from `BeepVolume.ccz` and `UnderBeepVolume.ccz`; a tone that is none of the beeper's
    /// is silence.
    void Load(const SetupStore& store);
    void ChooseTone(int hz, SetupStore& store);
    void FlipUnderLimitBeep(SetupStore& store);
    [[nodiscard]] int Tone() const { return g_beepTone; } ///< Hz, over the limit
    [[nodiscard]] bool BeepsUnderLimit() const { return g_underBeepTone != 0; }

    /// Readings will come. Nothing sounds before the first.
    void Begin(const Platform& platform);
    /// A new level is shown: decides which of the three beeps goes on.
    void LevelShown(const Curve& curve, const Readout& readout);
    static void End(const Platform& platform);
    /// A tick of a timer of the beeper.
    void OnTimer(int timer, const Platform& platform);

private:
    static constexpr int SlowBeeps = 3;
    static constexpr int FastBeeps = 7;
    static constexpr int UnderBeeps = 1;

    void Hush();

    int g_beepTone = 0;      ///< Hz, over the limit: 0 (silent), 500, 1500 or 2200
    int g_underBeepTone = 0; ///< Hz, within the limit: 0 or 1900
    int g_beepCountSlow = SlowBeeps;
    int g_beepCountFast = FastBeeps;
    int g_beepCountUnder = UnderBeeps;
};

/// The alarm off takes the stamp with it; the stamp on takes the alarm with it. Both are kept.
void FlipAlarm(Limit& limit, SetupStore& store);
void FlipStamp(Limit& limit, SetupStore& store);

inline constexpr double LowestLimit = -200; ///< dBm, or dBc where that is shown
/// True for a limit that can be set, in the unit shown: 0 to -200.
[[nodiscard]] bool IsLimit(double level);

/// Takes a limit as it was typed, 0 to -200 in the unit shown, and keeps it in `AlarmUp.ccz` in dBm. Refused
/// for anything else.
[[nodiscard]] Outcome EnterLimit(std::string_view text, Curve& curve, SetupStore& store);

/// True when the level box is red: the level shown is over the limit by more than 0.1 dB.
[[nodiscard]] bool IsOverLimit(const Curve& curve, const Readout& readout);

} // namespace qor
