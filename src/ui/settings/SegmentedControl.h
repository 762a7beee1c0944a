#pragma once

#include <QStringList>
#include <QWidget>

#include <vector>

class QButtonGroup;
class QPushButton;

namespace ravlin {

// A small segmented control: a grey track with one raised, white segment. Each
// segment stands for a value; a click on one announces its value.
class SegmentedControl : public QWidget {
    Q_OBJECT
public:
    explicit SegmentedControl(QWidget* parent = nullptr);

    void addSegment(const QString& value, const QString& title);
    QString value() const;
    // Shows a value without announcing it (the window following an outside change).
    void setValue(const QString& value);
    QPushButton* segment(const QString& value) const;
    QStringList values() const { return m_values; }

Q_SIGNALS:
    void chosen(const QString& value);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QButtonGroup* m_group;
    QStringList m_values;
    std::vector<QPushButton*> m_segments;
};

} // namespace ravlin
