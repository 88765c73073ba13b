// What a file that is loaded brings into force for the next run, and the way back.
#include "desk/commands.h"
#include "desk/setup/path_loss.h"
#include "results/data_file.h"
#include "results/file_plan.h"
#include "results/read_document.h"
#include "support/documents.h"
#include "support/rig.h"

#include <gtest/gtest.h>

namespace qor {
namespace {

using test::FileText;
using test::Rig;

/// An operator at the menu, with files to load.
struct FileDesk : Rig {
    bool Run(std::string_view command) { return Commands(program, dialogs).Run(command); }
    bool CanRun(std::string_view command) {
        return Commands(program, dialogs).IsEnabled(*FindCommand(command));
    }
    void Load(const std::filesystem::path& path) { program.List().Load({path}); }
    std::filesystem::path Put(const ResultDocument& document, const std::string& name = "run.dat") {
        std::ofstream(dir / name, std::ios::binary)
            << EncodeResult(FormatResult(document), name == "run.dat");
        return dir / name;
    }
    /// All that is in force, in one text.
    [[nodiscard]] std::string InForce() {
        const Panel panel = PanelOf(S());
        return panel.m_Band_sel + " " + panel.m_IM_sel + " " + panel.m_Mode_sel + " " + panel.m_AlarmText +
               panel.unit + " " + S().working.Power1() + "/" + S().working.Power2() + " " +
               Stored("egsm_pow_setup.ccz") + " " + Stored("dcs_pow_setup.ccz") + " " +
               Stored("AlarmUp.ccz") + " " + std::to_string(S().curve.scale.Carrier());
    }

