#include "support/SimWorld.h"

#include "core/discovery/AXResolver.h"
#include "platform/Accessibility.h"

#include <gtest/gtest.h>

using namespace ravlin;
using namespace ravlin::test;

namespace {

class AXResolverTest : public ::testing::Test {
protected:
    SimWorld w;
    std::int64_t id = 0;
    void SetUp() override
    {
        w.app(QStringLiteral("com.example.foo"), QStringLiteral("Foo"));
        id = w.item(QStringLiteral("com.example.foo"), QStringLiteral("Item-0"));
    }
    SimAXSpec& ax() { return w.itemRef(id).ax; }
    AXResolver& resolver() { return w.services().resolver(); }
    std::optional<ResolvedItem> resolve()
    {
        return resolver().resolve(w.placed(id).frame.center().x, 12);
    }
    bool press() { return resolver().press(w.placed(id).frame.center().x, 12); }
    QStringList performed()
    {
        QStringList hows;
        for (const SimActivation& a : w.desktop.activations())
            hows.append(a.how);
        return hows;
    }
};

} // namespace

TEST_F(AXResolverTest, ResolvesTitleAndOwningApplication)
{
    ax().title = QStringLiteral("Sync");
    const auto item = resolve();
    ASSERT_TRUE(item);
    EXPECT_EQ(item->title, QStringLiteral("Sync"));
    EXPECT_EQ(item->bundleId, QStringLiteral("com.example.foo"));
    EXPECT_EQ(item->appName, QStringLiteral("Foo"));
    EXPECT_GT(item->pid, 0);
}

TEST_F(AXResolverTest, EmptyTextsFallThroughToDescriptionThenHelp)
{
    ax().title = QString();
    ax().description = QStringLiteral("Backup");
    EXPECT_EQ(resolve()->title, QStringLiteral("Backup"));
    ax().description = QString();
    ax().help = QStringLiteral("Help text");
    EXPECT_EQ(resolve()->title, QStringLiteral("Help text"));
    ax().help.reset();
    ASSERT_TRUE(resolve());
    EXPECT_FALSE(resolve()->title);
}

TEST_F(AXResolverTest, TheHitElementAloneIsAskedForItsTitle)
{
    ax().depth = 1;
    ax().title = QStringLiteral("Leaf");
    EXPECT_EQ(resolve()->title, QStringLiteral("Leaf"));
}

TEST_F(AXResolverTest, ProcessZeroResolvesWithoutApplication)
{
    SimApp ghost;
    ghost.bundleId = QStringLiteral("com.example.ghost");
    ghost.name = QStringLiteral("Ghost");
    ghost.pid = 0;
    w.desktop.addApp(ghost, true);
    const auto ghostItem = w.item(QStringLiteral("com.example.ghost"), QStringLiteral("G"));
    const auto item = resolver().resolve(w.placed(ghostItem).frame.center().x, 12);
    ASSERT_TRUE(item);
    EXPECT_EQ(item->pid, 0);
    EXPECT_FALSE(item->bundleId);
    EXPECT_FALSE(item->appName);
}

TEST_F(AXResolverTest, WithoutTrustNeitherResolvesNorPresses)
{
    w.desktop.accessibilityTrusted = false;
    EXPECT_FALSE(resolve());
    EXPECT_FALSE(press());
    EXPECT_TRUE(w.desktop.activations().empty());
}

TEST_F(AXResolverTest, NothingAnsweringAtThePointGivesNothing)
{
    ax().present = false;
    EXPECT_FALSE(resolve());
    EXPECT_FALSE(press());
    EXPECT_FALSE(resolver().resolve(5, 12));
}

TEST_F(AXResolverTest, ActionsAreTriedInTheElementsOwnOrder)
{
    ax().actions = {QStringLiteral("AXRaise"), QStringLiteral("AXShowMenu"),
                    QStringLiteral("AXPress")};
    EXPECT_TRUE(press());
    EXPECT_EQ(performed(), QStringList({QStringLiteral("AXShowMenu")}));
}

TEST_F(AXResolverTest, CannotCompleteCountsAsPressed)
{
    ax().result = AXError::cannotComplete;
    EXPECT_TRUE(press());
}

TEST_F(AXResolverTest, AFailedActionGoesOnToTheNextThenToTheParent)
{
    ax().actions = {QStringLiteral("AXPress"), QStringLiteral("AXPick")};
    ax().resultByAction = {{QStringLiteral("AXPress"), AXError::failure},
                           {QStringLiteral("AXPick"), 0}};
    EXPECT_TRUE(press());
    EXPECT_EQ(performed(), QStringList({QStringLiteral("AXPick")}));

    ax().result = AXError::failure;
    ax().resultByAction.clear();
    EXPECT_FALSE(press()); // parents above the item have no actions
}

TEST_F(AXResolverTest, TheHitElementAndFiveParentsAreTried)
{
    ax().depth = 5;
    EXPECT_TRUE(press());
    ax().depth = 6;
    EXPECT_FALSE(press());
    EXPECT_EQ(w.desktop.activations().size(), 1u);
}

TEST_F(AXResolverTest, AParentThatIsNoElementEndsThePress)
{
    ax().actions = {};
    ax().parentIsNotElement = true;
    EXPECT_FALSE(press());
}

TEST_F(AXResolverTest, AHungApplicationAnswersNothingAfterTheTimeout)
{
    w.desktop.app(QStringLiteral("com.example.foo"))->hung = true;
    EXPECT_FALSE(resolve());
    // It cost the resolver's own timeout, not the system's default of several seconds.
    EXPECT_GT(w.scheduler.now(), 0);
    EXPECT_LE(w.scheduler.now(), AXResolver::messagingTimeout + 1e-6);
    EXPECT_TRUE(w.desktop.activations().empty());
}
