#include "core/app/SoftwareUpdate.h"
#include "foundation/DefaultsStore.h"
#include "platform/sim/SimUpdater.h"

#include <gtest/gtest.h>

using namespace ravlin;

namespace {

struct World {
    InMemoryDefaultsStore defaults;
    SimUpdater updater;
    SoftwareUpdate updates{defaults, &updater};
};

SimUpdateWindow::Kind lastShown(const SimUpdater& updater)
{
    return updater.shown().back().kind;
}

} // namespace

TEST(SoftwareUpdate, ChecksAutomaticallyOnTheStableChannelUntilTheUserSaysOtherwise)
{
    World w;
    w.updates.apply();
    EXPECT_TRUE(w.updates.automaticChecks());
    EXPECT_EQ(w.updates.channel(), UpdateChannel::Stable);
    EXPECT_TRUE(w.updater.automatic());
    EXPECT_TRUE(w.updater.allowedChannels().isEmpty());
    // Nothing is written until the user chooses.
    EXPECT_TRUE(w.defaults.persistentDomain().isEmpty());
}

TEST(SoftwareUpdate, EachChoiceIsStoredAndHandedToTheUpdaterAtOnce)
{
    World w;
    int changes = 0;
    QObject::connect(&w.updates, &SoftwareUpdate::changed, [&] { ++changes; });
    w.updates.setChannel(UpdateChannel::Beta);
    w.updates.setAutomaticChecks(false);
    EXPECT_EQ(changes, 2);
    EXPECT_EQ(w.updater.allowedChannels(), QStringList{QStringLiteral("beta")});
    EXPECT_FALSE(w.updater.automatic());
    EXPECT_EQ(w.defaults.stringForKey(SoftwareUpdate::channelKey), QStringLiteral("beta"));
    // The updater's own key: the updater reads the same switch.
    EXPECT_FALSE(w.defaults.boolForKey(SoftwareUpdate::automaticChecksKey));
}

TEST(SoftwareUpdate, StoredValuesAreReadTheWayTheSystemReadsThem)
{
    World w;
    w.defaults.set(SoftwareUpdate::automaticChecksKey, QStringLiteral("NO"));
    w.defaults.set(SoftwareUpdate::channelKey, QStringLiteral("nightly"));
    EXPECT_FALSE(w.updates.automaticChecks());
    EXPECT_EQ(w.updates.channel(), UpdateChannel::Stable);
    w.defaults.set(SoftwareUpdate::channelKey, 7);
    EXPECT_EQ(w.updates.channel(), UpdateChannel::Stable);
}

TEST(SoftwareUpdate, ABetaIsOfferedOnlyOnTheBetaChannel)
{
    World w;
    w.updates.apply();
    w.updater.offer(QStringLiteral("0.3.0-beta.1"), QStringLiteral("beta"));
    ASSERT_TRUE(w.updates.checkNow());
    EXPECT_EQ(lastShown(w.updater), SimUpdateWindow::Kind::UpToDate);
    w.updates.setChannel(UpdateChannel::Beta);
    w.updates.checkNow();
    EXPECT_EQ(lastShown(w.updater), SimUpdateWindow::Kind::Offer);
    EXPECT_EQ(w.updater.shown().back().version, QStringLiteral("0.3.0-beta.1"));
    // A stable release reaches both channels.
    w.updater.offer(QStringLiteral("0.3.0"));
    w.updates.setChannel(UpdateChannel::Stable);
    w.updates.checkNow();
    EXPECT_EQ(w.updater.shown().back().version, QStringLiteral("0.3.0"));
}

TEST(SoftwareUpdate, ABackgroundCheckSpeaksOnlyOfAnOfferAndOnlyWhileSwitchedOn)
{
    World w;
    w.updates.apply();
    w.updater.fail(QStringLiteral("The feed could not be read."));
    w.updater.backgroundCheck();
    EXPECT_TRUE(w.updater.shown().empty());
    w.updater.offer(QStringLiteral("0.2.0"));
    w.updates.setAutomaticChecks(false);
    w.updater.backgroundCheck();
    EXPECT_TRUE(w.updater.shown().empty());
    w.updates.setAutomaticChecks(true);
    w.updater.backgroundCheck();
    ASSERT_EQ(w.updater.shown().size(), 1u);
    EXPECT_EQ(lastShown(w.updater), SimUpdateWindow::Kind::Offer);
    // The user's own check shows a failure too.
    w.updater.fail(QStringLiteral("The feed could not be read."));
    w.updates.checkNow();
    EXPECT_EQ(lastShown(w.updater), SimUpdateWindow::Kind::Error);
}

TEST(SoftwareUpdate, WithoutAnUpdaterNothingIsCheckedAndTheSettingsAreKept)
{
    InMemoryDefaultsStore defaults;
    SoftwareUpdate updates(defaults, nullptr);
    EXPECT_FALSE(updates.available());
    EXPECT_FALSE(updates.canCheckNow());
    EXPECT_FALSE(updates.checkNow());
    updates.setChannel(UpdateChannel::Beta);
    EXPECT_EQ(updates.channel(), UpdateChannel::Beta);
}
