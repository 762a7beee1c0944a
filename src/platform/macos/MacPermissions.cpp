#include "MacPermissions.h"

#include <ApplicationServices/ApplicationServices.h>

namespace ravlin {

bool MacPermissions::preflightScreenCaptureAccess()
{
    return CGPreflightScreenCaptureAccess();
}

bool MacPermissions::requestScreenCaptureAccess()
{
    return CGRequestScreenCaptureAccess();
}

} // namespace ravlin
