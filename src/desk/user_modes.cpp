#include "desk/user_modes.h"

#include "base/atomic_write.h"
#include "base/setup_store.h"
#include "platform/operator.h"

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

} // namespace

bool AsksForUser(const SetupStore& store) {
    return store.Read(ModeStore, 1) == "1";
}

Outcome FlipUserModes(SetupStore& store, Operator& user, const std::function<void()>& modifyPassword) {
    const bool on = !AsksForUser(store);
    if (on) {
        user.Message("1. Password is needless for Operator mode.\r\n"
                     "2. Please modify password for adminitrator mode, please type \"740261\" in "
                     "\"old password\" field if no old password.");
        modifyPassword();
    }
    return store.Write(ModeStore, on ? "1" : "0") ? Outcome::Done() : Outcome::Refused("Einbauen misserfolg");
}

Outcome UserState::LogOnAsAdministrator(std::string_view password, const SetupStore& store) {
    m_Administrator = IsRight(password, store);
    return m_Administrator ? Outcome::Done() : OutcomeOf(PasswordChange::WrongOld);
}

PasswordChange ChangePassword(std::string_view old, std::string_view chosen, std::string_view repeated,
                              const SetupStore& store) {
    if (!IsRight(old, store))
        return PasswordChange::WrongOld;
    if (chosen != repeated)
        return PasswordChange::NotEqual;
    if (WriteAtomically(store.PathOf(PasswordStore), chosen.substr(0, PasswordLength), OwnerOnly).empty())
        return PasswordChange::Done;
    return PasswordChange::NotWritten;
}

Outcome OutcomeOf(PasswordChange change) {
    switch (change) {
    case PasswordChange::WrongOld:
        return Outcome::Refused("Wrong password.");
    case PasswordChange::NotWritten:
        return Outcome::Refused("Einbauen misserfolg");
    case PasswordChange::NotEqual:
        return Outcome::Refused({});
    case PasswordChange::Done:
        break;
    }
    return Outcome::Done();
}

} // namespace qor
