#pragma once

#include <QWidget>

#include <vector>

class QAbstractButton;
class QButtonGroup;

namespace ravlin {

// The row of tab icons with their titles across the top of the window; the
// chosen one sits on a soft rounded highlight.
class SettingsToolbar : public QWidget {
    Q_OBJECT
public:
    explicit SettingsToolbar(QWidget* parent = nullptr);

    // The tab's index is the order of adding; `place` puts its button elsewhere in the row
    // (-1: at the end), so that a tab added later can stand among the others.
    void addTab(const QString& symbol, const QString& title, int place = -1);
    void setCurrent(int index);
    int current() const;
    QAbstractButton* tabButton(int index) const;
    int count() const { return int(m_buttons.size()); }

Q_SIGNALS:
    void tabChosen(int index);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QButtonGroup* m_group;
    std::vector<QAbstractButton*> m_buttons;
};

} // namespace ravlin
