#include "SoftwareUpdate.h"

#include "foundation/DefaultsStore.h"
#include "foundation/Logging.h"
#include "platform/Updater.h"

namespace ravlin {

QString updateChannelRawValue(UpdateChannel channel)
{
    return channel == UpdateChannel::Beta ? SoftwareUpdate::betaChannelName
                                          : QStringLiteral("stable");
}

std::optional<UpdateChannel> updateChannelFromRawValue(const QString& raw)
{
    if (raw == u"stable")
        return UpdateChannel::Stable;
    if (raw == SoftwareUpdate::betaChannelName)
        return UpdateChannel::Beta;
    return std::nullopt;
}

SoftwareUpdate::SoftwareUpdate(DefaultsStore& defaults, Updater* updater)
    : m_defaults(defaults), m_updater(updater)
{}

bool SoftwareUpdate::automaticChecks() const
{
    const PlistValue stored = m_defaults.object(automaticChecksKey);
    return stored.isNull() || DefaultsStore::toBool(stored);
}

void SoftwareUpdate::setAutomaticChecks(bool on)
{
    m_defaults.set(automaticChecksKey, on);
    m_defaults.noteUserChange();
    apply();
    Q_EMIT changed();
}

UpdateChannel SoftwareUpdate::channel() const
{
    const std::optional<QString> stored = m_defaults.stringForKey(channelKey);
    if (!stored)
        return UpdateChannel::Stable;
    if (const std::optional<UpdateChannel> channel = updateChannelFromRawValue(*stored))
        return *channel;
    if (m_reportedChannel != stored) {
        m_reportedChannel = stored;
        qCWarning(lcApp).noquote() << QStringLiteral("%1 \"%2\" is no update channel; the stable "
                                                     "releases are offered")
                                          .arg(channelKey, *stored);
    }
    return UpdateChannel::Stable;
}

void SoftwareUpdate::setChannel(UpdateChannel channel)
{
    m_defaults.set(channelKey, updateChannelRawValue(channel));
    m_defaults.noteUserChange();
    apply();
    Q_EMIT changed();
}

void SoftwareUpdate::apply()
{
    if (!m_updater)
        return;
    m_updater->setAutomaticallyChecksForUpdates(automaticChecks());
    m_updater->setAllowedChannels(channel() == UpdateChannel::Beta
                                      ? QStringList{betaChannelName}
                                      : QStringList{});
}

bool SoftwareUpdate::canCheckNow() const
{
    return m_updater && m_updater->canCheckForUpdates();
}

bool SoftwareUpdate::checkNow()
{
    if (!m_updater) {
        qCInfo(lcApp) << "no updater in this build; nothing to check";
        return false;
    }
    if (!m_updater->canCheckForUpdates()) {
        qCInfo(lcApp) << "a check for updates is already under way";
        return false;
    }
    qCInfo(lcApp) << "checking for updates on the"
                  << updateChannelRawValue(channel()) << "channel";
    m_updater->checkForUpdates();
    return true;
}

} // namespace ravlin
