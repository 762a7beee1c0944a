#include "SMAppServiceLoginItems.h"

#import <ServiceManagement/ServiceManagement.h>

namespace ravlin {

LoginItemStatus SMAppServiceLoginItems::status()
{
    switch (SMAppService.mainAppService.status) {
    case SMAppServiceStatusNotRegistered:
        return LoginItemStatus::NotRegistered;
    case SMAppServiceStatusEnabled:
        return LoginItemStatus::Enabled;
    case SMAppServiceStatusRequiresApproval:
        return LoginItemStatus::RequiresApproval;
    case SMAppServiceStatusNotFound:
        return LoginItemStatus::NotFound;
    }
    return LoginItemStatus::NotFound;
}

std::optional<QString> SMAppServiceLoginItems::registerItem()
{
    NSError* error = nil;
    if ([SMAppService.mainAppService registerAndReturnError:&error])
        return std::nullopt;
    return QString::fromNSString(error.localizedDescription);
}

std::optional<QString> SMAppServiceLoginItems::unregisterItem()
{
    NSError* error = nil;
    if ([SMAppService.mainAppService unregisterAndReturnError:&error])
        return std::nullopt;
    return QString::fromNSString(error.localizedDescription);
}

} // namespace ravlin
