#include "RuleEvaluator.h"

#include <algorithm>

namespace ravlin {

bool RuleEvaluator::holds(const RuleCondition& c, const Circumstances& now)
{
    switch (c.kind) {
    case RuleCondition::Kind::Display:
        return (now.displays > 1) == c.on;
    case RuleCondition::Kind::Power:
        // A Mac that cannot say (a desktop Mac has no battery) is on external power.
        return now.onBattery.value_or(false) == c.on;
    case RuleCondition::Kind::Wifi:
        return !c.text.isEmpty() && now.wifi && now.wifi->compare(c.text, Qt::CaseSensitive) == 0;
    case RuleCondition::Kind::Application:
        if (c.text.isEmpty())
            return false;
        return c.frontmost ? now.frontmost == c.text : now.running.contains(c.text);
    case RuleCondition::Kind::Focus:
        if (!now.focus || now.focus->isEmpty())
            return false;
        return c.text.isEmpty() || now.focus->compare(c.text, Qt::CaseInsensitive) == 0;
    case RuleCondition::Kind::Time:
        if (c.fromMinute == c.toMinute)
            return true; // all day
        if (c.fromMinute < c.toMinute)
            return now.minuteOfDay >= c.fromMinute && now.minuteOfDay < c.toMinute;
        return now.minuteOfDay >= c.fromMinute || now.minuteOfDay < c.toMinute;
    case RuleCondition::Kind::Unknown:
        break;
    }
    return false;
}

bool RuleEvaluator::inForce(const Rule& rule, const Circumstances& now)
{
    if (!rule.enabled || rule.conditions.empty())
        return false;
    return std::all_of(rule.conditions.begin(), rule.conditions.end(),
                       [&](const RuleCondition& c) { return holds(c, now); });
}

RuleOutcome RuleEvaluator::outcome(const std::vector<Rule>& rules, const Circumstances& now)
{
    RuleOutcome out;
    for (const Rule& rule : rules) {
        if (!inForce(rule, now))
            continue;
        out.inForce.append(rule.id);
        for (const RuleAction& a : rule.actions) {
            if (a.text.isEmpty() && a.kind != RuleAction::Kind::Reveal)
                continue; // not filled in yet
            switch (a.kind) {
            case RuleAction::Kind::Layout:
                out.layout = a.text;
                out.layoutRule = rule.id;
                break;
            case RuleAction::Kind::PanelStyle:
                out.panelStyle = a.text;
                out.panelStyleRule = rule.id;
                break;
            case RuleAction::Kind::ShowItem:
                if (!out.shownItems.contains(a.text))
                    out.shownItems.append(a.text);
                break;
            case RuleAction::Kind::Reveal:
            case RuleAction::Kind::Unknown:
                break;
            }
        }
    }
    return out;
}

RuleNeeds RuleEvaluator::needs(const std::vector<Rule>& rules)
{
    RuleNeeds needs;
    for (const Rule& rule : rules) {
        if (!rule.enabled)
            continue;
        for (const RuleCondition& c : rule.conditions) {
            switch (c.kind) {
            case RuleCondition::Kind::Display:
                needs.displays = true;
                break;
            case RuleCondition::Kind::Power:
                needs.power = true;
                break;
            case RuleCondition::Kind::Wifi:
                needs.wifi = true;
                break;
            case RuleCondition::Kind::Application:
                (c.frontmost ? needs.frontmost : needs.applications) = true;
                break;
            case RuleCondition::Kind::Focus:
                needs.focus = true;
                break;
            case RuleCondition::Kind::Time:
                if (c.fromMinute != c.toMinute) {
                    needs.boundaries.push_back(c.fromMinute);
                    needs.boundaries.push_back(c.toMinute);
                }
                break;
            case RuleCondition::Kind::Unknown:
                break;
            }
        }
    }
    std::sort(needs.boundaries.begin(), needs.boundaries.end());
    needs.boundaries.erase(std::unique(needs.boundaries.begin(), needs.boundaries.end()),
                           needs.boundaries.end());
    return needs;
}

std::optional<int> RuleEvaluator::minutesToNextBoundary(const std::vector<int>& boundaries,
                                                        int minuteOfDay)
{
    std::optional<int> nearest;
    for (int boundary : boundaries) {
        int ahead = (boundary - minuteOfDay + 1440) % 1440;
        if (ahead == 0)
            ahead = 1440;
        nearest = nearest ? std::min(*nearest, ahead) : ahead;
    }
    return nearest;
}

} // namespace ravlin
