#pragma once

#include "Rule.h"

#include <QStringList>

#include <functional>

namespace ravlin {

class LanguageManager;

// Rules, their conditions and actions in the user's words, in the interface language.
class RuleDescription {
public:
    // How an item key or an application's bundle identifier is called (its name where known).
    using Namer = std::function<QString(const QString&)>;

    RuleDescription(const LanguageManager& language, Namer itemName, Namer applicationName);

    QString condition(const RuleCondition& condition) const;
    QString action(const RuleAction& action) const;
    // The rule's name, or else its conditions joined.
    QString title(const Rule& rule) const;
    // The panel's line naming the rules in force (empty when none is).
    QString inForceLine(const std::vector<Rule>& rules, const QStringList& inForce) const;

private:
    const LanguageManager& m_language;
    Namer m_itemName;
    Namer m_applicationName;
};

} // namespace ravlin
