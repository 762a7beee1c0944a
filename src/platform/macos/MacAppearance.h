#pragma once

#include "platform/Appearance.h"

#include <memory>

namespace ravlin {

// The system's light or dark appearance as the application object resolves it, followed
// through the system's notice of a theme change.
class MacAppearance final : public Appearance {
public:
    MacAppearance();
    ~MacAppearance() override;

    bool isDark() const override;

private:
    struct Impl;
    std::unique_ptr<Impl> m_impl;
};

} // namespace ravlin
