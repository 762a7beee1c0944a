#pragma once

#include "core/rules/Rule.h"

#include <QObject>
#include <QStringList>

#include <functional>
#include <utility>
#include <vector>

class QWidget;

namespace ravlin {

class LanguageManager;
class RuleDescription;
class SettingsColumn;
class SettingsGroup;
class SettingsRow;

// What the editor offers to choose from, read when the tab is built.
struct RuleChoices {
    QStringList layouts;
    std::vector<std::pair<QString, QString>> items;        // key, name
    std::vector<std::pair<QString, QString>> applications; // bundle identifier, name
    QString currentNetwork;                                // a hint for the Wi-Fi field
};

// One rule in the Rules tab: a group headed by the rule's name with a switch, its name field,
// a row per condition and per action (each with its value and a remove button), a pop-up to
// add a condition or an action, and the buttons that move or delete it. Every control is named
// "rule<N>.<part>" so that scripts find it; every edit hands the whole changed rule back.
class RuleEditor : public QObject {
    Q_OBJECT
public:
    struct Callbacks {
        std::function<void(const Rule&)> changed;
        std::function<void(int delta)> move;
        std::function<void()> remove;
    };

    RuleEditor(const Rule& rule, int index, int count, bool inForce, const LanguageManager& language,
               const RuleDescription& description, const RuleChoices& choices, Callbacks callbacks,
               SettingsColumn& column);

private:
    QString name(const QString& part) const;
    void addNameRow(SettingsGroup& group);
    void addConditionRow(SettingsGroup& group, int index);
    void addActionRow(SettingsGroup& group, int index);
    void addAdders(SettingsGroup& group);
    void addStateRow(SettingsGroup& group, int count, bool inForce);
    QWidget* conditionValue(int index, SettingsRow& row);
    QWidget* actionValue(int index, SettingsRow& row);
    void addRemoveButton(SettingsRow& row, const QString& part, std::function<void()> removed);
    void commit();

    Rule m_rule;
    int m_index;
    const LanguageManager& m_language;
    const RuleDescription& m_description;
    const RuleChoices& m_choices;
    Callbacks m_callbacks;
};

} // namespace ravlin
