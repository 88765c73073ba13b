#include "core/commands.h"
#include "core/dialogs.h"
#include "core/settings_file.h"
#include "platform/launcher.h"
#include "support/rig.h"

#include <gtest/gtest.h>

namespace qor::test {
namespace {

class NoDialogs final : public Dialogs {
public:
    bool Open(DialogId, int) override { return false; }
};

class NotedLauncher final : public Launcher {
public:
    bool Show(const std::string& what) override {
        shown.push_back(what);
        return answers;
    }
    bool Start(const std::filesystem::path&) override { return false; }
    void RestartAfterEnd(bool) override {}
    std::vector<std::string> shown;
    bool answers = true;
};

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
    NoDialogs dialogs;
    Rig rig({}, nullptr, nullptr, nullptr, &launcher);
    Commands commands(rig.program, dialogs);
    SetupStore& store = rig.program.Stores();
    commands.Run(Command::Handbook);
    for (int region = 0; region < 3; ++region)
        commands.Run(Command::Update, region);
    EXPECT_TRUE(launcher.shown.empty());
    ASSERT_EQ(rig.user.messages.size(), 4u);
    const char* const keys[] = {"handbook=", "update_europe=", "update_america=", "update_asia_pacific="};
    for (std::size_t n = 0; n < 4; ++n)
        EXPECT_NE(rig.user.messages[n].find(keys[n]), std::string::npos) << "it says what to enter";

    store.Write("QOR_Handbook.html", "<p>");
    commands.Run(Command::Handbook);
    store.Write("QOR_Handbook.pdf", "%PDF");
    commands.Run(Command::Handbook);
    store.Write("qor.ini", "update_america=https://us\nupdate_europe=https://eu\n"
                           "update_asia_pacific=https://ap\nhandbook=https://book\n");
    commands.Run(Command::Handbook);
    for (int region = 0; region < 3; ++region)
        commands.Run(Command::Update, region);
    EXPECT_EQ(launcher.shown,
              (std::vector<std::string>{(rig.dir / "QOR_Handbook.html").string(),
                                        (rig.dir / "QOR_Handbook.pdf").string(), "https://book", "https://eu",
                                        "https://us", "https://ap"}));
    rig.user.messages.clear();
    launcher.answers = false;
    commands.Run(Command::Handbook);
    EXPECT_TRUE(rig.user.WasTold("handbook=")) << "nothing on this computer can show it";
}

} // namespace
} // namespace qor::test
