#pragma once

#include <optional>

namespace ravlin {

// The two system-wide settings that decide the room status items take: the gap between items
// (NSStatusItemSpacing) and the padding around a selected one (NSStatusItemSelectionPadding),
// in points. An absent value is a key that is not set: the system's own default applies.
struct SpacingValues {
    std::optional<int> spacing;
    std::optional<int> padding;

    bool isDefault() const { return !spacing && !padding; }
    bool operator==(const SpacingValues&) const = default;
};

// The settings where macOS keeps them, in the current host's global defaults. Applications
// read them when they start, so a change shows in each application's items once it restarts.
class MenuBarSpacing {
public:
    virtual ~MenuBarSpacing() = default;
    // What the global defaults hold now.
    virtual SpacingValues stored() = 0;
    // Writes both values, removing the key of an absent one; false when the system refused.
    virtual bool store(const SpacingValues& values) = 0;
};

} // namespace ravlin
