#pragma once

namespace ravlin {

// The gaps the system leaves between status items. macOS reads them from the
// current host's global defaults when a session starts, so a change shows after
// the user logs out and in again.
class MenuBarSpacing {
public:
    // Compact values that still leave each item a comfortable click target.
    static constexpr int compactSpacing = 6;
    static constexpr int compactPadding = 4;

    virtual ~MenuBarSpacing() = default;
    // Stores the spacing between items and the padding around a selected one, in
    // points; false when the system refused to store them.
    virtual bool apply(int spacing, int padding) = 0;
};

} // namespace ravlin
