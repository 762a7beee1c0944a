#pragma once

#include "foundation/Geometry.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>

namespace ravlin {

// Mouse event types with the platform's numbers.
enum class MouseEventType : int {
    LeftMouseDown = 1,
    LeftMouseUp = 2,
    RightMouseDown = 3,
    RightMouseUp = 4,
    MouseMoved = 5,
    LeftMouseDragged = 6,
};

enum class MouseButton : int { Left = 0, Right = 1 };

// Where a synthesised event enters the event stream.
enum class EventTap : int { HID = 0, Session = 1 };

namespace EventFlag {
constexpr std::uint64_t shift = 0x20000;
constexpr std::uint64_t control = 0x40000;
constexpr std::uint64_t option = 0x80000;
constexpr std::uint64_t command = 0x100000;
} // namespace EventFlag

// Integer fields of an event, by the platform's raw numbers.
namespace EventField {
constexpr int targetProcessID = 40;
// Not one of the platform's named fields; with 91 and 92 it routes a mouse event to a window.
constexpr int windowNumber = 51;
constexpr int windowUnderMousePointer = 91;
constexpr int windowUnderMousePointerThatCanHandleThisEvent = 92;
} // namespace EventField

// One mouse event to synthesise.
struct MouseEvent {
    MouseEventType type = MouseEventType::LeftMouseDown;
    WindowServerPoint location;
    MouseButton button = MouseButton::Left;
    std::uint64_t flags = 0;
    std::map<int, std::int64_t> integerFields;
};

// An event source of the platform; opaque to the core.
using EventSource = std::shared_ptr<const void>;

class Events {
public:
    virtual ~Events() = default;

    // The combined-session state source (state identifier 0); null when it cannot be made.
    virtual EventSource createCombinedSessionSource() = 0;
    // Where the cursor is, read from a fresh event; nothing when it cannot be read.
    virtual std::optional<WindowServerPoint> cursorPosition() = 0;
    // Creates the event from source, sets its flags and fields and posts it.
    // False when the platform could not create it.
    virtual bool post(const EventSource& source, const MouseEvent& event, EventTap tap) = 0;
    virtual void warpCursor(WindowServerPoint point) = 0;

    // The person's hands as the hardware reports them (synthesised events do not count):
    // seconds since the last key press, pointer movement, click or scroll; whether a mouse
    // button is down; the modifier keys held, as EventFlag bits.
    virtual double secondsSinceUserInput() = 0;
    virtual bool mouseButtonDown() = 0;
    virtual std::uint64_t modifierFlagsHeld() = 0;
};

} // namespace ravlin
