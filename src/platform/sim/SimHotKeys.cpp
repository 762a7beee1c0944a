#include "SimHotKeys.h"

namespace ravlin {

int SimHotKeys::registerHotKey(std::uint32_t id, std::uint32_t keyCode, std::uint32_t modifiers)
{
    m_registered.erase(id);
    if (m_takenElsewhere.count({keyCode, modifiers}))
        return alreadyTaken;
    for (const auto& [otherId, r] : m_registered)
        if (r.keyCode == keyCode && r.modifiers == modifiers)
            return alreadyTaken;
    m_registered[id] = {keyCode, modifiers};
    return 0;
}

void SimHotKeys::unregisterHotKey(std::uint32_t id)
{
    m_registered.erase(id);
}

void SimHotKeys::setTakenElsewhere(std::uint32_t keyCode, std::uint32_t modifiers, bool taken)
{
    if (taken)
        m_takenElsewhere.insert({keyCode, modifiers});
    else
        m_takenElsewhere.erase({keyCode, modifiers});
}

bool SimHotKeys::press(std::uint32_t keyCode, std::uint32_t modifiers)
{
    for (const auto& [id, r] : m_registered) {
        if (r.keyCode == keyCode && r.modifiers == modifiers) {
            if (onPressed)
                onPressed(id);
            return true;
        }
    }
    return false;
}

} // namespace ravlin
