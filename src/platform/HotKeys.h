#pragma once

#include <cstdint>
#include <functional>

namespace ravlin {

// System-wide hot keys, as the system registers them for an application: a
// virtual key code and a modifier mask (cmdKey, shiftKey, optionKey, controlKey).
// They need no accessibility permission and reach the application whichever
// application is in front.
class HotKeys {
public:
    // The system's answer when another application holds the chord (eventHotKeyExistsErr).
    static constexpr int alreadyTaken = -9878;

    virtual ~HotKeys() = default;
    // Registers the chord under the caller's id, replacing what the id had; 0 on success,
    // otherwise the system's error code.
    virtual int registerHotKey(std::uint32_t id, std::uint32_t keyCode,
                               std::uint32_t modifiers) = 0;
    virtual void unregisterHotKey(std::uint32_t id) = 0;

    // Told on the main thread when a registered chord is pressed, with its id.
    std::function<void(std::uint32_t id)> onPressed;
};

} // namespace ravlin
