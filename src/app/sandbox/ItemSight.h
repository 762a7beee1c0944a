#pragma once

#include "core/bar/HiddenBy.h"

#include <QHash>
#include <QString>

#include <cstdint>
#include <optional>

namespace ravlin::sandbox {

class SandboxSession;

// What the application makes of an item of the simulated bar: the key it knows the item by,
// and why, as it sees it, the user cannot see the item.
struct ItemSight {
    QString key;
    std::optional<HiddenBy> hiddenBy;
};

// By the item's process and title (the window numbers differ where items are elements only).
using ItemSights = QHash<QPair<std::int32_t, QString>, ItemSight>;
ItemSights itemSights(SandboxSession& session);

} // namespace ravlin::sandbox
