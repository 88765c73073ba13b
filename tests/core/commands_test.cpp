#include "core/commands.h"
#include "core/dialogs.h"
#include "display/curve_store.h"
#include "platform/launcher.h"
#include "support/wire_reading.h"

#include <set>

namespace qor::test {

namespace {

class NotedDialogs final : public Dialogs {
public:
    bool Open(DialogId dialog, int argument) override {
        opened.emplace_back(dialog, argument);
        return opens;
    }
    std::vector<std::pair<DialogId, int>> opened;
    bool opens = true;
};

struct CommandRig : Rig {
    NotedDialogs dialogs;
    Commands commands{program, dialogs};
};

std::vector<MenuLine> Items() {
    std::vector<MenuLine> items;
    for (const MenuLine& line : MenuLines())
        if (line.kind == MenuLine::Kind::Item)
            items.push_back(line);
    return items;
}

} // namespace

TEST(Menu, IsWellFormedAndNoKeyIsGivenTwice) {
    int depth = 0;
    std::set<std::string> keys;
    for (const MenuLine& line : MenuLines()) {
        depth += line.kind == MenuLine::Kind::Menu ? 1 : line.kind == MenuLine::Kind::End ? -1 : 0;
        ASSERT_GE(depth, 0);
        const bool shown = line.kind == MenuLine::Kind::Item || line.kind == MenuLine::Kind::Menu;
        EXPECT_TRUE(line.kind != MenuLine::Kind::Item || depth > 0) << CaptionOf(line);
        EXPECT_EQ(CaptionOf(line).empty(), !shown);
        const std::string caption(CaptionOf(line));
        const std::size_t tab = caption.find('\t');
        EXPECT_TRUE(tab == std::string::npos || keys.insert(caption.substr(tab)).second) << caption;
    }
    EXPECT_EQ(depth, 0);
}

/// A run is not to be disturbed: whatever is chosen, nothing goes out, nothing is asked, nothing changes.
TEST(Commands, DuringARunEverySetupIsRefused) {
    CommandRig rig;
    ASSERT_TRUE(rig.PowerOn());
    ASSERT_TRUE(rig.SelectBand(BandEgsm));
    rig.S().curve.g_testTimeMs = 600000;
    rig.program.OnMeasButton();
    const std::set<Command> free{
        Command::StartStop,     Command::Exit,       Command::Comment,    Command::LevelUnit,
        Command::Histogram,     Command::PlotOnly,   Command::Skin,       Command::Layout,
        Command::CustomLayout,  Command::Alarm,      Command::AlarmStamp, Command::UnderLimitBeep,
        Command::AlarmLevel,    Command::BeepTone,   Command::Handbook,   Command::DeviceSerial,
        Command::EquipmentType, Command::Calculator, Command::SideTool,   Command::Update,
        Command::About,         Command::Marker,     Command::PathLoss,   Command::LoadRxLoss,
        Command::UserMode};
    for (const MenuLine& item : Items()) {
        if (free.contains(item.command) || !rig.commands.IsEnabled(item.command, item.argument))
            continue;
        rig.user.messages.clear();
        rig.dialogs.opened.clear();
        rig.commands.Run(item.command, item.argument);
        EXPECT_EQ(rig.user.messages, std::vector<std::string>{"\nHalten Messung erst!"}) << CaptionOf(item);
        EXPECT_TRUE(rig.dialogs.opened.empty()) << CaptionOf(item);
        EXPECT_TRUE(rig.user.questions.empty()) << CaptionOf(item);
    }
    EXPECT_EQ(rig.S().select.m_BandId, BandEgsm);
    EXPECT_TRUE(rig.S().run.runOn);
}

TEST(Commands, WithoutAnInstrumentItsCommandsSaySo) {
    CommandRig rig;
    rig.ports.Unplug(1);
    rig.program.Start(false);
    rig.time.RunFor(3000);
    for (const Command command : {Command::BandSetup, Command::Path}) {
        rig.user.messages.clear();
        rig.commands.Run(command, 2);
        EXPECT_EQ(rig.user.messages, std::vector<std::string>{"Oeffnen port erst!"});
    }
    rig.commands.Run(Command::Order, 2);
    EXPECT_EQ(rig.S().panel.m_IM_sel, "IM5") << "the panel follows, only nothing is sent";
    EXPECT_TRUE(rig.user.WasTold("Oeffnen port erst!"));
    rig.commands.Run(Command::SelectBand, BandEgsm);
    EXPECT_TRUE(rig.user.WasTold("Please select band after initailization completed."));
    rig.commands.Run(Command::Method, ModeSweep);
    EXPECT_TRUE(rig.user.WasTold("Initialisieren, bitte warten!"));
    rig.S().curve.g_fromFile = 1; // a loaded curve is not to be set up anew
    rig.user.messages.clear();
    rig.commands.Run(Command::Order, 3);
    EXPECT_EQ(rig.user.messages, std::vector<std::string>{"Einbauen misserfolg"});
    EXPECT_EQ(rig.S().select.m_IMIndex, 2);
}

TEST(Commands, PcsAsksWhichOfTheTwoIsMeant) {
    for (const auto& [choice, band] :
         {std::pair(Answer::Yes, BandPcs), {Answer::No, BandAws}, {Answer::Cancel, BandLte}}) {
        CommandRig rig;
        ASSERT_TRUE(rig.PowerOn());
        ASSERT_EQ(rig.S().select.m_BandId, BandLte);
        rig.user.choice = choice;
        rig.commands.Run(Command::SelectBand, BandPcs);
        EXPECT_EQ(rig.S().select.m_BandId, band);
        EXPECT_TRUE(rig.commands.IsChecked(Command::SelectBand, band));
    }
}

TEST(Commands, SpectrumBeginsAtOnceAndOnlyOnce) {
    CommandRig rig;
    ASSERT_TRUE(rig.PowerOn());
    ASSERT_TRUE(rig.SelectBand(BandEgsm));
    rig.commands.Run(Command::Method, ModeSpectrum);
    EXPECT_TRUE(rig.S().run.runOn);
    rig.program.StopMeas();
    rig.RunUntilIdle();
    rig.commands.Run(Command::Method, ModeSpectrum);
    EXPECT_FALSE(rig.S().run.runOn);
    EXPECT_EQ(rig.program.Stores().Read("testmode.ccz", 9), "3");
}

TEST(Commands, ADialogThatDoesNotOpenIsToldOfByItsBand) {
    CommandRig rig;
    ASSERT_TRUE(rig.PowerOn());
    rig.dialogs.opens = false;
    for (const auto& [command, argument, text] :
         {std::tuple(Command::BandSetup, static_cast<int>(BandAws), "Nichts einbauen AWS."),
          {Command::BandSetup, static_cast<int>(BandLte700U), "Can not setup LTE 700 U."},
          {Command::Marker, 1, "Can not setup Marker."},
          {Command::AlarmLevel, 0, "Can not setup Alarm."},
          {Command::Comment, 0, "Oeffnen file Misserfolg"},
          {Command::PlotRange, 0, "Einbauen misserfolg"}}) {
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
    rig.commands.ClearDisplay();
    EXPECT_FALSE(HoldsPoints(rig.S().curve));
    EXPECT_EQ(rig.S().curve.g_MeasVerdict, VerdictNone);
    EXPECT_EQ(rig.S().panel.m_ReadingText, "");
    EXPECT_EQ(rig.S().select.m_BandId, BandEgsm);
    EXPECT_TRUE(rig.Measure()) << "and the next run is as the first";
    EXPECT_EQ(rig.S().curve.g_MeasVerdict, VerdictPassed);
}

} // namespace qor::test
