#pragma once

#include <QPushButton>

namespace ravlin {

// The window's buttons, drawn by hand so that their hairline edges stay crisp at
// any scale: a push button, one segment of a segmented control, or a text link.
class SettingsButton : public QPushButton {
    Q_OBJECT
public:
    enum class Kind { Push, Segment, Link };

    SettingsButton(Kind kind, const QString& text, QWidget* parent = nullptr);

    Kind kind() const { return m_kind; }
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void paintPush(QPainter& p);
    void paintSegment(QPainter& p);

    Kind m_kind;
};

} // namespace ravlin
