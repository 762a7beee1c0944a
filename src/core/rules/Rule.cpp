#include "Rule.h"

#include <array>
#include <utility>

namespace ravlin {
namespace {

constexpr std::array<std::pair<RuleCondition::Kind, const char16_t*>, 6> conditionNames = {{
    {RuleCondition::Kind::Display, u"display"},
    {RuleCondition::Kind::Power, u"power"},
    {RuleCondition::Kind::Wifi, u"wifi"},
    {RuleCondition::Kind::Application, u"app"},
    {RuleCondition::Kind::Focus, u"focus"},
    {RuleCondition::Kind::Time, u"time"},
}};

constexpr std::array<std::pair<RuleAction::Kind, const char16_t*>, 4> actionNames = {{
    {RuleAction::Kind::Layout, u"layout"},
    {RuleAction::Kind::ShowItem, u"showItem"},
    {RuleAction::Kind::Reveal, u"reveal"},
    {RuleAction::Kind::PanelStyle, u"panelStyle"},
}};

} // namespace

QString ruleConditionKindName(RuleCondition::Kind kind)
{
    for (const auto& [k, name] : conditionNames)
        if (k == kind)
            return QString::fromUtf16(name);
    return QStringLiteral("unknown");
}

std::optional<RuleCondition::Kind> ruleConditionKindFromName(const QString& name)
{
    for (const auto& [kind, n] : conditionNames)
        if (name == QString::fromUtf16(n))
            return kind;
    return std::nullopt;
}

QString ruleActionKindName(RuleAction::Kind kind)
{
    for (const auto& [k, name] : actionNames)
        if (k == kind)
            return QString::fromUtf16(name);
    return QStringLiteral("unknown");
}

std::optional<RuleAction::Kind> ruleActionKindFromName(const QString& name)
{
    for (const auto& [kind, n] : actionNames)
        if (name == QString::fromUtf16(n))
            return kind;
    return std::nullopt;
}

QString minuteText(int minute)
{
    return QStringLiteral("%1:%2")
        .arg(minute / 60, 2, 10, QLatin1Char('0'))
        .arg(minute % 60, 2, 10, QLatin1Char('0'));
}

std::optional<int> minuteFromText(const QString& text)
{
    const QStringList parts = text.trimmed().split(u':');
    if (parts.size() != 2 || parts[0].isEmpty() || parts[0].size() > 2 || parts[1].size() != 2)
        return std::nullopt;
    bool hoursOk = false, minutesOk = false;
    const int hours = parts[0].toInt(&hoursOk);
    const int minutes = parts[1].toInt(&minutesOk);
    if (!hoursOk || !minutesOk || hours < 0 || hours > 23 || minutes < 0 || minutes > 59)
        return std::nullopt;
    return hours * 60 + minutes;
}

} // namespace ravlin
