#pragma once

#include <QString>

#include <optional>

namespace ravlin {

// The service-management status of the application's login item.
enum class LoginItemStatus { NotRegistered = 0, Enabled = 1, RequiresApproval = 2, NotFound = 3 };

QString loginItemStatusName(LoginItemStatus status);
std::optional<LoginItemStatus> loginItemStatusFromName(const QString& name);

// Registers the application to start at login. Register and unregister return
// the error's readable description on failure, nothing on success.
class LoginItems {
public:
    virtual ~LoginItems() = default;
    virtual LoginItemStatus status() = 0;
    virtual std::optional<QString> registerItem() = 0;
    virtual std::optional<QString> unregisterItem() = 0;
};

} // namespace ravlin
