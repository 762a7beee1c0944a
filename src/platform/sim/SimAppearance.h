#pragma once

#include "platform/Appearance.h"

namespace ravlin {

// The simulated system's appearance: dark unless a script or the sandbox window says light.
class SimAppearance final : public Appearance {
public:
    bool isDark() const override { return m_dark; }
    void setDark(bool dark)
    {
        if (dark == m_dark)
            return;
        m_dark = dark;
        announce();
    }

private:
    bool m_dark = true;
};

} // namespace ravlin
