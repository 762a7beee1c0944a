#include "DesktopRenderer.h"

#include "SymbolRenderer.h"
#include "Theme.h"

#include <QPainter>
#include <QPainterPath>
#include <QWidget>

namespace ravlin {

QImage DesktopRenderer::render(const DesktopScene& scene, double devicePixelRatio) const
{
    QRectF bounds;
    for (const auto& d : scene.displays)
        bounds = bounds.united(d.frame);
    if (bounds.isEmpty())
        bounds = QRectF(0, 0, 1440, 900);
    const QSize pixels = (bounds.size() * devicePixelRatio).toSize();
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(devicePixelRatio);
    image.fill(QColor(24, 26, 32));
    QPainter painter(&image);
    painter.translate(-bounds.topLeft());
    paint(painter, scene);
    return image;
}

void DesktopRenderer::paint(QPainter& painter, const DesktopScene& scene) const
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    for (std::size_t i = 0; i < scene.displays.size(); ++i) {
        wallpaper(painter, scene.displays[i]);
        menuBar(painter, scene, scene.displays[i], i == 0);
    }
    for (const auto& item : scene.items)
        statusItem(painter, item);
    for (const auto& d : scene.displays)
        notch(painter, d);
    for (QWidget* w : scene.windows)
        window(painter, w);
    for (const auto& m : scene.menusOpen)
        menu(painter, m);
}

void DesktopRenderer::notch(QPainter& p, const DesktopScene::Display& d) const
{
    if (d.notch <= 0)
        return;
    const QRectF housing(d.frame.center().x() - d.notch / 2, d.frame.top() - 8, d.notch,
                         d.menuBarHeight + 8);
    p.save();
    p.setPen(Qt::NoPen);
    p.setBrush(Qt::black);
    p.drawRoundedRect(housing, 8, 8);
    p.restore();
}

