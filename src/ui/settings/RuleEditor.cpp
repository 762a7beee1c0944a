#include "RuleEditor.h"

#include "NumberField.h"
#include "PopupButton.h"
#include "SettingsColumn.h"
#include "SettingsGroup.h"
#include "SettingsRow.h"
#include "SettingsStyle.h"
#include "ToggleSwitch.h"
#include "core/rules/RuleDescription.h"
#include "core/settings/LanguageManager.h"
#include "core/settings/TileStyle.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace ravlin {
namespace {

const std::vector<RuleCondition::Kind> conditionKinds = {
    RuleCondition::Kind::Display, RuleCondition::Kind::Power, RuleCondition::Kind::Wifi,
    RuleCondition::Kind::Application, RuleCondition::Kind::Focus, RuleCondition::Kind::Time};
const std::vector<RuleAction::Kind> actionKinds = {RuleAction::Kind::Layout,
                                                   RuleAction::Kind::ShowItem,
                                                   RuleAction::Kind::Reveal,
                                                   RuleAction::Kind::PanelStyle};

QLineEdit* lineEdit(const QString& name, const QString& text, const QString& placeholder, int width)
{
    auto* field = new QLineEdit;
    field->setObjectName(name);
    field->setText(text);
    field->setPlaceholderText(placeholder);
    field->setMaxLength(200);
    field->setFixedWidth(width);
    return field;
}

// A new condition of a kind, as one would most likely mean it.
RuleCondition freshCondition(RuleCondition::Kind kind, const RuleChoices& choices)
{
    RuleCondition c;
    c.kind = kind;
    if (kind == RuleCondition::Kind::Wifi)
        c.text = choices.currentNetwork;
    if (kind == RuleCondition::Kind::Application && !choices.applications.empty())
        c.text = choices.applications.front().first;
    if (kind == RuleCondition::Kind::Time) {
        c.fromMinute = 9 * 60;
        c.toMinute = 17 * 60;
    }
    return c;
}

RuleAction freshAction(RuleAction::Kind kind, const RuleChoices& choices)
{
    RuleAction a;
    a.kind = kind;
    if (kind == RuleAction::Kind::Layout && !choices.layouts.isEmpty())
        a.text = choices.layouts.front();
    if (kind == RuleAction::Kind::ShowItem && !choices.items.empty())
        a.text = choices.items.front().first;
    if (kind == RuleAction::Kind::PanelStyle)
        a.text = tileStyleRawValue(TileStyle::Dashboard);
    return a;
}

} // namespace

RuleEditor::RuleEditor(const Rule& rule, int index, int count, bool inForce,
                       const LanguageManager& language, const RuleDescription& description,
                       const RuleChoices& choices, Callbacks callbacks, SettingsColumn& column)
    : QObject(&column), m_rule(rule), m_index(index), m_language(language),
      m_description(description), m_choices(choices), m_callbacks(std::move(callbacks))
{
    auto* enabled = new ToggleSwitch;
    enabled->setObjectName(name(QStringLiteral("enabled")));
    enabled->setAccessibleName(m_language.L(QStringLiteral("rules.enabled")));
    enabled->setCheckedQuietly(rule.enabled);
    connect(enabled, &ToggleSwitch::toggled, this, [this](bool on) {
        m_rule.enabled = on;
        commit();
    });
    SettingsGroup* group = column.addSection(m_description.title(rule), enabled);
    addNameRow(*group);
    for (int i = 0; i < int(m_rule.conditions.size()); ++i)
        addConditionRow(*group, i);
    for (int i = 0; i < int(m_rule.actions.size()); ++i)
        addActionRow(*group, i);
    addAdders(*group);
    addStateRow(*group, count, inForce);
}

QString RuleEditor::name(const QString& part) const
{
    return QStringLiteral("rule%1.%2").arg(m_index).arg(part);
}

void RuleEditor::commit()
{
    if (m_callbacks.changed)
        m_callbacks.changed(m_rule);
}

