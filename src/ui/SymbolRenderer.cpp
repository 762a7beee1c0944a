#include "SymbolRenderer.h"

#include "SymbolGlyphs.h"

#include <QPainter>

namespace ravlin {

const QStringList& SymbolRenderer::knownSymbols()
{
    static const QStringList names = [] {
        QStringList list = symbolGlyphs().keys();
        list.sort();
        return list;
    }();
    return names;
}

QImage SymbolRenderer::image(const QString& name, double pointSize, const QColor& color,
                             double devicePixelRatio)
{
    if (!symbolGlyphs().contains(name))
        return {};
    const int side = qMax(1, int(pointSize * devicePixelRatio + 0.5));
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    paint(painter, QRectF(0, 0, side, side), name, color);
    painter.end();
    image.setDevicePixelRatio(devicePixelRatio);
    return image;
}

} // namespace ravlin
