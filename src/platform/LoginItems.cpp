#include "LoginItems.h"

namespace ravlin {

QString loginItemStatusName(LoginItemStatus status)
{
    switch (status) {
    case LoginItemStatus::NotRegistered:
        return QStringLiteral("notRegistered");
    case LoginItemStatus::Enabled:
        return QStringLiteral("enabled");
    case LoginItemStatus::RequiresApproval:
        return QStringLiteral("requiresApproval");
    case LoginItemStatus::NotFound:
        return QStringLiteral("notFound");
    }
    return QStringLiteral("notFound");
}

std::optional<LoginItemStatus> loginItemStatusFromName(const QString& name)
{
    for (auto status : {LoginItemStatus::NotRegistered, LoginItemStatus::Enabled,
                        LoginItemStatus::RequiresApproval, LoginItemStatus::NotFound}) {
        if (loginItemStatusName(status) == name)
            return status;
    }
    return std::nullopt;
}

} // namespace ravlin
