#include "RuleDescription.h"

#include "core/settings/LanguageManager.h"
#include "core/settings/TileStyle.h"

namespace ravlin {

RuleDescription::RuleDescription(const LanguageManager& language, Namer itemName,
                                 Namer applicationName)
    : m_language(language), m_itemName(std::move(itemName)),
      m_applicationName(std::move(applicationName))
{}

QString RuleDescription::condition(const RuleCondition& c) const
{
    const LanguageManager& lm = m_language;
    switch (c.kind) {
    case RuleCondition::Kind::Display:
        if (c.on)
            return lm.L(QStringLiteral("rules.condition.display.on"));
        return lm.L(QStringLiteral("rules.condition.display.off"));
    case RuleCondition::Kind::Power:
        if (c.on)
            return lm.L(QStringLiteral("rules.condition.power.battery"));
        return lm.L(QStringLiteral("rules.condition.power.ac"));
    case RuleCondition::Kind::Wifi:
        return lm.L(QStringLiteral("rules.condition.wifi"), c.text);
    case RuleCondition::Kind::Application: {
        const QString name = m_applicationName ? m_applicationName(c.text) : c.text;
        if (c.frontmost)
            return lm.L(QStringLiteral("rules.condition.app.frontmost"), name);
        return lm.L(QStringLiteral("rules.condition.app.running"), name);
    }
    case RuleCondition::Kind::Focus:
        return c.text.isEmpty() ? lm.L(QStringLiteral("rules.condition.focus.any"))
                                : lm.L(QStringLiteral("rules.condition.focus"), c.text);
    case RuleCondition::Kind::Time:
        return lm.L(QStringLiteral("rules.condition.time"), minuteText(c.fromMinute),
                    minuteText(c.toMinute));
    case RuleCondition::Kind::Unknown:
        break;
    }
    return lm.L(QStringLiteral("rules.condition.unknown"));
}

QString RuleDescription::action(const RuleAction& a) const
{
    const LanguageManager& lm = m_language;
    switch (a.kind) {
    case RuleAction::Kind::Layout:
        return lm.L(QStringLiteral("rules.action.layout"), a.text);
    case RuleAction::Kind::ShowItem:
        return lm.L(QStringLiteral("rules.action.showItem"),
                    m_itemName ? m_itemName(a.text) : a.text);
    case RuleAction::Kind::Reveal:
        return lm.L(QStringLiteral("rules.action.reveal"), a.seconds);
    case RuleAction::Kind::PanelStyle: {
        const std::optional<TileStyle> style = tileStyleFromRawValue(a.text);
        return lm.L(QStringLiteral("rules.action.panelStyle"),
                    style ? lm.L(tileStyleTitleKey(*style)) : a.text);
    }
    case RuleAction::Kind::Unknown:
        break;
    }
    return lm.L(QStringLiteral("rules.action.unknown"));
}

QString RuleDescription::title(const Rule& rule) const
{
    if (!rule.name.trimmed().isEmpty())
        return rule.name.trimmed();
    QStringList parts;
    for (const RuleCondition& c : rule.conditions)
        parts.append(condition(c));
    return parts.isEmpty() ? m_language.L(QStringLiteral("rules.untitled"))
                           : parts.join(QStringLiteral(", "));
}

QString RuleDescription::inForceLine(const std::vector<Rule>& rules,
                                     const QStringList& inForce) const
{
    QStringList names;
    for (const Rule& rule : rules)
        if (inForce.contains(rule.id))
            names.append(title(rule));
    if (names.isEmpty())
        return QString();
    if (names.size() == 1)
        return m_language.L(QStringLiteral("rules.inForce"), names.front());
    return m_language.L(QStringLiteral("rules.inForce.many"), names.join(QStringLiteral("; ")));
}

} // namespace ravlin
