#include "LinuxServices.h"

#include "LinuxSystemProbe.h"
#include "NominatimGeocoder.h"
#include "QtPositioningLocationService.h"
#include "platform/Platform.h"
#include "platform/qt/QtHttpClient.h"

namespace ravlin::LinuxServices {

void install(Platform& platform, Scheduler& scheduler)
{
    platform.systemProbe = std::make_unique<LinuxSystemProbe>();
    platform.location = std::make_unique<QtPositioningLocationService>();
    platform.geocoder =
        std::make_unique<NominatimGeocoder>(std::make_unique<QtHttpClient>(scheduler));
    platform.http = std::make_unique<QtHttpClient>(scheduler);
}

} // namespace ravlin::LinuxServices
