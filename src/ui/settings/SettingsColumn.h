#pragma once

#include <QMargins>
#include <QWidget>

class QLabel;
class QPushButton;
class QVBoxLayout;

namespace ravlin {

class SettingsGroup;
class SettingsRow;
class ToggleSwitch;

// A column of settings, stacked from the top: help text, headed groups of rows
// and the notes under them, spaced the way the system spaces a grouped form.
class SettingsColumn : public QWidget {
    Q_OBJECT
public:
    explicit SettingsColumn(const QMargins& margins, QWidget* parent = nullptr);

    QLabel* addText(const QString& text);
    // A heading (none when empty), an optional control at its trailing end, and the group.
    SettingsGroup* addSection(const QString& heading, QWidget* accessory = nullptr);
    QLabel* addNote(const QString& text);
    void addWidget(QWidget* widget, int spacingAbove);
    void addSpacing(int points);
    // Ends the column; what follows is empty space.
    void finish();

    // Rows with one control; the control's object name lets scripts find it.
    static ToggleSwitch* addSwitchRow(SettingsGroup* group, const QString& name,
                                      const QString& title, const QString& description);
    static QPushButton* addButtonRow(SettingsGroup* group, const QString& name,
                                     const QString& title, const QString& description,
                                     const QString& buttonText, SettingsRow** row = nullptr);
    static QPushButton* makeButton(const QString& name, const QString& text, QWidget* parent);

private:
    QVBoxLayout* m_column;
    bool m_empty = true;
};

} // namespace ravlin
