#pragma once

#include "foundation/Geometry.h"

#include <QString>

#include <cstdint>
#include <optional>

namespace ravlin {

// One layer-25 window of the window list with what could be read of it; each
// scan decides which of the optional parts it needs.
struct StatusWindow {
    std::uint32_t number = 0;
    std::optional<std::int32_t> pid;
    std::optional<WindowServerRect> bounds;
    QString owner; // empty when the list gives none
    QString name;  // empty when the list gives none

    // This application's own items, whatever process the window server names.
    bool isOwn() const;
};

} // namespace ravlin
