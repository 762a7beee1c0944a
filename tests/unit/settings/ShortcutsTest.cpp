// Key chords, the rules for global shortcuts, how the settings keep them and how
// they reach the system's hot-key registry.
#include "TestSupport.h"

#include "core/app/GlobalShortcuts.h"
#include "core/settings/KeyChord.h"
#include "core/settings/PrefKey.h"
#include "core/settings/Preferences.h"
#include "foundation/DefaultsStore.h"
#include "foundation/NotificationCenter.h"
#include "platform/sim/SimHotKeys.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace ravlin;

namespace {

KeyChord chord(const char* text)
{
    const std::optional<KeyChord> c = KeyChord::parse(QString::fromUtf8(text));
    EXPECT_TRUE(c) << text;
    return c.value_or(KeyChord{});
}

} // namespace

TEST(KeyChord, ReadsEveryWayOfWritingAChordAndKeepsOneStoredForm)
{
    const KeyChord m = chord("control+option+command+M");
    EXPECT_EQ(chord("ctrl+alt+cmd+m"), m);
    EXPECT_EQ(chord("⌃⌥⌘M"), m);
    EXPECT_EQ(chord("cmd+opt+ctrl+M"), m);
    EXPECT_EQ(m.storedText(), QStringLiteral("control+option+command+M"));
    EXPECT_EQ(m.displayText(), QStringLiteral("⌃⌥⌘M"));
    EXPECT_EQ(chord("shift+cmd+,").displayText(), QStringLiteral("⇧⌘,"));
    EXPECT_EQ(chord("opt+cmd+space").displayText(), QStringLiteral("⌥⌘␣"));
    EXPECT_EQ(KeyChord::parse(chord("cmd+Left").storedText()), chord("cmd+Left"));
    for (const char* bad : {"", "cmd+", "cmd+MM", "hyper+M", "cmd+ctrl", "ctrl+é"})
        EXPECT_FALSE(KeyChord::parse(QString::fromUtf8(bad))) << bad;
}

