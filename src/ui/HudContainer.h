#pragma once

#include <QWidget>

namespace ravlin {

// The rounded, blurred backdrop of a floating panel. On macOS the window gets the
// system's HUD material behind it; elsewhere the container paints a dark glass of its own.
class HudContainer : public QWidget {
    Q_OBJECT
public:
    static constexpr double cornerRadius = 20;

    explicit HudContainer(QWidget* parent = nullptr);

    // The content view; it is resized with the container.
    void setContent(QWidget* content);
    QWidget* content() const { return m_content; }
    // Whether the native material stands behind the container.
    void setNativeBackground(bool native) { m_native = native; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QWidget* m_content = nullptr;
    bool m_native = false;
};

} // namespace ravlin
