#pragma once

#include <QList>
#include <QString>

namespace ravlin {

// The location service's authorisation status, with the platform's raw values.
enum class LocationAuthorization {
    NotDetermined = 0,
    Restricted = 1,
    Denied = 2,
    AuthorizedAlways = 3,
    AuthorizedWhenInUse = 4,
};

QString locationAuthorizationName(LocationAuthorization status);

struct Coordinate {
    double latitude = 0;
    double longitude = 0;
};

// Told what the location service finds; every call comes on the main thread.
class LocationServiceDelegate {
public:
    virtual void locationAuthorizationChanged(LocationAuthorization status) = 0;
    virtual void locationsUpdated(const QList<Coordinate>& locations) = 0;
    virtual void locationFailed(const QString& error) = 0;

protected:
    ~LocationServiceDelegate() = default;
};

// The machine's position, one request at a time.
class LocationService {
public:
    virtual ~LocationService() = default;

    // The delegate must outlive the service or be replaced by nullptr first.
    virtual void setDelegate(LocationServiceDelegate* delegate) = 0;
    virtual void setDesiredAccuracy(double metres) = 0;
    virtual LocationAuthorization authorizationStatus() const = 0;
    // The answer arrives at the delegate's authorisation callback, if ever.
    virtual void requestWhenInUseAuthorization() = 0;
    // One position (or a failure) for the delegate.
    virtual void requestLocation() = 0;
};

} // namespace ravlin
