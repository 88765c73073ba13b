#include "curve/alarm.h"

#include "base/setup_store.h"
#include "base/tenths.h"
#include "base/text_format.h"
#include "curve/curve.h"
#include "curve/readout.h"
#include "platform/platform.h"
#include "platform/speaker.h"
#include "platform/timers.h"

#include <algorithm>
#include <optional>

namespace qor {

namespace {

constexpr int BeepMs = 100;
constexpr int UnderTone = 1900;
constexpr int ToneDigits = 4;
constexpr std::array Tones{500, 1500, 2200};
constexpr double FastFrom = 10.0; ///< dB over the limit
constexpr std::size_t LimitCharacters = 7;
// shown to the operator
constexpr std::string_view NoNumber = "ist keine Zahl. Bitte mit Dezimalpunkt eingeben.";

/// How far the level shown is over the limit, dB; nothing when no level is shown.
std::optional<double> Excess(const Curve& curve, const Readout& readout) {
    const auto dBm = readout.Level();
    if (!dBm)
        return std::nullopt;
    // Both are shown with one decimal, and a difference of just 0.1 does not count as more.
    const double level = AsShown(static_cast<double>(InShownUnit(curve, *dBm)));
    const double limit = AsShown(static_cast<double>(curve.limit.Level()));
    return static_cast<double>(ToTenths(level) - ToTenths(limit)) / 10.0;
}

void KeepFlags(const Limit& limit, SetupStore& store) {
    store.Write("tagWarningOn.ccz", limit.AlarmOn() ? "0" : "1");
    store.Write("tagWarningStampOn.ccz", limit.StampOn() ? "0" : "1");
}

} // namespace

void AlarmState::Load(const SetupStore& store) {
    const int tone = WholeNumberIn(store.Read("BeepVolume.ccz", ToneDigits).value_or(""));
    g_beepTone = std::find(Tones.begin(), Tones.end(), tone) != Tones.end() ? tone : 0;
    const int under = WholeNumberIn(store.Read("UnderBeepVolume.ccz", ToneDigits).value_or(""));
    g_underBeepTone = under == UnderTone ? UnderTone : 0;
}

void AlarmState::ChooseTone(int hz, SetupStore& store) {
    g_beepTone = hz;
    store.Write("BeepVolume.ccz", ZeroPadded(hz, ToneDigits));
}

void AlarmState::FlipUnderLimitBeep(SetupStore& store) {
    g_underBeepTone = g_underBeepTone == 0 ? UnderTone : 0;
    store.Write("UnderBeepVolume.ccz", ZeroPadded(g_underBeepTone, ToneDigits));
}

void AlarmState::Hush() {
    g_beepCountSlow = SlowBeeps;
    g_beepCountFast = FastBeeps;
    g_beepCountUnder = UnderBeeps;
}

void AlarmState::Begin(const Platform& platform) {
    Hush();
    platform.timers.SetTimer(SlowBeepTimer, SlowBeepPeriod);
    platform.timers.SetTimer(FastBeepTimer, FastBeepPeriod);
    platform.timers.SetTimer(UnderBeepTimer, UnderBeepPeriod);
}

void AlarmState::End(const Platform& platform) {
    for (const int timer : BeepTimers)
        platform.timers.KillTimer(timer);
}

void AlarmState::LevelShown(const Curve& curve, const Readout& readout) {
    Hush();
    if (!IsOverLimit(curve, readout))
        g_beepCountUnder = 0;
    else if (Excess(curve, readout).value_or(0) < FastFrom)
        g_beepCountSlow = 0;
    else
        g_beepCountFast = 0;
}

void AlarmState::OnTimer(int timer, const Platform& platform) {
    const auto beep = [&platform](int& count, int limit, int tone) {
        if (count >= limit)
            return;
        ++count;
        if (platform.speaker && tone != 0)
            platform.speaker->Beep(tone, BeepMs);
    };
    switch (timer) {
    case SlowBeepTimer:
        return beep(g_beepCountSlow, SlowBeeps, g_beepTone);
    case FastBeepTimer:
        return beep(g_beepCountFast, FastBeeps, g_beepTone);
    case UnderBeepTimer:
        return beep(g_beepCountUnder, UnderBeeps, g_underBeepTone);
    default:
        return;
    }
}

void FlipAlarm(Limit& limit, SetupStore& store) {
    limit.SetAlarm(!limit.AlarmOn());
    if (!limit.AlarmOn())
        limit.SetStamp(false);
    KeepFlags(limit, store);
}

void FlipStamp(Limit& limit, SetupStore& store) {
    limit.SetStamp(!limit.StampOn());
    if (limit.StampOn())
        limit.SetAlarm(true);
    KeepFlags(limit, store);
}

bool IsLimit(double level) {
    return level <= 0 && level >= LowestLimit;
}

Outcome EnterLimit(std::string_view text, Curve& curve, SetupStore& store) {
    if (text.find_first_not_of(" \t") == std::string_view::npos)
        return Outcome::Refused("The value of Alarm Lever cannot be empty!");
    const auto entered = EnteredNumber(text);
    if (!entered)
        return Outcome::Refused(std::string(text) + ": " + std::string(NoNumber));
    if (!IsLimit(*entered))
        return Outcome::Refused("The value of Alarm Lever should be in range 0 ~ -200");
    curve.limit.Take(static_cast<float>(*entered));
    const double absolute = *entered + static_cast<double>(curve.scale.Reference());
    store.Write("AlarmUp.ccz", Fixed(absolute, 1).substr(0, LimitCharacters));
    return Outcome::Done();
}

bool IsOverLimit(const Curve& curve, const Readout& readout) {
    return curve.limit.AlarmOn() && Excess(curve, readout).value_or(0) > 0.1;
}

} // namespace qor
