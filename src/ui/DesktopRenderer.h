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
        double notch = 0; // the camera housing's width, centred in the menu bar
    };
    // One status item in the menu bar: an image, a symbol, or our separator's mark.
    struct StatusItem {
        QRectF frame;
        QImage image;
        QString symbol;
        bool separator = false;
    };

    // An open menu: where its top left corner stands, and its rows.
    struct Menu {
        struct Row {
            QString title;
            bool separator = false;
            bool checked = false;
            bool hasSubmenu = false;
            bool highlighted = false;
            QString shortcut; // as the menu shows it ("⌘,")
        };
        QPointF origin;
        std::vector<Row> rows;
        bool rightToLeft = false; // mirrored: titles from the right, check marks on the right
    };

    std::vector<Display> displays;
    std::vector<StatusItem> items;
    QString activeApplication = QStringLiteral("Desktop");
    QStringList menus = {QStringLiteral("File"), QStringLiteral("Edit"), QStringLiteral("View"),
                         QStringLiteral("Window"), QStringLiteral("Help")};
    // The application's visible windows, front last, each drawn by its own widgets where it stands.
    std::vector<QWidget*> windows;
    // The status menu and the submenus open beside it, outermost first.
    std::vector<Menu> menusOpen;
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
    void notch(QPainter& p, const DesktopScene::Display& d) const;
    void menu(QPainter& p, const DesktopScene::Menu& menu) const;

public:
    // The size a menu takes, so that a submenu can stand beside it.
    static QSizeF menuSize(const DesktopScene::Menu& menu);
    // The top of a row, below the menu's own top edge.
    static double menuRowOffset(const DesktopScene::Menu& menu, std::size_t row);
};

} // namespace ravlin
