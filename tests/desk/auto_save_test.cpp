#include "desk/auto_save_setup.h"
#include "desk/commands.h"
#include "results/paint/qt_page_forms.h"
#include "support/application.h"
#include "support/full_disk.h"
#include "support/rig.h"

#include <fstream>
#include <gtest/gtest.h>
#include <set>

namespace qor::test {
namespace {

struct Painter {
    Painter() { NeedApplication(); }
    QtPageForms forms;
    NotedDialogs dialogs;
};

/// Auto-save of a .dat and a .pdf into a folder, on the way to runs of a second.
struct Line : Painter, Rig {
    explicit Line(AutoSaveForms chosen = {.dat = true, .pdf = true})
        : Rig({}, nullptr, nullptr, &dialogs, nullptr, nullptr, &forms) {
        EXPECT_TRUE(ReadyFor(ModeTwoTone, 1));
        Session& session = S();
        session.curve.limit.Take(-50);
        EXPECT_TRUE(SetAutoSave(program, chosen, (dir / "out" / "x").string()));
        user.messages.clear();
    }
    bool MeasureAndSave() {
        return Measure() && time.RunUntil([this] { return !program.Saver().IsBusy(); }, 5000);
    }
    [[nodiscard]] std::set<std::string> Names() {
        std::set<std::string> names;
        std::error_code none;
        for (const auto& entry : std::filesystem::directory_iterator(dir / "out", none))
            names.insert(entry.path().filename().string());
        return names;
    }
    [[nodiscard]] std::string Out(const std::string& name) { return FileText(dir / "out" / name); }
};

using Names = std::set<std::string>;

TEST(AutoSave, EveryRunIsFiledUnderItsNumber) {
    Line line({.dat = true, .txt = true, .pdf = true, .sweepSheet = true, .detailSheet = true});
    for (int run = 0; run < 3; ++run)
        ASSERT_TRUE(line.MeasureAndSave());
    EXPECT_TRUE(line.user.questions.empty());
    EXPECT_TRUE(line.user.messages.empty());
    Names expected;
    for (const char* number : {"0", "1", "2"})
        for (const char* ending : {".dat", ".txt", "_sweep.xls", "_detail.xls", ".pdf"})
            expected.insert(std::string(" SN 0000") + number + ending);
    EXPECT_EQ(line.Names(), expected);
    EXPECT_NE(line.Out(" SN 00001.txt").find("Ser No:  SN 00001"), std::string::npos);
    EXPECT_EQ(line.S().results.device.Serial(), " SN 00002");
    EXPECT_EQ(line.Stored("LastPdfPath.ccz"), (line.dir / "out" / " SN 00002.pdf").string());
    EXPECT_FALSE(line.Store().Exists("report.bmp"));
    EXPECT_EQ(line.S().results.autoSave.Saved(), 3U);
}

TEST(AutoSave, AFailedRunAsksAndAnUnwantedOneLeavesAGap) {
    Line line;
    line.S().curve.limit.Take(-150);
    line.user.answer = false;
    line.user.whileAsked = [&line] {
        const auto before = line.Sent();
        line.time.RunFor(30000);
        EXPECT_TRUE(line.Sent().empty()) << "nothing is sent while the operator thinks";
        line.program.OnMeasButton();
    };
    line.program.OnMeasButton();
    ASSERT_TRUE(line.RunUntilRunIsOn());
    ASSERT_TRUE(line.time.RunUntil([&line] { return !line.user.questions.empty(); }, 60000));
    EXPECT_EQ(line.user.questions[0], "Save FAIL  file?");
    EXPECT_TRUE(line.Names().empty());
    EXPECT_EQ(line.S().results.autoSave.NextNumber(), 1);
    ASSERT_TRUE(line.RunUntilRunIsOn()) << "the start that was pressed meanwhile";
    line.user.whileAsked = {};
    line.user.answer = true;
    ASSERT_TRUE(line.time.RunUntil([&line] { return line.Names().size() == 2; }, 60000));
    EXPECT_EQ(line.Names(), (Names{" SN 00001.dat", " SN 00001.pdf"}));
}

TEST(AutoSave, ASpoiltRunIsMarkedUnasked) {
    Line line;
    line.S().curve.limit.Take(-150);
    line.S().curve.SetLength(20000);
    line.program.OnMeasButton();
    ASSERT_TRUE(line.RunUntilRunIsOn());
    line.time.RunFor(3000);
    line.line.Add({sim::FaultKind::Unplug, line.line.CommandCount()});
    ASSERT_TRUE(line.time.RunUntil([&line] { return !line.S().run.IsOn(); }, 30000));
    line.time.RunFor(2500);
    EXPECT_TRUE(line.user.questions.empty());
    EXPECT_EQ(line.Names(), (Names{" SN 00000_incomplete.dat", " SN 00000_incomplete.pdf"}));
}

TEST(AutoSave, TakenNamesAreAskedAboutOnce) {
    Line line;
    std::filesystem::create_directory(line.dir / "out");
    for (const char* name : {" SN 00000.pdf", " SN 00001.dat", " SN 00002.pdf"})
        std::ofstream(line.dir / "out" / name) << "old";
    line.user.choice = Answer::No;
    ASSERT_TRUE(line.MeasureAndSave());
    EXPECT_EQ(line.user.questions.size(), 1U);
    EXPECT_EQ(line.Out(" SN 00000.pdf"), "old");
    EXPECT_FALSE(line.Out(" SN 00000.dat").empty());
    line.user.choice = Answer::Yes;
    ASSERT_TRUE(line.MeasureAndSave());
    EXPECT_NE(line.Out(" SN 00001.dat"), "old");
    line.user.choice = Answer::Other;
    ASSERT_TRUE(line.MeasureAndSave());
    EXPECT_EQ(line.Out(" SN 00002.pdf"), "old");
    EXPECT_FALSE(line.Out(" SN 00003.pdf").empty());
    EXPECT_EQ(line.S().results.device.Serial(), " SN 00003");
    EXPECT_EQ(line.S().results.autoSave.NextNumber(), 4);
    EXPECT_EQ(line.user.questions.size(), 3U);
}

TEST(AutoSave, WhatCannotBeWrittenIsToldAndTheNextRunGoesOn) {
    Line line({.dat = true, .txt = true});
    {
        const FullDisk full;
        ASSERT_TRUE(line.MeasureAndSave());
    }
    EXPECT_TRUE(line.Names().empty());
    EXPECT_TRUE(line.user.WasTold("Speichern file misserfolg"));
    ASSERT_TRUE(line.MeasureAndSave());
    EXPECT_EQ(line.Names().size(), 2U);
    std::filesystem::remove_all(line.dir / "out");
    std::ofstream(line.dir / "out") << "a file where the folder was";
    line.user.messages.clear();
    ASSERT_TRUE(line.MeasureAndSave());
    ASSERT_EQ(line.user.messages.size(), 1U) << "both forms in one message";
    std::filesystem::remove(line.dir / "out");
    ASSERT_TRUE(line.MeasureAndSave());
    EXPECT_EQ(line.Names(), (Names{" SN 00003.dat", " SN 00003.txt"}));
}

TEST(AutoSave, TheEndOfTheProgramWaitsForTheFiles) {
    Line line;
    std::filesystem::create_directory(line.dir / "out");
    std::ofstream(line.dir / "out" / " SN 00000.dat") << "old";
    line.program.OnMeasButton();
    ASSERT_TRUE(line.RunUntilRunIsOn());
    line.time.RunFor(600);
    Commands commands(line.program, line.dialogs);
    line.program.StopMeas();
    ASSERT_TRUE(line.program.Saver().IsBusy());
    commands.Run("order", 2);
    commands.Run("load");
    EXPECT_TRUE(line.user.WasTold("Die Messung wird noch gespeichert."));
    line.Sent();
    bool echoed = false;
    line.program.SetQuit([&](int) { echoed = !line.S().link.carriers.MayBeOn(); });
    line.program.Leave();
    EXPECT_EQ(line.Names(), Names{" SN 00000.dat"}) << "the carriers come first";
    line.time.RunFor(1200);
    EXPECT_TRUE(echoed);
    EXPECT_TRUE(line.user.questions.empty());
    EXPECT_EQ(line.Names(), (Names{" SN 00000.dat", " SN 00000_incomplete.dat", " SN 00000_incomplete.pdf"}));
}

/// A question that is open goes with the program: what it was about is filed.
TEST(AutoSave, WhatIsAskedAboutAtTheEndIsFiled) {
    for (const bool failed : {true, false}) {
        Line line;
        line.S().curve.limit.Take(failed ? -150 : -50);
        if (!failed) {
            std::filesystem::create_directory(line.dir / "out");
            std::ofstream(line.dir / "out" / " SN 00000.dat") << "old";
        }
        line.user.answer = false;
        line.user.choice = Answer::No;
        std::int64_t ended = 0;
        line.program.SetQuit([&](int) { ended = line.time.NowMs(); });
        line.user.whileAsked = [&] {
            line.time.RunFor(5000); // a poll waits for the answer by now
            const std::int64_t begin = line.time.NowMs();
            line.program.Leave();
            line.time.RunFor(3000);
            EXPECT_LT(ended - begin, 1000);
            EXPECT_GT(ended, begin);
        };
        line.program.OnMeasButton();
        ASSERT_TRUE(line.time.RunUntil([&line] { return !line.user.questions.empty(); }, 60000));
        line.time.RunFor(1000);
        EXPECT_EQ(line.user.questions.size(), 1U);
        EXPECT_EQ(line.Names(), failed ? (Names{" SN 00000.dat", " SN 00000.pdf"})
                                       : (Names{" SN 00000.dat", " SN 00001.dat", " SN 00001.pdf"}));
        EXPECT_TRUE(line.user.messages.empty());
    }
}

TEST(AutoSave, TheDialogsSettings) {
    Line line;
    Commands commands(line.program, line.dialogs);
    AutoSave& settings = line.S().results.autoSave;
    commands.Run("auto_save");
    EXPECT_FALSE(settings.IsOn());
    EXPECT_TRUE(line.dialogs.opened.empty());
    commands.Run("auto_save");
    EXPECT_EQ(line.dialogs.opened.back().first, "auto_save");
    const std::string refusal = "Please select the correct directory for saving!";
    EXPECT_EQ(SetAutoSave(line.program, {.txt = true}, "  ").Text(), refusal);
    EXPECT_TRUE(SetAutoSave(line.program, {}, ""));
    EXPECT_FALSE(settings.IsOn()) << "no form";
    EXPECT_EQ(SetAutoSaveSeries(line.program, "a", "b").Text(),
              "Please select auto-save file path from [Auto-Save] menu at first!");
    EXPECT_EQ(ProposedAutoSavePath(line.program), (line.dir / "AutoSave" / "").string());
    line.Store().Write("LastPdfPath.ccz", "C:\\reports\\old.pdf");
    line.S().results.device.Number("17");
    EXPECT_EQ(ProposedAutoSavePath(line.program), "C:\\reports\\17");

    bool wrong = false;
    EXPECT_FALSE(SetAutoSavePrefix(line.program, "line", "1x", wrong));
    EXPECT_TRUE(wrong);
    EXPECT_FALSE(SetAutoSavePrefix(line.program, "a\\b", "12", wrong));
    EXPECT_FALSE(wrong);
    EXPECT_TRUE(SetAutoSavePrefix(line.program, "line", "12", wrong));
    const LocalTime now = line.Parts().clock.Now();
    const std::string today = std::to_string(now.year) + (now.month < 10 ? "-0" : "-") +
                              std::to_string(now.month) + (now.day < 10 ? "-0" : "-") +
                              std::to_string(now.day);
    EXPECT_EQ(settings.SerialOf(settings.NextNumber()), "line " + today + "  SN 00012");

    EXPECT_TRUE(SetAutoSave(line.program, {.detailSheet = true}, (line.dir / "auto").string() + "\\17 "));
    EXPECT_FALSE(SetAutoSaveSeries(line.program, "a/b", "c"));
    EXPECT_TRUE(SetAutoSaveSeries(line.program, "-cable", "week 7\\monday"));
    EXPECT_TRUE(std::filesystem::is_directory(line.dir / "auto" / "week 7" / "monday"));
    EXPECT_EQ(settings.FileOf("12", ".dat"), line.dir / "auto" / "week 7" / "monday" / "12-cable.dat");
    std::ofstream(line.dir / "auto" / "file") << "x";
    EXPECT_EQ(SetAutoSaveSeries(line.program, "", "file/below").Text(), "Failed to create folder!");
    EXPECT_FALSE(settings.Templates().sweep);
    settings.SetTemplates(false, false);
    EXPECT_TRUE(settings.Templates().sweep) << "by hand the sweep form";

    EXPECT_EQ(LoweredSerial("a SN 00100"), "a SN 00099");
    EXPECT_EQ(LoweredSerial("a SN 00000"), "a SN 0");
    EXPECT_EQ(LoweredSerial("no digits"), "no digits");
}

} // namespace
} // namespace qor::test