    test::NotedDialogs dialogs;
};

/// A DCS sweep at IM5 with 40 dBm at the device and its limit at -95 dBm.
ResultDocument DcsSweep() {
    ResultDocument document = RandomDocument(3, ResultMethod::Sweep, 0);
    document.order = 5;
    document.plan = *StartPlan(BandDcs, 2, 0);
    document.plan.f1 = document.plan.f2 = 0;
    document.power1 = document.power2 = 40;
    document.inDbc = false;
    document.limit = -95;
    document.runs.back() = {{{1712, -120}, {1718, -121}, {1721, -121}}, {{1762, -119.5f}}};
    CompleteRead(document);
    document.verdict = ResultVerdict::Passed;
    return document;
}

TEST(FileSettings, RunSaveLoadRunStatesTheSamePowerEachTime) {
    FileDesk desk;
    ASSERT_TRUE(desk.ReadyFor(ModeTwoTone, 1));
    ASSERT_TRUE(desk.Done(ApplyPathLoss(1.0, 0.5, desk.S(), desk.Store())));
    for (int round = 0; round < 4; ++round) {
        desk.Sent();
        ASSERT_TRUE(desk.Measure());
        EXPECT_EQ(desk.instrument.Settings().power1, 430) << round;
        ASSERT_TRUE(desk.program.Files().DataSave(desk.dir / "run.dat"));
        EXPECT_EQ(desk.program.Files().Document()->power1, 42.0f) << round;
        desk.Load(desk.dir / "run.dat");
        EXPECT_EQ(desk.Stored("egsm_pow_setup.ccz"), "0043000430");
        EXPECT_EQ(desk.program.Files().Document()->power1, 42.0f) << "as the file states it";
    }
}

TEST(FileSettings, TheOperatorsOwnComeBackAtTheInstrumentToo) {
    for (const bool dbc : {false, true}) {
        FileDesk desk;
        ASSERT_TRUE(desk.ReadyFor(ModeTwoTone, 1));
        EXPECT_FALSE(desk.CanRun("own_settings") || desk.CanRun("measure_as_file"));
        ASSERT_TRUE(!dbc || desk.Run("unit"));
        desk.Store().Write("dcs_pow_setup.ccz", "0042000420");
        const std::string own = desk.InForce();
        const int position = desk.instrument.Settings().position;
        desk.Load(desk.Put(DcsSweep()));
        EXPECT_EQ(PanelOf(desk.S()).m_NextText, "DCS IM5 SWEEP 40.0 / 40.0 dBm");
        EXPECT_EQ(PanelOf(desk.S()).m_FileText, "run.dat");
        EXPECT_EQ(PanelOf(desk.S()).m_FileNote, "");
        EXPECT_EQ(desk.Stored("dcs_pow_setup.ccz") + desk.Stored("AlarmUp.ccz"), "0040000400-95.0");
        ASSERT_TRUE(desk.Measure()) << "what the panel shows is measured";
        EXPECT_EQ(desk.program.Files().Document()->band, BandDcs);
        EXPECT_EQ(desk.program.Files().Document()->power1, 40.0f);

        ResultDocument second = DcsSweep();
        second.power1 = second.power2 = 35;
        desk.Load(desk.Put(second)); // of several the settings before the first come back
        ASSERT_TRUE(desk.Run("own_settings") && desk.RunUntilIdle());
        ASSERT_TRUE(!dbc || desk.Run("unit"));
        EXPECT_EQ(desk.InForce(), own);
        EXPECT_EQ(desk.instrument.Settings().position, position);
        EXPECT_FALSE(desk.S().curve.IsFromFile());
        EXPECT_FALSE(desk.CanRun("own_settings"));
        ASSERT_TRUE(desk.Measure());
        EXPECT_EQ(desk.program.Files().Document()->band, BandEgsm);
    }
}

TEST(FileSettings, AFileThatCannotBeMeasuredIsShownAndNothingOfItIsInForce) {
    const auto with = [](auto change) {
        ResultDocument document = DcsSweep();
        change(document);
        return document;
    };
    for (const auto& [document, note] :
         {std::pair{with([](auto& d) { d.power2 = 47; }),
                    "Nichts der Datei ist in Kraft: ihre Leistung liegt ausserhalb des Bereichs."},
          {with([](auto& d) { d.power1 = d.power2 = 12; }),
           "Nichts der Datei ist in Kraft: ihre Leistung liegt ausserhalb des Bereichs."},
          {with([](auto& d) { d.limit = 5.0f; }),
           "Nichts der Datei ist in Kraft: ihre Grenze liegt ausserhalb des Bereichs."},
          {with([](auto& d) { d.limit = -201.0f; }),
           "Nichts der Datei ist in Kraft: ihre Grenze liegt ausserhalb des Bereichs."},
          {with([](auto& d) { d.plan.f2Fix = 1890; }),
           "Nichts der Datei ist in Kraft: ihre Frequenzen gehoeren zu keiner Breite."},
          {with([](auto& d) { d.order = 13; }),
           "Nichts der Datei ist in Kraft: ihre Ordnung ist unbekannt."}}) {
        FileDesk desk;
        ASSERT_TRUE(desk.ReadyFor(ModeTwoTone, 1));
        const std::string own = desk.InForce();
        desk.Load(desk.Put(document));
        EXPECT_EQ(desk.InForce(), own) << note;
        EXPECT_EQ(PanelOf(desk.S()).m_FileNote, note);
        EXPECT_EQ(PanelOf(desk.S()).m_NextText, "EGSM IM3 2-TON 43.0 / 43.0 dBm 1 s");
        EXPECT_TRUE(desk.S().curve.IsFromFile());
        EXPECT_FALSE(desk.Run("measure_as_file"));
        EXPECT_TRUE(desk.user.WasTold(note));
        EXPECT_EQ(desk.program.Files().Document()->limit, document.limit)
            << "saved again it stays what it was";
        ASSERT_TRUE(desk.Measure());
        EXPECT_EQ(desk.program.Files().Document()->band, BandEgsm);
        EXPECT_EQ(PanelOf(desk.S()).m_FileNote + PanelOf(desk.S()).m_NextText, "") << "the file is gone";
    }
    // Its own limit has failed it; the one in force would not.
    FileDesk desk;
    ASSERT_TRUE(desk.ReadyFor(ModeTwoTone, 1));
    desk.Load(desk.Put(with([](auto& d) {
        d.power2 = 47;
        d.limit = -119.7f;
        d.verdict = ResultVerdict::Failed;
    })));
    EXPECT_EQ(desk.S().curve.ShownVerdict(), Verdict::Failed);
}

TEST(FileSettings, EveryPlanThatTheProgramMeasuresWithComesIntoForceAgain) {
    for (const int band : {BandAmps, BandEgsm, BandLte, BandDcs, BandUmts, BandPcs, BandWiMax, BandTdScdmaF,
                           BandUmts2, BandDigDiv, BandTdScdmaE, BandLte700L, BandLte700U}) {
        for (int imIndex = 1; imIndex <= 5; ++imIndex) {
            const auto plan = StartPlan(band, imIndex, 0);
            for (const ResultMethod method : {ResultMethod::TwoTone, ResultMethod::Sweep}) {
                if (!plan)
                    continue;
                ResultDocument document;
                document.method = method;
                document.order = OrderOf(imIndex);
                document.plan = *plan;
                document.product = CoefficientsOf(imIndex);
                document.upperProduct = UsesUpperProduct(band);
                document.runs.resize(1);
                FileDesk desk;
                desk.S().working.SelectBand(band);
                const auto fim = [&](float f1, float f2) {
                    return static_cast<double>(ImFrequency(band, document.product, f1, f2));
                };
                ResultRun& run = document.runs.back();
                if (method == ResultMethod::TwoTone) {
                    run.up = {{0, -100}, {0.1, -100}};
                } else {
                    for (float f1 = plan->f1Start; f1 <= plan->f1Stop; f1 += plan->step)
                        run.up.push_back({fim(f1, plan->f2Fix), -100});
                    for (float f2 = plan->f2Start; f2 >= plan->f2Stop; f2 -= plan->step)
                        run.down.push_back({fim(plan->f1Fix, f2), -100});
                    for (auto* half : {&run.up, &run.down})
                        std::sort(half->begin(), half->end(), [](auto& a, auto& b) { return a.x < b.x; });
                }
                document.limit = -90.0f;
                document.date = "20260307";
                document.time = "09:05";
                desk.Load(desk.Put(document));
                EXPECT_EQ(PanelOf(desk.S()).m_FileNote, "") << band << " " << imIndex;
                EXPECT_EQ(desk.S().working.Band(), band);
                EXPECT_TRUE(desk.Run("measure_as_file"))
                    << band << " " << imIndex << " " << static_cast<int>(method)
                    << (desk.user.messages.empty() ? "" : desk.user.messages.back());
            }
        }
    }
}

TEST(FileSettings, AMeasurementLikeTheFileHasItsPlanAndLength) {
    FileDesk desk;
    ASSERT_TRUE(desk.ReadyFor(ModeTwoTone, 1));
    desk.Store().Write("egsm_im3_setup.ccz", PlanRecord({930, 955, 925, 937, 960, 960, 946, 925, 1}));
    ResultDocument document = RandomDocument(3, ResultMethod::TwoTone, 0);
    document.order = 3;
    document.plan = {.f1 = 936, .f2 = 959, .f1Start = 926, .f1Stop = 937, .f2Start = 960, .f2Stop = 946};
    document.power1 = document.power2 = 43;
    document.limit = -90.0f;
    document.runs.back().up.clear();
    for (int i = 0; i <= 30; ++i)
        document.runs.back().up.push_back({i * 0.1, -120});
    desk.Load(desk.Put(document));
    ASSERT_TRUE(desk.Measure());
    EXPECT_EQ(desk.program.Files().Document()->plan.f1, 930.0f) << "a load alone leaves the plan";
    EXPECT_EQ(desk.program.Files().Document()->lengthMs, 1000) << "and the length";
    desk.Load(desk.Put(document));
    ASSERT_TRUE(desk.Run("measure_as_file"));
    EXPECT_EQ(PanelOf(desk.S()).m_NextText, "EGSM IM3 2-TON 43.0 / 43.0 dBm 3 s");
    ASSERT_TRUE(desk.Measure());
    const ResultDocument measured = *desk.program.Files().Document();
    EXPECT_EQ(measured.plan.f1, 936.0f);
    EXPECT_EQ(measured.plan.f2, 959.0f);
    EXPECT_EQ(measured.plan.f1Start, 926.0f);
    EXPECT_EQ(measured.plan.f1Fix, 925.0f) << "what its method has no use for is the operator's";
    EXPECT_EQ(measured.lengthMs, 3000);
    EXPECT_EQ(ReadPlanStore(desk.Store(), "egsm_", 1)->f1, 930.0f) << "for this session";
    EXPECT_EQ(desk.Stored("2tone_time.ccz"), "1");
    ASSERT_TRUE(desk.Run("own_settings") && desk.RunUntilIdle() && desk.Measure());
    EXPECT_EQ(desk.program.Files().Document()->plan.f1, 930.0f);
    EXPECT_EQ(desk.program.Files().Document()->lengthMs, 1000);
}

TEST(FileSettings, ASheetOfWholeMegahertzDoesNotTellThePlanOfItsSweep) {
    ResultDocument document = DcsSweep();
    const auto plan = PlanOf(document, {});
    ASSERT_TRUE(plan);
    EXPECT_EQ(plan->step, 1.0f);
    document.plan.f1Start += 0.5f;
    EXPECT_FALSE(PlanOf(document, {}));
    document.plan.f1Start = 0;
    EXPECT_FALSE(PlanOf(document, {})) << "a detail sheet";
}

TEST(FileSettings, ACurveThatNoFileHoldsIsAskedAbout) {
    FileDesk desk;
    const auto file = desk.Put(DcsSweep());
    desk.Load(file);
    EXPECT_TRUE(desk.user.questions.empty());
    ASSERT_TRUE(desk.ReadyFor(ModeTwoTone, 1) && desk.Measure());
    desk.user.answer = false;
    desk.Load(file);
    EXPECT_EQ(desk.user.questions,
              std::vector<std::string>{"Die Messkurve ist nicht gespeichert. Soll die Datei sie ersetzen?"});
    EXPECT_FALSE(desk.S().curve.IsFromFile());
    ASSERT_TRUE(desk.program.Files().DataSave(desk.dir / "saved.dat"));
    desk.Load(file);
    EXPECT_TRUE(desk.S().curve.IsFromFile());
    ASSERT_TRUE(desk.Measure()); // another run of as many points
    desk.user.answer = true;
    desk.Load(file);
    EXPECT_EQ(desk.user.questions.size(), 2U);
    EXPECT_TRUE(desk.S().curve.IsFromFile());
}

TEST(FileSettings, TheSaveDialogOffersWhatTheCurveMayBecomeAndANameForIt) {
    FileDesk desk;
    ASSERT_TRUE(desk.ReadyFor(ModeTwoTone, 1) && desk.Measure());
    ASSERT_TRUE(desk.Run("save"));
    EXPECT_EQ(desk.user.suggestions.back(), "SIM01_EGSM_IM3_20260307");
    EXPECT_EQ(desk.user.endings, "*.txt *.dat *.xls *.xlsx *.csv");
    std::filesystem::create_directory(desk.dir / "kept");
    desk.user.fileToSave = desk.dir / "kept/a.txt";
    ASSERT_TRUE(desk.Run("save"));
    desk.user.fileToSave.clear();
    desk.S().results.device.EnterSerial("A/17");
    ASSERT_TRUE(desk.Run("save_excel"));
    EXPECT_EQ(desk.user.suggestions.back(), desk.dir / "kept/A-17") << "where the last one went";

    desk.user.fileToSave = desk.dir / "kept/a.txt";
    desk.user.answer = false;
    const std::string before = FileText(desk.dir / "kept/a.txt");
    std::ofstream(desk.dir / "kept/a.txt") << "another's";
    EXPECT_FALSE(desk.Run("save"));
    EXPECT_EQ(desk.user.questions.back(), "The file has already existed. Do you want to replace it?\n\n" +
                                              (desk.dir / "kept/a.txt").string());
    EXPECT_EQ(FileText(desk.dir / "kept/a.txt"), "another's");
    desk.user.answer = true;
    EXPECT_TRUE(desk.Run("save"));
    EXPECT_EQ(FileText(desk.dir / "kept/a.txt").substr(0, 30), before.substr(0, 30));
    desk.Load(desk.dir / "kept/a.txt");
    desk.user.fileToSave.clear();
    ASSERT_TRUE(desk.Run("save"));
    EXPECT_EQ(desk.user.endings, "*.txt *.xls *.xlsx *.csv") << "a text becomes no original";
    desk.Load(desk.Put(DcsSweep()));
    ASSERT_TRUE(desk.Run("save"));
    EXPECT_EQ(desk.user.endings, "*.txt *.dat *.xls *.xlsx *.csv") << "a genuine one stays what it is";
}

} // namespace
} // namespace qor
