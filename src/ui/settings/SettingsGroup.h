#pragma once

#include <QWidget>

class QVBoxLayout;

namespace ravlin {

// A rounded box of rows with hairlines between them, the way the system groups
// related settings.
class SettingsGroup : public QWidget {
    Q_OBJECT
public:
    explicit SettingsGroup(QWidget* parent = nullptr);

    void addRow(QWidget* row);
    // A row holding only a quiet, centred text (an empty list's message).
    QWidget* addMessageRow(const QString& text);
    // Removes and deletes every row.
    void clear();
    int rowCount() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QVBoxLayout* m_rows;
};

} // namespace ravlin
