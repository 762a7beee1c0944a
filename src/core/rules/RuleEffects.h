#pragma once

#include "core/settings/ItemPlacement.h"

#include <QString>

namespace ravlin {

// What rules can change, as the rest of the program does it for the user (so that every hiding
// technique and every macOS generation follow).
class RuleEffects {
public:
    virtual ~RuleEffects() = default;

    virtual QString activeLayout() const = 0;
    virtual bool hasLayout(const QString& name) const = 0;
    virtual void switchLayout(const QString& name, const QString& why) = 0;
    virtual QString panelStyle() const = 0; // the raw value
    virtual bool setPanelStyle(const QString& raw) = 0;
    virtual ItemPlacement placement(const QString& key) const = 0;
    virtual void place(const QString& key, ItemPlacement placement) = 0;
    // Shows the hidden items in the bar for that long.
    virtual void revealFor(int seconds) = 0;
};

} // namespace ravlin
