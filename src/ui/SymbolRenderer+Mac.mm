// Symbols on macOS: the system's own symbol images, tinted and drawn into Qt.
#include "SymbolRenderer.h"

#include "SymbolGlyphs.h"

#import <AppKit/AppKit.h>

#include <QPainter>

#include <algorithm>

namespace ravlin {
namespace {

NSImage* systemSymbol(const QString& name, double pointSize)
{
    NSImage* image = [NSImage imageWithSystemSymbolName:name.toNSString()
                               accessibilityDescription:nil];
    if (!image)
        return nil;
    NSImageSymbolConfiguration* config =
        [NSImageSymbolConfiguration configurationWithPointSize:pointSize
                                                        weight:NSFontWeightRegular];
    return [image imageWithSymbolConfiguration:config];
}

// Renders the template symbol in one colour at the painter's pixel density.
QImage render(NSImage* symbol, const QSizeF& box, const QColor& color, double scale)
{
    const NSSize size = symbol.size;
    const double fit = std::min(box.width() / size.width, box.height() / size.height);
    const int w = std::max(1, int(size.width * fit * scale + 0.5));
    const int h = std::max(1, int(size.height * fit * scale + 0.5));
    QImage image(w, h, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    CGColorSpaceRef space = CGColorSpaceCreateDeviceRGB();
    CGContextRef context =
        CGBitmapContextCreate(image.bits(), w, h, 8, image.bytesPerLine(), space,
                              kCGImageAlphaPremultipliedFirst | kCGBitmapByteOrder32Host);
    CGColorSpaceRelease(space);
    if (!context)
        return {};
    NSGraphicsContext* ns = [NSGraphicsContext graphicsContextWithCGContext:context flipped:NO];
    [NSGraphicsContext saveGraphicsState];
    NSGraphicsContext.currentContext = ns;
    const NSRect rect = NSMakeRect(0, 0, w, h);
    [symbol drawInRect:rect];
    [[NSColor colorWithSRGBRed:color.redF()
                         green:color.greenF()
                          blue:color.blueF()
                         alpha:color.alphaF()] set];
    NSRectFillUsingOperation(rect, NSCompositingOperationSourceIn);
    [NSGraphicsContext restoreGraphicsState];
    CGContextRelease(context);
    image.setDevicePixelRatio(scale);
    return image;
}

} // namespace

bool SymbolRenderer::hasSymbol(const QString& name)
{
    return symbolGlyphs().contains(name) && systemSymbol(name, 13) != nil;
}

bool SymbolRenderer::paint(QPainter& painter, const QRectF& rect, const QString& name,
                           const QColor& color)
{
    if (!symbolGlyphs().contains(name))
        return false;
    NSImage* symbol = systemSymbol(name, rect.height() * 0.8);
    if (!symbol)
        return false;
    const double scale = painter.device() ? painter.device()->devicePixelRatioF() : 2.0;
    const QImage image = render(symbol, rect.size(), color, scale);
    if (image.isNull())
        return false;
    const QSizeF drawn = image.deviceIndependentSize();
    painter.drawImage(
        QPointF(rect.center().x() - drawn.width() / 2, rect.center().y() - drawn.height() / 2),
        image);
    return true;
}

} // namespace ravlin
