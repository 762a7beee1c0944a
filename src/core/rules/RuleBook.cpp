#include "RuleBook.h"

#include "RuleCodec.h"
#include "foundation/DefaultsStore.h"
#include "foundation/Logging.h"

#include <QSet>

namespace ravlin {
namespace {

const QString oldDisplayKey = QStringLiteral("ravlin.layoutOnDisplay");
const QString oldBatteryKey = QStringLiteral("ravlin.layoutOnBattery");

// The rule one of the old switches becomes.
Rule occasionRule(const QString& id, const QString& layout)
{
    Rule rule;
    rule.id = id;
    RuleCondition condition;
    condition.kind = id == RuleBook::displayRuleId ? RuleCondition::Kind::Display
                                                   : RuleCondition::Kind::Power;
    condition.on = true;
    rule.conditions.push_back(condition);
    RuleAction action;
    action.kind = RuleAction::Kind::Layout;
    action.text = layout;
    rule.actions.push_back(action);
    return rule;
}

} // namespace

RuleBook::RuleBook(DefaultsStore& defaults, QObject* parent)
    : QObject(parent), m_defaults(defaults)
{}

std::vector<Rule> RuleBook::rules() const
{
    PlistValue value = m_defaults.persistentValue(defaultsKey);
    if (value == m_parsedFrom && !m_parsedFrom.isNull())
        return m_parsed;
    m_parsed = RuleCodec::fromPlist(value);
    m_parsedFrom = std::move(value);
    return m_parsed;
}

std::optional<Rule> RuleBook::rule(const QString& id) const
{
    for (const Rule& rule : rules())
        if (rule.id == id)
            return rule;
    return std::nullopt;
}

void RuleBook::setRules(const std::vector<Rule>& rules)
{
    std::vector<Rule> kept(rules.begin(),
                           rules.begin() + std::min<std::ptrdiff_t>(std::ptrdiff_t(rules.size()),
                                                                    RuleCodec::maxRules));
    if (kept.size() < rules.size())
        qCWarning(lcRules) << "only" << RuleCodec::maxRules << "rules are kept";
    if (kept == this->rules())
        return;
    m_defaults.set(defaultsKey, RuleCodec::toPlist(kept));
    m_defaults.noteUserChange();
    Q_EMIT changed();
}

QString RuleBook::freshId() const
{
    QSet<QString> taken;
    for (const Rule& rule : rules())
        taken.insert(rule.id);
    for (int n = 1;; ++n) {
        const QString id = QStringLiteral("rule%1").arg(n);
        if (!taken.contains(id))
            return id;
    }
}

void RuleBook::adoptLayoutSwitches()
{
    const QString onDisplay = m_defaults.stringForKey(oldDisplayKey).value_or(QString());
    const QString onBattery = m_defaults.stringForKey(oldBatteryKey).value_or(QString());
    if (m_defaults.persistentValue(oldDisplayKey).isNull() &&
        m_defaults.persistentValue(oldBatteryKey).isNull())
        return;
    std::vector<Rule> list = rules();
    for (const auto& occasion : {std::pair{displayRuleId, onDisplay},
                                 std::pair{batteryRuleId, onBattery}}) {
        const auto& id = occasion.first;
        const auto& layout = occasion.second;
        const bool exists = std::any_of(list.begin(), list.end(),
                                        [&](const Rule& r) { return r.id == id; });
        if (!layout.isEmpty() && !exists)
            list.push_back(occasionRule(id, layout));
    }
    qCInfo(lcRules).noquote() << "the layout switches of an earlier version became rules"
                              << (onDisplay.isEmpty() ? QString() : QStringLiteral("(display: %1)").arg(onDisplay))
                              << (onBattery.isEmpty() ? QString() : QStringLiteral("(battery: %1)").arg(onBattery));
    m_defaults.set(defaultsKey, RuleCodec::toPlist(list));
    m_defaults.remove(oldDisplayKey);
    m_defaults.remove(oldBatteryKey);
    Q_EMIT changed();
}

QString RuleBook::occasionLayout(const QString& id) const
{
    const std::optional<Rule> found = rule(id);
    if (!found)
        return QString();
    for (const RuleAction& action : found->actions)
        if (action.kind == RuleAction::Kind::Layout)
            return action.text;
    return QString();
}

void RuleBook::setOccasionLayout(const QString& id, const QString& layout)
{
    std::vector<Rule> list = rules();
    auto it = std::find_if(list.begin(), list.end(), [&](const Rule& r) { return r.id == id; });
    if (layout.isEmpty()) {
        if (it != list.end())
            list.erase(it);
    } else if (it == list.end()) {
        list.push_back(occasionRule(id, layout));
    } else {
        bool found = false;
        for (RuleAction& action : it->actions)
            if (action.kind == RuleAction::Kind::Layout) {
                action.text = layout;
                found = true;
            }
        if (!found)
            it->actions.push_back(occasionRule(id, layout).actions.front());
    }
    setRules(list);
}

} // namespace ravlin
