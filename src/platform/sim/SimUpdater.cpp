#include "SimUpdater.h"

namespace ravlin {

QString SimUpdater::kindName(SimUpdateWindow::Kind kind)
{
    switch (kind) {
    case SimUpdateWindow::Kind::Offer:
        return QStringLiteral("offer");
    case SimUpdateWindow::Kind::UpToDate:
        return QStringLiteral("upToDate");
    case SimUpdateWindow::Kind::Error:
        return QStringLiteral("error");
    }
    return QString();
}

void SimUpdater::offer(const QString& version, const QString& channel)
{
    m_feed = Feed{version, channel, std::nullopt};
}

void SimUpdater::offerNothing()
{
    m_feed = Feed{};
}

void SimUpdater::fail(const QString& message)
{
    m_feed = Feed{std::nullopt, QString(), message};
}

SimUpdateWindow SimUpdater::answer() const
{
    if (m_feed.error)
        return SimUpdateWindow{SimUpdateWindow::Kind::Error, QString(), *m_feed.error};
    const bool offered = m_feed.version && (m_feed.channel.isEmpty() ||
                                            m_channels.contains(m_feed.channel));
    if (offered)
        return SimUpdateWindow{SimUpdateWindow::Kind::Offer, *m_feed.version, QString()};
    return SimUpdateWindow{SimUpdateWindow::Kind::UpToDate, QString(), QString()};
}

void SimUpdater::checkForUpdates()
{
    ++m_userChecks;
    m_shown.push_back(answer());
}

void SimUpdater::backgroundCheck()
{
    if (!m_automatic)
        return;
    ++m_backgroundChecks;
    // A background check says nothing unless it found something to offer.
    if (const SimUpdateWindow window = answer(); window.kind == SimUpdateWindow::Kind::Offer)
        m_shown.push_back(window);
}

} // namespace ravlin
