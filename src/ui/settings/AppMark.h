#pragma once

#include <QWidget>

namespace ravlin {

// The application's mark: the chevron of its menu-bar item on a blue tile.
class AppMark : public QWidget {
    Q_OBJECT
public:
    explicit AppMark(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace ravlin
