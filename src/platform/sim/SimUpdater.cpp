#include "SimUpdater.h"

#include "foundation/Logging.h"

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
    show(answer());
}

// What the updater's window would say, for the sandbox's log.
void SimUpdater::show(const SimUpdateWindow& window)
{
    switch (window.kind) {
    case SimUpdateWindow::Kind::Offer:
        qCInfo(lcApp).noquote() << "the updater offers version" << window.version;
        break;
    case SimUpdateWindow::Kind::UpToDate:
        qCInfo(lcApp) << "the updater says Ravlin is up to date";
        break;
    case SimUpdateWindow::Kind::Error:
        qCInfo(lcApp).noquote() << "the updater could not check:" << window.message;
        break;
    }
    m_shown.push_back(window);
}

void SimUpdater::backgroundCheck()
{
    if (!m_automatic)
        return;
    ++m_backgroundChecks;
    // A background check says nothing unless it found something to offer.
    if (const SimUpdateWindow window = answer(); window.kind == SimUpdateWindow::Kind::Offer)
        show(window);
}

} // namespace ravlin
