#include "FocusModeReading.h"

#include "foundation/Logging.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace ravlin {
namespace {

// The documents hold one entry under "data"; a few kilobytes in practice.
constexpr qsizetype maxRecordBytes = 1024 * 1024;

std::optional<QJsonObject> firstData(const QByteArray& bytes)
{
    if (bytes.size() > maxRecordBytes)
        return std::nullopt;
    const QJsonDocument doc = QJsonDocument::fromJson(bytes);
    const QJsonArray data = doc.object().value(QStringLiteral("data")).toArray();
    if (data.isEmpty() || !data.first().isObject())
        return std::nullopt;
    return data.first().toObject();
}

} // namespace

std::optional<QString> FocusModeReading::activeMode(const QByteArray& assertions,
                                                    const QByteArray& modeConfigurations)
{
    const std::optional<QJsonObject> asserted = firstData(assertions);
    if (!asserted) {
        qCDebug(lcRules) << "the Focus records cannot be read";
        return std::nullopt;
    }
    const QJsonArray records = asserted->value(QStringLiteral("storeAssertionRecords")).toArray();
    if (records.isEmpty())
        return QString();
    const QString identifier = records.first()
                                   .toObject()
                                   .value(QStringLiteral("assertionDetails"))
                                   .toObject()
                                   .value(QStringLiteral("assertionDetailsModeIdentifier"))
                                   .toString();
    if (identifier.isEmpty())
        return std::nullopt;
    const std::optional<QJsonObject> modes = firstData(modeConfigurations);
    const QJsonObject mode = modes ? modes->value(QStringLiteral("modeConfigurations"))
                                         .toObject()
                                         .value(identifier)
                                         .toObject()
                                         .value(QStringLiteral("mode"))
                                         .toObject()
                                   : QJsonObject();
    const QString name = mode.value(QStringLiteral("name")).toString();
    // A mode without a name of its own is called by its identifier's last part.
    return name.isEmpty() ? identifier.section(u'.', -1) : name;
}

} // namespace ravlin
