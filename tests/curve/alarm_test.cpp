#include "base/tenths.h"
#include "curve/alarm.h"
#include "curve/curve.h"
#include "curve/run_view.h"
#include "desk/level_unit.h"
#include "desk/startup.h"
#include "platform/speaker.h"
#include "support/curves.h"
#include "support/rig.h"

#include <gtest/gtest.h>

namespace qor::test {
namespace {

class NotedSpeaker final : public Speaker {
public:
    void Beep(int hz, int ms) override {
        EXPECT_EQ(ms, 100);
        tones.push_back(hz);
    }
    std::vector<int> tones;
};

struct AlarmDesk : Rig {
    bool Enter(std::string_view text) { return EnterLimit(text, S(), program.Parts(), program.Stores()); }
};

TEST(Alarm, ALimitIsTakenFromZeroToMinus200AndKeptInDbm) {
    constexpr const char* Range = "The value of Alarm Lever should be in range 0 ~ -200";
    struct Case {
        const char* entry;
        const char* told;   ///< empty: taken
        const char* stored; ///< with the unit dBm
        const char* inDbc;
    };
    for (const Case& c :
         {Case{"-97.5", "", "-97.5", "-54.5"}, Case{" 0 ", "", "0.0", "43.0"},
          Case{"-200", "", "-200.0", "-157.0"}, Case{"-200.1", Range, "", ""}, Case{"0.1", Range, "", ""},
          Case{"", "The value of Alarm Lever cannot be empty!", "", ""},
          Case{"  ", "The value of Alarm Lever cannot be empty!", "", ""},
          Case{"-97,5", "-97,5: ist keine Zahl. Bitte mit Dezimalpunkt eingeben.", "", ""},
          Case{"abc", "abc: ist keine Zahl. Bitte mit Dezimalpunkt eingeben.", "", ""}}) {
        for (const bool dbc : {false, true}) {
            SCOPED_TRACE(std::string(c.entry) + (dbc ? " dBc" : " dBm"));
            AlarmDesk desk;
            ConvertLevelUnit(dbc, desk.S());
            const float before = desk.S().curve.limit.Level();
            const bool taken = *c.told == '\0';
            EXPECT_EQ(desk.Enter(c.entry), taken);
            EXPECT_EQ(desk.user.messages,
                      taken ? std::vector<std::string>{} : std::vector<std::string>{c.told});
            EXPECT_EQ(desk.Stored("AlarmUp.ccz"), dbc ? c.inDbc : c.stored);
            if (!taken)
                EXPECT_EQ(desk.S().curve.limit.Level(), before);
            else
                EXPECT_EQ(NumberIn(PanelOf(desk.S()).m_AlarmText), NumberIn(c.entry));
        }
    }
}

TEST(Alarm, AChangeOfLimitOrAlarmJudgesAllRunsInViewAnew) {
    AlarmDesk desk;
    Curve& curve = desk.S().curve;
    MakeSweep(curve);
    curve.SetRuns(2);
    curve.Put(4, -95.0f, CurveSide::Down);
    curve.Update(true);
    curve.Put(4, -105.0f, CurveSide::Down);
    curve.EndRun();
    curve.Update(true);
    curve.verdict.Settle({.holdsPoint = true, .isComplete = true});
    const auto after = [&](std::string_view limit) {
        EXPECT_TRUE(desk.Enter(limit));
        return curve.verdict.Value();
    };
    EXPECT_EQ(curve.verdict.Value(), VerdictPassed);
    EXPECT_EQ(after("-100"), VerdictOverLimit) << "the first of the two runs is over it";
    EXPECT_TRUE(ShowRun(2, desk.S()));
    EXPECT_EQ(curve.verdict.Value(), VerdictPassed) << "the second alone";
    EXPECT_TRUE(ShowRun(2, desk.S()));
    EXPECT_EQ(curve.verdict.Value(), VerdictOverLimit) << "both again";
    FlipAlarm(desk.S(), desk.program.Stores());
    EXPECT_EQ(after("-110"), VerdictPassed) << "nothing is judged while the alarm is off";
    FlipAlarm(desk.S(), desk.program.Stores());
    EXPECT_EQ(curve.verdict.Value(), VerdictOverLimit);
    EXPECT_EQ(after("-90"), VerdictPassed);
    for (const Verdict kept : {VerdictNone, VerdictSyntaxError, VerdictOutOfRange, VerdictPllNotLocked}) {
        curve.verdict.Take(kept);
        EXPECT_EQ(after("-91"), kept);
        EXPECT_TRUE(ShowRun(1, desk.S()));
        EXPECT_EQ(curve.verdict.Value(), kept);
    }
}

TEST(Alarm, SwitchesAndTonesAreKept) {
    AlarmDesk desk;
    SetupStore& store = desk.program.Stores();
    const auto flags = [&desk] {
        return desk.Stored("tagWarningOn.ccz") + desk.Stored("tagWarningStampOn.ccz");
    };
    FlipAlarm(desk.S(), store);
    EXPECT_EQ(flags(), "11") << "the stamp goes with the alarm";
    FlipAlarm(desk.S(), store);
    EXPECT_EQ(flags(), "01") << "and does not come back with it";
    FlipAlarm(desk.S(), store);
    FlipStamp(desk.S(), store);
    EXPECT_EQ(flags(), "00") << "the stamp brings the alarm";
    FlipStamp(desk.S(), store);
    EXPECT_EQ(flags(), "01");
    ChooseBeepTone(500, desk.S().alarm, store);
    FlipUnderLimitBeep(desk.S().alarm, store);
    EXPECT_EQ(desk.Stored("BeepVolume.ccz") + desk.Stored("UnderBeepVolume.ccz"), "05001900");

    Session again;
    LoadStores(again, store);
    EXPECT_EQ(!again.curve.limit.AlarmOn(), 0);
    EXPECT_EQ(!again.curve.limit.StampOn(), 1);
    EXPECT_EQ(again.alarm.g_beepTone, 500);
    EXPECT_EQ(again.alarm.g_underBeepTone, 1900);
    store.Write("BeepVolume.ccz", "9999");
    EXPECT_EQ(LoadAlarmTones(store).g_beepTone, 0) << "no tone of the beeper";
}

TEST(Beeper, TheLevelShownDecidesWhichBeepGoesOn) {
    struct Case {
        float level; ///< 0: none is shown
        float limit;
        int alarmOff;
        bool red;
        char beep; ///< s slow, f fast, u under the limit
    };
    // What is shown decides: -89.86 reads -89.9 and -80.04 reads -80.0.
    for (const Case& c : {Case{-89.86f, -90.0f, 0, false, 'u'}, Case{-89.8f, -90.0f, 0, true, 's'},
                          Case{-0.3f, -0.4f, 0, false, 'u'}, Case{-80.1f, -90.0f, 0, true, 's'},
                          Case{-80.04f, -90.0f, 0, true, 'f'}, Case{-50.0f, -90.0f, 1, false, 'u'},
                          Case{-100.0f, -90.0f, 0, false, 'u'}, Case{0.0f, -90.0f, 0, false, 'u'}}) {
        SCOPED_TRACE(std::to_string(c.level) + " " + std::to_string(c.limit));
        Session session;
        if (c.level != 0) {
            EXPECT_TRUE(session.readout.ShowLevel(c.level));
        }
        session.curve.limit.Take(c.limit);
        session.curve.limit.SetAlarm(!c.alarmOff);
        LevelShown(session);
        EXPECT_EQ(IsOverLimit(session), c.red);
        EXPECT_EQ(session.alarm.g_beepCountSlow, c.beep == 's' ? 0 : 3);
        EXPECT_EQ(session.alarm.g_beepCountFast, c.beep == 'f' ? 0 : 7);
        EXPECT_EQ(session.alarm.g_beepCountUnder, c.beep == 'u' ? 0 : 1);
    }
}

TEST(Beeper, SoundsWhileLevelsComeAndFallsSilentWithTheRun) {
    for (const int limit : {-200, -1}) {
        NotedSpeaker speaker;
        Rig rig({}, nullptr, nullptr, nullptr, nullptr, &speaker);
        ASSERT_TRUE(rig.PowerOn());
        ASSERT_TRUE(rig.SelectBand(BandEgsm));
        ChooseBeepTone(2200, rig.S().alarm, rig.program.Stores());
        FlipUnderLimitBeep(rig.S().alarm, rig.program.Stores());
        ASSERT_TRUE(EnterLimit(std::to_string(limit), rig.S(), rig.program.Parts(), rig.program.Stores()));
        rig.time.RunFor(3000);
        EXPECT_TRUE(speaker.tones.empty()) << "no run, no beep";
        ASSERT_TRUE(rig.Measure());
        const std::size_t beeps = speaker.tones.size();
        // 5 s: over the limit by far each 300 ms, under it each 1.5 s.
        EXPECT_GE(beeps, limit == -200 ? 13u : 2u);
        EXPECT_LE(beeps, limit == -200 ? 20u : 4u);
        EXPECT_EQ(speaker.tones, std::vector<int>(beeps, limit == -200 ? 2200 : 1900));
        rig.time.RunFor(5000);
        EXPECT_EQ(speaker.tones.size(), beeps);
        for (const int timer : {SlowBeepTimer, FastBeepTimer, UnderBeepTimer})
            EXPECT_FALSE(rig.time.timers.Runs(timer)) << timer;
    }
}

} // namespace
} // namespace qor::test
