#include "SandboxCommands.h"
#include "SandboxSession.h"
#include "ScriptRunner.h"

#include "core/app/AppDelegate.h"
#include "core/settings/LanguageManager.h"
#include "core/settings/PrefKey.h"
#include "core/settings/Preferences.h"
#include "foundation/DefaultsStore.h"
#include "foundation/PlistJson.h"
#include "platform/sim/SimApplicationControl.h"
#include "platform/sim/SimLoginItems.h"

#include <QJsonArray>
#include <QJsonObject>

namespace ravlin::sandbox {
namespace {

QJsonArray sortedArray(const QSet<QString>& set)
{
    QStringList list(set.cbegin(), set.cend());
    list.sort();
    return QJsonArray::fromStringList(list);
}

QJsonObject itemShortcutsJson(const Preferences& p)
{
    QJsonObject shortcuts;
    const QMap<QString, KeyChord> chords = p.itemShortcuts();
    for (auto it = chords.cbegin(); it != chords.cend(); ++it)
        shortcuts.insert(it.key(), it.value().storedText());
    return shortcuts;
}

QJsonValue preferencesSection(SandboxSession& s, bool)
{
    const Preferences& p = s.app().preferences();
    QJsonArray systemIDs;
    for (std::int64_t id : p.hiddenSystemItemIDs())
        systemIDs.append(qint64(id));
    return QJsonObject{
        {QStringLiteral("launchAtLogin"), p.launchAtLogin()},
        {QStringLiteral("autoRehide"), p.autoRehide()},
        {QStringLiteral("rehideInterval"), p.rehideInterval()},
        {QStringLiteral("enableAlwaysHidden"), p.enableAlwaysHidden()},
        {QStringLiteral("revealOnHover"), p.revealOnHover()},
        {QStringLiteral("clickShowsInBar"), p.clickShowsInBar()},
        {QStringLiteral("appLanguage"), p.appLanguage()},
        {QStringLiteral("tileStyle"), tileStyleRawValue(p.tileStyle())},
        {QStringLiteral("showSystemTiles"), p.showSystemTiles()},
        {QStringLiteral("showWeather"), p.showWeather()},
        {QStringLiteral("hiddenItemKeys"), sortedArray(p.hiddenItemKeys())},
        {QStringLiteral("barPinnedKeys"), sortedArray(p.barPinnedKeys())},
        {QStringLiteral("hiddenBundleIDs"), sortedArray(p.hiddenBundleIDs())},
        {QStringLiteral("hiddenSystemItemIDs"), systemIDs},
        {QStringLiteral("hideSpotlight"), p.hideSpotlight()},
        {QStringLiteral("newItemPlacement"), itemPlacementName(p.newItemPlacement())},
        {QStringLiteral("revealOnMenuBarClick"), p.revealOnMenuBarClick()},
        {QStringLiteral("revealOnMenuBarScroll"), p.revealOnMenuBarScroll()},
        {QStringLiteral("revealOnMenuBarHover"), p.revealOnMenuBarHover()},
        {QStringLiteral("barShowsStatistics"), p.barShowsStatistics()},
        {QStringLiteral("itemShortcuts"), itemShortcutsJson(p)},
    };
}

QJsonValue processSection(SandboxSession& s, bool)
{
    const SimApplicationControl& a = s.application();
    const bool accessory = a.activationPolicy() == ApplicationControl::Policy::Accessory;
    return QJsonObject{
        {QStringLiteral("running"), s.started() && a.running()},
        {QStringLiteral("exitCode"), a.exitCode() ? QJsonValue(*a.exitCode()) : QJsonValue()},
        {QStringLiteral("terminateRequested"), a.terminateRequested()},
        {QStringLiteral("activationPolicy"),
         accessory ? QStringLiteral("accessory") : QStringLiteral("regular")},
    };
}

QJsonValue languageSection(SandboxSession& s, bool)
{
    const LanguageManager& lm = s.app().languageManager();
    const PlistValue apple = s.defaults().persistentValue(PrefKey::appleLanguages);
    return QJsonObject{
        {QStringLiteral("activeCode"), lm.activeCode()},
        {QStringLiteral("isRTL"), lm.isRTL()},
        {QStringLiteral("appleLanguages"), PlistJson::toJson(apple)},
    };
}

} // namespace

void registerCoreSections(ScriptRunner& runner)
{
    runner.addSection(QStringLiteral("time"),
                      [](SandboxSession& s, bool) { return QJsonValue(s.scheduler().now()); });
    runner.addSection(QStringLiteral("process"), processSection);
    runner.addSection(QStringLiteral("preferences"), preferencesSection);
    runner.addSection(QStringLiteral("defaults"), [](SandboxSession& s, bool) {
        return PlistJson::toJson(PlistValue(s.defaults().persistentDomain()));
    });
    runner.addSection(QStringLiteral("language"), languageSection);
    runner.addSection(QStringLiteral("login"), [](SandboxSession& s, bool) {
        return QJsonValue(
            QJsonObject{{QStringLiteral("status"), loginItemStatusName(s.login().status())}});
    });
}

} // namespace ravlin::sandbox
