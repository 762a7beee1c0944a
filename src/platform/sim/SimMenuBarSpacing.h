#pragma once

#include "platform/MenuBarSpacing.h"

namespace ravlin {

// The simulated system's global defaults for the item spacing: what is stored, and how often
// it was written. The simulated bar keeps its layout whatever they say.
class SimMenuBarSpacing final : public MenuBarSpacing {
public:
    SpacingValues stored() override { return m_stored; }
    bool store(const SpacingValues& values) override
    {
        if (m_refuses)
            return false;
        m_stored = values;
        ++m_writes;
        return true;
    }

    // The values someone stored before (the user, with the defaults tool).
    void setStored(const SpacingValues& values) { m_stored = values; }
    void setRefuses(bool refuses) { m_refuses = refuses; }
    int writes() const { return m_writes; }

private:
    SpacingValues m_stored;
    bool m_refuses = false;
    int m_writes = 0;
};

} // namespace ravlin
