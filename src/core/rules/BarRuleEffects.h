#pragma once

#include "RuleEffects.h"

namespace ravlin {

class Preferences;
class StatusBarController;

// Rules change the bar the ways the user does: layouts and placements through the status-bar
// controller, the panel style through the settings.
class BarRuleEffects final : public RuleEffects {
public:
    BarRuleEffects(StatusBarController& bar, Preferences& preferences)
        : m_bar(bar), m_preferences(preferences)
    {}

    QString activeLayout() const override;
    bool hasLayout(const QString& name) const override;
    void switchLayout(const QString& name, const QString& why) override;
    QString panelStyle() const override;
    bool setPanelStyle(const QString& raw) override;
    ItemPlacement placement(const QString& key) const override;
    void place(const QString& key, ItemPlacement placement) override;
    void revealFor(int seconds) override;

private:
    StatusBarController& m_bar;
    Preferences& m_preferences;
};

} // namespace ravlin
