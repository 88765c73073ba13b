#include "support/wire_reading.h"

namespace qor::test {

namespace {

/// Everything of the curve and of the panel that a late reply could touch.
std::string Face(Rig& rig) {
    const Session& s = rig.S();
    std::string face = PanelOf(s).m_f1_text + "|" + PanelOf(s).m_f2_text + "|" + PanelOf(s).m_fIM_text + "|" +
                       PanelOf(s).m_ReadingText + "|" + PanelOf(s).m_WorstFreqText + "|" +
                       PanelOf(s).m_WorstLevelText + "|" +
                       std::to_string(static_cast<int>(s.curve.ShownVerdict())) + "|" +
                       std::to_string(s.curve.NextPoint());
    for (std::size_t i = 0; i < CurvePoints; ++i)
        if (s.curve.Up()[i] != 0.0f || s.curve.Down()[i] != 0.0f)
            face += " " + std::to_string(s.curve.Up()[i]) + "/" + std::to_string(s.curve.Down()[i]);
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
            ASSERT_TRUE(rig.ReadyFor(c.mode));
            rig.program.OnMeasButton();
            rig.time.RunFor(after);
            ASSERT_TRUE(rig.S().run.IsOn());
            rig.Sent();
            rig.program.OnMeasButton();
            const Panel panel = PanelOf(rig.S());
            EXPECT_FALSE(rig.S().run.IsOn());
            EXPECT_EQ(panel.lamp, Lamp::Ready);
            EXPECT_EQ(panel.m_f1_text + " " + panel.m_f2_text, c.tones);
            EXPECT_EQ(panel.m_ReadingText, panel.m_WorstLevelText) << "none where nothing was read";
            if (!panel.m_WorstFreqText.empty()) {
                EXPECT_EQ(panel.m_fIM_text, panel.m_WorstFreqText);
            }
            EXPECT_EQ(rig.S().curve.ShownVerdict(),
                      rig.S().curve.HoldsPoints() ? Verdict::Passed : Verdict::None);
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
    ASSERT_TRUE(rig.ReadyFor(ModeTwoTone));
    rig.S().runs.SetContinuous(true);
    rig.program.OnMeasButton();
    rig.time.RunFor(3000);
    rig.program.OnMeasButton();
    rig.time.RunFor(20000);
    EXPECT_EQ(rig.S().run.FinishedTimes(), 0);
    EXPECT_FALSE(std::filesystem::exists(rig.dir / "0.dat"));
    EXPECT_GT(rig.S().curve.NextPoint(), 20); // what has been measured stays
}

TEST(Start, ButtonPressedTwiceLeavesNothingOn) {
    for (const int mode : {ModeTwoTone, ModeSweep}) {
        Rig rig;
        ASSERT_TRUE(rig.ReadyFor(mode));
        const auto sent = SentDuring(rig, [&] {
            rig.program.OnMeasButton();
            rig.program.OnMeasButton();
        });
        EXPECT_EQ(Joined(sent), mode == ModeTwoTone ? "#M2T0 #SMREF " : "#MSWL0 #SPA0 #SPB0 #SMREF ");
        rig.time.RunFor(10000);
        EXPECT_FALSE(rig.S().run.IsOn());
        ASSERT_TRUE(rig.Measure());
        EXPECT_EQ(rig.S().curve.ShownVerdict(), Verdict::Passed);
    }
}

/// The answer that the run before still awaited is no point of the next one.
TEST(Start, CountsNoLevelOfTheRunBefore) {
    Rig rig({.firmware = "6.2"});
    ASSERT_TRUE(rig.ReadyFor(ModeTwoTone));
    rig.program.OnMeasButton();
    rig.time.RunFor(2000);
    ASSERT_TRUE(rig.time.RunUntil([&] { return !rig.program.LineIsIdle(); }, 5000)); // a level is asked for
    rig.program.OnMeasButton();
    rig.program.OnMeasButton();
    rig.time.RunFor(200);
    rig.program.OnMeasButton();
    EXPECT_EQ(rig.S().curve.NextPoint(), 0);
    EXPECT_EQ(rig.S().curve.ShownVerdict(), Verdict::None);
}

/// Before firmware 4.3 a start waits for what is queued, later it goes behind. One run begins, however slow
/// the line is, and none by itself afterwards.
TEST(Start, QueuedCommandsHoldBackOldFirmware) {
    for (const char* const firmware : {"4.2", "4.9"}) {
        for (const int late : {0, 130}) { // ms
            SCOPED_TRACE(std::string(firmware) + " " + std::to_string(late));
            Rig rig({.firmware = firmware});
            ASSERT_TRUE(rig.ReadyFor(ModeTwoTone, 1));
            if (late != 0)
                rig.line.Add({sim::FaultKind::Slow, late});
            rig.Sent();
            ASSERT_TRUE(rig.program.Select().SelectOrder(1));
            rig.program.OnMeasButton();
            const bool waits = firmware[2] == '2';
            EXPECT_EQ(rig.S().run.IsWaiting(), waits);
            rig.time.RunFor(299);
            EXPECT_EQ(rig.S().run.IsOn(), !waits);
            ASSERT_TRUE(rig.time.RunUntil([&] { return rig.S().run.IsOn(); }, 3000));
            ASSERT_TRUE(rig.RunUntilRunIsOver());
            const auto sent = rig.Sent();
            const std::size_t readings = late == 0 ? 13 : 14; // the last one is asked for before it has come
            EXPECT_EQ(Joined(sent),
                      Joined(Chain({Words("#RECUT1 #SPWA00430 #SPWB00430 #USEID3 #SAB1 #M2T1 #SR "
                                          "#RECUT1 #SMREF #SFA09350 #SFB09600"),
                                    Times(static_cast<int>(readings), "#IMP?"),
                                    {"#M2T0", "#SMREF"}})));
            EXPECT_EQ(rig.S().curve.NextPoint(), 12);
            for (const std::string& command : SentDuring(rig, [&] { rig.time.RunFor(5000); }))
                EXPECT_EQ(command, "#SST?");
        }
    }
}

/// A press is a first run whatever went before: the band and the receiver are set again.
TEST(Start, APressAfterASeriesIsAFirstRunAgain) {
    Rig rig;
    ASSERT_TRUE(rig.ReadyFor(ModeSweep));
    rig.S().curve.SetRuns(2);
    ASSERT_TRUE(rig.Measure());
    EXPECT_EQ(rig.S().run.Passes(), 2);
    rig.S().link.chain.TakeStatus(0x60); // not prepared
    const auto sent = Joined(SentDuring(rig, [&] { ASSERT_TRUE(rig.Measure()); }));
    EXPECT_TRUE(sent.starts_with("#SAB3 #MDNL0 ")) << sent;
    EXPECT_NE(sent.find("#RECUT1 #SMREF"), std::string::npos);
}

TEST(Start, RefusalsSayWhyAndSendNothing) {
    struct Case {
        const char* name;
        void (*spoil)(Rig&);
        const char* words;
        int outcome;
    };
    static constexpr int Unchanged = StartDone;
    static const Case Cases[] = {
        {"path", [](Rig& r) { r.S().working.SelectPath(0); },
         "Auswaehlen Uebergeben modell oder reflex modell.", StartRefused},
        {"no band", [](Rig& r) { static_cast<void>(r.program.Select().SelectBand(BandTetra390)); },
         "Auswaehlen Breite", StartRefused},
        {"TETRA 422", [](Rig& r) { r.S().working.SelectBand(BandTetra422); }, "Auswaehlen Breite",
         StartRefused},
        {"order",
         [](Rig& r) {
             r.S().working.SelectBand(BandEgsm);
             r.S().working.SelectOrder(6);
         },
         "Auswaehlen IM", StartRefused},
        {"TETRA 390 at IM9", [](Rig& r) { r.S().working.SelectOrder(4); },
         "Does not support the current selection!", Unchanged},
        {"TETRA 392 at IM11",
         [](Rig& r) {
             r.S().working.SelectBand(BandTetra392);
             r.S().working.SelectOrder(5);
         },
         "Does not support the current selection!", Unchanged},
        {"method", [](Rig& r) { r.S().working.SelectMethod(0); }, "Auswaehlen Messung modell", StartRefused},
        {"in the chain", [](Rig& r) { r.S().link.chain.Begin(); }, "Initialisieren, bitte warten!",
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
        const auto sent = SentDuring(rig, [&] { rig.program.OnMeasButton(); });
        EXPECT_EQ(Joined(sent), "");
        ASSERT_EQ(rig.user.messages.size(), 1U);
        EXPECT_EQ(rig.user.messages[0], c.words);
        EXPECT_EQ(rig.S().run.StartFail(), c.outcome);
        EXPECT_FALSE(rig.S().run.IsOn());
        EXPECT_EQ(PanelOf(rig.S()).lamp, IsInitialised(rig.S()) ? Lamp::Ready : Lamp::NotReady);
        if (IsInitialised(rig.S())) {
            EXPECT_TRUE(rig.time.timers.Runs(settingchecktimer)) << "an idle link stays watched";
        }
    }
}

/// A file that is shown brings its band, order and powers into force: the next start tells the instrument
/// first, as if they had been chosen by hand, and begins by itself.
TEST(Start, WhatAFileHasChangedIsToldToTheInstrumentFirst) {
    Rig rig;
    ASSERT_TRUE(rig.ReadyFor(ModeTwoTone, 1));
    rig.Store().Write("dcs_pow_setup.ccz", "0040000400");
    ASSERT_TRUE(rig.SelectBand(BandDcs));
    ASSERT_TRUE(rig.program.Select().SelectOrder(2));
    ASSERT_TRUE(rig.RunUntilIdle());
    ASSERT_TRUE(rig.Measure());
    ASSERT_TRUE(rig.program.Files().DataSave(rig.dir / "dcs.dat"));
    ASSERT_TRUE(rig.SelectBand(BandEgsm));
    ASSERT_TRUE(rig.program.Select().SelectOrder(1));
    ASSERT_TRUE(rig.RunUntilIdle());
    ASSERT_TRUE(rig.Measure());

    ASSERT_TRUE(rig.program.Show().CurrentShow(rig.dir / "dcs.dat"));
    const auto sent = Joined(SentDuring(rig, [&] { ASSERT_TRUE(rig.Measure()); }));
    EXPECT_EQ(sent.find("#M2T1"), sent.rfind("#M2T1"));
    const std::string told = sent.substr(0, sent.find("#M2T1"));
    EXPECT_NE(told.find("#SPWA00400 #SPWB00400 "), std::string::npos) << told;
    EXPECT_NE(told.find("#USEID5 "), std::string::npos) << told;
    EXPECT_EQ(rig.instrument.Band()->txLow, 1805);
    EXPECT_EQ(rig.S().run.Record().band, BandDcs);
    EXPECT_EQ(rig.S().curve.ShownVerdict(), Verdict::Passed);

    rig.S().working.SelectBand(BandTetra390); // RT-DB22 does not carry it
    const float first = rig.S().curve.Up()[0];
    static_cast<void>(rig.Told());
    EXPECT_EQ(Joined(SentDuring(rig, [&] { rig.program.OnMeasButton(); })), "");
    EXPECT_FALSE(rig.S().run.IsOn());
    EXPECT_EQ(rig.Told().size(), 1U);
    EXPECT_EQ(rig.S().curve.Up()[0], first);
}

/// However a start comes, it measures what the panel shows, or it is refused.
TEST(Start, NothingIsMeasuredThatTheInstrumentWasNotTold) {
    Rig maker;
    ASSERT_TRUE(maker.ReadyFor(ModeTwoTone, 1));
    maker.Store().Write("dcs_pow_setup.ccz", "0043000440");
    ASSERT_TRUE(maker.SelectBand(BandDcs));
    ASSERT_TRUE(maker.Measure());
    for (const char* const how : {"behind a poll", "refused", "too high"}) {
        SCOPED_TRACE(how);
        Rig rig;
        ASSERT_TRUE(rig.ReadyFor(ModeTwoTone, 1));
        ASSERT_TRUE(rig.Measure());
        ASSERT_TRUE(maker.program.Files().DataSave(rig.dir / "dcs.dat"));
        ASSERT_TRUE(rig.program.Show().CurrentShow(rig.dir / "dcs.dat"));
        const float shown = rig.S().curve.Up()[0];
        const bool behindPoll = *how == 'b';
        if (behindPoll) { // two of them: one goes out at once
            rig.S().link.queue.Append("#SST?");
            rig.S().link.queue.Append("#SST?");
        } else if (*how == 'r') {
            for (const int at : {3, 9}) // #SPWB00440, and once more
                rig.line.Add({sim::FaultKind::OutOfRange, rig.line.CommandCount() + at});
        } else {
            rig.S().working.SetCompensation("0", "2.1");
        }
        const auto sent = Joined(SentDuring(rig, [&] {
            rig.program.OnMeasButton();
            rig.time.RunFor(5000);
        }));
        EXPECT_EQ(sent.find("#M2T1") != std::string::npos, behindPoll) << sent;
        if (behindPoll) {
            EXPECT_LT(sent.find("#SAB4"), sent.find("#M2T1")) << sent;
            EXPECT_LT(sent.find("#SPWB00440"), sent.find("#M2T1")) << sent;
            continue;
        }
        EXPECT_EQ(rig.Told(),
                  std::vector<std::string>{*how == 'r' ? "Das Geraet hat die Einstellungen nicht angenommen."
                                                       : "f2The maximum value cannot be greater than 46dbm"});
        EXPECT_EQ(rig.S().curve.Up()[0], shown);
        rig.S().working.SetCompensation("0", "0");
        ASSERT_TRUE(rig.Measure()) << "told anew";
        EXPECT_EQ(rig.instrument.Settings().power2, 440);
        EXPECT_EQ(rig.S().curve.ShownVerdict(), Verdict::Passed);
    }
}

TEST(StatusPoll, RestsDuringARunAndComesEveryTwoSecondsAfterIt) {
    for (const int mode : {ModeTwoTone, ModeSweep}) {
        Rig rig;
        ASSERT_TRUE(rig.ReadyFor(mode));
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
