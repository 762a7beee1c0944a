#pragma once

#include "platform/Permissions.h"

namespace ravlin {

class MacPermissions final : public Permissions {
public:
    bool preflightScreenCaptureAccess() override;
    bool requestScreenCaptureAccess() override;
};

} // namespace ravlin
