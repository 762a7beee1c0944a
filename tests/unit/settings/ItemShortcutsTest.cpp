// Shortcuts that open single items: what a hand-edited settings file may hold, and how they
// reach the system's hot-key registry beside the two global shortcuts.
#include "TestSupport.h"

#include "core/app/GlobalShortcuts.h"
#include "core/settings/ItemShortcuts.h"
#include "core/settings/PrefKey.h"
#include "core/settings/Preferences.h"
#include "foundation/DefaultsStore.h"
#include "foundation/NotificationCenter.h"
#include "platform/sim/SimHotKeys.h"

#include <gtest/gtest.h>

using namespace ravlin;

namespace {

KeyChord chord(const char* text)
{
    return KeyChord::parse(QString::fromUtf8(text)).value_or(KeyChord{});
}

PlistValue text(const char* s)
{
    return QString::fromUtf8(s);
}

} // namespace

TEST(ItemShortcuts, AHandEditedFileKeepsOnlyChordsThatCanOpenAnItem)
{
    QStringList reports;
    const auto report = [&](const QString& key, const QString& why) {
        reports << key + QStringLiteral(": ") + why;
    };
    const PlistDict stored{
        {QStringLiteral("a:good"), text("ctrl+opt+1")},
        {QStringLiteral("b:same"), text("control+option+1")}, // a second item: the first keeps it
        {QStringLiteral("c:global"), text("ctrl+opt+cmd+M")},  // the panel's
        {QStringLiteral("d:bare"), text("K")},
        {QStringLiteral("e:reserved"), text("cmd+Q")},
        {QStringLiteral("f:number"), PlistValue(7)},
        {QStringLiteral("g:garbage"), text("ctrl+opt+NoSuchKey")},
        {QString(), text("ctrl+opt+2")},
        {QString(600, u'x'), text("ctrl+opt+3")},
        {QStringLiteral("h:fine"), text("⌃⌥⇧F5")},
    };
    const QMap<QString, KeyChord> read =
        ItemShortcuts::decode(stored, {chord("ctrl+opt+cmd+M")}, report);
    EXPECT_EQ(read.keys(), (QStringList{QStringLiteral("a:good"), QStringLiteral("h:fine")}));
    EXPECT_EQ(read.value(QStringLiteral("h:fine")), chord("ctrl+opt+shift+F5"));
    EXPECT_EQ(reports.size(), 8) << reports.join(u'\n').toStdString();
    // Anything but a dictionary reads as none; nothing at all is no news.
    reports.clear();
    EXPECT_TRUE(ItemShortcuts::decode(text("ctrl+opt+1"), {}, report).isEmpty());
    EXPECT_TRUE(ItemShortcuts::decode(PlistValue(), {}, report).isEmpty());
    EXPECT_EQ(reports.size(), 1);
    // A huge dictionary is read only so far.
    PlistDict huge;
    for (int i = 0; i < 1000; ++i)
        huge.insert(QStringLiteral("k%1").arg(i, 4, 10, QChar(u'0')), text("ctrl+opt+1"));
    EXPECT_EQ(ItemShortcuts::decode(huge, {}).size(), 1);
}

TEST(ItemShortcuts, WrittenAsTheSettingsFileKeepsThemAndReadBackAlike)
{
    InMemoryDefaultsStore defaults;
    NotificationCenter center;
    Preferences prefs{defaults, center, nullptr};
    prefs.registerDefaults();
    int announced = 0;
    const auto token = center.addObserver(ravlinPrefsChanged, [&] { ++announced; });
    prefs.setItemShortcut(QStringLiteral("n:Chat"), chord("ctrl+opt+1"));
    prefs.setItemShortcut(QStringLiteral("b:com.example.x#Item-0"), chord("ctrl+opt+2"));
    prefs.setItemShortcut(QStringLiteral("n:Chat"), std::nullopt);
    EXPECT_EQ(announced, 3);
    const PlistValue stored = defaults.persistentValue(PrefKey::itemShortcuts);
    ASSERT_TRUE(stored.isDict());
    EXPECT_EQ(stored[QStringLiteral("b:com.example.x#Item-0")].asString(),
              QStringLiteral("control+option+2"));
    EXPECT_EQ(prefs.itemShortcuts().keys(), QStringList{QStringLiteral("b:com.example.x#Item-0")});
    // The panel's chord, set by hand to an item's, wins: the item's reads as none.
    defaults.set(PrefKey::panelShortcut, QStringLiteral("ctrl+opt+2"));
    EXPECT_TRUE(prefs.itemShortcuts().isEmpty());
}

TEST(ItemShortcuts, RegisteredBesideTheGlobalOnesAndPressedForTheirItem)
{
    InMemoryDefaultsStore defaults;
    NotificationCenter center;
    Preferences prefs{defaults, center, nullptr};
    prefs.registerDefaults();
    SimHotKeys hotKeys;
    QStringList opened;
    GlobalShortcuts::Actions actions;
    actions.openItem = [&](const QString& key) { opened << key; };
    GlobalShortcuts shortcuts(&hotKeys, prefs, center, actions);
    const KeyChord one = chord("ctrl+opt+1"), two = chord("ctrl+opt+2");
    prefs.setItemShortcut(QStringLiteral("n:A"), one);
    prefs.setItemShortcut(QStringLiteral("n:B"), two);
    EXPECT_EQ(hotKeys.registrations().size(), 3u); // with the panel's
    EXPECT_TRUE(hotKeys.press(two.virtualKeyCode(), two.hotKeyModifiers()));
    EXPECT_TRUE(hotKeys.press(one.virtualKeyCode(), one.hotKeyModifiers()));
    EXPECT_EQ(opened, (QStringList{QStringLiteral("n:B"), QStringLiteral("n:A")}));

    // Another setting leaves the registrations alone; a changed chord is registered anew.
    const auto before = hotKeys.registrations();
    prefs.setShowWeather(false);
    EXPECT_EQ(hotKeys.registrations().size(), before.size());
    const KeyChord three = chord("ctrl+opt+3");
    hotKeys.setTakenElsewhere(three.virtualKeyCode(), three.hotKeyModifiers(), true);
    prefs.setItemShortcut(QStringLiteral("n:A"), three);
    EXPECT_FALSE(hotKeys.press(one.virtualKeyCode(), one.hotKeyModifiers()));
    EXPECT_EQ(shortcuts.itemProblem(QStringLiteral("n:A")), ShortcutRules::takenKey);
    EXPECT_FALSE(shortcuts.activeItem(QStringLiteral("n:A")));
    EXPECT_EQ(shortcuts.activeItem(QStringLiteral("n:B")), two);

    // Recording lets every shortcut go, and takes them back after.
    shortcuts.setSuspended(true);
    EXPECT_TRUE(hotKeys.registrations().empty());
    shortcuts.setSuspended(false);
    EXPECT_TRUE(hotKeys.press(two.virtualKeyCode(), two.hotKeyModifiers()));
    EXPECT_EQ(opened.size(), 3);
}
