#include "SettingsWorld.h"

#include "core/app/AppDelegate.h"
#include "core/bar/MenuBarHideEngine.h"
#include "core/bar/SeparatorHiding.h"
#include "core/bar/StatusBarController.h"
#include "core/changes/WatchList.h"
#include "core/rules/Rules.h"
#include "core/discovery/ScannerModel.h"
#include "foundation/DefaultsStore.h"
#include "core/settings/LanguageManager.h"
#include "core/settings/Preferences.h"
#include "platform/sim/SimDesktop.h"
#include "platform/sim/SimMenuBarSpacing.h"
#include "platform/sim/SimStatusBar.h"
#include "ui/settings/MenuBarTab.h"
#include "ui/settings/PopupButton.h"
#include "ui/settings/SegmentedControl.h"
#include "ui/settings/SettingsRow.h"
#include "ui/settings/ShortcutField.h"
#include "ui/settings/TextLabel.h"
#include "ui/settings/ToggleSwitch.h"

#include <QCoreApplication>
#include <QLayout>
#include <QLineEdit>
#include <QPushButton>

#include <gtest/gtest.h>

using namespace ravlin;

namespace {

QStringList texts(const QList<QLabel*>& labels)
{
    QStringList list;
    for (QLabel* l : labels)
        if (auto* t = qobject_cast<TextLabel*>(l); t && l->isVisibleTo(l->window()))
            list << t->plainText();
    return list;
}

class MenuBarTabPlain : public ::testing::Test {
protected:
    void SetUp() override
    {
        world.typicalDesktop();
        world.start();
        world.open(1);
        chat = world.keyOf(QStringLiteral("Chat"));
    }
    Preferences& prefs() { return world.app().preferences(); }
    StatusBarController& bar() { return *world.app().statusBar(); }
    void place(const QString& key, const char* choice)
    {
        SegmentedControl* control = world.find<SegmentedControl>(QStringLiteral("place:") + key);
        ASSERT_NE(control, nullptr) << key.toStdString();
        control->segment(QString::fromLatin1(choice))->click();
        world.advance(1);
    }
    // Where the item stands against the hidden separator: true on the visible side.
    bool visibleSide(const char* title)
    {
        const double separator = world.session()
                                     .statusBar()
                                     .item(SeparatorHiding::hiddenName)
                                     ->windowServerFrame()
                                     ->x;
        return world.session().desktop().placedByTitle(QString::fromLatin1(title))->frame.x >
               separator;
    }
    bool inPanel(const QString& key)
    {
        for (const BarGroup& group : bar().outOfSight().groups)
            for (const BarItem& item : group.items)
                if (item.key == key)
                    return true;
        return false;
    }

    test::SettingsWorld world;
    QString chat;
};

} // namespace

TEST_F(MenuBarTabPlain, ListsTheAppsItemsApartFromTheSystemsOwn)
{
    const QStringList shown =
        texts(world.window().view()->findChildren<QLabel*>(QStringLiteral("title")));
    EXPECT_EQ(
        shown,
        (QStringList{QStringLiteral("Tunnel"), QStringLiteral("Chat"), QStringLiteral("Bluetooth"),
                     QStringLiteral("Wi-Fi"), QStringLiteral("Arrange the menu bar"),
                     QStringLiteral("Rescan menu bar"), QStringLiteral("Spacing between items"),
                     QStringLiteral("Selection padding"), QStringLiteral("Place new items"), QStringLiteral("Layout in use"),
                     QStringLiteral("Save the menu bar as"), QStringLiteral("Share as a file"),
                     QStringLiteral("When a display is connected"),
                     QStringLiteral("On battery power")}));
    const QStringList headings =
        texts(world.window().view()->findChildren<QLabel*>(QStringLiteral("heading")));
    EXPECT_EQ(headings, (QStringList{QStringLiteral("Detected items"),
                                     QStringLiteral("System items"), QStringLiteral("Item spacing"),
                                     QStringLiteral("New items"), QStringLiteral("Layouts")}));
    EXPECT_EQ(world.find<SegmentedControl>(QStringLiteral("place:") + chat)->value(),
              QStringLiteral("panel"));
}

TEST_F(MenuBarTabPlain, BarMovesTheItemToTheVisibleSideAndPinsIt)
{
    ASSERT_FALSE(visibleSide("Chat Status"));
    place(chat, "bar");
    EXPECT_TRUE(visibleSide("Chat Status"));
    EXPECT_TRUE(prefs().barPinnedKeys().contains(chat));
    EXPECT_FALSE(inPanel(chat));
    EXPECT_TRUE(
        world.session().defaults().persistentValue(QStringLiteral("barPinnedItems")).asArray());
}

