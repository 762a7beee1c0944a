#include "RuleCodec.h"

#include "foundation/Logging.h"

#include <QSet>

#include <algorithm>

namespace ravlin {
namespace {

QString text(const PlistDict& d, const QString& key)
{
    return d.value(key).asString().value_or(QString());
}

std::optional<RuleCondition> timeCondition(const PlistDict& d)
{
    const std::optional<int> from = minuteFromText(text(d, QStringLiteral("from")));
    const std::optional<int> to = minuteFromText(text(d, QStringLiteral("to")));
    if (!from || !to)
        return std::nullopt;
    RuleCondition c;
    c.kind = RuleCondition::Kind::Time;
    c.fromMinute = *from;
    c.toMinute = *to;
    return c;
}

// A name the condition or action is about. Empty while the user has not filled it in: such a
// part is kept, never holds and does nothing.
std::optional<QString> needed(const PlistDict& d, const QString& key)
{
    if (!d.contains(key))
        return std::nullopt;
    const QString value = text(d, key).trimmed();
    if (value.size() > 200)
        return std::nullopt;
    return value;
}

} // namespace

std::optional<RuleCondition> RuleCodec::conditionFromPlist(const PlistValue& value)
{
    const PlistDict* d = value.asDict();
    if (!d)
        return std::nullopt;
    const QString kindName = text(*d, QStringLiteral("kind"));
    const std::optional<RuleCondition::Kind> kind = ruleConditionKindFromName(kindName);
    RuleCondition c;
    if (!kind) {
        if (kindName.isEmpty())
            return std::nullopt;
        c.kind = RuleCondition::Kind::Unknown;
        c.unread = value;
        return c;
    }
    c.kind = *kind;
    switch (*kind) {
    case RuleCondition::Kind::Display: {
        // Absent means "connected"; anything but a yes or no is not read as one.
        const PlistValue connected = d->value(QStringLiteral("connected"));
        const std::optional<bool> on = connected.isNull() ? std::optional<bool>(true) : connected.asBool();
        if (!on)
            return std::nullopt;
        c.on = *on;
        return c;
    }
    case RuleCondition::Kind::Power: {
        const QString source = text(*d, QStringLiteral("source"));
        if (source != u"battery" && source != u"ac")
            return std::nullopt;
        c.on = source == u"battery";
        return c;
    }
    case RuleCondition::Kind::Wifi: {
        const std::optional<QString> network = needed(*d, QStringLiteral("network"));
        if (!network)
            return std::nullopt;
        c.text = *network;
        return c;
    }
    case RuleCondition::Kind::Application: {
        const std::optional<QString> bundle = needed(*d, QStringLiteral("bundle"));
        const QString state = text(*d, QStringLiteral("state"));
        if (!bundle || (state != u"running" && state != u"frontmost"))
            return std::nullopt;
        c.text = *bundle;
        c.frontmost = state == u"frontmost";
        return c;
    }
    case RuleCondition::Kind::Focus:
        c.text = text(*d, QStringLiteral("mode")).trimmed().left(200);
        return c;
    case RuleCondition::Kind::Time:
        return timeCondition(*d);
    case RuleCondition::Kind::Unknown:
        break;
    }
    return std::nullopt;
}

PlistValue RuleCodec::conditionToPlist(const RuleCondition& c)
{
    if (c.kind == RuleCondition::Kind::Unknown)
        return c.unread;
    PlistDict d{{QStringLiteral("kind"), ruleConditionKindName(c.kind)}};
    switch (c.kind) {
    case RuleCondition::Kind::Display:
        d.insert(QStringLiteral("connected"), c.on);
        break;
    case RuleCondition::Kind::Power:
        d.insert(QStringLiteral("source"), c.on ? QStringLiteral("battery") : QStringLiteral("ac"));
        break;
    case RuleCondition::Kind::Wifi:
        d.insert(QStringLiteral("network"), c.text);
        break;
    case RuleCondition::Kind::Application:
        d.insert(QStringLiteral("bundle"), c.text);
        d.insert(QStringLiteral("state"),
                 c.frontmost ? QStringLiteral("frontmost") : QStringLiteral("running"));
        break;
    case RuleCondition::Kind::Focus:
        d.insert(QStringLiteral("mode"), c.text);
        break;
    case RuleCondition::Kind::Time:
        d.insert(QStringLiteral("from"), minuteText(c.fromMinute));
        d.insert(QStringLiteral("to"), minuteText(c.toMinute));
        break;
    case RuleCondition::Kind::Unknown:
        break;
    }
    return d;
}

std::optional<RuleAction> RuleCodec::actionFromPlist(const PlistValue& value)
{
    const PlistDict* d = value.asDict();
    if (!d)
        return std::nullopt;
    const QString kindName = text(*d, QStringLiteral("kind"));
    const std::optional<RuleAction::Kind> kind = ruleActionKindFromName(kindName);
    RuleAction a;
    if (!kind) {
        if (kindName.isEmpty())
            return std::nullopt;
        a.kind = RuleAction::Kind::Unknown;
        a.unread = value;
        return a;
    }
    a.kind = *kind;
    std::optional<QString> what;
    switch (*kind) {
    case RuleAction::Kind::Layout:
        what = needed(*d, QStringLiteral("name"));
        break;
    case RuleAction::Kind::ShowItem:
        what = needed(*d, QStringLiteral("key"));
        break;
    case RuleAction::Kind::PanelStyle:
        what = needed(*d, QStringLiteral("style"));
        break;
    case RuleAction::Kind::Reveal: {
        const std::optional<std::int64_t> seconds = d->value(QStringLiteral("seconds")).asInteger();
        if (!seconds)
            return std::nullopt;
        a.seconds = int(std::clamp<std::int64_t>(*seconds, Rule::shortestReveal, Rule::longestReveal));
        return a;
    }
    case RuleAction::Kind::Unknown:
        break;
    }
    if (!what)
        return std::nullopt;
    a.text = *what;
    return a;
}

PlistValue RuleCodec::actionToPlist(const RuleAction& a)
{
    if (a.kind == RuleAction::Kind::Unknown)
        return a.unread;
    PlistDict d{{QStringLiteral("kind"), ruleActionKindName(a.kind)}};
    switch (a.kind) {
    case RuleAction::Kind::Layout:
        d.insert(QStringLiteral("name"), a.text);
        break;
    case RuleAction::Kind::ShowItem:
        d.insert(QStringLiteral("key"), a.text);
        break;
    case RuleAction::Kind::PanelStyle:
        d.insert(QStringLiteral("style"), a.text);
        break;
    case RuleAction::Kind::Reveal:
        d.insert(QStringLiteral("seconds"), a.seconds);
        break;
    case RuleAction::Kind::Unknown:
        break;
    }
    return d;
}

std::vector<Rule> RuleCodec::fromPlist(const PlistValue& value)
{
    std::vector<Rule> rules;
    const PlistArray* list = value.asArray();
    if (!list) {
        if (!value.isNull())
            qCWarning(lcRules) << "the stored rules are not a list; no rule is in force";
        return rules;
    }
    // Every id written, so that one given to a rule without its own takes none of them.
    QSet<QString> ids;
    for (const PlistValue& entry : *list)
        if (const PlistDict* d = entry.asDict())
            ids.insert(text(*d, QStringLiteral("id")).trimmed().left(100));
    QSet<QString> taken;
    int skipped = 0;
    int renamed = 0;
    for (const PlistValue& entry : *list) {
        if (int(rules.size()) == maxRules) {
            qCWarning(lcRules) << "the settings hold" << list->size() << "rules; only the first"
                               << maxRules << "are read";
            break;
        }
        const PlistDict* d = entry.asDict();
        if (!d) {
            ++skipped;
            continue;
        }
        QString id = text(*d, QStringLiteral("id")).trimmed().left(100);
        if (id.isEmpty() || taken.contains(id)) {
            // Written by hand without an id, or copied with its id: a rule of its own all the same.
            ++renamed;
            for (int n = 1; id.isEmpty() || taken.contains(id) || ids.contains(id); ++n)
                id = QStringLiteral("rule%1").arg(n);
        }
        Rule rule;
        rule.id = id;
        taken.insert(id);
        rule.name = text(*d, QStringLiteral("name")).left(200);
        rule.enabled = d->value(QStringLiteral("enabled")).asBool().value_or(true);
        // A part that cannot be read is kept as it was, as one of another version's is: left
        // out, a condition would let the rule hold more widely than the user wrote it.
        int unread = 0;
        const PlistValue when = d->value(QStringLiteral("when"));
        for (const PlistValue& c : when.asArray() ? *when.asArray() : PlistArray{}) {
            if (int(rule.conditions.size()) == Rule::maxConditions)
                break;
            if (std::optional<RuleCondition> condition = conditionFromPlist(c)) {
                rule.conditions.push_back(std::move(*condition));
                continue;
            }
            ++unread;
            RuleCondition kept;
            kept.kind = RuleCondition::Kind::Unknown;
            kept.unread = c;
            rule.conditions.push_back(std::move(kept));
        }
        const PlistValue then = d->value(QStringLiteral("then"));
        for (const PlistValue& a : then.asArray() ? *then.asArray() : PlistArray{}) {
            if (int(rule.actions.size()) == Rule::maxActions)
                break;
            if (std::optional<RuleAction> action = actionFromPlist(a)) {
                rule.actions.push_back(std::move(*action));
                continue;
            }
            ++unread;
            RuleAction kept;
            kept.kind = RuleAction::Kind::Unknown;
            kept.unread = a;
            rule.actions.push_back(std::move(kept));
        }
        if (unread > 0)
            qCWarning(lcRules).noquote()
                << unread << "parts of the stored rule" << id
                << "cannot be read; they are kept as they are, and the rule is never in force"
                   " while one of its conditions cannot be read";
        rules.push_back(std::move(rule));
    }
    if (skipped > 0)
        qCWarning(lcRules) << skipped << "entries of the stored rules are not rules and are left out";
    if (renamed > 0)
        qCWarning(lcRules) << renamed
                           << "stored rules have no id of their own; each is given a new one";
    return rules;
}

PlistValue RuleCodec::toPlist(const std::vector<Rule>& rules)
{
    PlistArray list;
    for (const Rule& rule : rules) {
        PlistArray when, then;
        for (const RuleCondition& c : rule.conditions)
            when.push_back(conditionToPlist(c));
        for (const RuleAction& a : rule.actions)
            then.push_back(actionToPlist(a));
        PlistDict d{{QStringLiteral("id"), rule.id},
                    {QStringLiteral("enabled"), rule.enabled},
                    {QStringLiteral("when"), when},
                    {QStringLiteral("then"), then}};
        if (!rule.name.isEmpty())
            d.insert(QStringLiteral("name"), rule.name);
        list.push_back(d);
    }
    return list;
}

} // namespace ravlin
