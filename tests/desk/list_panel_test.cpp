#include "desk/list_panel.h"
#include "desk/setup/path_loss.h"
#include "support/rig.h"

#include <gtest/gtest.h>

namespace qor::test {
namespace {

/// A program and a folder of results "0.dat", "1.dat", ... that are all alike.
struct ListDesk : Rig {
    explicit ListDesk(int count) {
        std::filesystem::create_directory(folder.Path());
        Curve& curve = S().curve;
        curve.Add(-100.0f);
        curve.Add(-100.0f);
        AsIfMeasuredOn(BandEgsm);
        const auto first = folder / "0.dat";
        if (const Outcome saved = program.Files().DataSave(first); !saved)
            ADD_FAILURE() << saved.Text();
        for (int n = 0; n < count; ++n) {
            paths.push_back(folder / (std::to_string(n) + ".dat"));
            if (n > 0)
                std::filesystem::copy_file(first, paths.back());
        }
    }
    void Load() { program.List().Load(paths); }
    /// The rows, the marked one in brackets, and the file whose curve is shown.
    [[nodiscard]] std::string Strip() {
        const ResultList& list = S().results.list;
        std::string text;
        for (int row = 0; row < 7; ++row) {
            std::string name = list.Row(row);
            name = name.empty() ? "-" : name.substr(0, name.find('.'));
            text += row == list.MarkedRow() ? "[" + name + "] " : name + " ";
        }
        return text + "= " + S().curve.FileName();
    }