TEST_F(MenuBarTabPlain, OffKeepsTheItemOutOfThePanelAndOutOfSight)
{
    ASSERT_TRUE(inPanel(chat));
    place(chat, "off");
    EXPECT_TRUE(prefs().hiddenItemKeys().contains(chat));
    EXPECT_FALSE(inPanel(chat));
    EXPECT_FALSE(visibleSide("Chat Status"));
    // From the bar straight to off, the item is moved back out of sight.
    place(chat, "bar");
    ASSERT_TRUE(visibleSide("Chat Status"));
    place(chat, "off");
    EXPECT_FALSE(visibleSide("Chat Status"));
    EXPECT_EQ(prefs().placement(chat), ItemPlacement::Off);
}

TEST_F(MenuBarTabPlain, PanelBringsAPinnedItemBackToThePanel)
{
    place(chat, "bar");
    place(chat, "panel");
    EXPECT_FALSE(visibleSide("Chat Status"));
    EXPECT_TRUE(prefs().barPinnedKeys().isEmpty());
    EXPECT_TRUE(prefs().hiddenItemKeys().isEmpty());
    EXPECT_TRUE(inPanel(chat));
}

TEST_F(MenuBarTabPlain, ChoosingWhereAnItemAlreadyIsMovesNothing)
{
    world.session().desktop().takeEvents();
    place(chat, "panel");
    EXPECT_TRUE(world.session().desktop().takeEvents().empty());
}

TEST_F(MenuBarTabPlain, FollowsPlacementsChangedElsewhere)
{
    prefs().setPlacement(chat, ItemPlacement::Off);
    EXPECT_EQ(world.find<SegmentedControl>(QStringLiteral("place:") + chat)->value(),
              QStringLiteral("off"));
    prefs().setBarPinnedKeys({chat});
    EXPECT_EQ(world.find<SegmentedControl>(QStringLiteral("place:") + chat)->value(),
              QStringLiteral("bar"));
}

TEST_F(MenuBarTabPlain, TheListFollowsAppsThatQuit)
{
    const QString tunnel = world.keyOf(QStringLiteral("Tunnel"));
    ASSERT_NE(world.find<SegmentedControl>(QStringLiteral("place:") + tunnel), nullptr);
    world.script(QStringLiteral("terminate com.example.tunnel\nadvance 2"));
    EXPECT_EQ(world.find<SegmentedControl>(QStringLiteral("place:") + tunnel), nullptr);
    EXPECT_NE(world.find<SegmentedControl>(QStringLiteral("place:") + chat), nullptr);
}

TEST_F(MenuBarTabPlain, RescanRebuildsTheBarAndArrangeEntersArrangeMode)
{
    world.find<QPushButton>(QStringLiteral("rescan"))->click();
    EXPECT_TRUE(bar().buildingCache());
    world.advance(3);
    EXPECT_FALSE(bar().buildingCache());
    world.find<QPushButton>(QStringLiteral("arrange"))->click();
    EXPECT_TRUE(bar().arranging());
}

TEST_F(MenuBarTabPlain, TheBellWatchesAnItemAndFollowsChangesMadeElsewhere)
{
    auto* bell = world.find<ToggleSwitch>(QStringLiteral("watch:") + chat);
    ASSERT_NE(bell, nullptr);
    EXPECT_FALSE(bell->isChecked());
    EXPECT_EQ(bell->accessibleName(), QStringLiteral("Show Chat when it changes"));
    bell->click();
    EXPECT_TRUE(world.app().watchList().contains(chat));
    world.app().watchList().set(chat, false);
    world.advance(0.1);
    EXPECT_FALSE(bell->isChecked());
}

TEST_F(MenuBarTabPlain, NewItemsAndLayoutsAreChosenWithTheirControls)
{
    world.find<SegmentedControl>(QStringLiteral("newItems"))->segment(QStringLiteral("bar"))->click();
    EXPECT_EQ(prefs().newItemPlacement(), ItemPlacement::Bar);

    // Nothing saved yet: the layout controls have nothing to offer.
    auto* layouts = world.find<PopupButton>(QStringLiteral("layouts"));
    EXPECT_FALSE(layouts->isEnabled());
    EXPECT_FALSE(world.find<QPushButton>(QStringLiteral("exportLayout"))->isEnabled());

    // A name and Save: the layout is kept and in use, and the field is ready for the next.
    auto* name = world.find<QLineEdit>(QStringLiteral("layoutName"));
    name->setText(QStringLiteral("Work"));
    world.find<QPushButton>(QStringLiteral("saveLayout"))->click();
    EXPECT_EQ(bar().layouts().names(), QStringList{QStringLiteral("Work")});
    EXPECT_TRUE(name->text().isEmpty());
    EXPECT_TRUE(layouts->isEnabled());
    EXPECT_EQ(layouts->currentText(), QStringLiteral("Work"));
    // Without a name nothing is saved.
    world.find<QPushButton>(QStringLiteral("saveLayout"))->click();
    EXPECT_EQ(bar().layouts().names().size(), 1);

    // The occasions offer "Off" and every layout; picking one sets the rule.
    auto* onDisplay = world.find<PopupButton>(QStringLiteral("layoutOnDisplay"));
    ASSERT_EQ(onDisplay->count(), 2);
    onDisplay->setCurrentIndex(1);
    Q_EMIT onDisplay->activated(1);
    ASSERT_TRUE(world.app().rules());
    EXPECT_EQ(world.app().rules()->book().occasionLayout(RuleBook::displayRuleId),
              QStringLiteral("Work"));
    onDisplay->setCurrentIndex(0);
    Q_EMIT onDisplay->activated(0);
    EXPECT_TRUE(world.app().rules()->book().rules().empty());

    world.find<QPushButton>(QStringLiteral("deleteLayout"))->click();
    EXPECT_TRUE(bar().layouts().names().isEmpty());
}

