#pragma once

#include <QImage>
#include <QRectF>
#include <QStringList>

#include <vector>

class QPainter;
class QWidget;

namespace ravlin {

// A desktop to draw, in window-server coordinates (Qt's global coordinates).
struct DesktopScene {
    struct Display {
        QRectF frame;
        double menuBarHeight = 24;
    };
    // One status item in the menu bar: an image, a symbol, or our separator's mark.
    struct StatusItem {
        QRectF frame;
        QImage image;
        QString symbol;
        bool separator = false;
    };

    std::vector<Display> displays;
    std::vector<StatusItem> items;
    QString activeApplication = QStringLiteral("Desktop");
    QStringList menus = {QStringLiteral("File"), QStringLiteral("Edit"), QStringLiteral("View"),
                         QStringLiteral("Window"), QStringLiteral("Help")};
    // The application's visible windows, front last, each drawn by its own widgets where it stands.
    std::vector<QWidget*> windows;
};

// Paints a calm desktop: wallpaper, a translucent menu bar with an application
// menu and the status items, and the application's windows on top. The sandbox
// uses it for screenshots and for its interactive window.
class DesktopRenderer {
public:
    QImage render(const DesktopScene& scene, double devicePixelRatio = 2.0) const;
    void paint(QPainter& painter, const DesktopScene& scene) const;

private:
    void wallpaper(QPainter& p, const DesktopScene::Display& d) const;
    void menuBar(QPainter& p, const DesktopScene& scene, const DesktopScene::Display& d,
                 bool main) const;
    void statusItem(QPainter& p, const DesktopScene::StatusItem& item) const;
    void window(QPainter& p, QWidget* w) const;
};

} // namespace ravlin
