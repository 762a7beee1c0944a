#pragma once

#include <QStringList>

namespace ravlin {

// The application's updater: it reads the update feed named in the bundle's Info.plist,
// checks the signature of what it downloads, shows its own windows for what it finds and
// installs. The core only says when a check is wanted, whether background checks run,
// and which channels besides the default one may offer an update.
class Updater {
public:
    virtual ~Updater() = default;

    // False while a check is under way or the updater could not start.
    virtual bool canCheckForUpdates() const = 0;
    // A check the user asked for: the updater shows what it found, also that there is
    // nothing new and why a check failed.
    virtual void checkForUpdates() = 0;
    // Background checks at the updater's own interval (a day).
    virtual void setAutomaticallyChecksForUpdates(bool on) = 0;
    // Channels whose items may be offered besides those without a channel (the stable ones).
    virtual void setAllowedChannels(const QStringList& channels) = 0;
};

} // namespace ravlin
