#include "MacGeocoder.h"

#import <CoreLocation/CoreLocation.h>

namespace ravlin {
namespace {

std::optional<QString> text(NSString* value)
{
    return value ? std::optional<QString>(QString::fromNSString(value)) : std::nullopt;
}

} // namespace

struct MacGeocoder::Impl {
    CLGeocoder* geocoder = nil;
};

MacGeocoder::MacGeocoder() : d(std::make_unique<Impl>())
{
    d->geocoder = [[CLGeocoder alloc] init];
}

MacGeocoder::~MacGeocoder()
{
    [d->geocoder cancelGeocode];
}

void MacGeocoder::reverseGeocode(const Coordinate& coordinate, Completion completion)
{
    CLLocation* location = [[CLLocation alloc] initWithLatitude:coordinate.latitude
                                                      longitude:coordinate.longitude];
    // The geocoder answers on the main queue.
    __block Completion done = std::move(completion);
    [d->geocoder reverseGeocodeLocation:location
                      completionHandler:^(NSArray<CLPlacemark*>* placemarks, NSError* error) {
                        if (error || !placemarks) {
                            done(std::nullopt);
                            return;
                        }
                        QList<Placemark> result;
                        for (CLPlacemark* p in placemarks)
                            result.append({text(p.locality), text(p.subAdministrativeArea),
                                           text(p.administrativeArea)});
                        done(result);
                      }];
}

} // namespace ravlin
