#pragma once

#include "platform/Permissions.h"

namespace ravlin {

class SimDesktop;

class SimPermissions final : public Permissions {
public:
    explicit SimPermissions(SimDesktop& desktop) : m_desktop(desktop) {}

    bool preflightScreenCaptureAccess() override;
    bool requestScreenCaptureAccess() override;

private:
    SimDesktop& m_desktop;
};

} // namespace ravlin