namespace {

constexpr double menuRow = 22, menuSeparator = 11, menuPadding = 5, menuWidthMin = 200;

QFont menuFont()
{
    return Theme::font(13);
}

// A chevron pointing to where the submenu opens, drawn rather than typed: a text arrow
// would be mirrored again by the text layout of a right-to-left row.
void submenuArrow(QPainter& p, const QRectF& box, bool pointsLeft, const QColor& colour)
{
    const double h = 4, w = 3.2, cx = box.center().x(), cy = box.center().y();
    const double tip = pointsLeft ? cx - w / 2 : cx + w / 2;
    const double back = pointsLeft ? cx + w / 2 : cx - w / 2;
    QPainterPath chevron;
    chevron.moveTo(back, cy - h);
    chevron.lineTo(tip, cy);
    chevron.lineTo(back, cy + h);
    p.save();
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(colour, 1.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.drawPath(chevron);
    p.restore();
}

} // namespace

QSizeF DesktopRenderer::menuSize(const DesktopScene::Menu& menu)
{
    const QFontMetricsF metrics(menuFont());
    double width = menuWidthMin, height = 2 * menuPadding;
    for (const auto& row : menu.rows) {
        height += row.separator ? menuSeparator : menuRow;
        const double shortcut =
            row.shortcut.isEmpty() ? 0 : metrics.horizontalAdvance(row.shortcut) + 24;
        width = std::max(width, metrics.horizontalAdvance(row.title) + shortcut + 64);
    }
    return {width, height};
}

double DesktopRenderer::menuRowOffset(const DesktopScene::Menu& menu, std::size_t row)
{
    double y = menuPadding;
    for (std::size_t i = 0; i < row && i < menu.rows.size(); ++i)
        y += menu.rows[i].separator ? menuSeparator : menuRow;
    return y;
}

// A light menu as the system draws one: a rounded translucent sheet with a soft shadow,
// check marks in the leading margin, key equivalents and submenu arrows at the trailing
// end, the entry under the pointer in the accent colour. Right to left, all of it mirrored.
void DesktopRenderer::menu(QPainter& p, const DesktopScene::Menu& m) const
{
    const QRectF sheet(m.origin, menuSize(m));
    const bool rtl = m.rightToLeft;
    // Rectangles are measured from the leading edge and mirrored for right to left.
    auto place = [&](double leading, double y, double width) {
        const double x = rtl ? sheet.right() - leading - width : sheet.left() + leading;
        return QRectF(x, y, width, menuRow);
    };
    const Qt::Alignment leadingAlign = rtl ? Qt::AlignRight : Qt::AlignLeft;
    const Qt::Alignment trailingAlign = rtl ? Qt::AlignLeft : Qt::AlignRight;
    p.save();
    p.setPen(Qt::NoPen);
    for (int i = 10; i >= 1; --i) {
        p.setBrush(QColor(0, 0, 0, 6));
        p.drawRoundedRect(sheet.adjusted(-i, -i + 4, i, i + 4), 8 + i, 8 + i);
    }
    p.setBrush(QColor(246, 246, 248, 246));
    p.setPen(QPen(QColor(0, 0, 0, 40), 0.5));
    p.drawRoundedRect(sheet, 8, 8);
    p.setFont(menuFont());
    double y = sheet.top() + menuPadding;
    for (const auto& row : m.rows) {
        if (row.separator) {
            p.fillRect(QRectF(sheet.left() + 10, y + menuSeparator / 2, sheet.width() - 20, 1),
                       QColor(0, 0, 0, 28));
            y += menuSeparator;
            continue;
        }
        const QRectF line(sheet.left() + 5, y, sheet.width() - 10, menuRow);
        QColor text(28, 28, 30);
        if (row.highlighted) {
            p.setPen(Qt::NoPen);
            p.setBrush(QColor(10, 110, 230));
            p.drawRoundedRect(line, 4, 4);
            text = Qt::white;
        }
        p.setPen(text);
        if (row.checked)
            p.drawText(place(11, y, 14), Qt::AlignVCenter | leadingAlign, QStringLiteral("✓"));
        const double trailing = row.hasSubmenu || !row.shortcut.isEmpty() ? 24 : 0;
        const double shortcutWidth =
            row.shortcut.isEmpty() ? 0 : p.fontMetrics().horizontalAdvance(row.shortcut) + 8;
        p.drawText(place(27, y, sheet.width() - 27 - 12 - trailing - shortcutWidth),
                   Qt::AlignVCenter | leadingAlign, row.title);
        if (!row.shortcut.isEmpty()) {
            p.setPen(row.highlighted ? text : QColor(28, 28, 30, 128));
            p.drawText(place(sheet.width() - 16 - shortcutWidth, y, shortcutWidth),
                       Qt::AlignVCenter | trailingAlign, row.shortcut);
            p.setPen(text);
        }
        if (row.hasSubmenu)
            submenuArrow(p, place(sheet.width() - 21, y, 8), rtl, text);
        y += menuRow;
    }
    p.restore();
}

void DesktopRenderer::wallpaper(QPainter& p, const DesktopScene::Display& d) const
{
    const QRectF r = d.frame;
    QLinearGradient sky(r.topLeft(), r.bottomRight());
    sky.setColorAt(0.0, QColor(46, 72, 112));
    sky.setColorAt(0.55, QColor(88, 98, 140));
    sky.setColorAt(1.0, QColor(168, 132, 150));
    p.fillRect(r, sky);
    // A soft glow low on the horizon keeps the gradient from looking flat.
    QRadialGradient glow(QPointF(r.left() + r.width() * 0.7, r.bottom()), r.width() * 0.6);
    glow.setColorAt(0, QColor(255, 196, 160, 90));
    glow.setColorAt(1, QColor(255, 196, 160, 0));
    p.fillRect(r, glow);
}

void DesktopRenderer::menuBar(QPainter& p, const DesktopScene& scene,
                              const DesktopScene::Display& d, bool main) const
{
    const QRectF bar(d.frame.left(), d.frame.top(), d.frame.width(), d.menuBarHeight);
    p.fillRect(bar, QColor(18, 20, 28, 120));
    p.fillRect(QRectF(bar.left(), bar.bottom() - 0.5, bar.width(), 0.5), QColor(0, 0, 0, 60));
    if (!main)
        return;
    double x = bar.left() + 14;
    SymbolRenderer::paint(p, QRectF(x, bar.top() + 4, 16, d.menuBarHeight - 8),
                          QStringLiteral("circle.grid.2x2"), Theme::hudPrimaryText());
    x += 30;
    p.setPen(Theme::hudPrimaryText());
    auto word = [&](const QString& text, const QFont& font) {
        p.setFont(font);
        const double w = p.fontMetrics().horizontalAdvance(text);
        p.drawText(QRectF(x, bar.top(), w + 2, d.menuBarHeight), Qt::AlignVCenter | Qt::AlignLeft,
                   text);
        x += w + 20;
    };
    word(scene.activeApplication, Theme::font(13, QFont::Bold));
    for (const QString& menu : scene.menus)
        word(menu, Theme::font(13));
}

void DesktopRenderer::statusItem(QPainter& p, const DesktopScene::StatusItem& item) const
{
    const QRectF r = item.frame;
    if (item.separator) {
        // The divider of a shown section; a separator stretched to hide items is empty bar.
        if (r.width() >= 3 && r.width() <= 24)
            p.fillRect(
                QRectF(r.center().x() - 0.5, r.top() + r.height() * 0.28, 1, r.height() * 0.44),
                QColor(255, 255, 255, 110));
        return;
    }
    if (!item.image.isNull()) {
        const QSizeF size =
            item.image.deviceIndependentSize().scaled(r.size(), Qt::KeepAspectRatio);
        p.drawImage(QRectF(r.center().x() - size.width() / 2, r.center().y() - size.height() / 2,
                           size.width(), size.height()),
                    item.image);
        return;
    }
    if (!item.symbol.isEmpty()) {
        const double side = std::min(r.height() * 0.62, 16.0);
        SymbolRenderer::paint(
            p, QRectF(r.center().x() - side / 2, r.center().y() - side / 2, side, side),
            item.symbol, Theme::hudPrimaryText());
    }
}

void DesktopRenderer::window(QPainter& p, QWidget* w) const
{
    const QRectF frame = w->geometry();
    p.save();
    p.setOpacity(w->windowOpacity());
    p.setPen(Qt::NoPen);
    for (int i = 8; i >= 1; --i) {
        p.setBrush(QColor(0, 0, 0, 9));
        p.drawRoundedRect(frame.adjusted(-i, -i + 6, i, i + 6), 20 + i, 20 + i);
    }
    p.restore();
    p.save();
    p.setOpacity(w->windowOpacity());
    w->render(&p, frame.topLeft().toPoint(), QRegion(), QWidget::DrawChildren);
    p.restore();
}

} // namespace ravlin
