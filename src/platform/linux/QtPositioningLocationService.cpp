#include "QtPositioningLocationService.h"

#include "foundation/Logging.h"

#include <QGeoPositionInfoSource>

namespace ravlin {
namespace {

// How long one request may look for a position, in milliseconds.
constexpr int requestTimeoutMs = 30000;

QString errorText(QGeoPositionInfoSource::Error error)
{
    switch (error) {
    case QGeoPositionInfoSource::AccessError:
        return QStringLiteral(
            "access to the position source refused (no location service, or the user said no)");
    case QGeoPositionInfoSource::ClosedError:
        return QStringLiteral("the position source closed");
    case QGeoPositionInfoSource::UpdateTimeoutError:
        return QStringLiteral("no position within the time allowed");
    default:
        return QStringLiteral("position source error %1").arg(int(error));
    }
}

} // namespace

QtPositioningLocationService::QtPositioningLocationService()
    : m_source(QGeoPositionInfoSource::createDefaultSource(nullptr))
{
    if (!m_source) {
        qCInfo(lcWeather) << "no position source on this system; location access is restricted";
        return;
    }
    m_status = LocationAuthorization::AuthorizedAlways;
    connectSource();
}

QtPositioningLocationService::~QtPositioningLocationService() = default;

void QtPositioningLocationService::connectSource()
{
    QObject::connect(m_source.get(), &QGeoPositionInfoSource::positionUpdated, m_source.get(),
                     [this](const QGeoPositionInfo& info) {
                         if (!m_delegate || !info.isValid())
                             return;
                         const QGeoCoordinate c = info.coordinate();
                         m_delegate->locationsUpdated({Coordinate{c.latitude(), c.longitude()}});
                     });
    QObject::connect(m_source.get(), &QGeoPositionInfoSource::errorOccurred, m_source.get(),
                     [this](QGeoPositionInfoSource::Error error) {
                         if (error == QGeoPositionInfoSource::NoError)
                             return;
                         if (error == QGeoPositionInfoSource::AccessError)
                             setStatus(LocationAuthorization::Denied);
                         if (m_delegate)
                             m_delegate->locationFailed(errorText(error));
                     });
}

void QtPositioningLocationService::setDesiredAccuracy(double metres)
{
    if (!m_source)
        return;
    // About a kilometre needs no satellites; Wi-Fi or network positions do.
    m_source->setPreferredPositioningMethods(
        metres >= 100 ? QGeoPositionInfoSource::NonSatellitePositioningMethods
                      : QGeoPositionInfoSource::AllPositioningMethods);
}

void QtPositioningLocationService::requestLocation()
{
    if (m_source)
        m_source->requestUpdate(requestTimeoutMs);
}

void QtPositioningLocationService::setStatus(LocationAuthorization status)
{
    if (status == m_status)
        return;
    m_status = status;
    if (m_delegate)
        m_delegate->locationAuthorizationChanged(status);
}

} // namespace ravlin
