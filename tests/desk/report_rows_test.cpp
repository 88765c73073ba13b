#include "desk/commands.h"
#include "platform/printer.h"
#include "results/paint/qt_page_forms.h"
#include "results/report/report_maker.h"
#include "support/application.h"
#include "support/rig.h"

#include <fstream>
#include <gtest/gtest.h>

namespace qor::test {
namespace {

class OnePrinter final : public Printers {
public:
    [[nodiscard]] std::vector<std::string> Names() const override { return {"laser"}; }
    [[nodiscard]] std::string DefaultName() const override { return standard; }
    [[nodiscard]] bool Print(const std::string& printer, const PrintJob&) override {
        printed.push_back(printer);
        return true;
    }
    [[nodiscard]] bool PrintToFile(const std::filesystem::path&, const PrintJob&) override { return true; }

    std::string standard;
    std::vector<std::string> printed;
};

struct Parts {
    Parts() { NeedApplication(); }
    QtPageForms forms;
    OnePrinter printers;
    NotedDialogs dialogs;
};

/// A desk that paints, with a 2-tone curve of three points.
struct ReportDesk : Parts, Rig {
    ReportDesk() : Rig({}, nullptr, nullptr, &dialogs, nullptr, nullptr, &forms, &printers) {
        std::filesystem::create_directory(folder.Path());
        for (const float level : {-100.0f, -98.5f, -101.0f})
            S().curve.Add(level);
        AsIfMeasuredOn(BandEgsm);
    }
    /// Files "0.dat", "1.dat", ... in the list panel, the first one shown.
    void LoadList(int count) {
        std::vector<std::filesystem::path> paths;
        for (int n = 0; n < count; ++n) {
            paths.push_back(folder / (std::to_string(n) + ".dat"));
            user.fileToSave = paths.back();
            commands.Run("save");
        }
        user.filesToOpen = paths;
        commands.Run("load");
        user.questions.clear();
        user.messages.clear();
    }
    [[nodiscard]] int Files(std::string_view ending) {
        return static_cast<int>(std::count_if(
            std::filesystem::directory_iterator(folder.Path()), std::filesystem::directory_iterator(),
            [ending](const auto& entry) { return entry.path().extension() == ending; }));
    }
    void RunSeries() {
        ASSERT_TRUE(program.Series().IsOn());
        time.RunUntil([this] { return !program.Series().IsOn(); }, 5000);
    }

