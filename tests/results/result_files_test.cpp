#include "curve/curve.h"
#include "desk/level_unit.h"
#include "results/data_file.h"
#include "results/read_document.h"
#include "support/curves.h"
#include "support/full_disk.h"
#include "support/rig.h"

#include <cmath>
#include <gtest/gtest.h>
#include <map>

namespace qor {
namespace {

using test::FileText;
using test::Rig;

/// A program that holds a measured EGSM curve: 935 and 960 MHz, or the sweep of the standard plan.
struct Bench : Rig {
    RunRecord record; ///< of the run that the curve is taken for

    /// The instrument connected is an RT-DB22 with this serial number.
    void Identify(std::string_view serial) {
        Identity& identity = S().link.identity;
        identity.Forget();
        identity.TakeBanner("RT-DB22, v6.2");
        identity.BeginText();
        for (const char c : serial)
            identity.TakeCharacter(c);
        identity.EndSerialText();
    }
    explicit Bench(int mode = ModeTwoTone, int imIndex = 1, bool dbc = false) {
        Session& s = S();
        s.working.SelectBand(BandEgsm);
        s.working.SelectOrder(imIndex);
        s.working.SelectMethod(mode);
        record.band = BandEgsm;
        record.imIndex = imIndex;
        record.order = OrderOf(imIndex);
        record.product = CoefficientsOf(imIndex);
        record.method = mode;
        record.plan = *StartPlan(BandEgsm, imIndex, 0);
        record.model = "RT-DB22";
        record.firmware = 6.2f;
        record.serial = "SIM01";
        Ran();
        s.results.device.EnterSerial("A17");
        s.curve.scale.SetUnit(dbc);
        s.curve.limit.Take(dbc ? -133.0f : -90.0f);
        program.Stores().Write("Add_comments.ccz", "first line\r\nsecond");
        if (mode == ModeTwoTone) {
            s.curve.SetLength(500);
            for (std::size_t i = 0; i < 6; ++i)
                s.curve.Put(i, -100.25f - static_cast<float>(i));
            test::Complete(s.curve);
            return;
        }
        BuildSweepGrid(s.curve, BandEgsm, CoefficientsOf(imIndex), *StartPlan(BandEgsm, imIndex, 0));
        for (std::size_t i = 0; i < s.curve.Steps(); i += i % 3 + 1) // some are not measured
            s.curve.Put(i, -100.5f - static_cast<float>(i));
        s.curve.Put(0, -97.75f, CurveSide::Down);
        test::Complete(s.curve);
    }
    void Ran() {
        S().run.Begin(record);
        S().run.End();
    }
    bool Save(const std::string& name) { return Done(program.Files().DataSave(dir / name)); }
    bool Show(const std::string& name) { return Done(program.Show().CurrentShow(dir / name)); }
    [[nodiscard]] std::string Last() const { return user.messages.empty() ? "" : user.messages.back(); }
    void Put(const std::string& name, std::string_view bytes) {
        std::ofstream(dir / name, std::ios::binary) << bytes;
    }
    [[nodiscard]] std::map<std::string, std::string> Disk() const {
        std::map<std::string, std::string> files;
        for (const auto& entry : std::filesystem::directory_iterator(dir.Path()))
            files[entry.path().filename().string()] = FileText(entry.path());
        return files;
    }
};

TEST(ResultFiles, ASavedMeasurementStatesWhatWasMeasured) {
    Bench bench;
    bench.record.power = {"00425", "00415"};
    bench.record.powerOffset = 0.5f;
    bench.Ran();
    ASSERT_TRUE(bench.Save("run.txt"));
    EXPECT_EQ(FileText(bench.dir / "run.txt"),
              "f1 0935.0 MHz START 0925.0 MHz STOP 0937.0 MHz POWER +42.0 dBm\r\n"
              "f2 0960.0 MHz START 0960.0 MHz STOP 0946.0 MHz POWER +41.0 dBm\r\n"
              "MEAS IM3 UNIT dBm 2-TON\r\n"
              "Model Nr. RT-DB22, SERIAL SIM01\r\n"
              "20260307 09:05\r\n\r\n"
              "00.000;-100.25\r\n00.100;-101.25\r\n00.200;-102.25\r\n"
              "00.300;-103.25\r\n00.400;-104.25\r\n00.500;-105.25\r\n"
              "\r\n\r\nLimit Line: -90.0\r\nSer No: A17\r\nfirst line\r\nsecond");
    ASSERT_TRUE(bench.Save("run.dat"));
    EXPECT_EQ(FileText(bench.dir / "run.dat").substr(0, 4), "\x66\x13\x02\x03");
    EXPECT_TRUE(bench.user.questions.empty());

    // A plan of the operator's own, of the order measured.
    Bench swept(ModeSweep, 5, true);
    swept.record.plan = {.f1Start = 947.5f,
                         .f1Stop = 952.5f,
                         .f2Fix = 959.9f,
                         .f2Start = 960.0f,
                         .f2Stop = 959.5f,
                         .f1Fix = 925.0f};
    swept.Ran();
    ASSERT_TRUE(swept.Save("run.txt"));
    const std::string text = FileText(swept.dir / "run.txt");
    EXPECT_EQ(text.substr(0, 63), "f1 0925.0 MHz START 0947.5 MHz STOP 0952.5 MHz POWER +43.0 dBm\r");
    EXPECT_EQ(text.substr(64, 63), "f2 0959.9 MHz START 0960.0 MHz STOP 0959.5 MHz POWER +43.0 dBm\r");
    EXPECT_EQ(text.substr(128, 26), "MEAS IM11 UNIT dBc SWEEP\r\n");
}

TEST(ResultFiles, AStoppedRunHasRowsForItsPointsOnly) {
    Bench bench(ModeTwoTone, 1, true);
    bench.S().curve.SetLength(100000);
    bench.S().curve.Put(2, 0.0f); // a reading that failed
    ASSERT_TRUE(bench.Save("run.txt"));
    const std::string text = FileText(bench.dir / "run.txt");
    EXPECT_NE(text.find("00.200;0000.00\r\n"), std::string::npos) << "no level is made of the carrier";
    EXPECT_NE(text.find("00.500;-148.25\r\n\r\n\r\n"), std::string::npos) << "and no row of what never was";
}

/// Levels by frequency, or by index in 2-tone. The grid of a file has the measured frequencies only.
std::map<int, int> Levels(const Curve& curve, std::span<const float> levels) {
    std::map<int, int> points; // tenths of MHz, hundredths of a dB
    for (std::size_t i = 0; i < levels.size(); ++i) {
        if (levels[i] != 0.0f)
            points[curve.IsSweep() ? static_cast<int>(std::lround(curve.Grid()[i] * 10))
                                   : static_cast<int>(i)] = static_cast<int>(std::lround(levels[i] * 100));
    }
    return points;
}

void SaveAndShow(int mode, int imIndex, bool dbc, const std::string& name) {
    SCOPED_TRACE(name + " mode " + std::to_string(mode) + " order " + std::to_string(imIndex) +
                 (dbc ? " dBc" : " dBm"));
    Bench saved(mode, imIndex, dbc);
    ASSERT_TRUE(saved.Save(name));

    Bench loaded(mode == ModeSweep ? ModeTwoTone : ModeSweep, 2, !dbc); // as different as it can be
    Session& s = loaded.S();
    s.working.SelectBand(BandAmps);
    for (int run = 0; run < 4; ++run)
        s.curve.EndRun();
    s.curve.ShowRun(3);
    loaded.Identify("99999");
    s.results.device.EnterSerial("another");
    loaded.Store().Write("Add_comments.ccz", "of another");
    loaded.Put(name, FileText(saved.dir / name));
    ASSERT_TRUE(loaded.Show(name)) << loaded.Last();

    const Curve& was = saved.S().curve;
    EXPECT_EQ(s.curve.IsSweep(), mode == ModeSweep);
    EXPECT_EQ(Levels(s.curve, s.curve.Up()), Levels(was, was.Up()));
    EXPECT_EQ(Levels(s.curve, s.curve.Down()), Levels(was, was.Down()));
    EXPECT_EQ(Levels(s.curve, s.curve.ShownUp(0)), Levels(was, was.Up()));
    EXPECT_EQ(s.working.Method(), mode);
    EXPECT_EQ(s.working.Band(), BandEgsm);
    EXPECT_EQ(PanelOf(s).m_Band_sel, "EGSM");
    EXPECT_EQ(s.working.ImIndex(), imIndex);
    EXPECT_EQ(PanelOf(s).m_IM_sel, imIndex == 1 ? "IM3" : "IM11");
    EXPECT_EQ(s.curve.scale.InDbc(), dbc);
    EXPECT_EQ(PanelOf(s).m_AlarmText, dbc ? "-133.0" : "-90.0");
    EXPECT_EQ(loaded.program.Stores().Read("AlarmUp.ccz", 7), "-90.0");
    EXPECT_EQ(loaded.program.Stores().Read("egsm_pow_setup.ccz", 20), "0043000430");
    EXPECT_EQ(loaded.program.Stores().Read("Add_comments.ccz", 99), "first line\r\nsecond");
    EXPECT_EQ(s.results.device.Serial(), "A17");
    EXPECT_EQ(s.link.identity.Serial(), "99999") << "a file says nothing about the instrument";
    EXPECT_EQ(s.curve.Run(), 0);
    EXPECT_EQ(s.curve.ShownVerdict(), Verdict::Passed);
    const ResultDocument& shown = *s.results.loaded.Document();
    EXPECT_EQ(BandName(shown), "EGSM 900");
    EXPECT_EQ(shown.model + "/" + shown.serial, "RT-DB22/SIM01");
    EXPECT_EQ(DateText(shown), "2026-03-07 09:05");
    EXPECT_EQ(shown.power2, 43.0f);
    const bool genuine = s.curve.FileName().find("invalid for official report") == std::string::npos;
    EXPECT_EQ(genuine, name == "run.dat");

    ASSERT_TRUE(loaded.Save("again" + name));
    EXPECT_EQ(FileText(loaded.dir / ("again" + name)), FileText(saved.dir / name));
}

TEST(ResultFiles, AMeasurementComesBackAsItWas) {
    for (const int mode : {ModeTwoTone, ModeSweep}) {
        for (const int imIndex : {1, 5}) {
            for (const bool dbc : {false, true}) {
                for (const char* name : {"run.dat", "run.TXT"})
                    SaveAndShow(mode, imIndex, dbc, name);
            }
        }
    }
}

TEST(ResultFiles, TheCurveShownIsJudgedByTheLimitOfItsFile) {
    Bench bench;
    bench.S().curve.limit.Take(-100.3f);
    ASSERT_TRUE(bench.Save("run.dat"));
    ASSERT_TRUE(bench.Show("run.dat"));
    EXPECT_EQ(bench.S().curve.ShownVerdict(), Verdict::Failed);
    EXPECT_EQ(PanelOf(bench.S()).m_WorstLevelText, "-100.2");
    EXPECT_EQ(PanelOf(bench.S()).m_WorstFreqText, "910.0");
    EXPECT_EQ(bench.S().curve.TimePerPoint(), 100);
    EXPECT_EQ(bench.S().curve.Length(), 500);
}

TEST(ResultFiles, AFileIsJudgedOverAllItsRowsAndComesBackNoBetterThanItWas) {
    Bench wide;
    Curve& was = wide.S().curve;
    was.SetLength(79400); // 795 points
    was.Clear();
    for (std::size_t i = 0; i < 795; ++i)
        was.Put(i, -100.5f);
    was.Put(700, -80.0f);
    test::Complete(was);
    ASSERT_TRUE(wide.Save("long.dat"));

    Bench narrow;
    narrow.S().curve.scale.SetWidth(600);
    narrow.Put("long.dat", FileText(wide.dir / "long.dat"));
    ASSERT_TRUE(narrow.Show("long.dat"));
    EXPECT_EQ(narrow.S().curve.ShownVerdict(), Verdict::Failed);
    EXPECT_EQ(PanelOf(narrow.S()).m_WorstLevelText, "-80.0");
    ASSERT_TRUE(narrow.Save("again.dat"));
    EXPECT_EQ(FileText(narrow.dir / "again.dat"), FileText(wide.dir / "long.dat"));

    for (const int error : {0, 2, 3, 4}) { // cut short, or ended by an error of the instrument
        Bench cut;
        cut.S().curve.tally.EndWithin(RunEnd::CutShort, {6, 0}, 0, false);
        cut.S().curve.tally.NoteError(error);
        ASSERT_TRUE(cut.Save("cut.txt"));
        ASSERT_TRUE(cut.Show("cut.txt"));
        EXPECT_EQ(cut.S().curve.Facts().error, error);
        EXPECT_EQ(cut.S().curve.ShownVerdict(), error == 0 ? Verdict::None : Verdict::Error);
        ASSERT_TRUE(cut.Save("again.txt"));
        EXPECT_EQ(FileText(cut.dir / "again.txt"), FileText(cut.dir / "cut.txt"));
    }
}

/// A run that has been made is filed as it was measured, whatever is set afterwards.
TEST(ResultFiles, ARunFilesWhatWasMeasured) {
    Rig rig;
    rig.Store().Write("egsm_im3_setup.ccz", PlanRecord({935, 960, 925, 937, 960, 960, 946, 925, 1}));
    ASSERT_TRUE(rig.ReadyFor(ModeTwoTone, 2));
    rig.S().working.SetPathLosses(1.0f, 0);
    rig.program.OnMeasButton();
    ASSERT_TRUE(rig.time.RunUntil([&] { return rig.S().curve.NextPoint() == 20; }, 10000));
    rig.instrument.FeedSignal(-95);
    ASSERT_TRUE(rig.RunUntilRunIsOver());
    rig.instrument.FeedSignal({});
    const std::string before = FormatResult(*rig.program.Files().Document());
    const std::string worst = PanelOf(rig.S()).m_WorstLevelText;
    EXPECT_EQ(before.substr(0, 62), "f1 0935.0 MHz START 0925.0 MHz STOP 0937.0 MHz POWER +42.0 dBm");
    rig.Store().Write("egsm_pow_setup.ccz", "0020000200");
    rig.Store().Write("egsm_im3_setup.ccz", PlanRecord({930, 955, 925, 937, 960, 960, 946, 925, 1}));
    rig.S().working.SetPathLosses(2.0f, 0);
    rig.S().working.SelectBand(BandDcs);
    rig.S().working.SelectOrder(2);
    rig.S().working.SelectMethod(ModeSweep);
    rig.S().curve.SetLength(1000);
    rig.S().link.identity.Forget();
    rig.S().curve.Update(true);
    rig.S().curve.SearchMaxima();
    EXPECT_EQ(FormatResult(*rig.program.Files().Document()), before);
    EXPECT_EQ(rig.program.Files().Document()->lengthMs, 2000);
    EXPECT_EQ(PanelOf(rig.S()).m_WorstLevelText, worst) << "of all of its points";
    // In dBc all of it stands below the power of the run, the limit too.
    rig.S().curve.scale.SetCarrier(20.0f);
    ConvertLevelUnit(true, rig.S());
    const ResultDocument dbc = *rig.program.Files().Document();
    EXPECT_EQ(dbc.carrier, 42.0f);
    EXPECT_NE(FormatResult(dbc).find("Limit Line: -132.0"), std::string::npos);

    for (const auto& [band, imIndex, method, held, measured] :
         {std::tuple{BandDigDiv, 1, ModeSweep, "f1 0792.0 MHz START 0792.0 MHz STOP 0812.0",
                     "MEAS IM3 UNIT dBm SWEEP"},
          {BandUmts, 5, ModeTwoTone, "f1 2130.0 MHz", "MEAS IM11 UNIT dBm 2-TON"},
          {BandEgsm, 2, ModeSpectrum, "f1 0925.0 MHz", "MEAS IM3 UNIT dBm SWEEP"}}) {
        Rig other;
        ASSERT_TRUE(other.ReadyFor(method, 1) && other.SelectBand(band));
        ASSERT_TRUE(other.program.Select().SelectOrder(imIndex) && other.RunUntilIdle());
        other.program.OnMeasButton();
        ASSERT_TRUE(other.RunUntilRunIsOn());
        other.time.RunUntil([&] { return !other.S().run.IsOn() || other.S().run.Passes() > 0; }, 60000);
        if (other.S().run.IsOn())
            other.program.StopMeas();
        ASSERT_TRUE(other.RunUntilIdle());
        const std::string text = FormatResult(*other.program.Files().Document());
        EXPECT_EQ(text.substr(0, std::string_view(held).size()), held);
        EXPECT_NE(text.find(measured), std::string::npos) << text.substr(0, 200);
        const FrequencyPlan& plan = other.S().run.Record().plan;
        EXPECT_EQ(other.program.Files().Document()->plan, plan);
    }
}

TEST(ResultFiles, EveryRunOfASweepStandsInATable) {
    Rig rig;
    ASSERT_TRUE(rig.ReadyFor(ModeSweep));
    rig.S().curve.SetRuns(3);
    ASSERT_TRUE(rig.Measure());
    const ResultDocument document = *rig.program.Files().Document();
    ASSERT_EQ(document.runs.size(), 3U);
    for (const ResultRun& run : document.runs)
        EXPECT_EQ(run.up.size() + run.down.size(), 28U);
    EXPECT_NE(document.runs[0], document.runs[1]) << "each its own levels";
    EXPECT_NE(document.runs[1], document.runs[2]);
}

/// Runs as they come, on a line that spoils replies, stopped or not, shown on a narrow plot.
TEST(ResultFiles, NoRunReloadsBetterThanItWas) {
    for (unsigned seed = 0; seed < 12; ++seed) {
        Rig rig;
        const int method = seed % 3 == 0 ? ModeSweep : ModeTwoTone;
        ASSERT_TRUE(rig.ReadyFor(method, 4));
        rig.S().curve.limit.Take(seed % 4 == 1 ? -140.0f : -90.0f);
        if (seed % 2 == 1)
            rig.line.Add({sim::FaultKind::Garble, static_cast<int>(20 + 20 * (seed % 4))});
        rig.program.OnMeasButton();
        ASSERT_TRUE(rig.RunUntilRunIsOn());
        if (seed % 3 == 1) {
            rig.time.RunFor(300 * seed);
            rig.program.StopMeas();
        }
        rig.time.RunUntil([&] { return !rig.S().run.IsOn(); }, 120000);
        const auto was = rig.program.Files().Document();
        if (!rig.program.Files().DataSave(rig.dir / "run.dat"))
            continue; // no point has come
        Bench narrow;
        narrow.S().curve.scale.SetWidth(20);
        narrow.Put("run.dat", FileText(rig.dir / "run.dat"));
        ASSERT_TRUE(narrow.Show("run.dat")) << narrow.Last();
        EXPECT_GE(DistanceFromPass(*narrow.program.Files().Document()), DistanceFromPass(*was)) << seed;
    }
}

TEST(ResultFiles, ThePairOfTonesTellsTheBand) {
    struct Case {
        float f1;
        float f2;
        int selected;
        int band;
    };
    for (const Case& c :
         {Case{750.0f, 793.0f, BandEgsm, BandLte}, Case{750.0f, 793.1f, BandEgsm, BandDigDiv},
          Case{728.0f, 760.0f, BandLte700U, BandLte700U}, Case{869.0f, 894.0f, BandNone, BandAmps},
          Case{816.0f, 822.0f, BandNone, BandDigDiv}, Case{1799.9f, 1850.0f, BandNone, BandEgsm},
          Case{1805.0f, 1880.0f, BandNone, BandDcs}, Case{1900.0f, 1920.0f, BandNone, BandTdScdmaF},
          Case{1930.0f, 1990.0f, BandNone, BandPcs}, Case{1930.0f, 2155.0f, BandNone, BandAws},
          Case{2020.0f, 2025.0f, BandNone, BandTdScdmaA}, Case{2020.0f, 2026.0f, BandNone, BandAws},
          Case{2110.0f, 2170.0f, BandNone, BandUmts}, Case{2350.0f, 2400.0f, BandNone, BandTdScdmaE},
          Case{2620.0f, 2690.0f, BandNone, BandUmts2}, Case{3510.0f, 3594.0f, BandNone, BandWiMax}}) {
        EXPECT_EQ(BandOfTones(c.f1, c.f2, c.selected), c.band) << c.f1 << " " << c.f2;
    }
}

TEST(ResultFiles, OnlyWhatWasADatBecomesOneAgain) {
    Bench bench;
    for (const char* name : {"run.txt", "run.dat.txt", "run.dat"})
        ASSERT_TRUE(bench.Save(name));
    for (const char* name : {"run.txt", "run.dat.txt"}) {
        ASSERT_TRUE(bench.Show(name));
        EXPECT_FALSE(bench.Save("made.dat")) << name;
        EXPECT_TRUE(bench.user.WasTold("Nur was aus einer .dat stammt, wird wieder eine .dat."));
        EXPECT_TRUE(bench.Save("passed on.txt"));
    }
    ASSERT_TRUE(bench.Show("run.dat"));
    EXPECT_TRUE(bench.Save("copy.dat"));
}

TEST(ResultFiles, TheOldestFormTakesThePanelAndCanBeSavedAsItIsToday) {
    Bench bench(ModeTwoTone, 1, true);
    bench.Put("old.dat",
              EncodeResult("8 chars 0890.0;0891.0;\n  -100.1;-100.2;123456789-110.1;-110.2;", true));
    ASSERT_TRUE(bench.Show("old.dat")) << bench.Last();
    const Curve& curve = bench.S().curve;
    EXPECT_EQ(curve.scale.InDbc(), 0);
    EXPECT_EQ(curve.Up()[1], -100.2f);
    EXPECT_EQ(curve.Down()[1], -110.2f);
    EXPECT_EQ(PanelOf(bench.S()).m_WorstFreqText, "890.0");
    ASSERT_TRUE(bench.Save("new.dat"));
    ASSERT_TRUE(bench.Show("new.dat")) << bench.Last();
    EXPECT_EQ(bench.S().results.loaded.Document()->serial, "00000")
        << "the instrument connected did not measure it";
}

/// Everything of a session that a load sets.
std::string Everything(const Session& s) {
    std::string text = PanelOf(s).m_Band_sel + '|' + PanelOf(s).m_IM_sel + '|' + PanelOf(s).m_Mode_sel + '|' +
                       PanelOf(s).m_f1_text + '|' + PanelOf(s).m_f2_text + '|' + PanelOf(s).m_WorstFreqText +
                       '|' + PanelOf(s).m_WorstLevelText + '|' + PanelOf(s).m_AlarmText + '|' +
                       s.results.device.Serial() + '|' + s.curve.FileName() + '|' + s.working.Power1() +
                       s.working.Power2();
    if (s.results.loaded.IsShown())
        text += '|' + FormatResult(*s.results.loaded.Document());
    for (const int number :
         {s.working.Band(), s.working.ImIndex(), s.working.Method(), s.curve.scale.InDbc() ? 1 : 0,
          s.curve.IsFromFile() ? 1 : 0, s.curve.Run(), static_cast<int>(s.curve.ShownVerdict()),
          s.curve.Length(), s.curve.TimePerPoint()})
        text += '|' + std::to_string(number);
    for (const std::span<const float> levels :
         {std::span<const float>(s.curve.Up()), std::span<const float>(s.curve.Down()),
          std::span<const float>(s.curve.Grid()), std::span<const float>(s.curve.ShownUp(0))})
        for (const float level : levels)
            text += '|' + std::to_string(level);
    return text + std::to_string(s.curve.limit.Level()) + '|' + std::to_string(s.curve.scale.Carrier());
}

TEST(ResultFiles, AFileThatIsNoWholeResultChangesNothing) {
    Bench good(ModeSweep);
    ASSERT_TRUE(good.Save("run.txt"));
    const std::string text = FileText(good.dir / "run.txt");
    const auto with = [&text](std::string_view from, std::string_view to) {
        std::string changed = text;
        EXPECT_NE(changed.find(from), std::string::npos) << from;
        return changed.replace(changed.find(from), from.size(), to);
    };
    const std::vector<std::pair<std::string, std::string>> broken = {
        {"all bytes",
         [] {
             std::string s;
             for (int i = 0; i < 4000; ++i)
                 s += static_cast<char>(i);
             return s;
         }()},
        {"a picture", "BM\x36\x10\x0E" + std::string(5000, '\x7F')},
        {"a workbook", "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1" + std::string(5000, '\0')},
        {"a letter", "Dear customer,\r\nplease find the results of the test of fifteen cables.\r\n"},
        {"header alone", text.substr(0, 204)},
        {"rows from the middle", text.substr(300)},
        {"no limit number", with("Limit Line: -90.0", "Limit Line: ")},
        {"limit in words", with("Limit Line: -90.0", "Limit Line: high")},
        {"two rows run together", with("\r\n0891.", "0891.")},
        {"no separator", with(";-", "--")},
        {"comma in a level", with("-101.5", "-101,5")},
        {"letter in a frequency", with("\r\n089", "\r\nO89")},
        {"huge number", with("-101.50", "-" + std::string(40, '9'))},
        {"level not a number", with("-101.50", "nan")},
        {"first tone missing", text.substr(65)},
        {"tones exchanged", with("f1 0", "f2 0")},
        {"no power", with("POWER +", "POWER -")},
        {"frequency gone", with("0925.0 MHz", "       MHz")},
        {"power no store can hold", with("POWER +43.0", "POWER +12000.0")},
        {"no order", with("MEAS IM3", "MEAS XY3")},
        {"no unit", with(" UNIT ", " ")},
        {"no model", with("Model Nr.", "Modell")},
        {"no serial", with(", SERIAL ", "")},
        {"date in words", with("20260307", "7. March")},
        {"no empty line before the rows", with("09:05\r\n", "09:05")},
        {"zero in the header", with("MEAS", std::string(4, '\0'))},
        {"backwards", std::string(text.rbegin(), text.rend())},
        {"too long", text + std::string(LongestResultFile, ' ')},
    };
    for (const auto& [what, bytes] : broken) {
        Bench bench;
        ASSERT_TRUE(bench.Save("before.dat"));
        ASSERT_TRUE(bench.Show("before.dat"));
        bench.Put("broken.dat", bytes);
        const auto disk = bench.Disk();
        const std::string session = Everything(bench.S());
        EXPECT_FALSE(bench.Show("broken.dat")) << what;
        EXPECT_TRUE(Everything(bench.S()) == session) << what;
        EXPECT_TRUE(bench.Disk() == disk) << what;
        EXPECT_EQ(bench.user.messages.size(), 1U) << what;
        EXPECT_TRUE(bench.user.WasTold((bench.dir / "broken.dat").string())) << what;
    }
    EXPECT_TRUE(good.Show("run.txt")) << "what they were made of is whole";
    EXPECT_FALSE(good.Show("nowhere.dat"));
    EXPECT_TRUE(good.user.WasTold("nowhere.dat: No such file or directory"));
    EXPECT_FALSE(good.program.Show().CurrentShow(good.dir.Path()));
    EXPECT_TRUE(good.program.Show().CurrentShow({})) << "an empty path is no request";
}

TEST(ResultFiles, ASaveThatFailsSaysWhyAndLeavesTheDiskAsItWas) {
    Bench bench;
    ASSERT_TRUE(bench.Save("run.dat"));
    const auto disk = bench.Disk();
    const auto refused = [&](const std::string& name, const std::string& told) {
        EXPECT_FALSE(bench.Save(name)) << name;
        EXPECT_TRUE(bench.user.WasTold(told)) << bench.user.messages.back();
        EXPECT_TRUE(bench.Disk() == disk) << name;
    };
    refused("no/run.dat",
            "Speichern file misserfolg\n" + (bench.dir / "no/run.dat").string() + ": No such file");
    refused("run.dat/run.txt", ": Not a directory");
    EXPECT_FALSE(bench.Done(bench.program.Files().DataSave("/proc/run.dat")))
        << "nobody writes there, root neither";
    EXPECT_TRUE(bench.user.WasTold("Speichern file misserfolg\n/proc/run.dat: "));
    const auto levels = bench.S().curve.Up();
    bench.S().curve.Clear();
    refused("run.dat", "Keine Messpunkte zum Speichern!");
    for (std::size_t i = 0; i < levels.size(); ++i)
        bench.S().curve.Put(i, levels[i]);
    bench.record.interBand = "DCS 1800";
    bench.Ran();
    refused("other.dat", "Does not support the current selection!");
    bench.record.interBand.clear();
    bench.Ran();

    {
        const test::FullDisk full;
        refused("run.dat",
                "Speichern file misserfolg\n" + (bench.dir / "run.dat").string() + ": File too large");
    }
    EXPECT_TRUE(bench.Save("run.dat"));
}

} // namespace
} // namespace qor
