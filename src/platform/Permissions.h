#pragma once

namespace ravlin {

// The screen-capture privacy permission. Accessibility trust is asked of the
// Accessibility service, where the platform keeps it.
class Permissions {
public:
    virtual ~Permissions() = default;

    // Never shows a prompt.
    virtual bool preflightScreenCaptureAccess() = 0;
    // May show the platform's prompt; answers what the platform answers.
    virtual bool requestScreenCaptureAccess() = 0;
};

} // namespace ravlin