void RuleEditor::addNameRow(SettingsGroup& group)
{
    auto* row = new SettingsRow(m_language.L(QStringLiteral("rules.name")), QString());
    QLineEdit* field = lineEdit(name(QStringLiteral("name")), m_rule.name,
                                m_language.L(QStringLiteral("rules.name.placeholder")), 220);
    connect(field, &QLineEdit::editingFinished, this, [this, field] {
        if (field->text().trimmed() == m_rule.name)
            return;
        m_rule.name = field->text().trimmed();
        commit();
    });
    row->addTrailing(field);
    group.addRow(row);
}

void RuleEditor::addRemoveButton(SettingsRow& row, const QString& part,
                                 std::function<void()> removed)
{
    QPushButton* remove =
        SettingsColumn::makeButton(name(part + QStringLiteral(".remove")),
                                   m_language.L(QStringLiteral("rules.remove")), &row);
    connect(remove, &QPushButton::clicked, this, [this, removed = std::move(removed)] {
        removed();
        commit();
    });
    row.addTrailing(remove);
}

void RuleEditor::addConditionRow(SettingsGroup& group, int index)
{
    const RuleCondition& c = m_rule.conditions[std::size_t(index)];
    const QString title = c.kind == RuleCondition::Kind::Unknown
                              ? m_description.condition(c)
                              : m_language.L(QStringLiteral("rules.kind.") + ruleConditionKindName(c.kind));
    auto* row = new SettingsRow(title, index == 0 ? m_language.L(QStringLiteral("rules.when")) : QString());
    if (QWidget* value = conditionValue(index, *row))
        row->addTrailing(value);
    addRemoveButton(*row, QStringLiteral("condition%1").arg(index), [this, index] {
        m_rule.conditions.erase(m_rule.conditions.begin() + index);
    });
    group.addRow(row);
}

QWidget* RuleEditor::conditionValue(int index, SettingsRow& row)
{
    RuleCondition& c = m_rule.conditions[std::size_t(index)];
    const QString field = name(QStringLiteral("condition%1").arg(index));
    auto popup = [&](const std::vector<std::pair<QString, QString>>& entries, const QString& chosen,
                     std::function<void(const QString&)> picked) {
        auto* p = new PopupButton;
        p->setObjectName(field);
        for (const auto& [data, text] : entries)
            p->addItem(text, data);
        if (p->findData(chosen) < 0)
            p->addItem(chosen, chosen); // a value of another Mac, kept as it is
        p->setCurrentDataQuietly(chosen);
        connect(p, &QComboBox::activated, this, [this, p, picked = std::move(picked)](int i) {
            picked(p->itemData(i).toString());
            commit();
        });
        return p;
    };
    // `typed` says whether it could take the text; a text it cannot take gives way to the
    // value stored, so that the field never shows what the rule does not hold.
    auto text = [&](const QString& value, const QString& placeholder,
                    std::function<bool(const QString&)> typed, const QString& objectName,
                    int width = 150) {
        QLineEdit* edit = lineEdit(objectName, value, placeholder, width);
        connect(edit, &QLineEdit::editingFinished, this, [this, edit, value, typed = std::move(typed)] {
            if (edit->text().trimmed() == value)
                return;
            if (!typed(edit->text().trimmed())) {
                edit->setText(value);
                return;
            }
            commit();
        });
        return edit;
    };
    const LanguageManager& lm = m_language;
    switch (c.kind) {
    case RuleCondition::Kind::Display:
    case RuleCondition::Kind::Power: {
        const bool display = c.kind == RuleCondition::Kind::Display;
        const QString on = display ? lm.L(QStringLiteral("rules.value.connected"))
                                   : lm.L(QStringLiteral("rules.value.battery"));
        const QString off = display ? lm.L(QStringLiteral("rules.value.notConnected"))
                                    : lm.L(QStringLiteral("rules.value.ac"));
        return popup({{QStringLiteral("on"), on}, {QStringLiteral("off"), off}},
                     c.on ? QStringLiteral("on") : QStringLiteral("off"),
                     [this, index](const QString& v) { m_rule.conditions[std::size_t(index)].on = v == u"on"; });
    }
    case RuleCondition::Kind::Wifi:
        return text(c.text, m_choices.currentNetwork,
                    [this, index](const QString& v) {
                        m_rule.conditions[std::size_t(index)].text = v;
                        return true;
                    },
                    field);
    case RuleCondition::Kind::Focus:
        return text(c.text, lm.L(QStringLiteral("rules.value.anyFocus")),
                    [this, index](const QString& v) {
                        m_rule.conditions[std::size_t(index)].text = v;
                        return true;
                    },
                    field);
    case RuleCondition::Kind::Application: {
        auto* state = new PopupButton;
        state->setObjectName(field + QStringLiteral(".state"));
        state->addItem(lm.L(QStringLiteral("rules.value.running")), QStringLiteral("running"));
        state->addItem(lm.L(QStringLiteral("rules.value.frontmost")), QStringLiteral("frontmost"));
        state->setCurrentDataQuietly(c.frontmost ? QStringLiteral("frontmost") : QStringLiteral("running"));
        connect(state, &QComboBox::activated, this, [this, state, index](int i) {
            m_rule.conditions[std::size_t(index)].frontmost = state->itemData(i).toString() == u"frontmost";
            commit();
        });
        row.addTrailing(popup(m_choices.applications, c.text, [this, index](const QString& v) {
            m_rule.conditions[std::size_t(index)].text = v;
        }));
        return state;
    }
    case RuleCondition::Kind::Time: {
        row.addTrailing(text(minuteText(c.fromMinute), QStringLiteral("09:00"),
                             [this, index](const QString& v) {
                                 const std::optional<int> m = minuteFromText(v);
                                 if (m)
                                     m_rule.conditions[std::size_t(index)].fromMinute = *m;
                                 return m.has_value();
                             },
                             field, 64));
        row.addTrailing(SettingsStyle::label(QStringLiteral("–"), SettingsStyle::bodyFont(),
                                             SettingsStyle::secondaryText(), &row));
        return text(minuteText(c.toMinute), QStringLiteral("17:00"),
                    [this, index](const QString& v) {
                        const std::optional<int> m = minuteFromText(v);
                        if (m)
                            m_rule.conditions[std::size_t(index)].toMinute = *m;
                        return m.has_value();
                    },
                    field + QStringLiteral(".to"), 64);
    }
    case RuleCondition::Kind::Unknown:
        break;
    }
    return nullptr;
}

