#pragma once

#include <QObject>
#include <QString>

#include <optional>

namespace ravlin {

class DefaultsStore;
class Updater;

// Which releases are offered: the stable ones, or the betas as well.
enum class UpdateChannel { Stable, Beta };

QString updateChannelRawValue(UpdateChannel channel);
std::optional<UpdateChannel> updateChannelFromRawValue(const QString& raw);

// The update settings and the user's "check now". It owns the two settings, keeps the
// platform's updater in line with them and asks it for checks; the updater itself finds,
// shows and installs what is new. Where there is no updater (the platform has none),
// nothing is offered and the settings are kept for a build that has one.
class SoftwareUpdate : public QObject {
    Q_OBJECT
public:
    // The updater keeps its own switch under this key: both read and write the one value.
    static inline const QString automaticChecksKey = QStringLiteral("SUEnableAutomaticChecks");
    static inline const QString channelKey = QStringLiteral("updateChannel");
    // The channel name the release workflow gives beta items in the update feed.
    static inline const QString betaChannelName = QStringLiteral("beta");

    SoftwareUpdate(DefaultsStore& defaults, Updater* updater);

    bool available() const { return m_updater != nullptr; }
    // On unless the user turned it off.
    bool automaticChecks() const;
    void setAutomaticChecks(bool on);
    // Stable unless the user chose the betas; a stored name that is neither reads as stable.
    UpdateChannel channel() const;
    void setChannel(UpdateChannel channel);

    // Hands the stored choices to the updater; at start, and after each change.
    void apply();
    bool canCheckNow() const;
    // The user asked for a check. False (with a log line) when there is no updater or a
    // check is already under way.
    bool checkNow();

Q_SIGNALS:
    // After a setting was written and handed to the updater.
    void changed();

private:
    DefaultsStore& m_defaults;
    Updater* m_updater;
    mutable std::optional<QString> m_reportedChannel; // an odd stored name already logged
};

} // namespace ravlin
