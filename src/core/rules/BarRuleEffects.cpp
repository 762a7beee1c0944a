#include "BarRuleEffects.h"

#include "core/bar/StatusBarController.h"
#include "core/settings/Preferences.h"
#include "foundation/Logging.h"

namespace ravlin {

QString BarRuleEffects::activeLayout() const
{
    return m_bar.layouts().active();
}

bool BarRuleEffects::hasLayout(const QString& name) const
{
    return m_bar.layouts().layout(name).has_value();
}

void BarRuleEffects::switchLayout(const QString& name, const QString& why)
{
    m_bar.switchLayout(name, why);
}

QString BarRuleEffects::panelStyle() const
{
    return tileStyleRawValue(m_preferences.tileStyle());
}

bool BarRuleEffects::setPanelStyle(const QString& raw)
{
    const std::optional<TileStyle> style = tileStyleFromRawValue(raw);
    if (!style) {
        qCWarning(lcRules).noquote() << "a rule asks for the panel style" << raw
                                     << "which this version does not have";
        return false;
    }
    if (m_preferences.tileStyle() != *style)
        m_preferences.setTileStyle(*style);
    return true;
}

ItemPlacement BarRuleEffects::placement(const QString& key) const
{
    return m_preferences.placement(key);
}

void BarRuleEffects::place(const QString& key, ItemPlacement placement)
{
    m_bar.placeItem(key, placement);
}

void BarRuleEffects::revealFor(int seconds)
{
    m_bar.revealForAWhile(seconds);
}

} // namespace ravlin
