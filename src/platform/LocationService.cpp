#include "LocationService.h"

namespace ravlin {

QString locationAuthorizationName(LocationAuthorization status)
{
    switch (status) {
    case LocationAuthorization::NotDetermined:
        return QStringLiteral("notDetermined");
    case LocationAuthorization::Restricted:
        return QStringLiteral("restricted");
    case LocationAuthorization::Denied:
        return QStringLiteral("denied");
    case LocationAuthorization::AuthorizedAlways:
        return QStringLiteral("authorizedAlways");
    case LocationAuthorization::AuthorizedWhenInUse:
        return QStringLiteral("whenInUse");
    }
    return QStringLiteral("unknown");
}

} // namespace ravlin
