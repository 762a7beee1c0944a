#pragma once

#include "platform/Updater.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace ravlin {

// What the updater showed the user: a new version, that there is none, or why a check failed.
struct SimUpdateWindow {
    enum class Kind { Offer, UpToDate, Error };
    Kind kind = Kind::UpToDate;
    QString version; // of an offer
    QString message; // of an error
};

// The updater of the simulated desktop. A script says what the update feed holds (a newer
// version, on a channel or not; nothing newer; or a feed that cannot be read), and the
// updater answers each check at once, as its windows would: a user's check always shows
// something, a background check only an offer, and only while background checks are on.
// Items of a channel the core did not allow are passed over, as in a real feed.
class SimUpdater final : public Updater {
public:
    static QString kindName(SimUpdateWindow::Kind kind);

    // The feed from now on.
    void offer(const QString& version, const QString& channel = QString());
    void offerNothing();
    void fail(const QString& message);

    bool canCheckForUpdates() const override { return true; }
    void checkForUpdates() override;
    void setAutomaticallyChecksForUpdates(bool on) override { m_automatic = on; }
    void setAllowedChannels(const QStringList& channels) override { m_channels = channels; }

    // The updater's own daily check came due.
    void backgroundCheck();

    bool automatic() const { return m_automatic; }
    const QStringList& allowedChannels() const { return m_channels; }
    int userChecks() const { return m_userChecks; }
    int backgroundChecks() const { return m_backgroundChecks; }
    const std::vector<SimUpdateWindow>& shown() const { return m_shown; }

private:
    SimUpdateWindow answer() const;
    void show(const SimUpdateWindow& window);

    struct Feed {
        std::optional<QString> version;
        QString channel;
        std::optional<QString> error;
    };
    Feed m_feed;
    bool m_automatic = false;
    QStringList m_channels;
    int m_userChecks = 0;
    int m_backgroundChecks = 0;
    std::vector<SimUpdateWindow> m_shown;
};

} // namespace ravlin