    TempDir folder;
    Commands commands{program, dialogs};
};

TEST(ReportRows, OnePageInEachForm) {
    ReportDesk desk;
    for (const auto& [command, name, store] : {std::tuple("save_pdf", "a.pdf", "LastPdfPath.ccz"),
                                               std::tuple("save_jpg", "a.jpg", "LastJpgPath.ccz"),
                                               std::tuple("save_bmp", "a.bmp", "LastBmpPath.ccz")}) {
        desk.user.fileToSave = desk.folder / name;
        ASSERT_TRUE(desk.commands.Run(command)) << desk.user.messages.back();
        EXPECT_EQ(desk.Stored(store), (desk.folder / name).string());
        EXPECT_GT(std::filesystem::file_size(desk.folder / name), 20000U);
    }
    for (const char* left : {"report.bmp", "report.jpg", "datacurve.bmp"})
        EXPECT_TRUE(desk.Store().Exists(left)) << left;
    desk.user.fileToSave = desk.folder / "plot";
    EXPECT_TRUE(desk.commands.Run("save_graph"));
    EXPECT_TRUE(desk.commands.Run("save_graph_bmp"));
    EXPECT_EQ(std::filesystem::file_size(desk.folder / "plot.bmp"), 54U + 956 * 606 * 2);
    EXPECT_TRUE(std::filesystem::exists(desk.folder / "plot.jpg"));

    const std::string before = FileText(desk.folder / "a.pdf");
    desk.S().curve.Add(-99.0f);
    desk.user.fileToSave = desk.folder / "a.pdf";
    desk.user.answer = false;
    desk.commands.Run("save_pdf");
    EXPECT_EQ(FileText(desk.folder / "a.pdf"), before) << "kept, as the operator said";
    desk.user.answer = true;
    desk.commands.Run("save_pdf");
    EXPECT_NE(FileText(desk.folder / "a.pdf"), before);
    desk.user.fileToSave.clear();
    EXPECT_TRUE(desk.commands.Run("save_pdf")) << "thought better of it";
    desk.AsIfMeasuredOn(BandNone);
    desk.user.fileToSave = desk.folder / "b.pdf";
    desk.commands.Run("save_pdf");
    EXPECT_TRUE(desk.user.WasTold("Does not support the current selection!"));
}

TEST(ReportRows, PaperLogoAndLanguage) {
    ReportDesk desk;
    EXPECT_FALSE(desk.commands.Run("print_direct"));
    EXPECT_EQ(desk.Told(), std::vector<std::string>{"Drucken misserfolg."}) << "no printer";
    desk.printers.standard = "laser";
    EXPECT_TRUE(desk.commands.Run("print_direct"));
    EXPECT_EQ(desk.printers.printed, std::vector<std::string>{"laser"});
    EXPECT_TRUE(desk.Store().Exists("datacurveReport.bmp"));
    EXPECT_TRUE(desk.commands.Run("print"));
    EXPECT_EQ(desk.dialogs.opened.back().first, "print");

    EXPECT_TRUE(desk.commands.IsChecked(*FindCommand("report_language", 0)));
    desk.commands.Run("report_language", 1);
    EXPECT_EQ(desk.Stored("ReportLang.ccz"), "1");
    EXPECT_TRUE(desk.commands.IsChecked(*FindCommand("report_language", 1)));

    desk.user.filesToOpen = {desk.dir / "datacurveReport.bmp"};
    EXPECT_TRUE(desk.commands.Run("company_logo"));
    EXPECT_EQ(desk.Stored("bitmap3.bmp"), desk.Stored("datacurveReport.bmp"));
    desk.user.filesToOpen = {desk.dir / "ReportLang.ccz"};
    EXPECT_FALSE(desk.commands.Run("company_logo"));
    EXPECT_TRUE(desk.user.WasTold(NoBitmap));
}

TEST(ReportRows, TheWholeListGoesOutAFileATick) {
    ReportDesk desk;
    desk.LoadList(4);
    const std::string shown = desk.S().curve.FileName();
    std::filesystem::resize_file(desk.folder / "2.dat", 20);
    desk.user.fileToSave = desk.folder / "0.pdf";
    desk.commands.Run("save_pdf");
    EXPECT_EQ(desk.user.questions, std::vector<std::string>{"Save all graphs?"});
    EXPECT_EQ(desk.user.suggestions.back(), desk.folder / "0.pdf");
    for (const char* refused : {"load", "save_jpg"}) {
        desk.commands.Run(refused);
        EXPECT_EQ(desk.Told(), std::vector<std::string>{"Die Berichte werden noch gespeichert."}) << refused;
    }
    desk.program.OnMeasButton();
    EXPECT_EQ(desk.Told().size(), 1U);
    desk.RunSeries();
    EXPECT_EQ(desk.Files(".pdf"), 3);
    ASSERT_EQ(desk.user.messages.size(), 1U) << "told once";
    EXPECT_NE(desk.user.messages[0].find("2.dat"), std::string::npos);
    EXPECT_FALSE(desk.Store().Exists("report.jpg")) << "painted in memory";
    EXPECT_EQ(desk.S().curve.FileName(), shown);
    EXPECT_EQ(desk.Stored("LastPdfPath.ccz"), (desk.folder / "0.pdf").string());
}

TEST(ReportRows, ASeriesAsksOnceAboutWhatIsThereAndCanBeEnded) {
    ReportDesk desk;
    desk.LoadList(5);
    std::ofstream(desk.folder / "1.jpg") << "old";
    std::ofstream(desk.folder / "3.jpg") << "old";
    desk.user.fileToSave = desk.folder / "0.jpg";
    desk.user.choice = Answer::Cancel;
    desk.commands.Run("save_jpg");
    EXPECT_FALSE(desk.program.Series().IsOn());
    EXPECT_EQ(desk.user.questions.back(), "Vorhandene Dateien ersetzen? Anzahl: 2");
    desk.user.choice = Answer::No;
    desk.user.cancelAt = 2;
    desk.commands.Run("save_jpg");
    desk.RunSeries();
    EXPECT_EQ(desk.Files(".jpg"), 4) << "two that were there, two before the end";
    EXPECT_EQ(FileText(desk.folder / "1.jpg"), "old");
    desk.user.choice = Answer::Yes;
    desk.user.cancelAt = 1 << 30;
    desk.commands.Run("save_jpg");
    desk.RunSeries();
    EXPECT_NE(FileText(desk.folder / "1.jpg"), "old");
    EXPECT_EQ(desk.Files(".jpg"), 5);

    desk.Store().Write("LastBmpPath.ccz", "/pictures/of/last.bmp");
    desk.user.fileToSave = desk.folder / "0.bmp";
    desk.commands.Run("save_bmp");
    EXPECT_EQ(desk.user.suggestions.back(), "/pictures/of/0.bmp") << "pictures go where the last ones went";
    ASSERT_TRUE(desk.program.Series().IsOn());
    desk.program.Leave();
    EXPECT_FALSE(desk.program.Series().IsOn());
    desk.user.answer = false; // one alone
    desk.user.fileToSave = desk.folder / "one.bmp";
    desk.commands.Run("save_bmp");
    EXPECT_EQ(desk.Files(".bmp"), 1);
}

} // namespace
} // namespace qor::test
