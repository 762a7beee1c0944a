#pragma once

#include "RuleEditor.h"
#include "SettingsPage.h"

#include <QPointer>

class QVBoxLayout;

namespace ravlin {

class AppDelegate;
class SettingsActions;

// The rules the user writes: one group per rule, in the order that decides which wins, and a
// button for a new one. The tab is built anew whenever the rules change, from whatever changed
// them (an edit here, a script, the Menu Bar tab's two layout switches).
class RulesTab : public SettingsPage {
    Q_OBJECT
public:
    RulesTab(AppDelegate& app, SettingsActions& actions, QWidget* parent = nullptr);

    void refresh() override;
    void activated() override;

private:
    void scheduleRebuild();
    void rebuild();
    void fill(SettingsColumn& column);
    void addLocationRow(SettingsColumn& column);
    RuleChoices choices() const;
    void replace(int index, const Rule& rule);
    void move(int index, int delta);
    void remove(int index);
    void addRule();

    AppDelegate& m_app;
    SettingsActions& m_actions;
    QVBoxLayout* m_holder = nullptr;
    QPointer<SettingsColumn> m_list;
    RuleChoices m_choices;
    bool m_rebuildPending = false;
    bool m_watching = false;
};

} // namespace ravlin
