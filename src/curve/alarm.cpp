#include "curve/alarm.h"

#include "base/setup_store.h"
#include "base/tenths.h"
#include "base/text_format.h"
#include "curve/curve.h"
#include "desk/session.h"
#include "platform/operator.h"
#include "platform/platform.h"
#include "platform/speaker.h"
#include "platform/timers.h"

#include <array>

namespace qor {

namespace {

constexpr int SlowBeeps = 3;
constexpr int FastBeeps = 7;
constexpr int UnderBeeps = 1;
constexpr int BeepMs = 100;
constexpr int UnderTone = 1900;
constexpr int ToneDigits = 4;
constexpr std::array Tones{500, 1500, 2200};
constexpr double LowestLimit = -200;
constexpr double FastFrom = 10.0; ///< dB over the limit
constexpr std::size_t LimitCharacters = 7;
// shown to the operator
constexpr std::string_view NoNumber = "ist keine Zahl. Bitte mit Dezimalpunkt eingeben.";

/// How far the level shown is over the limit, dB; nothing when no level is shown.
std::optional<double> Excess(const Session& session) {
    const auto dBm = session.readout.Level();
    if (!dBm)
        return std::nullopt;
    const double level = AsShown(static_cast<double>(InShownUnit(session.curve, *dBm)));
    if (!(level < -0.1))
        return std::nullopt;
    // Both are shown with one decimal, and a difference of just 0.1 does not count as more.
    const double limit = AsShown(static_cast<double>(session.curve.limit.Level()));
    return static_cast<double>(ToTenths(level) - ToTenths(limit)) / 10.0;
}

/// What the limit says of the curve has changed.
void Rejudge(Session& session) {
    session.curve.JudgeAnew(session.receiver.InstrumentListens());
}

/// Keeps the flags. A curve taken while the alarm was off has not been judged yet.
void TakeFlags(Session& session, SetupStore& store) {
    const Limit& limit = session.curve.limit;
    store.Write("tagWarningOn.ccz", limit.AlarmOn() ? "0" : "1");
    store.Write("tagWarningStampOn.ccz", limit.StampOn() ? "0" : "1");
    if (limit.AlarmOn())
        Rejudge(session);
}

} // namespace

AlarmState LoadAlarmTones(const SetupStore& store) {
    AlarmState alarm;
    const int tone = WholeNumberIn(store.Read("BeepVolume.ccz", ToneDigits).value_or(""));
    for (const int known : Tones) {
        if (tone == known)
            alarm.g_beepTone = tone;
    }
    if (WholeNumberIn(store.Read("UnderBeepVolume.ccz", ToneDigits).value_or("")) == UnderTone)
        alarm.g_underBeepTone = UnderTone;
    return alarm;
}

void FlipAlarm(Session& session, SetupStore& store) {
    Limit& limit = session.curve.limit;
    limit.SetAlarm(!limit.AlarmOn());
    if (!limit.AlarmOn())
        limit.SetStamp(false);
    TakeFlags(session, store);
}

void FlipStamp(Session& session, SetupStore& store) {
    Limit& limit = session.curve.limit;
    limit.SetStamp(!limit.StampOn());
    if (limit.StampOn())
        limit.SetAlarm(true);
    TakeFlags(session, store);
}

void ChooseBeepTone(int hz, AlarmState& alarm, SetupStore& store) {
    alarm.g_beepTone = hz;
    store.Write("BeepVolume.ccz", ZeroPadded(hz, ToneDigits));
}

void FlipUnderLimitBeep(AlarmState& alarm, SetupStore& store) {
    alarm.g_underBeepTone = alarm.g_underBeepTone == 0 ? UnderTone : 0;
    store.Write("UnderBeepVolume.ccz", ZeroPadded(alarm.g_underBeepTone, ToneDigits));
}

bool IsLimit(double level) {
    return level <= 0 && level >= LowestLimit;
}

bool EnterLimit(std::string_view text, Session& session, const Platform& platform, SetupStore& store) {
    Curve& curve = session.curve;
    if (text.find_first_not_of(" \t") == std::string_view::npos) {
        platform.user.Failure("The value of Alarm Lever cannot be empty!");
        return false;
    }
    const auto entered = EnteredNumber(text);
    if (!entered) {
        platform.user.Failure(std::string(text) + ": " + std::string(NoNumber));
        return false;
    }
    if (!IsLimit(*entered)) {
        platform.user.Failure("The value of Alarm Lever should be in range 0 ~ -200");
        return false;
    }
    curve.limit.Take(static_cast<float>(*entered));
    Rejudge(session);
    const double absolute = *entered + static_cast<double>(curve.scale.Reference());
    store.Write("AlarmUp.ccz", Fixed(absolute, 1).substr(0, LimitCharacters));
    return true;
}

bool IsOverLimit(const Session& session) {
    const auto excess = Excess(session);
    return session.curve.limit.AlarmOn() && excess && *excess > 0.1;
}

void LevelShown(Session& session) {
    AlarmState& alarm = session.alarm;
    alarm.g_beepCountSlow = SlowBeeps;
    alarm.g_beepCountFast = FastBeeps;
    alarm.g_beepCountUnder = UnderBeeps;
    if (!IsOverLimit(session))
        alarm.g_beepCountUnder = 0;
    else if (Excess(session).value_or(0) < FastFrom)
        alarm.g_beepCountSlow = 0;
    else
        alarm.g_beepCountFast = 0;
}

void StartBeeper(Session& session, const Platform& platform) {
    session.alarm.g_beepCountSlow = SlowBeeps;
    session.alarm.g_beepCountFast = FastBeeps;
    session.alarm.g_beepCountUnder = UnderBeeps;
    platform.timers.SetTimer(SlowBeepTimer, SlowBeepPeriod);
    platform.timers.SetTimer(FastBeepTimer, FastBeepPeriod);
    platform.timers.SetTimer(UnderBeepTimer, UnderBeepPeriod);
}

void StopBeeper(const Platform& platform) {
    for (const int timer : {SlowBeepTimer, FastBeepTimer, UnderBeepTimer})
        platform.timers.KillTimer(timer);
}

void OnBeepTimer(int timer, AlarmState& alarm, const Platform& platform) {
    const auto beep = [&platform](int& count, int limit, int tone) {
        if (count >= limit)
            return;
        ++count;
        if (platform.speaker && tone != 0)
            platform.speaker->Beep(tone, BeepMs);
    };
    switch (timer) {
    case SlowBeepTimer:
        return beep(alarm.g_beepCountSlow, SlowBeeps, alarm.g_beepTone);
    case FastBeepTimer:
        return beep(alarm.g_beepCountFast, FastBeeps, alarm.g_beepTone);
    case UnderBeepTimer:
        return beep(alarm.g_beepCountUnder, UnderBeeps, alarm.g_underBeepTone);
    default:
        return;
    }
}

} // namespace qor
