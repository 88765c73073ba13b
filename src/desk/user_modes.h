#pragma once

#include "base/outcome.h"

#include <functional>
#include <string_view>

namespace qor {

class Operator;
class SetupStore;

/// Who sits in front of the program. It is asked at start when `user_EN.ccz` says so: an administrator gives
/// the password of `pin.ccz` and keeps the menu; an operator gives none and goes without.
class UserState {
public:
    [[nodiscard]] bool IsAdministrator() const { return m_Administrator; }
    /// The menu bar is gone, until the program ends.
    [[nodiscard]] bool IsOperator() const { return m_Operator; }

    /// Refused for a wrong password. A store that is missing or empty means the one delivered.
    Outcome LogOnAsAdministrator(std::string_view password, const SetupStore& store);
    void LogOnAsOperator() { m_Operator = true; }

private:
    bool m_Administrator = false; ///< logged on with the password in this session
    bool m_Operator = false;
};

inline constexpr std::size_t PasswordLength = 6;

/// True when the dialog "User Mode" opens at start.
[[nodiscard]] bool AsksForUser(const SetupStore& store);
/// Turns that question on or off. Turned on, the operator is told what it means and `modifyPassword` opens.
/// Refused when it could not be stored.
Outcome FlipUserModes(SetupStore& store, Operator& user, const std::function<void()>& modifyPassword);

enum class PasswordChange { Done, WrongOld, NotEqual, NotWritten };

/// Replaces the password by the first six characters of `chosen`; an empty one means the delivered one again.
/// The store keeps it as it is, other stations read it; it is readable by its owner only. A failed write
/// leaves the old one in force.
[[nodiscard]] PasswordChange ChangePassword(std::string_view old, std::string_view chosen,
                                            std::string_view repeated, const SetupStore& store);
/// What is said of it. Two entries that differ are told at their fields.
Outcome OutcomeOf(PasswordChange change);

} // namespace qor
