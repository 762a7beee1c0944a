#pragma once

#include "platform/HotKeys.h"

#include <memory>

namespace ravlin {

// System-wide hot keys through the Carbon event manager (RegisterEventHotKey): no
// accessibility permission is needed, and presses arrive on the main thread as
// application events.
class MacHotKeys final : public HotKeys {
public:
    MacHotKeys();
    ~MacHotKeys() override;

    int registerHotKey(std::uint32_t id, std::uint32_t keyCode, std::uint32_t modifiers) override;
    void unregisterHotKey(std::uint32_t id) override;

    // Called by the event handler.
    void pressed(std::uint32_t signature, std::uint32_t id);

private:
    struct Impl;
    std::unique_ptr<Impl> m_impl;
};

} // namespace ravlin
