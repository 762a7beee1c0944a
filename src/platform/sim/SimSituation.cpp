#include "SimSituation.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace ravlin {
namespace {

QString modeIdentifier(const QString& name)
{
    return QStringLiteral("com.apple.focus.") + name.toLower().remove(u' ');
}

// The two documents the system keeps: one record per asserted mode, and every mode's name.
FocusRecords recordsFor(const std::optional<QString>& focus)
{
    QJsonArray assertions;
    if (focus)
        assertions.append(QJsonObject{
            {QStringLiteral("assertionDetails"),
             QJsonObject{{QStringLiteral("assertionDetailsModeIdentifier"), modeIdentifier(*focus)}}}});
    QJsonObject modes;
    for (const QString& name : {QStringLiteral("Do Not Disturb"), QStringLiteral("Work"),
                                QStringLiteral("Sleep"), focus.value_or(QString())}) {
        if (name.isEmpty())
            continue;
        modes.insert(modeIdentifier(name),
                     QJsonObject{{QStringLiteral("mode"),
                                  QJsonObject{{QStringLiteral("name"), name},
                                              {QStringLiteral("modeIdentifier"),
                                               modeIdentifier(name)}}}});
    }
    const QJsonObject a{{QStringLiteral("data"),
                         QJsonArray{QJsonObject{{QStringLiteral("storeAssertionRecords"), assertions}}}}};
    const QJsonObject m{{QStringLiteral("data"),
                         QJsonArray{QJsonObject{{QStringLiteral("modeConfigurations"), modes}}}}};
    return {QJsonDocument(a).toJson(QJsonDocument::Compact),
            QJsonDocument(m).toJson(QJsonDocument::Compact)};
}

} // namespace

std::optional<FocusRecords> SimSituation::focusRecords()
{
    if (!m_focusReadable)
        return std::nullopt;
    return recordsFor(m_focus);
}

std::optional<QString> SimSituation::wifiNetworkName()
{
    if (m_wifiNameAllowed && !m_wifiNameAllowed())
        return std::nullopt;
    return m_wifi;
}

void SimSituation::setWifiNetwork(const std::optional<QString>& name)
{
    m_wifi = name;
    notify(SituationChange::WifiNetwork);
}

void SimSituation::setFrontmost(const std::optional<QString>& bundleId)
{
    m_frontmost = bundleId;
    notify(SituationChange::FrontmostApplication);
}

void SimSituation::setFocus(const std::optional<QString>& name)
{
    m_focus = name;
    m_focusReadable = true;
    notify(SituationChange::FocusMode);
}

void SimSituation::setFocusUnreadable()
{
    m_focusReadable = false;
    notify(SituationChange::FocusMode);
}

void SimSituation::setTimeZone(const QTimeZone& zone)
{
    m_zone = zone;
    notify(SituationChange::Clock);
}

} // namespace ravlin
