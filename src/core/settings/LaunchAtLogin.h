#pragma once

namespace ravlin {

class LoginItems;

// Keeps the application's login item in line with the user's choice.
namespace LaunchAtLogin {

// True only when the login item is enabled (one that waits for approval is not).
bool isEnabled(LoginItems& items);
// Registers or unregisters; a failure is logged, never reported.
void setEnabled(LoginItems& items, bool on);

} // namespace LaunchAtLogin
} // namespace ravlin
