#include "Platform.h"

#include "LoginItems.h"
#include "UnavailableServices.h"
#include "core/foundation/DefaultsStore.h"

namespace ravlin {

Platform::Platform()
    : systemProbe(std::make_unique<UnavailableSystemProbe>()),
      location(std::make_unique<UnavailableLocationService>()),
      geocoder(std::make_unique<UnavailableGeocoder>()),
      http(std::make_unique<UnavailableHttpClient>())
{
}

Platform::~Platform() = default;
Platform::Platform(Platform&&) noexcept = default;
Platform& Platform::operator=(Platform&&) noexcept = default;

} // namespace ravlin
