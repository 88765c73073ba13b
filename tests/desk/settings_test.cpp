#include "base/settings_file.h"
#include "desk/appearance.h"
#include "desk/commands.h"
#include "desk/setup/run_setup.h"
#include "desk/user_modes.h"
#include "support/rig.h"

namespace qor::test {
namespace {

TEST(SettingsFile, AValueIsFoundByItsWholeKey) {
    struct Case {
        const char* text;
        const char* handbook;
    };
    const TempDir dir;
    SetupStore store(dir.Path());
    EXPECT_EQ(SettingOf(store, "handbook"), "") << "no file";
    for (const Case& c : {Case{"handbook=/doc/a.pdf", "/doc/a.pdf"},
                          Case{"x=1\r\n  handbook =\t/doc/b c.pdf \r\n", "/doc/b c.pdf"},
                          Case{"handbook=https://a.b/?q=1&r=2\n", "https://a.b/?q=1&r=2"},
                          Case{"myhandbook=1\nhandbooks=2\n", ""}, Case{"#handbook=1\nhandbook=2", "2"},
                          Case{"handbook=1\nhandbook=2", "1"}, Case{"handbook\n=3\n", ""}, Case{"", ""},
                          Case{"\n\n=\n", ""}, Case{"handbook=", ""}}) {
        store.Write("qor.ini", c.text);
        EXPECT_EQ(SettingOf(store, "handbook"), c.handbook) << c.text;
    }
    store.Write("qor.ini", std::string(100000, 'x') + "\nhandbook=1\n");
    EXPECT_EQ(SettingOf(store, "handbook"), "") << "what is no settings file is not read to its end";
}

TEST(SettingsFile, NamesTheHandbookAndTheUpdatePages) {
    NotedLauncher launcher;
    NotedDialogs dialogs;
    Rig rig({}, nullptr, nullptr, nullptr, &launcher);
    Commands commands(rig.program, dialogs);
    SetupStore& store = rig.program.Stores();
    commands.Run("handbook");
    for (int region = 0; region < 3; ++region)
        commands.Run("update", region);
    EXPECT_TRUE(launcher.shown.empty());
    ASSERT_EQ(rig.user.messages.size(), 4u);
    const char* const keys[] = {"handbook=", "update_europe=", "update_america=", "update_asia_pacific="};
    for (std::size_t n = 0; n < 4; ++n)
        EXPECT_NE(rig.user.messages[n].find(keys[n]), std::string::npos) << "it says what to enter";

    store.Write("QOR_Handbook.html", "<p>");
    commands.Run("handbook");
    store.Write("QOR_Handbook.pdf", "%PDF");
    commands.Run("handbook");
    store.Write("qor.ini", "update_america=https://us\nupdate_europe=https://eu\n"
                           "update_asia_pacific=https://ap\nhandbook=https://book\n");
    commands.Run("handbook");
    for (const MenuLine& line : MenuLines())
        if (line.row.id == "update") {
            commands.Run(line.row);
            EXPECT_EQ(launcher.shown.back() == "https://us", line.row.caption == "America");
        }
    EXPECT_EQ(launcher.shown,
              (std::vector<std::string>{(rig.dir / "QOR_Handbook.html").string(),
                                        (rig.dir / "QOR_Handbook.pdf").string(), "https://book", "https://eu",
                                        "https://us", "https://ap"}));
    rig.user.messages.clear();
    launcher.works = false;
    commands.Run("handbook");
    EXPECT_TRUE(rig.user.WasTold("handbook=")) << "nothing on this computer can show it";
}

TEST(Appearance, ADraggedWindowBecomesALayoutOfItsOwn) {
    const TempDir dir;
    SetupStore store(dir.Path());
    Appearance look;
    const struct {
        WindowSize client;
        int layout;
        const char* stored;
    } cases[] = {
        {{1100, 700}, LayoutCustom, "1127 822"},
        {{900, 700}, LayoutCustom, "1051 822"},  // raised to the width of the normal form
        {{900, 500}, LayoutCustom, " 927 522"},  // the small form
        {{1100, 500}, LayoutCustom, "1127 790"}, // raised to the height of the normal form
        {{1918, 1100}, LayoutScreen, "1127 790"},
    };
    for (const auto& c : cases) {
        look.TakeDraggedSize(c.client, store);
        EXPECT_EQ(look.Layout(), c.layout) << c.client.width;
        EXPECT_EQ(store.Read("ResolutionCustom.ccz", 99), c.stored);
        EXPECT_EQ(store.Read("Resolution.ccz", 9), std::to_string(c.layout));
        EXPECT_EQ(Appearance(store).Custom(), look.Custom());
    }
}

TEST(Appearance, StoresAreReadWithinTheirBounds) {
    const TempDir dir;
    SetupStore store(dir.Path());
    for (const auto& [skin, number] :
         {std::pair("0000003", 3), {"0000009", 1}, {"", 1}, {"x", 1}, {"-000002", 1}}) {
        store.Write("skin.ccz", skin);
        EXPECT_EQ(Appearance(store).Skin(), number) << skin;
    }
    store.Write("Resolution.ccz", "9");
    store.Write("ResolutionCustom.ccz", "9999-120");
    EXPECT_EQ(Appearance(store).Layout(), Layout1024x600);
    EXPECT_EQ(Appearance(store).Custom(), (WindowSize{5000, 0}));
    Appearance look;
    EXPECT_FALSE(look.ChooseCustomLayout({5001, 10}, store));
    EXPECT_FALSE(look.ChooseCustomLayout({10, -1}, store));
    EXPECT_TRUE(look.ChooseCustomLayout({LargestSide, LargestSide}, store));
    EXPECT_TRUE(look.ChooseCustomLayout({0, 0}, store));
    EXPECT_EQ(store.Read("ResolutionCustom.ccz", 99), "   0   0");
    EXPECT_EQ(look.Size(), (WindowSize{0, 0}));
}

TEST(Appearance, ASecondClickOnALookEndsIt) {
    const TempDir dir;
    SetupStore store(dir.Path());
    Appearance look;
    EXPECT_TRUE(look.ChooseSkin(SkinAsh, store));
    EXPECT_EQ(store.Read("skin.ccz", 9), "0000003");
    EXPECT_TRUE(look.ChooseSkin(SkinAsh, store));
    EXPECT_EQ(look.Skin(), SkinVivid);
    EXPECT_FALSE(look.ChooseSkin(SkinVivid, store));
}

TEST(Appearance, LanguageKeepsTheRestOfTheInstallation) {
    const TempDir dir;
    SetupStore store(dir.Path());
    EXPECT_EQ(CurrentLanguage(store), Language::German);
    EXPECT_FALSE(ChooseLanguage(Language::German, store));
    EXPECT_TRUE(ChooseLanguage(Language::Chinese, store));
    EXPECT_EQ(store.Read("Install_info.ccz", 9), "10") << "the third character would stand for one port";
    store.Write("Install_info.ccz", "211");
    EXPECT_TRUE(ChooseLanguage(Language::English, store));
    EXPECT_EQ(store.Read("Install_info.ccz", 9), "011");
}

TEST(Appearance, NoPlotOnlyDisplayOnSmallPanels) {
    const TempDir dir;
    SetupStore store(dir.Path());
    Appearance look;
    look.ChooseLayout(Layout1024x600, store);
    EXPECT_FALSE(look.FlipPlotOnly(store));
    look.ChooseLayout(2, store);
    EXPECT_TRUE(look.FlipPlotOnly(store));
    EXPECT_EQ(store.Read("TagImageOnly.ccz", 9), "1");
    look.ChooseLayout(LayoutScreen, store);
    look.NoteScreen({1000, 700});
    EXPECT_FALSE(look.FlipPlotOnly(store));
    EXPECT_TRUE(look.IsPlotOnly());
}

TEST(UserModes, TheDeliveredPasswordHoldsUntilAnotherIsWritten) {
    Rig rig;
    SetupStore& store = rig.program.Stores();
    const auto opens = [&](const char* password) {
        return rig.Done(rig.S().user.LogOnAsAdministrator(password, store));
    };
    const auto change = [&](const char* old, const char* chosen, const char* repeated) {
        const PasswordChange result = ChangePassword(old, chosen, repeated, store);
        EXPECT_EQ(rig.Done(OutcomeOf(result)), result == PasswordChange::Done);
        return result;
    };
    EXPECT_TRUE(opens("740261"));
    EXPECT_FALSE(opens(""));
    EXPECT_FALSE(opens("7402610"));
    EXPECT_EQ(rig.user.messages, Times(2, "Wrong password."));
    EXPECT_FALSE(rig.S().user.IsAdministrator());
    EXPECT_EQ(change("123456", "abcdef", "abcdef"), PasswordChange::WrongOld);
    EXPECT_EQ(change("740261", "abcdef", "abcdeg"), PasswordChange::NotEqual);
    EXPECT_FALSE(store.Exists("pin.ccz"));

    EXPECT_EQ(change("740261", "abcdefg", "abcdefg"), PasswordChange::Done);
    EXPECT_EQ(FileText(rig.dir / "pin.ccz"), "abcdef");
    using std::filesystem::perms;
    EXPECT_EQ(std::filesystem::status(rig.dir / "pin.ccz").permissions(),
              perms::owner_read | perms::owner_write);
    EXPECT_FALSE(opens("740261"));
    EXPECT_TRUE(opens("abcdef"));
    EXPECT_TRUE(rig.S().user.IsAdministrator());
    store.Write("pin.ccz", "abcdefgh"); // of another station
    EXPECT_TRUE(opens("abcdef"));
    EXPECT_EQ(change("abcdef", "", ""), PasswordChange::Done);
    EXPECT_TRUE(opens("740261"));

    rig.user.messages.clear();
    std::filesystem::remove(rig.dir / "pin.ccz");
    std::filesystem::create_directory(rig.dir / "pin.ccz");
    EXPECT_EQ(change("740261", "abcdef", "abcdef"), PasswordChange::NotWritten);
    EXPECT_EQ(rig.user.messages, Times(1, "Einbauen misserfolg"));
}

TEST(UserModes, TheQuestionAtStartIsSwitchedOnAndOff) {
    Rig rig;
    SetupStore& store = rig.program.Stores();
    int asked = 0;
    const auto flip = [&] { return rig.Done(FlipUserModes(store, rig.user, [&] { ++asked; })); };
    EXPECT_FALSE(AsksForUser(store));
    EXPECT_TRUE(flip());
    EXPECT_TRUE(AsksForUser(store));
    EXPECT_EQ(asked, 1);
    EXPECT_TRUE(rig.user.WasTold("adminitrator"));
    EXPECT_TRUE(flip());
    EXPECT_EQ(FileText(rig.dir / "user_EN.ccz"), "0");
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(rig.user.messages.size(), 1U);
    store.Write("user_EN.ccz", "2");
    EXPECT_FALSE(AsksForUser(store));
}

TEST(RunSetup, NumbersAreHeldKeptAndExcludeEachOther) {
    Rig rig;
    const auto apply = [&](const RunSetup& setup, bool administrator) {
        EXPECT_EQ(!!rig.S().user.LogOnAsAdministrator(administrator ? "740261" : "", rig.program.Stores()),
                  administrator);
        return rig.Done(ApplyRunSetup(setup, rig.S().user.IsAdministrator(), rig.S().curve, rig.S().runs,
                                      rig.program.Stores()));
    };
    ASSERT_TRUE(
        apply({.seconds = 12, .runs = 10, .interval = 3, .saEnclosed = false, .continuous = false}, false));
    EXPECT_EQ(FileText(rig.dir / "2tone_time.ccz"), "0000012");
    EXPECT_EQ(FileText(rig.dir / "Sweeptime.ccz"), "0000010");
    EXPECT_EQ(FileText(rig.dir / "SweepInter.ccz"), "0000003");

    EXPECT_FALSE(
        apply({.seconds = 1, .runs = 11, .interval = 0, .saEnclosed = false, .continuous = false}, false));
    EXPECT_TRUE(rig.user.WasTold("Einbauen misserfolg"));
    EXPECT_EQ(rig.S().curve.Runs(), 10);
    EXPECT_TRUE(
        apply({.seconds = 0, .runs = 5000, .interval = -1, .saEnclosed = false, .continuous = false}, true));
    const RunSetup held = CurrentRunSetup(rig.S().curve, rig.S().runs);
    EXPECT_EQ(held.runs, 1000);
    EXPECT_EQ(held.seconds, 1);
    EXPECT_EQ(held.interval, 0);

    ASSERT_TRUE(
        apply({.seconds = 5, .runs = 1, .interval = 9, .saEnclosed = true, .continuous = false}, false));
    EXPECT_EQ(rig.S().curve.Runs(), 2);
    EXPECT_EQ(rig.S().runs.Interval(), 0);
    ASSERT_TRUE(
        apply({.seconds = 5, .runs = 4, .interval = 9, .saEnclosed = true, .continuous = true}, false));
    EXPECT_TRUE(rig.S().runs.IsContinuous());
    EXPECT_EQ(CurrentRunSetup(rig.S().curve, rig.S().runs).runs, 1) << "one run, again and again";
    EXPECT_FALSE(rig.S().runs.IsSaEnclosed());
}

} // namespace
} // namespace qor::test
