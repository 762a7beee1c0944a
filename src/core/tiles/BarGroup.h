#pragma once

#include "BarItem.h"

#include <vector>

namespace ravlin {

// One section of the tile panel; its title is its identity.
struct BarGroup {
    QString title;
    std::vector<BarItem> items; // bar order

    const QString& id() const { return title; }
    bool operator==(const BarGroup&) const = default;
};

} // namespace ravlin
