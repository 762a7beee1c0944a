// The item spacing Ravlin sets in the system: what was there before its first change is
// recorded, a reset leaves nothing set, and removing Ravlin puts back what was there before
// unless someone changed it since.
#include "core/settings/ItemSpacing.h"
#include "foundation/DefaultsStore.h"
#include "platform/sim/SimMenuBarSpacing.h"

#include <gtest/gtest.h>

using namespace ravlin;

TEST(ItemSpacing, RemembersWhatWasThereBeforeItsFirstChangeOnly)
{
    SimMenuBarSpacing system;
    system.setStored({12, std::nullopt}); // the user's own spacing, set with the defaults tool
    InMemoryDefaultsStore defaults;
    ItemSpacing spacing(&system, defaults);
    EXPECT_EQ(spacing.spacing(), 12);
    EXPECT_EQ(spacing.padding(), ItemSpacing::defaultPadding);
    EXPECT_FALSE(spacing.changedByRavlin());
    ASSERT_TRUE(spacing.apply(6, 4));
    ASSERT_TRUE(spacing.apply(8, 40)); // kept within bounds
    EXPECT_EQ(system.stored(), (SpacingValues{8, ItemSpacing::maximum}));
    EXPECT_TRUE(spacing.changedByRavlin());
    ASSERT_TRUE(spacing.restoreOnRemoval());
    EXPECT_EQ(system.stored(), (SpacingValues{12, std::nullopt}));
    EXPECT_TRUE(defaults.persistentValue(ItemSpacing::recordKey).isNull());
    // Nothing of Ravlin's is left to undo: a second removal changes nothing.
    system.setStored({3, 3});
    EXPECT_TRUE(spacing.restoreOnRemoval());
    EXPECT_EQ(system.stored(), (SpacingValues{3, 3}));
}

TEST(ItemSpacing, ResetLeavesNoSettingAndNoRecord)
{
    SimMenuBarSpacing system;
    InMemoryDefaultsStore defaults;
    ItemSpacing spacing(&system, defaults);
    ASSERT_TRUE(spacing.apply(ItemSpacing::compactSpacing, ItemSpacing::compactPadding));
    ASSERT_TRUE(spacing.resetToDefault());
    EXPECT_TRUE(system.stored().isDefault());
    EXPECT_TRUE(defaults.persistentValue(ItemSpacing::recordKey).isNull());
    EXPECT_EQ(spacing.spacing(), ItemSpacing::defaultSpacing);
}

TEST(ItemSpacing, LeavesAloneWhatSomeoneElseChangedSince)
{
    SimMenuBarSpacing system;
    InMemoryDefaultsStore defaults;
    ItemSpacing spacing(&system, defaults);
    ASSERT_TRUE(spacing.apply(6, 4));
    system.setStored({10, 4}); // changed by hand afterwards
    EXPECT_FALSE(spacing.changedByRavlin());
    // A change of Ravlin's now records the user's 10 and 4 as what was there before.
    ASSERT_TRUE(spacing.apply(5, 5));
    ASSERT_TRUE(spacing.restoreOnRemoval());
    EXPECT_EQ(system.stored(), (SpacingValues{10, 4}));
    ASSERT_TRUE(spacing.apply(6, 4));
    system.setStored({9, 9});
    ASSERT_TRUE(spacing.restoreOnRemoval());
    EXPECT_EQ(system.stored(), (SpacingValues{9, 9}));
}

TEST(ItemSpacing, ARefusedWriteChangesNothingAndKeepsTheRecord)
{
    SimMenuBarSpacing system;
    InMemoryDefaultsStore defaults;
    ItemSpacing spacing(&system, defaults);
    ASSERT_TRUE(spacing.apply(6, 4));
    system.setRefuses(true);
    EXPECT_FALSE(spacing.apply(2, 2));
    EXPECT_FALSE(spacing.resetToDefault());
    EXPECT_FALSE(spacing.restoreOnRemoval());
    EXPECT_EQ(system.stored(), (SpacingValues{6, 4}));
    system.setRefuses(false);
    EXPECT_TRUE(spacing.restoreOnRemoval());
    EXPECT_TRUE(system.stored().isDefault());
    // Without the service there is nothing to change.
    ItemSpacing none(nullptr, defaults);
    EXPECT_FALSE(none.available());
    EXPECT_FALSE(none.apply(6, 4));
}
