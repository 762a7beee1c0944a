#pragma once

#include <QStringList>

#include <cstdint>
#include <optional>

namespace ravlin {

// What the running system's menu bar does, as Ravlin found it by watching its own
// items rather than by reading a version number.
struct MenuBarCapabilities {
    // Each status item is a window of its own in the window list (so it can be
    // captured and moved by events routed to it).
    bool itemWindows = true;
    // The window list names each item's own application as its owner (rather than
    // the system's process for all of them).
    bool windowOwnersAreReal = true;
    // The longest item the bar keeps; absent where long items are clamped, not dropped.
    std::optional<double> longestItem;
    // Where items are accessibility elements only: the process whose tree holds the bar.
    std::optional<std::int32_t> barOwnerPid;
    // What was seen, in words, for the log and the sandbox.
    QStringList findings;

    // Items that do not fit wait in the system's overflow menu where long items are dropped.
    bool hasOverflowMenu() const { return longestItem.has_value(); }
    // Where every item is a window of its own application, the system's items follow the item
    // spacing the user sets, as every application's do; where the bar's agent draws all items,
    // its own items keep their spacing.
    bool systemItemsFollowSpacing() const { return itemWindows; }
};

} // namespace ravlin
