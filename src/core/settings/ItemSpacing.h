#pragma once

#include "platform/MenuBarSpacing.h"

#include <QString>

namespace ravlin {

class DefaultsStore;

// The system-wide spacing of status items, as the user tunes it in Ravlin, and Ravlin's
// promise never to leave a changed system setting behind: before its first change it records
// what the system held ("ravlin.itemSpacing"), a reset removes the settings (the system's own
// default applies again), and when Ravlin is removed it puts back what was there before it,
// unless someone changed the values since.
class ItemSpacing {
public:
    static constexpr int minimum = 0;
    static constexpr int maximum = 24;
    // What the preview draws for a setting that is not set (the system's own default).
    static constexpr int defaultSpacing = 16;
    static constexpr int defaultPadding = 16;
    // Compact values that still leave each item a comfortable click target.
    static constexpr int compactSpacing = 6;
    static constexpr int compactPadding = 4;
    static inline const QString recordKey = QStringLiteral("ravlin.itemSpacing");

    ItemSpacing(MenuBarSpacing* spacing, DefaultsStore& defaults)
        : m_spacing(spacing), m_defaults(defaults)
    {}

    bool available() const { return m_spacing != nullptr; }
    SpacingValues stored() const;
    // What is in effect: the stored values, the system's defaults where none is stored.
    int spacing() const;
    int padding() const;
    // Whether the values stored now are the ones Ravlin wrote.
    bool changedByRavlin() const;

    // Stores both values (kept within the bounds); false when the system refused.
    bool apply(int spacing, int padding);
    // Removes both settings, so that the system's default applies; Ravlin keeps no record.
    bool resetToDefault();
    // Ravlin is going: what it changed goes back to what was there before. Values changed by
    // someone else since are left as they are.
    bool restoreOnRemoval();

private:
    struct Record {
        SpacingValues before;
        SpacingValues written;
    };
    std::optional<Record> record() const;
    void keep(const Record& record);

    MenuBarSpacing* m_spacing;
    DefaultsStore& m_defaults;
};

} // namespace ravlin