    TempDir folder;
    std::vector<std::filesystem::path> paths;
};

TEST(ListPanel, SeveralFilesOpenItAndOneClosesIt) {
    ListDesk desk(3);
    desk.S().working.SetPathLosses(2.5f, 2.5f);
    desk.S().working.TakePathLossForRun();
    desk.program.List().Load({});
    EXPECT_EQ(desk.S().working.PowerOffset(), 2.5f) << "nothing chosen, nothing changed";
    desk.Load();
    EXPECT_TRUE(desk.S().results.list.IsOpen());
    EXPECT_EQ(desk.Strip(), "[0] 1 2 - - - - = 0.dat");
    EXPECT_EQ(FileText(desk.dir / "LastLoadPath.ccz"), desk.paths[0].string());
    EXPECT_EQ(desk.S().working.PowerOffset() + desk.S().working.Port2Loss() + desk.S().working.RxLossOfRun(),
              0.0f);
    RestorePathLoss(desk.S(), desk.program.Stores());
    desk.program.List().ClickRow(1);
    EXPECT_EQ(desk.S().working.PowerOffset(), 0.0f) << "a row shows a file too";
    EXPECT_EQ(desk.S().working.OperatorsLosses().powerOffset, 2.5f);
    desk.paths.resize(1);
    desk.Load();
    EXPECT_FALSE(desk.S().results.list.IsOpen());
    EXPECT_EQ(desk.S().results.list.Name(1), "") << "the earlier names are gone";
}

TEST(ListPanel, TheButtonsWalkTheList) {
    using Press = void (ListPanel::*)();
    struct Step {
        Press press;
        const char* strip;
    };
    ListDesk desk(10);
    ListPanel& list = desk.program.List();
    desk.Load();
    list.ClickRow(2);
    for (const Step& step : {
             Step{&ListPanel::First, "0 1 [2] 3 4 5 6 = 2.dat"}, // at the top already
             Step{&ListPanel::Back, "0 1 [2] 3 4 5 6 = 2.dat"},
             Step{&ListPanel::Forward, "1 [2] 3 4 5 6 7 = 2.dat"},
             Step{&ListPanel::Forward, "[2] 3 4 5 6 7 8 = 2.dat"},
             Step{&ListPanel::Forward, "3 4 5 6 7 8 9 = 2.dat"}, // out of the rows: none is marked
             Step{&ListPanel::Remove, "3 4 5 6 7 8 9 = 2.dat"},
             Step{&ListPanel::Forward, "3 4 5 6 7 8 9 = 2.dat"},
             Step{&ListPanel::Last, "3 4 5 6 7 8 9 = 2.dat"},
             Step{&ListPanel::Back, "[2] 3 4 5 6 7 8 = 2.dat"},
             Step{&ListPanel::Last, "[3] 4 5 6 7 8 9 = 3.dat"},
             Step{&ListPanel::First, "[0] 1 2 3 4 5 6 = 0.dat"},
             Step{&ListPanel::Remove, "[1] 2 3 4 5 6 7 = 1.dat"},
             Step{&ListPanel::Last, "[3] 4 5 6 7 8 9 = 3.dat"},
             Step{&ListPanel::Remove, "2 [4] 5 6 7 8 9 = 4.dat"}, // the rows stay full while they can
         }) {
        (list.*step.press)();
        EXPECT_EQ(desk.Strip(), step.strip);
    }
    list.ClickRow(0);
    EXPECT_EQ(desk.Strip(), "[2] 4 5 6 7 8 9 = 2.dat");
    list.ClickRow(6);
    list.Remove();
    EXPECT_EQ(desk.Strip(), "1 2 4 5 6 7 [8] = 8.dat") << "behind the last stands the one before";
    for (int i = 0; i < 9; ++i)
        list.Remove();
    EXPECT_EQ(desk.S().results.list.LastEntry(), 6);
    EXPECT_TRUE(desk.user.messages.empty()) << "an empty row is silent";
    EXPECT_TRUE(std::filesystem::exists(desk.paths[9])) << "the files stay";
}

TEST(ListPanel, DoesNothingDuringARunAndTellsOfAFileThatIsGone) {
    ListDesk desk(9);
    desk.Load();
    std::filesystem::remove(desk.paths[1]);
    desk.S().run.Begin({});
    ListPanel& list = desk.program.List();
    for (const auto press : {&ListPanel::First, &ListPanel::Back, &ListPanel::Forward, &ListPanel::Last,
                             &ListPanel::Remove, &ListPanel::First})
        (list.*press)();
    list.ClickRow(3);
    desk.Load();
    EXPECT_EQ(desk.Strip(), "[0] 1 2 3 4 5 6 = 0.dat");
    desk.S().run.End();
    for (const int row : {-1, 7})
        list.ClickRow(row);
    EXPECT_EQ(desk.Strip(), "[0] 1 2 3 4 5 6 = 0.dat");
    list.ClickRow(1);
    EXPECT_EQ(desk.Strip(), "0 [1] 2 3 4 5 6 = 0.dat") << "the curve shown stays";
    EXPECT_TRUE(desk.user.WasTold("1.dat"));
}

TEST(ResultList, ANumberedFileGoesToTheFolderOfItsKind) {
    AutoSave autoSave;
    EXPECT_EQ(autoSave.NumberedFile(12, true, "/stores"), "/stores/12.dat");
    autoSave.SetPath("/data/series/first.dat");
    EXPECT_EQ(autoSave.NumberedFile(12, true, "/stores"), "/data/series/12.dat");
    autoSave.SetSeries("/data/auto", "cable");
    EXPECT_EQ(autoSave.NumberedFile(12, true, "/stores"), "/data/auto/cable12.dat");
    EXPECT_EQ(autoSave.NumberedFile(12, false, "/stores"), "/stores/12.dat");
}

TEST(ResultList, TheRowsFollowTheNewestFileAndTheListWraps) {
    ResultList list;
    const auto add = [&list] { list.AddNumbered("/data/" + NumberedName(list.NextNumber())); };
    for (int file = 0; file < 6; ++file)
        add();
    EXPECT_TRUE(list.IsOpen());
    EXPECT_EQ(list.Folder(), "/data/");
    EXPECT_EQ(list.MarkedRow(), 6);
    EXPECT_EQ(list.FirstEntry(), 0);
    EXPECT_EQ(list.Row(0), "0.dat");
    EXPECT_EQ(list.Row(6), "");
    for (int file = 6; file < 2048; ++file)
        add();
    EXPECT_EQ(list.FirstEntry(), 2041);
    EXPECT_EQ(list.LastEntry(), 2047);
    EXPECT_EQ(list.Row(6), "2047.dat");
    EXPECT_EQ(list.NextNumber(), 0);
    add();
    EXPECT_EQ(list.MarkedRow(), 1);
    EXPECT_EQ(list.Row(0), "0.dat");
    list.Clear();
    EXPECT_FALSE(list.IsOpen());
    EXPECT_EQ(list.NextNumber(), 0);
}

} // namespace
} // namespace qor::test
