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
#include <optional>
#include <utility>

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
    bool Enter(std::string_view text) { return Done(EnterLimit(text, S().curve, program.Stores())); }
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

TEST(Alarm, AChangeOfLimitAlarmUnitOrViewIsJudgedAtOnce) {
    AlarmDesk desk;
    Curve& curve = desk.S().curve;
    MakeSweep(curve);
    curve.SetRuns(2);
    curve.BeginSweep();
    curve.Put(4, -95.0f, CurveSide::Down);
    curve.Put(4, -96.0f, CurveSide::Down); // what a later pass covers stays known
    curve.tally.Count({1, 1});
    curve.EndRun();
    curve.BeginSweep();
    curve.Put(4, -105.0f, CurveSide::Down);
    curve.tally.Count({1, 1});
    curve.tally.EndByItself();
    const auto after = [&](std::string_view limit) {
        EXPECT_TRUE(desk.Enter(limit));
        return curve.ShownVerdict();
    };
    EXPECT_EQ(curve.ShownVerdict(), Verdict::Passed);
    EXPECT_EQ(after("-95.5"), Verdict::Failed) << "the first of the two runs was over it";
    ConvertLevelUnit(true, desk.S());
    EXPECT_EQ(curve.ShownVerdict(), Verdict::Failed);
    ConvertLevelUnit(false, desk.S());
    EXPECT_TRUE(ShowRun(2, curve));
    EXPECT_EQ(curve.ShownVerdict(), Verdict::Passed) << "the second alone";
    EXPECT_TRUE(ShowRun(2, curve));
    EXPECT_EQ(curve.ShownVerdict(), Verdict::Failed) << "both again";
    FlipStamp(curve.limit, desk.program.Stores());
    EXPECT_EQ(curve.ShownVerdict(), Verdict::Failed) << "the stamp judges nothing";
    FlipAlarm(curve.limit, desk.program.Stores());
    EXPECT_EQ(after("-90"), Verdict::None) << "nothing is judged while the alarm is off";
    EXPECT_EQ(after("-110"), Verdict::None);
    FlipAlarm(curve.limit, desk.program.Stores());
    EXPECT_EQ(curve.ShownVerdict(), Verdict::Failed);
    EXPECT_EQ(after("-90"), Verdict::Passed);
    curve.tally.NoteError(3);
    for (const char* limit : {"-110", "-90"})
        EXPECT_EQ(after(limit), Verdict::Error) << limit;
    EXPECT_TRUE(ShowRun(1, curve));
    EXPECT_EQ(curve.ShownVerdict(), Verdict::Error);
}

TEST(Alarm, SwitchesAndTonesAreKept) {
    AlarmDesk desk;
    SetupStore& store = desk.program.Stores();
    const auto flags = [&desk] {
        return desk.Stored("tagWarningOn.ccz") + desk.Stored("tagWarningStampOn.ccz");
    };
    Limit& limit = desk.S().curve.limit;
    FlipAlarm(limit, store);
    EXPECT_EQ(flags(), "11") << "the stamp goes with the alarm";
    FlipAlarm(limit, store);
    EXPECT_EQ(flags(), "01") << "and does not come back with it";
    FlipAlarm(limit, store);
    FlipStamp(limit, store);
    EXPECT_EQ(flags(), "00") << "the stamp brings the alarm";
    FlipStamp(limit, store);
    EXPECT_EQ(flags(), "01");
    desk.S().alarm.ChooseTone(500, store);
    desk.S().alarm.FlipUnderLimitBeep(store);
    EXPECT_EQ(desk.Stored("BeepVolume.ccz") + desk.Stored("UnderBeepVolume.ccz"), "05001900");

    Session again;
    LoadStores(again, store);
    EXPECT_EQ(!again.curve.limit.AlarmOn(), 0);
    EXPECT_EQ(!again.curve.limit.StampOn(), 1);
    EXPECT_EQ(again.alarm.Tone(), 500);
    EXPECT_TRUE(again.alarm.BeepsUnderLimit());
    store.Write("BeepVolume.ccz", "9999");
    again.alarm.Load(store);
    EXPECT_EQ(again.alarm.Tone(), 0) << "no tone of the beeper";
}

TEST(Beeper, TheLevelShownDecidesWhichBeepGoesOn) {
    struct Case {
        std::optional<float> level;
        float limit;
        int alarmOff;
        bool red;
        int beep; ///< the timer that sounds
    };
    constexpr int u = UnderBeepTimer;
    constexpr int s = SlowBeepTimer;
    constexpr int f = FastBeepTimer;
    NotedSpeaker speaker;
    Rig rig({}, nullptr, nullptr, nullptr, nullptr, &speaker);
    // What is shown decides: -89.86 reads -89.9 and -80.04 reads -80.0.
    for (const Case& c :
         {Case{-89.86f, -90.0f, 0, false, u}, Case{-89.8f, -90.0f, 0, true, s},
          Case{-0.3f, -0.4f, 0, false, u}, Case{-80.1f, -90.0f, 0, true, s},
          Case{-80.04f, -90.0f, 0, true, f}, Case{-50.0f, -90.0f, 1, false, u},
          Case{-100.0f, -90.0f, 0, false, u}, Case{std::nullopt, -90.0f, 0, false, u},
          Case{5.0f, -90.0f, 0, true, f}, Case{0.01f, -0.2f, 0, true, s}, Case{-0.5f, -90.0f, 0, true, f}}) {
        SCOPED_TRACE(std::to_string(c.level.value_or(-999)) + " " + std::to_string(c.limit));
        Session session;
        session.alarm.ChooseTone(500, rig.Store());
        session.alarm.FlipUnderLimitBeep(rig.Store());
        session.readout.EndWith(c.level);
        session.curve.limit.Take(c.limit);
        session.curve.limit.SetAlarm(!c.alarmOff);
        session.alarm.LevelShown(session.curve, session.readout);
        EXPECT_EQ(IsOverLimit(session.curve, session.readout), c.red);
        for (int tick = 0; tick < 10; ++tick) {
            for (const int timer : BeepTimers)
                session.alarm.OnTimer(timer, rig.Parts());
        }
        const std::size_t times = c.beep == s ? 3 : c.beep == f ? 7 : 1; // and then no more
        EXPECT_EQ(std::exchange(speaker.tones, {}), std::vector<int>(times, c.beep == u ? 1900 : 500));
    }
}

TEST(Beeper, SoundsWhileLevelsComeAndFallsSilentWithTheRun) {
    for (const int limit : {-200, -1}) {
        NotedSpeaker speaker;
        Rig rig({}, nullptr, nullptr, nullptr, nullptr, &speaker);
        ASSERT_TRUE(rig.PowerOn());
        ASSERT_TRUE(rig.SelectBand(BandEgsm));
        rig.S().alarm.ChooseTone(2200, rig.Store());
        rig.S().alarm.FlipUnderLimitBeep(rig.Store());
        ASSERT_TRUE(EnterLimit(std::to_string(limit), rig.S().curve, rig.Store()));
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
