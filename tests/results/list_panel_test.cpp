#include "bands/path_loss.h"
#include "results/file_list.h"
#include "results/list_panel.h"
#include "support/rig.h"

#include <gtest/gtest.h>

namespace qor::test {
namespace {

/// A program and a folder of results "0.dat", "1.dat", ... that are all alike.
struct ListDesk : Rig {
    explicit ListDesk(int count) {
        std::filesystem::create_directory(folder.Path());
        CurveState& curve = S().curve;
        curve.g_levelUp[0] = curve.g_levelUp[1] = -100.0f;
        S().select.m_BandId = BandEgsm;
        curve.StoreDataPot = 2;
        const auto first = folder / "0.dat";
        if (!program.Files().DataSave(first))
            ADD_FAILURE() << program.Files().LastProblem();
        for (int n = 0; n < count; ++n) {
            paths.push_back(folder / (std::to_string(n) + ".dat"));
            if (n > 0)
                std::filesystem::copy_file(first, paths.back());
        }
    }
    void Load() { program.List().Load(paths); }
    /// The rows, the marked one in brackets, and the file whose curve is shown.
    [[nodiscard]] std::string Strip() {
        const ResultState& results = S().results;
        std::string text;
        for (int row = 0; row < 7; ++row) {
            std::string name = results.m_FileRow[static_cast<std::size_t>(row)];
            name = name.empty() ? "-" : name.substr(0, name.find('.'));
            text += row == results.g_FileShown ? "[" + name + "] " : name + " ";
        }
        return text + "= " + S().curve.g_worstText;
    }

    TempDir folder;
    std::vector<std::filesystem::path> paths;
};

TEST(ListPanel, SeveralFilesOpenItAndOneClosesIt) {
    ListDesk desk(3);
    desk.S().plan.g_powerOffset = desk.S().plan.g_port2Loss = desk.S().plan.g_RxLoss = 2.5f;
    desk.program.List().Load({});
    EXPECT_EQ(desk.S().plan.g_powerOffset, 2.5f) << "nothing chosen, nothing changed";
    desk.Load();
    EXPECT_TRUE(desk.S().results.g_listPanelOpen);
    EXPECT_EQ(desk.Strip(), "[0] 1 2 - - - - = 0.dat");
    EXPECT_EQ(FileText(desk.dir / "LastLoadPath.ccz"), desk.paths[0].string());
    EXPECT_EQ(desk.S().plan.g_powerOffset + desk.S().plan.g_port2Loss + desk.S().plan.g_RxLoss, 0.0f);
    RestorePathLoss(desk.S(), desk.program.Stores());
    desk.program.List().ClickRow(1);
    EXPECT_EQ(desk.S().plan.g_powerOffset, 0.0f) << "a row shows a file too";
    EXPECT_EQ(OperatorsPathLoss(desk.S().plan).powerOffset, 2.5f);
    desk.paths.resize(1);
    desk.Load();
    EXPECT_FALSE(desk.S().results.g_listPanelOpen);
    EXPECT_EQ(desk.S().results.g_fileList[1], "") << "the earlier names are gone";
    desk.program.OnMeasButton();
    EXPECT_EQ(desk.S().plan.g_powerOffset, 2.5f) << "a run measures with the operator's losses again";
    EXPECT_EQ(desk.S().plan.g_port2Loss, 2.5f);
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
    list.ClickRow(6);
    list.Remove();
    EXPECT_EQ(desk.Strip(), "1 2 4 5 6 7 [8] = 8.dat") << "behind the last stands the one before";
    for (int i = 0; i < 9; ++i)
        list.Remove();
    EXPECT_EQ(desk.S().results.g_FileLast, 6);
    EXPECT_TRUE(desk.user.messages.empty()) << "an empty row is silent";
    EXPECT_TRUE(std::filesystem::exists(desk.paths[9])) << "the files stay";
}

TEST(ListPanel, DoesNothingDuringARunAndTellsOfAFileThatIsGone) {
    ListDesk desk(9);
    desk.Load();
    std::filesystem::remove(desk.paths[1]);
    desk.S().run.runOn = true;
    ListPanel& list = desk.program.List();
    for (const auto press : {&ListPanel::First, &ListPanel::Back, &ListPanel::Forward, &ListPanel::Last,
                             &ListPanel::Remove, &ListPanel::First})
        (list.*press)();
    list.ClickRow(3);
    desk.Load();
    EXPECT_EQ(desk.Strip(), "[0] 1 2 3 4 5 6 = 0.dat");
    desk.S().run.runOn = false;
    for (const int row : {-1, 7})
        list.ClickRow(row);
    EXPECT_EQ(desk.Strip(), "[0] 1 2 3 4 5 6 = 0.dat");
    list.ClickRow(1);
    EXPECT_EQ(desk.Strip(), "0 [1] 2 3 4 5 6 = 0.dat") << "the curve shown stays";
    EXPECT_TRUE(desk.user.WasTold("1.dat"));
}

} // namespace
} // namespace qor::test
