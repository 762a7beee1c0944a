#include "LaunchAtLogin.h"

#include "foundation/Logging.h"
#include "platform/LoginItems.h"

namespace ravlin::LaunchAtLogin {

bool isEnabled(LoginItems& items)
{
    return items.status() == LoginItemStatus::Enabled;
}

void setEnabled(LoginItems& items, bool on)
{
    const bool enabled = isEnabled(items);
    std::optional<QString> error;
    if (on && !enabled)
        error = items.registerItem();
    else if (!on && enabled)
        error = items.unregisterItem(); // one waiting for approval is left alone on purpose
    if (error)
        qCWarning(lcLogin).noquote()
            << QStringLiteral("Ravlin: LaunchAtLogin toggle failed: ") + *error;
}

} // namespace ravlin::LaunchAtLogin
