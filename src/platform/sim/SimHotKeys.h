#pragma once

#include "platform/HotKeys.h"

#include <QList>

#include <map>
#include <set>
#include <utility>

namespace ravlin {

// The simulated system's hot-key registry: it keeps what the application
// registered, refuses chords another application holds, and reports a press of a
// registered chord as the system would.
class SimHotKeys final : public HotKeys {
public:
    struct Registration {
        std::uint32_t keyCode = 0;
        std::uint32_t modifiers = 0;
    };

    int registerHotKey(std::uint32_t id, std::uint32_t keyCode, std::uint32_t modifiers) override;
    void unregisterHotKey(std::uint32_t id) override;

    // Another application holds (or lets go of) the chord.
    void setTakenElsewhere(std::uint32_t keyCode, std::uint32_t modifiers, bool taken);
    // A person presses the chord: true when a registration answered it.
    bool press(std::uint32_t keyCode, std::uint32_t modifiers);
    const std::map<std::uint32_t, Registration>& registrations() const { return m_registered; }

private:
    std::map<std::uint32_t, Registration> m_registered;
    std::set<std::pair<std::uint32_t, std::uint32_t>> m_takenElsewhere;
};

} // namespace ravlin
