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
    for (QWidget* w : scene.windows)
        window(painter, w);
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
        if (r.width() >= 3)
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
