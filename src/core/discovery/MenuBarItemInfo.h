#pragma once

#include "foundation/Geometry.h"

#include <QString>

#include <cstdint>

namespace ravlin {

// One status-item window as the window server lists it, in window-server
// coordinates. Two sightings of one window at different places are different
// values; code that wants the window compares `id`.
struct MenuBarItemInfo {
    std::int64_t id = 0;
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
    QString owner;
    QString name;

    double centerX() const { return x + width / 2; }
    double centerY() const { return y + height / 2; }
    WindowServerRect frame() const { return {x, y, width, height}; }
    QString displayName() const;
    // Judged by the window title alone: the owner of a system item varies.
    bool isSystem() const;

    bool operator==(const MenuBarItemInfo&) const = default;
};

size_t qHash(const MenuBarItemInfo& info, size_t seed = 0);

} // namespace ravlin
