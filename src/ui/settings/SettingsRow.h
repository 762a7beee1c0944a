#pragma once

#include <QWidget>

class QHBoxLayout;
class QLabel;
class QVBoxLayout;

namespace ravlin {

// One line of a settings group: an optional picture, the title with its
// one-line explanation under it, and the controls at the trailing end.
class SettingsRow : public QWidget {
    Q_OBJECT
public:
    SettingsRow(const QString& title, const QString& description, QWidget* parent = nullptr);

    void setLeading(QWidget* widget);
    // A control in place of the title text (a link).
    void setTitleWidget(QWidget* widget);
    void addTrailing(QWidget* widget);
    // The title is a name (an item's, an app's, a library's) rather than a sentence of the
    // interface.
    void setTitleIsName();
    // A second explanation line, shown only when asked (a hint after an action). True when
    // the row's height may have changed: the page around it must be fitted again, or the
    // hint's wrapped lines are cut off.
    bool setHint(const QString& text, bool visible);

    QLabel* titleLabel() const { return m_title; }
    QLabel* descriptionLabel() const { return m_description; }
    QLabel* hintLabel() const { return m_hint; }

protected:
    // A disabled row's texts fade with its controls.
    void changeEvent(QEvent* event) override;

private:
    QHBoxLayout* m_row;
    QVBoxLayout* m_text;
    QLabel* m_title;
    QLabel* m_description = nullptr;
    QLabel* m_hint = nullptr;
};

} // namespace ravlin
