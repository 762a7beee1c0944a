#pragma once

#include "RuleEvaluator.h"
#include "core/settings/ItemPlacement.h"

#include <QHash>
#include <QObject>

namespace ravlin {

class DefaultsStore;
class RuleBook;
class RuleEffects;
class SituationWatch;

// Puts the rules into force: on every event that may change a condition it works out what the
// rules in force want and changes only what differs. What the user had before a rule took it
// over (the layout, the panel style, an item's placement) comes back when no rule wants it any
// more, unless the user changed it meanwhile. What rules did is kept in the settings
// ("ravlin.rulesState"), so that it is undone also after a restart.
class RuleEngine : public QObject {
    Q_OBJECT
public:
    static inline const QString stateKey = QStringLiteral("ravlin.rulesState");

    RuleEngine(RuleBook& book, SituationWatch& watch, RuleEffects& effects,
               DefaultsStore& defaults, QObject* parent = nullptr);

    // The first evaluation, once the bar has settled; nothing is evaluated before.
    void start();
    bool started() const { return m_started; }
    void evaluate(const QString& why);
    const RuleOutcome& outcome() const { return m_outcome; }
    int evaluations() const { return m_evaluations; }

Q_SIGNALS:
    // Which rules are in force changed.
    void inForceChanged();

private:
    // What the rules set, and what was there before them.
    struct State {
        QString layout;      // set by the rules ("" none)
        QString layoutBefore;
        QString style;
        QString styleBefore;
        QHash<QString, ItemPlacement> itemsBefore; // the items the rules keep in the bar
    };
    State loadState() const;
    void storeState(const State& state);
    void applyLayout(const RuleOutcome& out, State& state, const QString& why);
    void applyStyle(const RuleOutcome& out, State& state);
    void applyItems(const RuleOutcome& out, State& state);
    void revealForNewRules(const RuleOutcome& out);

    RuleBook& m_book;
    SituationWatch& m_watch;
    RuleEffects& m_effects;
    DefaultsStore& m_defaults;
    RuleOutcome m_outcome;
    bool m_started = false;
    int m_evaluations = 0;
};

} // namespace ravlin
