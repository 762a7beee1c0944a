#include "MacWindowServer.h"

#include "CFConvert.h"
#include "CFRef.h"
#include "MacWindowCapture.h"

#include <ApplicationServices/ApplicationServices.h>

namespace ravlin {

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
    return MacWindowCapture::capture(windowNumber);
}

} // namespace ravlin