TEST(MenuBarTabEmpty, SaysThatNoItemWasFound)
{
    test::SettingsWorld world;
    world.start();
    world.open(1);
    const QStringList messages =
        texts(world.window().view()->findChildren<QLabel*>(QStringLiteral("message")));
    EXPECT_EQ(messages,
              QStringList{world.app().languageManager().L(QStringLiteral("menubar.empty"))});
}

namespace {

class MenuBarTabEngine : public ::testing::Test {
protected:
    void SetUp() override
    {
        world.typicalDesktop(true);
        world.start();
    }
    Preferences& prefs() { return world.app().preferences(); }
    ToggleSwitch* toggle(const QString& name) { return world.find<ToggleSwitch>(name); }

    test::SettingsWorld world;
};

} // namespace

// Where the system hides whole applications, the tab is the same list of items; one line
// says how the placements of one application's items go together.
TEST_F(MenuBarTabEngine, ListsTheItemsWithPlacementsAndSaysThatWholeAppsGoTogether)
{
    world.open(1);
    EXPECT_NE(world.find<SegmentedControl>(QStringLiteral("place:n:Chat Status")), nullptr);
    EXPECT_NE(world.find<SegmentedControl>(QStringLiteral("place:n:WiFi")), nullptr);
    EXPECT_EQ(toggle(QStringLiteral("bundle:com.example.chat")), nullptr);
    const QString wholeApps = world.app().languageManager().L(QStringLiteral("menubar.wholeApps"));
    bool said = false;
    for (const QLabel* label : world.window().view()->findChildren<QLabel*>())
        said = said || label->text().contains(wholeApps);
    EXPECT_TRUE(said);
}

TEST_F(MenuBarTabEngine, BarLetsTheItemsApplicationIntoTheBarAndPanelTakesItOut)
{
    world.open(1);
    auto allowed = [&] { return world.app().hideEngine().lastAllowedBundleIDs(); };
    EXPECT_FALSE(allowed().contains(QStringLiteral("com.example.chat")));
    world.find<SegmentedControl>(QStringLiteral("place:n:Chat Status"))
        ->segment(QStringLiteral("bar"))
        ->click();
    world.advance(1);
    EXPECT_TRUE(allowed().contains(QStringLiteral("com.example.chat")));
    EXPECT_FALSE(allowed().contains(QStringLiteral("com.example.tunnel")));
    world.find<SegmentedControl>(QStringLiteral("place:n:Chat Status"))
        ->segment(QStringLiteral("panel"))
        ->click();
    world.advance(1);
    EXPECT_FALSE(allowed().contains(QStringLiteral("com.example.chat")));
}

TEST(MenuBarTabEngineEmpty, SaysThatNoItemWasFound)
{
    test::SettingsWorld world;
    world.script(QStringLiteral("engine available"));
    world.start();
    world.open(1);
    const QStringList messages =
        texts(world.window().view()->findChildren<QLabel*>(QStringLiteral("message")));
    EXPECT_EQ(messages,
              QStringList{world.app().languageManager().L(QStringLiteral("menubar.empty"))});
}

// A refused shortcut is explained under the item's name, in the narrow column beside the
// bell, the field and the placement: its wrapped lines must all be shown, the row and the
// page growing for them, not cut off after the first.
TEST_F(MenuBarTabPlain, ARefusedItemShortcutIsExplainedInWholeLines)
{
    world.script(QStringLiteral("settings record \"shortcut:%1\"\nkey ctrl+opt+cmd+M").arg(chat));
    ShortcutField* field = world.find<ShortcutField>(QStringLiteral("shortcut:") + chat);
    ASSERT_NE(field, nullptr);
    auto* row = qobject_cast<SettingsRow*>(field->parentWidget());
    ASSERT_NE(row, nullptr);
    QLabel* hint = row->hintLabel();
    ASSERT_NE(hint, nullptr);
    ASSERT_TRUE(hint->isVisibleTo(row));
    QCoreApplication::processEvents();
    row->window()->layout()->activate();
    EXPECT_GE(hint->height(), hint->heightForWidth(hint->width()));
    EXPECT_LE(hint->geometry().bottom(), row->height());
    // Taken back, the line goes and the row shrinks to its single line again.
    world.script(QStringLiteral("settings record \"shortcut:%1\"\nkey ctrl+opt+cmd+K").arg(chat));
    EXPECT_FALSE(hint->isVisibleTo(row));
}
