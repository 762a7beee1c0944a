// Symbols on macOS: the system's own symbol images, tinted and drawn into Qt images.
#include "SymbolRenderer.h"

#include "SymbolGlyphs.h"

#import <AppKit/AppKit.h>

#include <QPainter>

namespace ravlin {
namespace {

NSImage* systemSymbol(const QString& name, double pointSize)
{
    NSImage* image = [NSImage imageWithSystemSymbolName:name.toNSString() accessibilityDescription:nil];
    if (!image)
        return nil;
    NSImageSymbolConfiguration* config = [NSImageSymbolConfiguration configurationWithPointSize:pointSize
                                                                                         weight:NSFontWeightRegular];
    return [image imageWithSymbolConfiguration:config];
}

QImage render(const QString& name, int side, const QColor& color)
{
    NSImage* symbol = systemSymbol(name, side * 0.8);
    if (!symbol || side <= 0)
        return {};
    QImage out(side, side, QImage::Format_ARGB32_Premultiplied);
    out.fill(Qt::transparent);
    CGColorSpaceRef space = CGColorSpaceCreateDeviceRGB();
    CGContextRef context = CGBitmapContextCreate(out.bits(), side, side, 8, out.bytesPerLine(), space,
                                                 kCGImageAlphaPremultipliedFirst | kCGBitmapByteOrder32Host);
    CGColorSpaceRelease(space);
    if (!context)
        return {};
    const NSSize size = symbol.size;
    const double scale = std::min(side / size.width, side / size.height);
    const NSRect target = NSMakeRect((side - size.width * scale) / 2, (side - size.height * scale) / 2,
                                     size.width * scale, size.height * scale);
    [NSGraphicsContext saveGraphicsState];
    NSGraphicsContext.currentContext = [NSGraphicsContext graphicsContextWithCGContext:context flipped:NO];
    [symbol drawInRect:target];
    [NSGraphicsContext restoreGraphicsState];
    // Symbols are templates: keep their shape, paint them in the wanted colour.
    CGContextSetBlendMode(context, kCGBlendModeSourceIn);
    CGContextSetRGBFillColor(context, color.redF(), color.greenF(), color.blueF(), color.alphaF());
    CGContextFillRect(context, CGRectMake(0, 0, side, side));
    CGContextRelease(context);
    return out;
}

} // namespace

const QStringList& SymbolRenderer::knownSymbols()
{
    static const QStringList names = [] {
        QStringList list = SymbolGlyphs::table().keys();
        list.sort();
        return list;
    }();
    return names;
}

bool SymbolRenderer::hasSymbol(const QString& name)
{
    return SymbolGlyphs::table().contains(name) && systemSymbol(name, 13) != nil;
}

bool SymbolRenderer::paint(QPainter& painter, const QRectF& rect, const QString& name, const QColor& color)
{
    const double ratio = painter.device() ? painter.device()->devicePixelRatioF() : 2.0;
    QImage image = render(name, int(rect.height() * ratio + 0.5), color);
    if (image.isNull())
        return false;
    image.setDevicePixelRatio(ratio);
    const QSizeF size = image.deviceIndependentSize();
    painter.drawImage(QPointF(rect.center().x() - size.width() / 2, rect.center().y() - size.height() / 2), image);
    return true;
}

QImage SymbolRenderer::image(const QString& name, double pointSize, const QColor& color, double devicePixelRatio)
{
    QImage image = render(name, int(pointSize * devicePixelRatio + 0.5), color);
    if (!image.isNull())
        image.setDevicePixelRatio(devicePixelRatio);
    return image;
}

} // namespace ravlin
