#include "MacWindowServer.h"

#include "CFConvert.h"
#include "CFRef.h"

#include <ApplicationServices/ApplicationServices.h>
#include <dlfcn.h>

namespace ravlin {

namespace {

using CreateImageFunction = CGImageRef (*)(CGRect, CGWindowListOption, CGWindowID,
                                           CGWindowImageOption);

// Newer SDKs mark the window-image call unavailable at compile time although the
// system still provides it; look it up when it is first needed instead.
CreateImageFunction createImageFunction()
{
    static const auto function =
        reinterpret_cast<CreateImageFunction>(dlsym(RTLD_DEFAULT, "CGWindowListCreateImage"));
    return function;
}

QImage toQImage(CGImageRef image)
{
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

} // namespace

std::optional<PlistArray> MacWindowServer::windowList(WindowListOption option)
{
    CFRef<CFArrayRef> list(CGWindowListCopyWindowInfo(CGWindowListOption(option), kCGNullWindowID));
    if (!list)
        return std::nullopt;
    const PlistValue value = CFConvert::toPlist(list.get());
    if (!value.asArray())
        return std::nullopt;
    return *value.asArray();
}

QImage MacWindowServer::windowImage(std::uint32_t windowNumber)
{
    const CreateImageFunction create = createImageFunction();
    if (!create)
        return {};
    CFRef<CGImageRef> image(
        create(CGRectNull, kCGWindowListOptionIncludingWindow, CGWindowID(windowNumber),
               kCGWindowImageBoundsIgnoreFraming | kCGWindowImageNominalResolution));
    if (!image)
        return {};
    return toQImage(image.get());
}

} // namespace ravlin
