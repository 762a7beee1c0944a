// Pictures of every tab in English and Hebrew, for the documentation and for a
// person to look at. Written only when RAVLIN_SHOT_DIR names a folder.
#include "SettingsWorld.h"

#include "core/app/AppDelegate.h"
#include "core/settings/KeyChord.h"
#include "core/settings/LanguageManager.h"
#include "core/settings/Preferences.h"

#include <QImage>

#include <array>

#include <gtest/gtest.h>

using namespace ravlin;

namespace {

const std::array<const char*, SettingsView::tabCount> tabNames = {"general", "menubar", "language",
                                                                  "about", "rules"};

void shoot(SettingsView& view, const QString& path)
{
    QImage image(view.size() * 2, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(2);
    image.fill(Qt::white);
    view.render(&image);
    ASSERT_TRUE(image.save(path)) << path.toStdString();
}

void shootAllTabs(test::SettingsWorld& world, const QString& dir, const QString& suffix)
{
    for (int tab = 0; tab < SettingsView::tabCount; ++tab) {
        SettingsView& view = world.open(tab);
        shoot(view, QStringLiteral("%1/settings-%2-%3.png")
                        .arg(dir, QString::fromLatin1(tabNames[tab]), suffix));
    }
}

} // namespace

TEST(SettingsScreenshots, EveryTabInEnglishAndHebrew)
{
    const QString dir = qEnvironmentVariable("RAVLIN_SHOT_DIR");
    if (dir.isEmpty())
        GTEST_SKIP() << "set RAVLIN_SHOT_DIR to write the pictures";
    test::SettingsWorld world;
    world.typicalDesktop();
    // Without screen recording the items show their symbols or initials, as on a fresh Mac.
    world.script(QStringLiteral("permission screen off"));
    world.start();
    // Two rules, one of them in force, for the Rules tab.
    world.script(QStringLiteral("placement \"%1\" bar\nlayout save Work\n"
                                "rule add office name=Office when wifi=Office time=09:00-17:30 "
                                "then layout=Work reveal=20\n"
                                "rule add plugged when ac then style=grid\n")
                     .arg(world.keyOf(QStringLiteral("Chat"))));
    // A shortcut of an item's own, for the Menu Bar tab.
    world.app().preferences().setItemShortcut(world.keyOf(QStringLiteral("Chat")),
                                              KeyChord::parse(QStringLiteral("ctrl+opt+cmd+C")));
    shootAllTabs(world, dir, QStringLiteral("en"));
    world.app().languageManager().apply(QStringLiteral("he"));
    shootAllTabs(world, dir, QStringLiteral("he"));
    // A long language: the Menu Bar tab's rows hold a placement, a bell and a shortcut.
    world.app().languageManager().apply(QStringLiteral("de"));
    shoot(world.open(1), dir + QStringLiteral("/settings-menubar-de.png"));

    test::SettingsWorld engine;
    engine.typicalDesktop(true);
    engine.start();
    shoot(engine.open(1), dir + QStringLiteral("/settings-menubar-engine-en.png"));
}
