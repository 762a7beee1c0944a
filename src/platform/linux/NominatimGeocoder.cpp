#include "NominatimGeocoder.h"

#include "foundation/Logging.h"
#include "platform/HttpClient.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QUrlQuery>

namespace ravlin {
namespace {

std::optional<QString> member(const QJsonObject& object, const char* key)
{
    const QString text = object.value(QLatin1String(key)).toString().trimmed();
    return text.isEmpty() ? std::nullopt : std::optional<QString>(text);
}

std::optional<QString> firstMember(const QJsonObject& object,
                                   std::initializer_list<const char*> keys)
{
    for (const char* key : keys) {
        if (auto text = member(object, key))
            return text;
    }
    return std::nullopt;
}

} // namespace

QUrl NominatimGeocoder::defaultEndpoint()
{
    return QUrl(QStringLiteral("https://nominatim.openstreetmap.org/reverse"));
}

NominatimGeocoder::NominatimGeocoder(std::unique_ptr<HttpClient> http, QUrl endpoint)
    : m_http(std::move(http)), m_endpoint(std::move(endpoint))
{}

NominatimGeocoder::~NominatimGeocoder() = default;

QUrl NominatimGeocoder::requestUrl(const Coordinate& coordinate) const
{
    QUrl url = m_endpoint;
    QUrlQuery query;
    // Zoom 10 asks for the town level, which is all the weather tile names.
    query.setQueryItems({
        {QStringLiteral("format"), QStringLiteral("jsonv2")},
        {QStringLiteral("lat"), QString::asprintf("%.5f", coordinate.latitude)},
        {QStringLiteral("lon"), QString::asprintf("%.5f", coordinate.longitude)},
        {QStringLiteral("zoom"), QStringLiteral("10")},
        {QStringLiteral("addressdetails"), QStringLiteral("1")},
    });
    url.setQuery(query);
    return url;
}

void NominatimGeocoder::reverseGeocode(const Coordinate& coordinate, Completion completion)
{
    m_http->get(requestUrl(coordinate),
                [completion = std::move(completion)](std::optional<QByteArray> body) {
                    completion(body ? parseReverse(*body) : std::nullopt);
                });
}

std::optional<QList<Placemark>> NominatimGeocoder::parseReverse(const QByteArray& body)
{
    const QJsonDocument document = QJsonDocument::fromJson(body);
    if (!document.isObject()) {
        qCInfo(lcWeather) << "geocoder answer is not a JSON object";
        return std::nullopt;
    }
    // An unknown place (the open sea) is answered with {"error": "..."} and no address.
    const QJsonValue address = document.object().value(QStringLiteral("address"));
    if (!address.isObject())
        return QList<Placemark>{};
    const QJsonObject a = address.toObject();
    Placemark placemark;
    placemark.locality = firstMember(a, {"city", "town", "village"});
    placemark.subAdministrativeArea = member(a, "county");
    placemark.administrativeArea = member(a, "state");
    return QList<Placemark>{placemark};
}

} // namespace ravlin
