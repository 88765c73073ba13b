#include "curve/curve.h"
#include "desk/commands.h"
#include "support/wire_reading.h"

#include <set>

namespace qor::test {

namespace {

struct CommandRig : Rig {
    NotedDialogs dialogs;
    Commands commands{program, dialogs};
};

} // namespace

TEST(Menu, IsWellFormedAndNoKeyOrNameIsGivenTwice) {
    int depth = 0;
    std::set<std::string_view> keys;
    std::set<std::pair<std::string_view, int>> names;
    for (const MenuLine& line : MenuLines()) {
        const bool isRow = line.kind == MenuLine::Kind::Item || line.kind == MenuLine::Kind::Hidden;
        depth += line.kind == MenuLine::Kind::Menu ? 1 : line.kind == MenuLine::Kind::End ? -1 : 0;
        ASSERT_GE(depth, 0);
        EXPECT_EQ(line.caption.empty(), line.kind != MenuLine::Kind::Menu);
        EXPECT_EQ(isRow, names.emplace(line.row.id, line.row.argument).second && !line.row.id.empty())
            << line.row.id;
        EXPECT_EQ(line.row.caption.empty(), line.kind != MenuLine::Kind::Item) << line.row.id;
        EXPECT_TRUE(line.kind != MenuLine::Kind::Item || depth > 0) << line.row.id;
        const std::size_t tab = line.row.caption.find('\t');
        EXPECT_TRUE(tab == std::string::npos || keys.insert(line.row.caption.substr(tab)).second)
            << line.row.id;
    }
    EXPECT_EQ(depth, 0);
}

TEST(Commands, TheLevelBarIsKeptAsItIsShown) {
    CommandRig rig;
    for (const char* shown : {"1", "0"}) {
        NotedDialogs none;
        EXPECT_TRUE(Commands(rig.program, none).Run("histogram"));
        EXPECT_EQ(rig.S().curve.scale.ShowsBar(), *shown == '1');
        EXPECT_EQ(rig.Stored("histogram.ccz"), shown);
    }
}

/// A run is not to be disturbed: whatever is chosen, nothing goes out, nothing is asked, nothing changes.
TEST(Commands, DuringARunEverySetupIsRefused) {
    CommandRig rig;
    ASSERT_TRUE(rig.PowerOn());
    ASSERT_TRUE(rig.SelectBand(BandEgsm));
    rig.S().curve.SetLength(600000);
    rig.program.OnMeasButton();
    const std::set<std::string_view> free{
        "start_stop",  "exit",      "comment",       "unit",          "histogram",      "plot_only",
        "skin",        "layout",    "custom_layout", "alarm",         "alarm_stamp",    "under_limit_beep",
        "alarm_level", "beep_tone", "handbook",      "device_serial", "equipment_type", "calculator",
        "side_tool",   "update",    "about",         "marker",        "path_loss",      "load_rx_loss",
        "user_modes",  "print",     "print_direct",  "company_logo",  "report_language"};
    for (const MenuLine& line : MenuLines()) {
        const CommandRow& row = line.row;
        if (line.kind != MenuLine::Kind::Item || free.contains(row.id) || !rig.commands.IsEnabled(row))
            continue;
        rig.user.messages.clear();
        rig.dialogs.opened.clear();
        EXPECT_FALSE(rig.commands.Run(row));
        EXPECT_EQ(rig.user.messages, std::vector<std::string>{"\nHalten Messung erst!"}) << row.id;
        EXPECT_TRUE(rig.dialogs.opened.empty()) << row.id;
        EXPECT_TRUE(rig.user.questions.empty()) << row.id;
    }
    EXPECT_EQ(rig.S().working.Band(), BandEgsm);
    EXPECT_TRUE(rig.S().run.IsOn());
}

TEST(Commands, WithoutAnInstrumentItsCommandsSaySo) {
    CommandRig rig;
    rig.ports.Unplug(1);
    rig.program.Start(false);
    rig.time.RunFor(3000);
    for (const char* command : {"band_setup", "path"}) {
        rig.user.messages.clear();
        rig.commands.Run(command, 2);
        EXPECT_EQ(rig.user.messages, std::vector<std::string>{"Oeffnen port erst!"});
    }
    rig.commands.Run("order", 2);
    EXPECT_EQ(PanelOf(rig.S()).m_IM_sel, "IM5") << "the panel follows, only nothing is sent";
    EXPECT_TRUE(rig.user.WasTold("Oeffnen port erst!"));
    EXPECT_EQ(rig.S().working.Path(), 1);
    rig.commands.Run("band", BandEgsm);
    EXPECT_TRUE(rig.user.WasTold("Please select band after initailization completed."));
    rig.commands.Run("method", ModeSweep);
    EXPECT_TRUE(rig.user.WasTold("Initialisieren, bitte warten!"));
    rig.S().curve.Load({}); // a loaded curve is not to be set up anew
    rig.user.messages.clear();
    rig.commands.Run("order", 3);
    EXPECT_EQ(rig.user.messages, std::vector<std::string>{"Einbauen misserfolg"});
    EXPECT_EQ(rig.S().working.ImIndex(), 2);
}

TEST(Commands, PcsAsksWhichOfTheTwoIsMeant) {
    for (const auto& [choice, band] :
         {std::pair(Answer::Yes, BandPcs), {Answer::No, BandAws}, {Answer::Cancel, BandLte}}) {
        CommandRig rig;
        ASSERT_TRUE(rig.PowerOn());
        ASSERT_EQ(rig.S().working.Band(), BandLte);
        rig.user.choice = choice;
        rig.commands.Run("band", BandPcs);
        EXPECT_EQ(rig.S().working.Band(), band);
        EXPECT_TRUE(rig.commands.IsChecked(*FindCommand("band", band)));
    }
}

TEST(Commands, SpectrumBeginsAtOnceAndOnlyOnce) {
    CommandRig rig;
    ASSERT_TRUE(rig.PowerOn());
    ASSERT_TRUE(rig.SelectBand(BandEgsm));
    rig.commands.Run("method", ModeSpectrum);
    EXPECT_TRUE(rig.S().run.IsOn());
    rig.program.StopMeas();
    rig.RunUntilIdle();
    rig.commands.Run("method", ModeSpectrum);
    EXPECT_FALSE(rig.S().run.IsOn());
    EXPECT_EQ(rig.program.Stores().Read("testmode.ccz", 9), "3");
}

TEST(Commands, ADialogThatDoesNotOpenIsToldOfByItsBand) {
    CommandRig rig;
    ASSERT_TRUE(rig.PowerOn());
    rig.dialogs.opens = false;
    for (const auto& [command, argument, text] :
         {std::tuple("band_setup", static_cast<int>(BandAws), "Nichts einbauen AWS."),
          {"band_setup", static_cast<int>(BandLte700U), "Can not setup LTE 700 U."},
          {"marker", 1, "Can not setup Marker."},
          {"alarm_level", 0, "Can not setup Alarm."},
          {"comment", 0, "Oeffnen file Misserfolg"},
          {"plot_range", 0, "Einbauen misserfolg"}}) {
        rig.user.messages.clear();
        rig.commands.Run(command, argument);
        EXPECT_EQ(rig.user.messages, std::vector<std::string>{text});
    }
}

TEST(Commands, ClearEmptiesTheDisplayAndNothingElse) {
    CommandRig rig;
    ASSERT_TRUE(rig.PowerOn());
    ASSERT_TRUE(rig.SelectBand(BandEgsm));
    ASSERT_TRUE(rig.Measure());
    rig.commands.Run("clear_display");
    EXPECT_FALSE(rig.S().curve.HoldsPoints());
    EXPECT_EQ(rig.S().curve.ShownVerdict(), Verdict::None);
    EXPECT_EQ(PanelOf(rig.S()).m_ReadingText, "");
    EXPECT_EQ(rig.S().working.Band(), BandEgsm);
    EXPECT_TRUE(rig.Measure()) << "and the next run is as the first";
    EXPECT_EQ(rig.S().curve.ShownVerdict(), Verdict::Passed);
}

} // namespace qor::test
