#pragma once

#include "platform/Updater.h"

#include <memory>

namespace ravlin {

// Sparkle 2 with its standard windows. It reads the feed (SUFeedURL) and the key that signs
// updates (SUPublicEDKey) from the bundle's Info.plist, checks on its own schedule while
// background checks are on, and offers only items without a channel or of an allowed one.
class SparkleUpdater final : public Updater {
public:
    SparkleUpdater();
    ~SparkleUpdater() override;

    bool canCheckForUpdates() const override;
    void checkForUpdates() override;
    void setAutomaticallyChecksForUpdates(bool on) override;
    void setAllowedChannels(const QStringList& channels) override;

private:
    struct Impl;
    std::unique_ptr<Impl> m_impl;
};

} // namespace ravlin