void RuleEditor::addActionRow(SettingsGroup& group, int index)
{
    const RuleAction& a = m_rule.actions[std::size_t(index)];
    const QString title = a.kind == RuleAction::Kind::Unknown
                              ? m_description.action(a)
                              : m_language.L(QStringLiteral("rules.kind.") + ruleActionKindName(a.kind));
    auto* row = new SettingsRow(title, index == 0 ? m_language.L(QStringLiteral("rules.then")) : QString());
    if (QWidget* value = actionValue(index, *row))
        row->addTrailing(value);
    addRemoveButton(*row, QStringLiteral("action%1").arg(index),
                    [this, index] { m_rule.actions.erase(m_rule.actions.begin() + index); });
    group.addRow(row);
}

QWidget* RuleEditor::actionValue(int index, SettingsRow& row)
{
    RuleAction& a = m_rule.actions[std::size_t(index)];
    const QString field = name(QStringLiteral("action%1").arg(index));
    if (a.kind == RuleAction::Kind::Reveal) {
        auto* seconds = new NumberField(Rule::shortestReveal, Rule::longestReveal);
        seconds->setObjectName(field);
        seconds->setAccessibleName(m_language.L(QStringLiteral("rules.value.seconds")));
        seconds->setValueQuietly(a.seconds);
        connect(seconds, &NumberField::valueChanged, this, [this, index](int value) {
            m_rule.actions[std::size_t(index)].seconds = value;
            commit();
        });
        // The unit after the number, as the General tab's interval has it.
        row.addTrailing(seconds);
        QLabel* unit = SettingsStyle::label(m_language.L(QStringLiteral("general.seconds")),
                                            SettingsStyle::bodyFont(), SettingsStyle::secondaryText(), &row);
        unit->setObjectName(field + QStringLiteral(".unit"));
        return unit;
    }
    std::vector<std::pair<QString, QString>> entries;
    switch (a.kind) {
    case RuleAction::Kind::Layout:
        for (const QString& layout : m_choices.layouts)
            entries.emplace_back(layout, layout);
        break;
    case RuleAction::Kind::ShowItem:
        entries = m_choices.items;
        break;
    case RuleAction::Kind::PanelStyle:
        for (TileStyle style : allTileStyles)
            entries.emplace_back(tileStyleRawValue(style), m_language.L(tileStyleTitleKey(style)));
        break;
    case RuleAction::Kind::Reveal:
    case RuleAction::Kind::Unknown:
        return nullptr;
    }
    auto* popup = new PopupButton;
    popup->setObjectName(field);
    for (const auto& [data, text] : entries)
        popup->addItem(text, data);
    if (!a.text.isEmpty() && popup->findData(a.text) < 0)
        popup->addItem(a.text, a.text); // a layout since deleted, an item not in this bar
    popup->setCurrentDataQuietly(a.text);
    connect(popup, &QComboBox::activated, this, [this, popup, index](int i) {
        m_rule.actions[std::size_t(index)].text = popup->itemData(i).toString();
        commit();
    });
    return popup;
}

