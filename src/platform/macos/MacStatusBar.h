#pragma once

#include "platform/StatusBar.h"

namespace ravlin {

// NSStatusBar and NSStatusItem: items with autosave names, symbol images at
// 13 pt semibold drawn as templates, and menus attached only while they are open.
class MacStatusBar final : public StatusBar {
public:
    std::unique_ptr<StatusItem> createItem(double length, const QString& autosaveName) override;
    CurrentEvent currentEvent() const override;
    bool symbolExists(const QString& symbolName) const override;
};

} // namespace ravlin
