#include "MacLocationService.h"

#include "MacActivation.h"

#import <CoreLocation/CoreLocation.h>

namespace ravlin {
namespace {

// What the Objective-C delegate hands on; it outlives no one.
struct DelegateTarget {
    LocationServiceDelegate* delegate = nullptr;
};

LocationAuthorization authorizationOf(CLAuthorizationStatus status)
{
    switch (int(status)) {
    case 1:
        return LocationAuthorization::Restricted;
    case 2:
        return LocationAuthorization::Denied;
    case 3:
        return LocationAuthorization::AuthorizedAlways;
    case 4:
        return LocationAuthorization::AuthorizedWhenInUse;
    default:
        return LocationAuthorization::NotDetermined;
    }
}

} // namespace
} // namespace ravlin

@interface RavlinLocationDelegate : NSObject <CLLocationManagerDelegate>
@property(nonatomic, assign) ravlin::DelegateTarget* target;
@end

@implementation RavlinLocationDelegate

- (void)locationManagerDidChangeAuthorization:(CLLocationManager*)manager
{
    if (self.target && self.target->delegate)
        self.target->delegate->locationAuthorizationChanged(
            ravlin::authorizationOf(manager.authorizationStatus));
}

- (void)locationManager:(CLLocationManager*)manager
     didUpdateLocations:(NSArray<CLLocation*>*)locations
{
    (void)manager;
    if (!self.target || !self.target->delegate)
        return;
    QList<ravlin::Coordinate> coordinates;
    for (CLLocation* location in locations)
        coordinates.append({location.coordinate.latitude, location.coordinate.longitude});
    self.target->delegate->locationsUpdated(coordinates);
}

- (void)locationManager:(CLLocationManager*)manager didFailWithError:(NSError*)error
{
    (void)manager;
    if (self.target && self.target->delegate)
        self.target->delegate->locationFailed(QString::fromNSString(error.localizedDescription));
}

@end

namespace ravlin {

struct MacLocationService::Impl {
    DelegateTarget target;
    CLLocationManager* manager = nil;
    RavlinLocationDelegate* bridge = nil;
};

MacLocationService::MacLocationService() : d(std::make_unique<Impl>())
{
    d->bridge = [[RavlinLocationDelegate alloc] init];
    d->bridge.target = &d->target;
    d->manager = [[CLLocationManager alloc] init];
    d->manager.delegate = d->bridge;
    d->manager.desiredAccuracy = kCLLocationAccuracyKilometer;
}

MacLocationService::~MacLocationService()
{
    d->manager.delegate = nil;
    d->bridge.target = nullptr;
}

void MacLocationService::setDelegate(LocationServiceDelegate* delegate)
{
    d->target.delegate = delegate;
}

void MacLocationService::setDesiredAccuracy(double metres)
{
    d->manager.desiredAccuracy =
        metres >= 1000 ? kCLLocationAccuracyKilometer : CLLocationAccuracy(metres);
}

LocationAuthorization MacLocationService::authorizationStatus() const
{
    return authorizationOf(d->manager.authorizationStatus);
}

void MacLocationService::requestWhenInUseAuthorization()
{
    // The system shows its prompt only for the active application, and an agent like
    // Ravlin is usually not active: without this the request is silently dropped.
    MacActivation::activateSelf();
    [d->manager requestWhenInUseAuthorization];
}

void MacLocationService::requestLocation()
{
    [d->manager requestLocation];
}

} // namespace ravlin
