#pragma once

#include "platform/LoginItems.h"

namespace ravlin {

// The main application's login item through ServiceManagement (SMAppService.mainApp).
class SMAppServiceLoginItems final : public LoginItems {
public:
    LoginItemStatus status() override;
    std::optional<QString> registerItem() override;
    std::optional<QString> unregisterItem() override;
};

} // namespace ravlin
