#include "core/user_modes.h"

#include "bands/setup_store.h"
#include "core/session.h"
#include "platform/operator.h"
#include "platform/platform.h"
#include "results/atomic_write.h"

namespace qor {

namespace {

constexpr std::string_view ModeStore = "user_EN.ccz";
constexpr std::string_view PasswordStore = "pin.ccz";
constexpr std::string_view DeliveredPassword = "740261";
constexpr unsigned OwnerOnly = 0600;

bool IsRight(std::string_view password, const SetupStore& store) {
    const std::string stored = store.Read(PasswordStore, PasswordLength).value_or("");
    return password == (stored.empty() ? DeliveredPassword : std::string_view(stored));
}

bool CheckPassword(std::string_view password, const SetupStore& store, const Platform& platform) {
    const bool right = IsRight(password, store);
    if (!right)
        platform.user.Message("Wrong password.");
    return right;
}

} // namespace

bool AsksForUser(const SetupStore& store) {
    return store.Read(ModeStore, 1) == "1";
}

bool FlipUserModes(SetupStore& store, const Platform& platform, const std::function<void()>& modifyPassword) {
    const bool on = !AsksForUser(store);
    if (on) {
        platform.user.Message("1. Password is needless for Operator mode.\r\n"
                              "2. Please modify password for adminitrator mode, please type \"740261\" in "
                              "\"old password\" field if no old password.");
        modifyPassword();
    }
    if (store.Write(ModeStore, on ? "1" : "0"))
        return true;
    platform.user.Message("Einbauen misserfolg");
    return false;
}

bool LogOnAsAdministrator(std::string_view password, Session& session, const SetupStore& store,
                          const Platform& platform) {
    session.user.administrator = CheckPassword(password, store, platform);
    return session.user.administrator;
}

void LogOnAsOperator(Session& session) {
    session.panel.menuShown = false;
}

PasswordChange ChangePassword(std::string_view old, std::string_view chosen, std::string_view repeated,
                              const SetupStore& store, const Platform& platform) {
    if (!CheckPassword(old, store, platform))
        return PasswordChange::WrongOld;
    if (chosen != repeated)
        return PasswordChange::NotEqual;
    if (WriteAtomically(store.PathOf(PasswordStore), chosen.substr(0, PasswordLength), OwnerOnly).empty())
        return PasswordChange::Done;
    platform.user.Message("Einbauen misserfolg");
    return PasswordChange::NotWritten;
}

} // namespace qor
