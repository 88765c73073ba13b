#include "core/user_modes.h"
#include "support/rig.h"

namespace qor::test {

TEST(UserModes, TheDeliveredPasswordHoldsUntilAnotherIsWritten) {
    Rig rig;
    SetupStore& store = rig.program.Stores();
    const auto opens = [&](const char* password) {
        return LogOnAsAdministrator(password, rig.S(), store, rig.program.Parts());
    };
    const auto change = [&](const char* old, const char* chosen, const char* repeated) {
        return ChangePassword(old, chosen, repeated, store, rig.program.Parts());
    };
    EXPECT_TRUE(opens("740261"));
    EXPECT_FALSE(opens(""));
    EXPECT_FALSE(opens("7402610"));
    EXPECT_EQ(rig.user.messages, Times(2, "Wrong password."));
    EXPECT_FALSE(rig.S().user.administrator);
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
    EXPECT_TRUE(rig.S().user.administrator);
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
    const auto flip = [&] { return FlipUserModes(store, rig.program.Parts(), [&] { ++asked; }); };
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

} // namespace qor::test
