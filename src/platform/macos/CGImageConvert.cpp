#include "CGImageConvert.h"

#include "CFRef.h"

#include <CoreGraphics/CoreGraphics.h>

namespace ravlin::CGImageConvert {

QImage toQImage(CGImageRef image)
{
    if (!image)
        return {};
    const size_t width = CGImageGetWidth(image);
    const size_t height = CGImageGetHeight(image);
    QImage out(int(width), int(height), QImage::Format_ARGB32_Premultiplied);
    if (out.isNull())
        return {};
    out.fill(Qt::transparent);
    CFRef<CGColorSpaceRef> space(CGColorSpaceCreateDeviceRGB());
    CFRef<CGContextRef> context(
        CGBitmapContextCreate(out.bits(), width, height, 8, size_t(out.bytesPerLine()), space.get(),
                              kCGImageAlphaPremultipliedFirst | kCGBitmapByteOrder32Host));
    if (!context)
        return {};
    CGContextDrawImage(context.get(), CGRectMake(0, 0, CGFloat(width), CGFloat(height)), image);
    return out;
}

} // namespace ravlin::CGImageConvert
