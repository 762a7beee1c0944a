#pragma once

#include "Rule.h"

#include <vector>

namespace ravlin {

// Rules as the settings keep them: a list of dictionaries, each with its conditions under
// "when" and its actions under "then". Reading never fails as a whole: an entry that is no
// rule at all is left out with a log line; a rule without an id of its own is given one; a
// condition or action that cannot be read, or of another version, is kept as it was (it never
// holds, does nothing, and is written back unchanged), with a log line.
class RuleCodec {
public:
    // Far more than anyone writes; it bounds what a hand-edited file can make us read.
    static constexpr int maxRules = 50;

    static std::vector<Rule> fromPlist(const PlistValue& value);
    static PlistValue toPlist(const std::vector<Rule>& rules);

    static std::optional<RuleCondition> conditionFromPlist(const PlistValue& value);
    static PlistValue conditionToPlist(const RuleCondition& condition);
    static std::optional<RuleAction> actionFromPlist(const PlistValue& value);
    static PlistValue actionToPlist(const RuleAction& action);
};

} // namespace ravlin