TEST(KeyChord, SpeaksTheSystemsHotKeyCodesAndQtsKeys)
{
    const KeyChord m = chord("control+option+command+M");
    EXPECT_EQ(m.virtualKeyCode(), 0x2Eu); // kVK_ANSI_M
    EXPECT_EQ(m.hotKeyModifiers(), 0x1000u | 0x0800u | 0x0100u);
    EXPECT_EQ(chord("shift+F5").hotKeyModifiers(), 0x0200u);
    EXPECT_EQ(chord("cmd+Space").virtualKeyCode(), 0x31u);
    // Qt's Mac convention: Control is the Command key, Meta the Control key.
    EXPECT_EQ(m.qtModifiers(), int(Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    EXPECT_EQ(KeyChord::fromQt(m.qtKey(), m.qtModifiers()), m);
    EXPECT_EQ(KeyChord::fromQt(Qt::Key_Enter, 0), chord("Return"));
    EXPECT_FALSE(KeyChord::fromQt(Qt::Key_Shift, int(Qt::ShiftModifier)));
}

TEST(ShortcutRules, RefusesWhatTheSystemKeepsBareKeysAndTheOtherShortcutsChord)
{
    EXPECT_FALSE(ShortcutRules::refusal(ShortcutRules::defaultPanelChord(), std::nullopt));
    EXPECT_EQ(ShortcutRules::refusal(chord("M"), std::nullopt), ShortcutRules::noModifierKey);
    EXPECT_EQ(ShortcutRules::refusal(chord("shift+M"), std::nullopt),
              ShortcutRules::noModifierKey);
    for (const char* reserved : {"opt+cmd+Space", "cmd+Space", "cmd+Tab", "shift+cmd+4",
                                 "ctrl+cmd+Q", "opt+cmd+Escape", "ctrl+Space"})
        EXPECT_EQ(ShortcutRules::refusal(chord(reserved), std::nullopt),
                  ShortcutRules::reservedKey)
            << reserved;
    EXPECT_EQ(ShortcutRules::refusal(chord("ctrl+opt+K"), chord("ctrl+opt+K")),
              ShortcutRules::sameAsOtherKey);
    EXPECT_FALSE(ShortcutRules::refusal(chord("ctrl+opt+K"), chord("ctrl+opt+L")));
}

struct ShortcutSettings : ::testing::Test {
    InMemoryDefaultsStore defaults;
    NotificationCenter center;
    Preferences prefs{defaults, center, nullptr};
    void SetUp() override { prefs.registerDefaults(); }
};

TEST_F(ShortcutSettings, DefaultNoneAndChosenChordsAreKept)
{
    EXPECT_EQ(prefs.shortcut(Shortcut::Panel), ShortcutRules::defaultPanelChord());
    EXPECT_FALSE(prefs.shortcut(Shortcut::HiddenSection));
    prefs.setShortcut(Shortcut::Panel, std::nullopt);
    EXPECT_FALSE(prefs.shortcut(Shortcut::Panel));
    EXPECT_EQ(*defaults.persistentValue(PrefKey::panelShortcut).asString(), QString());
    prefs.setShortcut(Shortcut::HiddenSection, chord("ctrl+opt+H"));
    EXPECT_EQ(*defaults.persistentValue(PrefKey::hiddenSectionShortcut).asString(),
              QStringLiteral("control+option+H"));
    EXPECT_EQ(prefs.shortcut(Shortcut::HiddenSection), chord("ctrl+opt+H"));
}

TEST_F(ShortcutSettings, BadStoredValuesReadAsTheDefaultAndStayOnDisk)
{
    for (const PlistValue& bad : {PlistValue(QStringLiteral("banana")), PlistValue(42),
                                  PlistValue(QStringLiteral("M")),
                                  PlistValue(QStringLiteral("cmd+Space"))}) {
        defaults.set(PrefKey::panelShortcut, bad);
        EXPECT_EQ(prefs.shortcut(Shortcut::Panel), ShortcutRules::defaultPanelChord());
        defaults.set(PrefKey::hiddenSectionShortcut, bad);
        EXPECT_FALSE(prefs.shortcut(Shortcut::HiddenSection));
    }
    EXPECT_EQ(*defaults.persistentValue(PrefKey::panelShortcut).asString(),
              QStringLiteral("cmd+Space"));
    // The same chord twice, by hand: the panel keeps it.
    defaults.set(PrefKey::panelShortcut, QStringLiteral("ctrl+opt+K"));
    defaults.set(PrefKey::hiddenSectionShortcut, QStringLiteral("ctrl+opt+K"));
    EXPECT_EQ(prefs.shortcut(Shortcut::Panel), chord("ctrl+opt+K"));
    EXPECT_FALSE(prefs.shortcut(Shortcut::HiddenSection));
}

TEST_F(ShortcutSettings, RegistersFollowsTheSettingsAndReportsPresses)
{
    SimHotKeys hotKeys;
    QStringList pressed;
    GlobalShortcuts shortcuts(&hotKeys, prefs, center,
                              {[&] { pressed << QStringLiteral("panel"); },
                               [&] { pressed << QStringLiteral("hidden"); }});
    const KeyChord m = ShortcutRules::defaultPanelChord();
    ASSERT_EQ(hotKeys.registrations().size(), 1u);
    EXPECT_TRUE(hotKeys.press(m.virtualKeyCode(), m.hotKeyModifiers()));
    EXPECT_EQ(shortcuts.active(Shortcut::Panel), m);

    const KeyChord h = chord("ctrl+opt+H");
    prefs.setShortcut(Shortcut::HiddenSection, h);
    EXPECT_TRUE(hotKeys.press(h.virtualKeyCode(), h.hotKeyModifiers()));
    prefs.setShortcut(Shortcut::Panel, std::nullopt);
    EXPECT_FALSE(hotKeys.press(m.virtualKeyCode(), m.hotKeyModifiers()));
    EXPECT_EQ(pressed, (QStringList{QStringLiteral("panel"), QStringLiteral("hidden")}));
    EXPECT_EQ(shortcuts.check(Shortcut::Panel, h), ShortcutRules::sameAsOtherKey);

    // A chord another application holds is reported, not active.
    const KeyChord taken = chord("ctrl+opt+T");
    hotKeys.setTakenElsewhere(taken.virtualKeyCode(), taken.hotKeyModifiers(), true);
    prefs.setShortcut(Shortcut::Panel, taken);
    EXPECT_EQ(shortcuts.problem(Shortcut::Panel), ShortcutRules::takenKey);
    EXPECT_FALSE(shortcuts.active(Shortcut::Panel));
}

TEST(GlobalShortcuts, WithoutHotKeysNothingIsRegisteredAndNothingBreaks)
{
    InMemoryDefaultsStore defaults;
    NotificationCenter center;
    Preferences prefs{defaults, center, nullptr};
    GlobalShortcuts shortcuts(nullptr, prefs, center, {});
    prefs.setShortcut(Shortcut::Panel, std::nullopt);
    EXPECT_FALSE(shortcuts.active(Shortcut::Panel));
}

TEST_F(ShortcutSettings, EveryRefusedStoredValueIsLoggedAsItStands)
{
    test::LogCapture log;
    defaults.set(PrefKey::panelShortcut, QStringLiteral("ctrl+opt+K"));
    defaults.set(PrefKey::hiddenSectionShortcut, QStringLiteral("ctrl+opt+K"));
    EXPECT_FALSE(prefs.shortcut(Shortcut::HiddenSection));
    EXPECT_FALSE(prefs.shortcut(Shortcut::HiddenSection));
    EXPECT_EQ(log.count(QStringLiteral("the setting hiddenSectionShortcut holds control+option+K, "
                                       "which is not allowed (shortcut.error.sameAsOther)")),
              1);
    for (double odd : {std::nan(""), std::numeric_limits<double>::infinity(),
                       -std::numeric_limits<double>::infinity()}) {
        defaults.set(PrefKey::rehideInterval, odd);
        EXPECT_GE(prefs.rehideInterval(), 1);
    }
    EXPECT_EQ(log.count(QStringLiteral("the setting rehideInterval holds nan seconds")), 1);
    EXPECT_EQ(log.count(QStringLiteral("the setting rehideInterval holds inf seconds")), 1);
    EXPECT_EQ(log.count(QStringLiteral("the setting rehideInterval holds -inf seconds")), 1);
    EXPECT_EQ(log.count(QStringLiteral("the setting rehideInterval holds 0 seconds")), 0);
}
