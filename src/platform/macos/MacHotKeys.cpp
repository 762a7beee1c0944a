#include "MacHotKeys.h"

#include <Carbon/Carbon.h>

#include <map>

namespace ravlin {
namespace {

// Marks the hot keys as this application's own.
constexpr OSType hotKeySignature = 'RVLN';

OSStatus hotKeyHandler(EventHandlerCallRef, EventRef event, void* userData)
{
    EventHotKeyID hotKey{};
    const OSStatus status =
        GetEventParameter(event, kEventParamDirectObject, typeEventHotKeyID, nullptr,
                          sizeof(hotKey), nullptr, &hotKey);
    if (status != noErr)
        return status;
    static_cast<MacHotKeys*>(userData)->pressed(hotKey.signature, hotKey.id);
    return noErr;
}

} // namespace

struct MacHotKeys::Impl {
    EventHandlerRef handler = nullptr;
    std::map<std::uint32_t, EventHotKeyRef> registered;
};

MacHotKeys::MacHotKeys() : m_impl(std::make_unique<Impl>())
{
    const EventTypeSpec pressedSpec{kEventClassKeyboard, kEventHotKeyPressed};
    InstallApplicationEventHandler(&hotKeyHandler, 1, &pressedSpec, this, &m_impl->handler);
}

MacHotKeys::~MacHotKeys()
{
    for (const auto& [id, ref] : m_impl->registered)
        UnregisterEventHotKey(ref);
    if (m_impl->handler)
        RemoveEventHandler(m_impl->handler);
}

int MacHotKeys::registerHotKey(std::uint32_t id, std::uint32_t keyCode, std::uint32_t modifiers)
{
    unregisterHotKey(id);
    const EventHotKeyID hotKey{hotKeySignature, id};
    EventHotKeyRef ref = nullptr;
    const OSStatus status = RegisterEventHotKey(keyCode, modifiers, hotKey,
                                                GetApplicationEventTarget(), 0, &ref);
    if (status == noErr && ref)
        m_impl->registered[id] = ref;
    return int(status);
}

void MacHotKeys::unregisterHotKey(std::uint32_t id)
{
    const auto it = m_impl->registered.find(id);
    if (it == m_impl->registered.end())
        return;
    UnregisterEventHotKey(it->second);
    m_impl->registered.erase(it);
}

void MacHotKeys::pressed(std::uint32_t signature, std::uint32_t id)
{
    if (signature == hotKeySignature && onPressed)
        onPressed(id);
}

} // namespace ravlin