void RuleEditor::addAdders(SettingsGroup& group)
{
    auto* row = new SettingsRow(QString(), QString());
    auto adder = [&](const QString& part, const QString& prompt, auto kinds, auto kindName,
                     auto added) {
        auto* popup = new PopupButton;
        popup->setObjectName(name(part));
        popup->addItem(prompt, QString());
        for (auto kind : kinds)
            popup->addItem(m_language.L(QStringLiteral("rules.kind.") + kindName(kind)),
                           kindName(kind));
        connect(popup, &QComboBox::activated, this, [this, popup, added](int i) {
            const QString kind = popup->itemData(i).toString();
            if (kind.isEmpty() || !added(kind))
                return;
            commit();
        });
        row->addTrailing(popup);
    };
    if (int(m_rule.conditions.size()) < Rule::maxConditions)
        adder(QStringLiteral("addCondition"), m_language.L(QStringLiteral("rules.addCondition")),
              conditionKinds, ruleConditionKindName, [this](const QString& kind) {
                  const std::optional<RuleCondition::Kind> k = ruleConditionKindFromName(kind);
                  if (k)
                      m_rule.conditions.push_back(freshCondition(*k, m_choices));
                  return k.has_value();
              });
    if (int(m_rule.actions.size()) < Rule::maxActions)
        adder(QStringLiteral("addAction"), m_language.L(QStringLiteral("rules.addAction")),
              actionKinds, ruleActionKindName, [this](const QString& kind) {
                  const std::optional<RuleAction::Kind> k = ruleActionKindFromName(kind);
                  if (k)
                      m_rule.actions.push_back(freshAction(*k, m_choices));
                  return k.has_value();
              });
    group.addRow(row);
}

void RuleEditor::addStateRow(SettingsGroup& group, int count, bool inForce)
{
    auto* row = new SettingsRow(inForce ? m_language.L(QStringLiteral("rules.inForceNow")) : QString(),
                                QString());
    row->titleLabel()->setObjectName(name(QStringLiteral("state")));
    auto button = [&](const QString& part, const QString& text, bool enabled, auto clicked) {
        QPushButton* b = SettingsColumn::makeButton(name(part), text, row);
        b->setEnabled(enabled);
        connect(b, &QPushButton::clicked, this, clicked);
        row->addTrailing(b);
    };
    button(QStringLiteral("up"), m_language.L(QStringLiteral("rules.moveUp")), m_index > 0, [this] {
        if (m_callbacks.move)
            m_callbacks.move(-1);
    });
    button(QStringLiteral("down"), m_language.L(QStringLiteral("rules.moveDown")), m_index + 1 < count,
           [this] {
        if (m_callbacks.move)
            m_callbacks.move(1);
    });
    button(QStringLiteral("delete"), m_language.L(QStringLiteral("rules.delete")), true, [this] {
        if (m_callbacks.remove)
            m_callbacks.remove();
    });
    group.addRow(row);
}

} // namespace ravlin
