#include "core/timer_ids.h"
#include "support/wire_reading.h"

namespace qor::test {

namespace {

bool Ready(Rig& rig, int mode) {
    return rig.PowerOn() && rig.SelectBand(BandEgsm) && rig.program.Select().SelectMethod(mode) &&
           rig.RunUntilIdle();
}

/// Everything of the curve and of the panel that a late reply could touch.
std::string Face(Rig& rig) {
    const Session& s = rig.S();
    std::string face = s.panel.m_f1_text + "|" + s.panel.m_f2_text + "|" + s.panel.m_fIM_text + "|" +
                       s.panel.m_ReadingText + "|" + s.panel.m_WorstFreqText + "|" +
                       s.panel.m_WorstLevelText + "|" + std::to_string(s.curve.g_MeasVerdict) + "|" +
                       std::to_string(s.curve.StoreDataPot);
    for (std::size_t i = 0; i < CurvePoints; ++i)
        if (s.curve.g_levelUp[i] != 0.0f || s.curve.g_levelDown[i] != 0.0f)
            face += " " + std::to_string(s.curve.g_levelUp[i]) + "/" + std::to_string(s.curve.g_levelDown[i]);
    return face;
}

} // namespace

/// Stop at many moments of every shape: the same farewell, frozen texts, and nothing that comes later counts.
TEST(Stop, InEveryShapeAndPhase) {
    static const struct {
        int mode;
        const char* firmware;
        int longest; ///< ms, less than the run takes
        const char* farewell;
        const char* tones;
    } Cases[] = {
        {ModeTwoTone, "6.2", 5000, "#M2T0 #SMREF ", "935.0 960.0"},
        {ModeTwoTone, "1.8", 5000, "#M2T0 #SMREF ", "935.0 960.0"},
        {ModeSweep, "6.2", 4800, "#MSWL0 #SPA0 #SPB0 #SMREF ", "925.0 960.0"},
        {ModeSweep, "3.6", 3200, "#MSWL0 #SPA0 #SPB0 #SMREF ", "925.0 960.0"},
        {ModeSpectrum, "6.2", 9000, "#SMREF ", "925.0 960.0"},
    };
    for (const auto& c : Cases) {
        for (int after = 0; after < c.longest; after += 211) {
            SCOPED_TRACE("mode " + std::to_string(c.mode) + " firmware " + c.firmware + " after " +
                         std::to_string(after));
            Rig rig({.firmware = c.firmware});
            ASSERT_TRUE(Ready(rig, c.mode));
            rig.program.OnMeasButton();
            rig.time.RunFor(after);
            ASSERT_TRUE(rig.S().run.runOn);
            rig.Sent();
            rig.program.OnMeasButton();
            const Panel& panel = rig.S().panel;
            EXPECT_FALSE(rig.S().run.runOn);
            EXPECT_EQ(panel.lamp, Lamp::Ready);
            EXPECT_EQ(panel.m_f1_text + " " + panel.m_f2_text, c.tones);
            EXPECT_EQ(panel.m_ReadingText,
                      panel.m_WorstLevelText.empty() ? "0.0 " : panel.m_WorstLevelText + " ");
            EXPECT_EQ(panel.m_fIM_text, panel.m_WorstFreqText);
            EXPECT_EQ(rig.S().curve.g_MeasVerdict, VerdictPassed);
            const std::string face = Face(rig);
            rig.time.RunFor(1500);
            EXPECT_EQ(Joined(rig.Sent()), c.farewell);
            EXPECT_EQ(Face(rig), face);
            EXPECT_EQ(rig.instrument.Settings().carrier1 + rig.instrument.Settings().carrier2, 0);
        }
    }
}

TEST(Stop, PartialRunDoesNotCountAndWritesNoFile) {
    Rig rig;
    ASSERT_TRUE(Ready(rig, ModeTwoTone));
    rig.S().run.tagEndless = true;
    rig.program.OnMeasButton();
    rig.time.RunFor(3000);
    rig.program.OnMeasButton();
    rig.time.RunFor(20000);
    EXPECT_EQ(rig.S().run.FinishedEndlessTimes, 0);
    EXPECT_FALSE(std::filesystem::exists(rig.dir / "0.dat"));
    EXPECT_GT(rig.S().curve.StoreDataPot, 20); // what has been measured stays
}

TEST(Start, ButtonPressedTwiceLeavesNothingOn) {
    for (const int mode : {ModeTwoTone, ModeSweep}) {
        Rig rig;
        ASSERT_TRUE(Ready(rig, mode));
        const auto sent = SentDuring(rig, [&] {
            rig.program.OnMeasButton();
            rig.program.OnMeasButton();
        });
        EXPECT_EQ(Joined(sent), mode == ModeTwoTone ? "#M2T0 #SMREF " : "#MSWL0 #SPA0 #SPB0 #SMREF ");
        rig.time.RunFor(10000);
        EXPECT_FALSE(rig.S().run.runOn);
        ASSERT_TRUE(rig.Measure());
        EXPECT_EQ(rig.S().curve.g_MeasVerdict, VerdictPassed);
    }
}

/// Before firmware 4.3 a start waits for what is queued, later it goes behind.
TEST(Start, QueuedCommandsHoldBackOldFirmware) {
    for (const char* const firmware : {"4.2", "4.9"}) {
        SCOPED_TRACE(firmware);
        Rig rig({.firmware = firmware});
        ASSERT_TRUE(Ready(rig, ModeTwoTone));
        rig.S().curve.g_testTimeMs = 1000;
        rig.Sent();
        ASSERT_TRUE(rig.program.Select().SelectOrder(1));
        rig.program.OnMeasButton();
        const bool waits = firmware[2] == '2';
        EXPECT_EQ(rig.S().run.runOn, !waits);
        rig.time.RunFor(299);
        EXPECT_EQ(rig.S().run.runOn, !waits);
        ASSERT_TRUE(rig.time.RunUntil([&] { return rig.S().run.runOn; }, 1000));
        ASSERT_TRUE(rig.RunUntilRunIsOver());
        const auto sent = rig.Sent();
        EXPECT_EQ(
            Joined(sent),
            Joined(Words("#RECUT1 #SPWA00430 #SPWB00430 #USEID3 #SAB1 #M2T1 #SR #RECUT1 #SMREF #SFA09350 "
                         "#SFB09600 #IMP?*13 #M2T0 #SMREF")));
        EXPECT_EQ(rig.S().curve.StoreDataPot, 12);
    }
}

TEST(Start, RefusalsSayWhyAndSendNothing) {
    struct Case {
        const char* name;
        void (*spoil)(Rig&);
        const char* words;
        int outcome;
    };
    static constexpr int Unchanged = 7;
    static const Case Cases[] = {
        {"path", [](Rig& r) { r.S().select.m_PathMode = 0; },
         "Auswaehlen Uebergeben modell oder reflex modell.", StartRefused},
        {"no band", [](Rig& r) { r.program.Select().SelectBand(BandTetra390); }, "Auswaehlen Breite",
         StartRefused},
        {"TETRA 422", [](Rig& r) { r.S().select.m_BandId = BandTetra422; }, "Auswaehlen Breite",
         StartRefused},
        {"order",
         [](Rig& r) {
             r.S().select.m_BandId = BandEgsm;
             r.S().select.m_IMIndex = 6;
         },
         "Auswaehlen IM", StartRefused},
        {"TETRA 390 at IM9", [](Rig& r) { r.S().select.m_IMIndex = 4; },
         "Does not support the current selection!", Unchanged},
        {"TETRA 392 at IM11",
         [](Rig& r) {
             r.S().select.m_BandId = BandTetra392;
             r.S().select.m_IMIndex = 5;
         },
         "Does not support the current selection!", Unchanged},
        {"method", [](Rig& r) { r.S().run.g_TestMode = 0; }, "Auswaehlen Messung modell", StartRefused},
        {"not initialised", [](Rig& r) { r.S().link.g_InitLamp = LampNothing; },
         "Initialisieren, bitte warten!", Unchanged},
        {"in the chain", [](Rig& r) { r.S().link.g_bInitFlush = true; }, "Initialisieren, bitte warten!",
         Unchanged},
    };
    for (const Case& c : Cases) {
        SCOPED_TRACE(c.name);
        Rig rig({.model = "RT-C010"});
        ASSERT_TRUE(rig.PowerOn());
        ASSERT_TRUE(rig.SelectBand(BandTetra390));
        rig.time.RunFor(3000);
        ASSERT_TRUE(rig.RunUntilIdle());
        c.spoil(rig);
        rig.S().run.g_StartFail = Unchanged;
        const auto sent = SentDuring(rig, [&] { rig.program.OnMeasButton(); });
        EXPECT_EQ(Joined(sent), "");
        ASSERT_EQ(rig.user.messages.size(), 1U);
        EXPECT_EQ(rig.user.messages[0], c.words);
        EXPECT_EQ(rig.S().run.g_StartFail, c.outcome);
        EXPECT_FALSE(rig.S().run.runOn);
        EXPECT_EQ(rig.S().panel.lamp, Lamp::Ready);
        if (rig.S().link.g_InitLamp > LampNothing && !rig.S().link.g_bInitFlush) {
            EXPECT_TRUE(rig.time.timers.Runs(settingchecktimer)) << "an idle link stays watched";
        }
        EXPECT_FALSE(rig.time.timers.Runs(T2messuretimer));
    }
}

TEST(Start, ClosedPortIsConnectedFirst) {
    for (const bool yes : {false, true}) {
        Rig rig;
        ASSERT_TRUE(Ready(rig, ModeTwoTone));
        rig.S().curve.g_testTimeMs = 1000;
        rig.program.Link().OnButton1(); // reads "close": the port goes after two seconds
        rig.time.RunFor(4000);
        ASSERT_FALSE(rig.comm.GetPortOpen());
        rig.user.answer = yes;
        rig.program.OnMeasButton();
        ASSERT_EQ(rig.user.questions.size(), 1U);
        EXPECT_EQ(rig.user.questions[0], "The device is disconnect. Connect it now?");
        EXPECT_EQ(rig.S().run.g_StartFail, yes ? StartDone : StartRefused);
        EXPECT_EQ(rig.time.RunUntil([&] { return rig.S().run.runOn; }, 20000), yes);
        if (yes) {
            ASSERT_TRUE(rig.RunUntilRunIsOver());
            EXPECT_EQ(rig.S().curve.StoreDataPot, 12);
            EXPECT_EQ(rig.S().curve.g_MeasVerdict, VerdictPassed);
        }
    }
}

TEST(StatusPoll, RestsDuringARunAndComesEveryTwoSecondsAfterIt) {
    for (const int mode : {ModeTwoTone, ModeSweep}) {
        Rig rig;
        ASSERT_TRUE(Ready(rig, mode));
        rig.program.ArmStatusPoll();
        const auto during = SentDuring(rig, [&] { ASSERT_TRUE(rig.Measure()); });
        EXPECT_EQ(std::count(during.begin(), during.end(), "#SST?"), 0);
        EXPECT_EQ(Joined(SentDuring(rig, [&] { rig.time.RunFor(10500); })), Joined(Times(5, "#SST?")));
        rig.program.OnMeasButton();
        rig.time.RunFor(1000);
        rig.program.OnMeasButton();
        ASSERT_TRUE(rig.RunUntilIdle());
        EXPECT_EQ(Joined(SentDuring(rig, [&] { rig.time.RunFor(4500); })), "#SST? #SST? ");
    }
}

} // namespace qor::test
