#pragma once

#include "Circumstances.h"
#include "Rule.h"

#include <QStringList>

#include <optional>
#include <vector>

namespace ravlin {

// What the rules in force want of the bar now.
struct RuleOutcome {
    QStringList inForce;           // the rules' ids, in the list's order
    std::optional<QString> layout; // the later rule wins
    QString layoutRule;            // the id of the rule whose layout it is
    std::optional<QString> panelStyle;
    QString panelStyleRule;
    QStringList shownItems;        // every rule's, each key once

    bool operator==(const RuleOutcome&) const = default;
};

// Which events the rules need to hear of: nothing else is followed.
struct RuleNeeds {
    bool displays = false;
    bool power = false;
    bool wifi = false;
    bool applications = false;
    bool frontmost = false;
    bool focus = false;
    std::vector<int> boundaries; // minutes of the day at which a time condition turns

    bool any() const
    {
        return displays || power || wifi || applications || frontmost || focus ||
               !boundaries.empty();
    }
    bool operator==(const RuleNeeds&) const = default;
};

// The rules' logic, without any state: whether a condition holds, which rules are in force and
// what they want together.
class RuleEvaluator {
public:
    static bool holds(const RuleCondition& condition, const Circumstances& now);
    // Enabled, with at least one condition, every one of which holds.
    static bool inForce(const Rule& rule, const Circumstances& now);
    static RuleOutcome outcome(const std::vector<Rule>& rules, const Circumstances& now);
    static RuleNeeds needs(const std::vector<Rule>& rules);
    // Minutes from `minuteOfDay` to the next boundary (1 to 1440); absent without boundaries.
    static std::optional<int> minutesToNextBoundary(const std::vector<int>& boundaries,
                                                    int minuteOfDay);
};

} // namespace ravlin
