#include "support/SimWorld.h"

#include "core/discovery/MenuBarApps.h"
#include "core/discovery/MenuBarScanner.h"
#include "core/discovery/ScannerModel.h"

#include <gtest/gtest.h>

using namespace ravlin;
using namespace ravlin::test;

namespace {

class MenuBarAppsTest : public ::testing::Test {
protected:
    SimWorld w;
    // An application with one item in the bar.
    void withItem(const QString& bundle, const QString& name)
    {
        w.app(bundle, name);
        w.item(bundle, QStringLiteral("Item-0"));
    }
    QStringList listed() { return w.services().apps().scanBundleIDs(); }
};

} // namespace

TEST_F(MenuBarAppsTest, ListsApplicationsWithExtrasByNameCaseInsensitively)
{
    withItem(QStringLiteral("com.example.beta"), QStringLiteral("beta"));
    withItem(QStringLiteral("com.example.alpha"), QStringLiteral("Alpha"));
    withItem(QStringLiteral("com.example.gamma"), QStringLiteral("Gamma"));
    withItem(QStringLiteral("com.example.aether"), QStringLiteral("Äther"));
    const auto entries = w.services().apps().scanThirdParty();
    ASSERT_EQ(entries.size(), 4u);
    EXPECT_EQ(entries[0].name, QStringLiteral("Alpha"));
    EXPECT_EQ(entries[1].name, QStringLiteral("Äther")); // by letter, whatever the machine's locale
    EXPECT_EQ(entries[2].name, QStringLiteral("beta"));
    EXPECT_EQ(entries[3].name, QStringLiteral("Gamma"));
}

TEST_F(MenuBarAppsTest, NothingWithoutAccessibility)
{
    withItem(QStringLiteral("com.example.a"), QStringLiteral("A"));
    w.desktop.accessibilityTrusted = false;
    EXPECT_TRUE(listed().isEmpty());
}

TEST_F(MenuBarAppsTest, LeavesOutSystemOwnersProhibitedAppsAndThisProcess)
{
    withItem(QStringLiteral("com.apple.controlcenter"), QStringLiteral("Control Center"));
    withItem(QStringLiteral("com.apple.Spotlight"), QStringLiteral("Spotlight"));
    withItem(QStringLiteral("com.example.hidden"), QStringLiteral("Hidden"));
    w.desktop.app(QStringLiteral("com.example.hidden"))->policy = ActivationPolicy::Prohibited;
    w.desktop.addOwnItem(QStringLiteral("Ravlin.Main"), 24);
    w.desktop.app(SimDesktop::ownBundleId)->extras = SimExtras::Yes;
    withItem(QStringLiteral("com.example.kept"), QStringLiteral("Kept"));
    EXPECT_EQ(listed(), QStringList({QStringLiteral("com.example.kept")}));
}

TEST_F(MenuBarAppsTest, AnApplicationWithoutBundleIdentifierIsSkipped)
{
    withItem(QString(), QStringLiteral("Loose Tool"));
    EXPECT_TRUE(listed().isEmpty());
}

TEST_F(MenuBarAppsTest, ExtrasWithoutChildrenDoNotCount)
{
    withItem(QStringLiteral("com.example.empty"), QStringLiteral("Empty"));
    w.desktop.app(QStringLiteral("com.example.empty"))->extras = SimExtras::No;
    w.app(QStringLiteral("com.example.absent"), QStringLiteral("Absent"));
    w.desktop.app(QStringLiteral("com.example.absent"))->extras = SimExtras::Absent;
    w.app(QStringLiteral("com.example.noitems"), QStringLiteral("No Items"));
    w.app(QStringLiteral("com.example.declared"), QStringLiteral("Declared"));
    w.desktop.app(QStringLiteral("com.example.declared"))->extras = SimExtras::Yes;
    EXPECT_EQ(listed(), QStringList({QStringLiteral("com.example.declared")}));
}

TEST_F(MenuBarAppsTest, AHungApplicationCostsAQuarterSecondAndIsNotListed)
{
    withItem(QStringLiteral("com.example.hung"), QStringLiteral("Hung"));
    w.desktop.app(QStringLiteral("com.example.hung"))->hung = true;
    withItem(QStringLiteral("com.example.fine"), QStringLiteral("Fine"));
    EXPECT_EQ(listed(), QStringList({QStringLiteral("com.example.fine")}));
    EXPECT_NEAR(w.scheduler.now(), 0.25, 1e-6);
}

TEST_F(MenuBarAppsTest, AnApplicationWithoutNameIsListedByItsBundleIdentifier)
{
    withItem(QStringLiteral("com.example.nameless"), QString());
    const auto entries = w.services().apps().scanThirdParty();
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0].name, QStringLiteral("com.example.nameless"));
}

TEST(MenuBarScanner, ListsOnScreenWindowsLeftToRightOwnOnesIncluded)
{
    SimWorld w;
    w.app(QStringLiteral("com.example.a"), QStringLiteral("A"));
    w.item(QStringLiteral("com.example.a"), QStringLiteral("Right"));
    w.defaults().set(SimDesktop::preferredPositionKey(QStringLiteral("Ravlin.HiddenSeparator")),
                     22);
    w.desktop.addOwnItem(QStringLiteral("Ravlin.HiddenSeparator"), 10);
    w.itemRef(w.item(QStringLiteral("com.example.a"), QStringLiteral("Flat"))).height = 0;
    w.item(QStringLiteral("com.example.a"), QStringLiteral("Hidden"));
    QStringList names;
    for (const MenuBarItemInfo& info : w.services().scanner().scan())
        names.append(info.name);
    // Zero height is no reason to leave a window out here.
    EXPECT_EQ(names,
              QStringList({QStringLiteral("Hidden"), QStringLiteral("Flat"),
                           QStringLiteral("Ravlin.HiddenSeparator"), QStringLiteral("Right")}));
    w.desktop.setItemWidth(
        w.desktop.placedByTitle(QStringLiteral("Ravlin.HiddenSeparator"))->item.window, 10000);
    EXPECT_EQ(w.services().scanner().scan().size(), 1u);
}

TEST(ScannerModel, AnnouncesEachChangeBeforeItHappens)
{
    SimWorld w;
    w.app(QStringLiteral("com.example.a"), QStringLiteral("A"));
    w.item(QStringLiteral("com.example.a"), QStringLiteral("One"));
    ScannerModel model(w.services().scanner(), w.services().apps());
    std::vector<std::size_t> sizesSeen;
    QObject::connect(&model, &ScannerModel::willChange, &model,
                     [&] { sizesSeen.push_back(model.items().size()); });
    model.refresh();
    model.refreshMenuBarApps();
    EXPECT_EQ(sizesSeen, (std::vector<std::size_t>{0, 1}));
    EXPECT_EQ(model.items().size(), 1u);
    EXPECT_EQ(model.menuBarApps().size(), 1u);
}
