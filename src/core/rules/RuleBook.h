#pragma once

#include "Rule.h"

#include <QObject>

#include <vector>

namespace ravlin {

class DefaultsStore;

// The rules the user wrote, in their order, kept in the settings under "ravlin.rules". The
// stored value is parsed once, and again only when it changed.
class RuleBook : public QObject {
    Q_OBJECT
public:
    static inline const QString defaultsKey = QStringLiteral("ravlin.rules");
    // The two switches of earlier versions, which became rules.
    static inline const QString displayRuleId = QStringLiteral("layoutOnDisplay");
    static inline const QString batteryRuleId = QStringLiteral("layoutOnBattery");

    explicit RuleBook(DefaultsStore& defaults, QObject* parent = nullptr);

    std::vector<Rule> rules() const;
    std::optional<Rule> rule(const QString& id) const;
    // Stores the whole list (the user's edit) and announces it.
    void setRules(const std::vector<Rule>& rules);
    // An id no rule has.
    QString freshId() const;

    // Earlier versions switched a layout by themselves when a display was connected or on
    // battery; those choices become rules, once, and the old keys go.
    void adoptLayoutSwitches();
    // The layout the rule of one of those two occasions switches to ("" for none), and making,
    // changing or removing that rule.
    QString occasionLayout(const QString& id) const;
    void setOccasionLayout(const QString& id, const QString& layout);

Q_SIGNALS:
    void changed();

private:
    DefaultsStore& m_defaults;
    mutable PlistValue m_parsedFrom;
    mutable std::vector<Rule> m_parsed;
};

} // namespace ravlin
