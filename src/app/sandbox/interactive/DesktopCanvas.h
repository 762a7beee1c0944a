#pragma once

#include <QWidget>

#include <functional>
#include <optional>

namespace ravlin::sandbox {

class SandboxSession;

// The simulated screen, drawn at its own size: wallpaper, menu bar and status items.
// The pointer works as on macOS: clicks, right and control-clicks, hover, and
// command-drags (Alt or Meta stand for the command key) that move items.
class DesktopCanvas : public QWidget {
    Q_OBJECT
public:
    explicit DesktopCanvas(QWidget* parent = nullptr);

    // The session whose desktop this canvas shows (it may be replaced on restart).
    void setSession(SandboxSession* session);
    // Paints the desktop; the default paints wallpaper and menu bar only.
    std::function<void(QPainter&, SandboxSession&)> painter;

    QSize sizeHint() const override;

    // Asks for a repaint when the desktop's picture changed since the last one: at rest
    // the canvas is not painted at all.
    void refresh();
    // How many repaints the canvas asked for, for the tests.
    int repaintsAsked() const { return m_repaintsAsked; }

Q_SIGNALS:
    // Something the person did, for the log.
    void acted(const QString& what);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    // Scrolling on the simulated desktop: heard by Ravlin's monitors (its own where the pointer
    // is on one of its items), as on a Mac.
    void wheelEvent(QWheelEvent* event) override;

private:
    void showOpenMenu();

    SandboxSession* m_session = nullptr;
    std::optional<std::int64_t> m_dragging; // the item a command-drag holds
    QByteArray m_shownKey;
    int m_repaintsAsked = 0;
};

} // namespace ravlin::sandbox
