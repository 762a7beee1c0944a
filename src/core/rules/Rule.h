#pragma once

#include "foundation/PlistValue.h"

#include <QString>

#include <optional>
#include <vector>

namespace ravlin {

// One thing about the Mac's situation that a rule waits for.
struct RuleCondition {
    enum class Kind {
        Display,     // a display besides the main one is connected (or none is)
        Power,       // the Mac runs on battery (or on external power)
        Wifi,        // joined to the Wi-Fi network of that name
        Application, // the application runs (or is in front)
        Focus,       // that Focus mode is on (any Focus, when no name is given)
        Time,        // the time of day lies between two times (across midnight when from > to)
        Unknown,     // written by another version; kept as it was, and never holds
    };

    Kind kind = Kind::Display;
    bool on = true;          // Display: connected, not none; Power: battery, not external power
    QString text;            // Wifi: the network; Application: its bundle id; Focus: the mode
    bool frontmost = false;  // Application: in front, not merely running
    int fromMinute = 0;      // Time: minutes after midnight, local time
    int toMinute = 0;
    PlistValue unread;       // Unknown: the stored value

    bool operator==(const RuleCondition&) const = default;
};

// One thing a rule does while it is in force.
struct RuleAction {
    enum class Kind {
        Layout,     // switch to the saved layout of that name
        ShowItem,   // keep the item in the bar
        Reveal,     // show the hidden items for a while, when the rule comes into force
        PanelStyle, // show the panel in that style
        Unknown,    // written by another version; kept, and does nothing
    };

    Kind kind = Kind::Layout;
    QString text;     // Layout: the name; ShowItem: the item's key; PanelStyle: the style's raw value
    int seconds = 30; // Reveal
    PlistValue unread;

    bool operator==(const RuleAction&) const = default;
};

// A rule the user wrote: while every condition holds, its actions are in force. Of two rules
// in force that disagree, the later in the list wins.
struct Rule {
    static constexpr int maxConditions = 10;
    static constexpr int maxActions = 10;
    static constexpr int shortestReveal = 1;
    static constexpr int longestReveal = 3600;

    QString id;   // stable while the rule lives, unique in the list
    QString name; // may be empty: the rule is then called by its conditions
    bool enabled = true;
    std::vector<RuleCondition> conditions;
    std::vector<RuleAction> actions;

    bool operator==(const Rule&) const = default;
};

// The names conditions and actions are stored under ("display", "layout", …).
QString ruleConditionKindName(RuleCondition::Kind kind);
std::optional<RuleCondition::Kind> ruleConditionKindFromName(const QString& name);
QString ruleActionKindName(RuleAction::Kind kind);
std::optional<RuleAction::Kind> ruleActionKindFromName(const QString& name);
// "09:30" for 570; and back (absent unless it is a time of day).
QString minuteText(int minute);
std::optional<int> minuteFromText(const QString& text);

} // namespace ravlin
