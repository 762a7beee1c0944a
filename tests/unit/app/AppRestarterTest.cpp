// Only menu-bar applications are offered a restart for a new spacing, never the system's nor
// Ravlin; each one is opened again once it has quit, and one that does not quit is left alone.
#include "core/app/AppRestarter.h"
#include "core/tiles/BarItem.h"
#include "foundation/VirtualScheduler.h"
#include "platform/sim/SimDesktop.h"
#include "platform/sim/SimWorkspace.h"

#include <gtest/gtest.h>

using namespace ravlin;

namespace {

struct World {
    World() : workspace(desktop) { desktop.setScheduler(&scheduler); }

    std::int32_t app(const QString& bundle, ActivationPolicy policy)
    {
        SimApp a;
        a.bundleId = bundle;
        a.name = bundle.section(u'.', -1);
        a.policy = policy;
        return desktop.addApp(a);
    }
    BarItem itemOf(std::int32_t pid)
    {
        BarItem item;
        item.pid = pid;
        return item;
    }

    VirtualScheduler scheduler;
    SimDesktop desktop;
    SimWorkspace workspace;
};

} // namespace

TEST(AppRestarter, OffersOnlyMenuBarApplicationsWithItems)
{
    World w;
    const auto sync = w.app(QStringLiteral("com.example.sync"), ActivationPolicy::Accessory);
    const auto editor = w.app(QStringLiteral("com.example.editor"), ActivationPolicy::Regular);
    const auto system = w.app(QStringLiteral("com.apple.controlcenter"), ActivationPolicy::Accessory);
    w.app(QStringLiteral("com.example.quiet"), ActivationPolicy::Accessory); // no item
    AppRestarter restarter(w.workspace, w.scheduler, SimDesktop::ownBundleId);
    const auto found = restarter.candidates(
        {w.itemOf(sync), w.itemOf(editor), w.itemOf(system), w.itemOf(SimDesktop::ownPid)});
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(found[0].bundleIdentifier, QStringLiteral("com.example.sync"));
}

TEST(AppRestarter, OpensEachAgainOnceItQuit)
{
    World w;
    const auto sync = w.app(QStringLiteral("com.example.sync"), ActivationPolicy::Accessory);
    AppRestarter restarter(w.workspace, w.scheduler, SimDesktop::ownBundleId);
    restarter.restart(restarter.candidates({w.itemOf(sync)}));
    EXPECT_TRUE(w.desktop.app(QStringLiteral("com.example.sync"))->running);
    EXPECT_TRUE(w.desktop.opened().contains(QStringLiteral("com.example.sync")));
    EXPECT_TRUE(restarter.waiting().isEmpty());
    EXPECT_EQ(w.scheduler.pendingCount(), 0);
}

TEST(AppRestarter, LeavesAloneAnApplicationThatCannotBeAskedToQuit)
{
    World w;
    const auto sync = w.app(QStringLiteral("com.example.sync"), ActivationPolicy::Accessory);
    AppRestarter restarter(w.workspace, w.scheduler, SimDesktop::ownBundleId);
    RunningApplication ghost = restarter.candidates({w.itemOf(sync)}).front();
    ghost.pid = 4242; // gone by the time it is asked
    restarter.restart({ghost});
    EXPECT_TRUE(restarter.waiting().isEmpty());
    w.scheduler.advance(AppRestarter::patience + 1);
    EXPECT_TRUE(restarter.waiting().isEmpty());
    EXPECT_FALSE(w.desktop.opened().contains(QStringLiteral("com.example.sync")));
}
