#pragma once

#include "PanelPalette.h"

#include <QWidget>

namespace ravlin {

// The rounded, blurred backdrop of a floating panel. On macOS the window gets the
// system's HUD material behind it; elsewhere the container paints a glass of its own, dark
// or light as the system's appearance is.
class HudContainer : public QWidget {
    Q_OBJECT
public:
    static constexpr double panelCornerRadius = 20;

    explicit HudContainer(QWidget* parent = nullptr);

    // Rounder for a panel, less round for a row as high as the menu bar.
    void setCornerRadius(double radius) { m_radius = radius; }
    double cornerRadius() const { return m_radius; }

    // The content view; it is resized with the container.
    void setContent(QWidget* content);
    QWidget* content() const { return m_content; }
    // Whether the native material stands behind the container.
    void setNativeBackground(bool native) { m_native = native; }
    // Light or dark, as the system is.
    void setPalette(PanelPalette palette)
    {
        m_palette = palette;
        update();
    }
    const PanelPalette& palette() const { return m_palette; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QWidget* m_content = nullptr;
    bool m_native = false;
    double m_radius = panelCornerRadius;
    PanelPalette m_palette;
};

} // namespace ravlin
