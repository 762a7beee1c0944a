#include "SettingsColumn.h"

#include "SettingsButton.h"
#include "SettingsGroup.h"
#include "SettingsRow.h"
#include "SettingsStyle.h"
#include "ToggleSwitch.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace ravlin {
namespace {

constexpr int textGap = 14;    // between the help text and what follows
constexpr int sectionGap = 20; // above a headed group
constexpr int headingGap = 7;  // between a heading and its group
constexpr int noteGap = 6;     // between a group and its note

} // namespace

SettingsColumn::SettingsColumn(const QMargins& margins, QWidget* parent)
    : QWidget(parent), m_column(new QVBoxLayout(this))
{
    m_column->setContentsMargins(margins);
    m_column->setSpacing(0);
}

QLabel* SettingsColumn::addText(const QString& text)
{
    QLabel* l = SettingsStyle::label(text, SettingsStyle::bodyFont(),
                                     SettingsStyle::secondaryText(), this, true);
    l->setObjectName(QStringLiteral("help"));
    l->setContentsMargins(2, 0, 2, 0);
    addWidget(l, textGap);
    return l;
}

SettingsGroup* SettingsColumn::addSection(const QString& heading, QWidget* accessory)
{
    if (!heading.isEmpty()) {
        auto* line = new QWidget(this);
        auto* layout = new QHBoxLayout(line);
        layout->setContentsMargins(2, 0, 2, 0);
        layout->setSpacing(8);
        QLabel* title = SettingsStyle::label(heading, SettingsStyle::headingFont(),
                                             SettingsStyle::primaryText(), line, true);
        title->setObjectName(QStringLiteral("heading"));
        layout->addWidget(title, 1, Qt::AlignBottom);
        if (accessory) {
            accessory->setParent(line);
            layout->addWidget(accessory, 0, Qt::AlignBottom);
        }
        addWidget(line, sectionGap);
        addSpacing(headingGap);
    }
    auto* group = new SettingsGroup(this);
    if (heading.isEmpty())
        addWidget(group, sectionGap);
    else
        m_column->addWidget(group);
    return group;
}

QLabel* SettingsColumn::addNote(const QString& text)
{
    QLabel* note = SettingsStyle::label(text, SettingsStyle::captionFont(),
                                        SettingsStyle::secondaryText(), this, true);
    note->setObjectName(QStringLiteral("note"));
    note->setContentsMargins(SettingsStyle::rowInset, 0, SettingsStyle::rowInset, 0);
    addWidget(note, noteGap);
    return note;
}

void SettingsColumn::addWidget(QWidget* widget, int spacingAbove)
{
    if (!m_empty)
        addSpacing(spacingAbove);
    widget->setParent(this);
    m_column->addWidget(widget);
    m_empty = false;
}

void SettingsColumn::addSpacing(int points)
{
    m_column->addSpacing(points);
}

void SettingsColumn::finish()
{
    m_column->addStretch(1);
}

ToggleSwitch* SettingsColumn::addSwitchRow(SettingsGroup* group, const QString& name,
                                           const QString& title, const QString& description)
{
    auto* row = new SettingsRow(title, description);
    auto* toggle = new ToggleSwitch;
    toggle->setObjectName(name);
    toggle->setAccessibleName(title);
    row->addTrailing(toggle);
    group->addRow(row);
    return toggle;
}

QPushButton* SettingsColumn::addButtonRow(SettingsGroup* group, const QString& name,
                                          const QString& title, const QString& description,
                                          const QString& buttonText, SettingsRow** made)
{
    auto* row = new SettingsRow(title, description);
    QPushButton* button = makeButton(name, buttonText, row);
    row->addTrailing(button);
    group->addRow(row);
    if (made)
        *made = row;
    return button;
}

QPushButton* SettingsColumn::makeButton(const QString& name, const QString& text, QWidget* parent)
{
    auto* button = new SettingsButton(SettingsButton::Kind::Push, text, parent);
    button->setObjectName(name);
    return button;
}

} // namespace ravlin
