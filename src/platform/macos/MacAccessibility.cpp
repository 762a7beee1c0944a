#include "MacAccessibility.h"

#include "CFConvert.h"
#include "CFRef.h"

#include <ApplicationServices/ApplicationServices.h>

namespace ravlin {

namespace {

// Adopts a +1 reference.
AXElement wrap(AXUIElementRef element)
{
    if (!element)
        return {};
    return AXElement(std::shared_ptr<const void>(element, [](const void* ref) { CFRelease(ref); }));
}

AXUIElementRef unwrap(const AXElement& element)
{
    return static_cast<AXUIElementRef>(const_cast<void*>(element.handle()));
}

bool isElement(CFTypeRef value)
{
    return value && CFGetTypeID(value) == AXUIElementGetTypeID();
}

// AXPosition and AXSize come as boxed CGPoint and CGSize (positions already in
// window-server coordinates, origin top left).
bool readGeometry(CFTypeRef value, AXValue& out)
{
    auto boxed = AXValueRef(value);
    switch (AXValueGetType(boxed)) {
    case kAXValueTypeCGPoint: {
        CGPoint point{};
        if (!AXValueGetValue(boxed, kAXValueTypeCGPoint, &point))
            return false;
        out.kind = AXValue::Kind::Point;
        out.point = QPointF(point.x, point.y);
        return true;
    }
    case kAXValueTypeCGSize: {
        CGSize size{};
        if (!AXValueGetValue(boxed, kAXValueTypeCGSize, &size))
            return false;
        out.kind = AXValue::Kind::Size;
        out.size = QSizeF(size.width, size.height);
        return true;
    }
    default:
        return false;
    }
}

AXValue toValue(CFTypeRef value)
{
    AXValue v;
    if (!value)
        return v;
    const CFTypeID type = CFGetTypeID(value);
    if (type == CFStringGetTypeID()) {
        v.kind = AXValue::Kind::Text;
        v.text = CFConvert::toQString(CFStringRef(value));
    } else if (isElement(value)) {
        v.kind = AXValue::Kind::Element;
        v.element = wrap(AXUIElementRef(CFRetain(value)));
    } else if (type == AXValueGetTypeID()) {
        readGeometry(value, v);
    } else if (type == CFArrayGetTypeID()) {
        auto array = CFArrayRef(value);
        v.kind = AXValue::Kind::ElementList;
        for (CFIndex i = 0, n = CFArrayGetCount(array); i < n; ++i) {
            CFTypeRef child = CFArrayGetValueAtIndex(array, i);
            if (!isElement(child)) {
                v.kind = AXValue::Kind::Other;
                v.elements.clear();
                break;
            }
            v.elements.push_back(wrap(AXUIElementRef(CFRetain(child))));
        }
    }
    return v;
}

} // namespace

bool MacAccessibility::isProcessTrusted()
{
    return AXIsProcessTrusted();
}

bool MacAccessibility::isProcessTrustedWithPrompt()
{
    const void* keys[] = {kAXTrustedCheckOptionPrompt};
    const void* values[] = {kCFBooleanTrue};
    CFRef<CFDictionaryRef> options(CFDictionaryCreate(nullptr, keys, values, 1,
                                                      &kCFTypeDictionaryKeyCallBacks,
                                                      &kCFTypeDictionaryValueCallBacks));
    return AXIsProcessTrustedWithOptions(options.get());
}

AXElement MacAccessibility::systemWideElement()
{
    return wrap(AXUIElementCreateSystemWide());
}

AXElement MacAccessibility::applicationElement(std::int32_t pid)
{
    return wrap(AXUIElementCreateApplication(pid_t(pid)));
}

AXResult<AXElement> MacAccessibility::elementAtPosition(const AXElement& root, float x, float y)
{
    if (root.isNull())
        return {kAXErrorIllegalArgument, {}};
    AXUIElementRef hit = nullptr;
    const ::AXError error = AXUIElementCopyElementAtPosition(unwrap(root), x, y, &hit);
    return {int(error), wrap(error == kAXErrorSuccess ? hit : nullptr)};
}

AXResult<AXValue> MacAccessibility::copyAttributeValue(const AXElement& element,
                                                       const QString& attribute)
{
    if (element.isNull())
        return {kAXErrorIllegalArgument, {}};
    CFTypeRef raw = nullptr;
    const ::AXError error =
        AXUIElementCopyAttributeValue(unwrap(element), CFConvert::string(attribute).get(), &raw);
    CFRef<CFTypeRef> value(error == kAXErrorSuccess ? raw : nullptr);
    if (error != kAXErrorSuccess)
        return {int(error), {}};
    return {int(error), toValue(value.get())};
}

AXResult<QStringList> MacAccessibility::copyActionNames(const AXElement& element)
{
    if (element.isNull())
        return {kAXErrorIllegalArgument, {}};
    CFArrayRef raw = nullptr;
    const ::AXError error = AXUIElementCopyActionNames(unwrap(element), &raw);
    CFRef<CFArrayRef> names(error == kAXErrorSuccess ? raw : nullptr);
    if (error != kAXErrorSuccess)
        return {int(error), {}};
    QStringList list;
    for (CFIndex i = 0, n = names ? CFArrayGetCount(names.get()) : 0; i < n; ++i) {
        CFTypeRef name = CFArrayGetValueAtIndex(names.get(), i);
        if (name && CFGetTypeID(name) == CFStringGetTypeID())
            list.append(CFConvert::toQString(CFStringRef(name)));
    }
    return {int(error), list};
}

int MacAccessibility::performAction(const AXElement& element, const QString& action)
{
    if (element.isNull())
        return kAXErrorIllegalArgument;
    return int(AXUIElementPerformAction(unwrap(element), CFConvert::string(action).get()));
}

AXResult<std::int32_t> MacAccessibility::pid(const AXElement& element)
{
    if (element.isNull())
        return {kAXErrorIllegalArgument, 0};
    pid_t pid = 0;
    const ::AXError error = AXUIElementGetPid(unwrap(element), &pid);
    return {int(error), error == kAXErrorSuccess ? std::int32_t(pid) : 0};
}

int MacAccessibility::setMessagingTimeout(const AXElement& element, float seconds)
{
    if (element.isNull())
        return kAXErrorIllegalArgument;
    return int(AXUIElementSetMessagingTimeout(unwrap(element), seconds));
}

} // namespace ravlin
