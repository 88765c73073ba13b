#pragma once

#include <functional>
#include <string_view>

namespace qor {

class SetupStore;
struct Platform;
struct Session;

/// Who sits in front of the program. It is asked at start when `user_EN.ccz` says so: an administrator gives
/// the password of `pin.ccz` and keeps the menu; an operator gives none and goes without.
struct UserState {
    bool administrator = false; ///< logged on with the password in this session
};

inline constexpr std::size_t PasswordLength = 6;

/// True when the dialog "User Mode" opens at start.
[[nodiscard]] bool AsksForUser(const SetupStore& store);
/// Turns that question on or off. Turned on, the operator is told what it means and `modifyPassword` opens.
/// False, with a message, when it could not be stored.
bool FlipUserModes(SetupStore& store, const Platform& platform, const std::function<void()>& modifyPassword);

/// False, with a message, for a wrong password. A store that is missing or empty means the one delivered.
bool LogOnAsAdministrator(std::string_view password, Session& session, const SetupStore& store,
                          const Platform& platform);
/// The menu goes and stays away until the program ends.
void LogOnAsOperator(Session& session);

enum class PasswordChange { Done, WrongOld, NotEqual, NotWritten };

/// Replaces the password by the first six characters of `chosen`; an empty one means the delivered one again.
/// The store keeps it as it is, other stations read it; it is readable by its owner only. A failed write
/// leaves the old one in force. WrongOld and NotWritten have been told.
PasswordChange ChangePassword(std::string_view old, std::string_view chosen, std::string_view repeated,
                              const SetupStore& store, const Platform& platform);

} // namespace qor
