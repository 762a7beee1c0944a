#include "SandboxCommands.h"
#include "SandboxSession.h"
#include "ScriptRunner.h"

#include "core/app/AppDelegate.h"
#include "core/settings/LanguageManager.h"
#include "core/settings/Preferences.h"
#include "foundation/DefaultsStore.h"
#include "foundation/PlistJson.h"
#include "platform/sim/SimLoginItems.h"

#include <functional>

namespace ravlin::sandbox {
namespace {

using Phase = ScriptRunner::Phase;

PlistValue jsonValue(CommandContext& c, qsizetype from)
{
    const QString text = c.line.rest(from);
    if (text.isEmpty())
        c.fail(QStringLiteral("a value is missing"));
    QString error;
    auto value = PlistJson::parse(text, &error);
    if (!value)
        c.fail(QStringLiteral("bad value %1: %2").arg(text, error));
    return *value;
}

bool needBool(CommandContext& c, const PlistValue& v)
{
    if (!v.isBool())
        c.fail(QStringLiteral("%1 takes true or false").arg(c.word(2)));
    return *v.asBool();
}

QSet<QString> needStringSet(CommandContext& c, const PlistValue& v)
{
    const PlistArray* array = v.asArray();
    if (!array)
        c.fail(QStringLiteral("%1 takes a list of texts").arg(c.word(2)));
    QSet<QString> set;
    for (const PlistValue& element : *array) {
        if (!element.isString())
            c.fail(QStringLiteral("%1 takes a list of texts").arg(c.word(2)));
        set.insert(*element.asString());
    }
    return set;
}

// prefs set NAME VALUE: the property setters as the settings window calls them.
void setPreference(CommandContext& c)
{
    if (c.word(1) != u"set")
        c.fail(QStringLiteral("prefs knows only: prefs set NAME VALUE"));
    const QString name = c.need(2, QStringLiteral("the property name"));
    const PlistValue v = jsonValue(c, 3);
    Preferences& p = c.session.app().preferences();

    using BoolSetter = void (Preferences::*)(bool);
    static const std::map<QString, BoolSetter> bools = {
        {QStringLiteral("launchAtLogin"), &Preferences::setLaunchAtLogin},
        {QStringLiteral("autoRehide"), &Preferences::setAutoRehide},
        {QStringLiteral("enableAlwaysHidden"), &Preferences::setEnableAlwaysHidden},
        {QStringLiteral("revealOnHover"), &Preferences::setRevealOnHover},
        {QStringLiteral("clickShowsInBar"), &Preferences::setClickShowsInBar},
        {QStringLiteral("showSystemTiles"), &Preferences::setShowSystemTiles},
        {QStringLiteral("showWeather"), &Preferences::setShowWeather},
        {QStringLiteral("hideSpotlight"), &Preferences::setHideSpotlight},
        {QStringLiteral("revealOnMenuBarClick"), &Preferences::setRevealOnMenuBarClick},
        {QStringLiteral("revealOnMenuBarScroll"), &Preferences::setRevealOnMenuBarScroll},
        {QStringLiteral("revealOnMenuBarHover"), &Preferences::setRevealOnMenuBarHover},
        {QStringLiteral("barShowsStatistics"), &Preferences::setBarShowsStatistics},
    };
    using SetSetter = void (Preferences::*)(const QSet<QString>&);
    static const std::map<QString, SetSetter> sets = {
        {QStringLiteral("hiddenItemKeys"), &Preferences::setHiddenItemKeys},
        {QStringLiteral("barPinnedKeys"), &Preferences::setBarPinnedKeys},
        {QStringLiteral("hiddenBundleIDs"), &Preferences::setHiddenBundleIDs},
    };

    if (auto it = bools.find(name); it != bools.end()) {
        (p.*(it->second))(needBool(c, v));
    } else if (auto it = sets.find(name); it != sets.end()) {
        (p.*(it->second))(needStringSet(c, v));
    } else if (name == u"rehideInterval") {
        if (!v.isInteger())
            c.fail(QStringLiteral("rehideInterval takes a whole number of seconds"));
        p.setRehideInterval(*v.asInteger());
    } else if (name == u"appLanguage") {
        if (!v.isString())
            c.fail(QStringLiteral("appLanguage takes a text"));
        p.setAppLanguage(*v.asString());
    } else if (name == u"tileStyle") {
        const auto style = tileStyleFromRawValue(v.asString().value_or(QString()));
        if (!style)
            c.fail(QStringLiteral(
                "tileStyle takes \"dashboard\", \"capsules\", \"grid\", \"strip\" or \"bar\""));
        p.setTileStyle(*style);
    } else if (name == u"newItemPlacement") {
        const auto placement = itemPlacementFromName(v.asString().value_or(QString()));
        if (!placement)
            c.fail(QStringLiteral("newItemPlacement takes \"bar\", \"panel\" or \"off\""));
        p.setNewItemPlacement(*placement);
    } else if (name == u"hiddenSystemItemIDs") {
        std::set<std::int64_t> ids;
        const PlistArray* array = v.asArray();
        for (const PlistValue& element : array ? *array : PlistArray{}) {
            if (!element.isInteger())
                c.fail(QStringLiteral("hiddenSystemItemIDs takes a list of whole numbers"));
            ids.insert(*element.asInteger());
        }
        if (!array)
            c.fail(QStringLiteral("hiddenSystemItemIDs takes a list of whole numbers"));
        p.setHiddenSystemItemIDs(ids);
    } else {
        c.fail(QStringLiteral("unknown preference: %1").arg(name));
    }
    c.session.scheduler().runDue();
}

void defaultsCommand(CommandContext& c)
{
    const QString verb = c.word(1);
    const QString key = c.need(2, QStringLiteral("the key"));
    if (verb == u"write")
        c.session.defaults().set(key, jsonValue(c, 3));
    else if (verb == u"delete")
        c.session.defaults().remove(key);
    else
        c.fail(QStringLiteral("defaults knows only write and delete"));
}

void loginCommand(CommandContext& c)
{
    const QString what = c.need(1, QStringLiteral("the login status"));
    if (what == u"fail") {
        c.session.login().setFailure(c.need(2, QStringLiteral("the failure message")));
        return;
    }
    const auto status = loginItemStatusFromName(what);
    if (!status)
        c.fail(QStringLiteral("unknown login status: %1").arg(what));
    c.session.login().setStatus(*status);
}

} // namespace

void registerSettingsCommands(ScriptRunner& runner)
{
    runner.addCommand(QStringLiteral("defaults"), Phase::Any, defaultsCommand);
    runner.addCommand(QStringLiteral("login"), Phase::Any, loginCommand);
    runner.addCommand(QStringLiteral("prefs"), Phase::AfterStart, setPreference);
    runner.addCommand(QStringLiteral("placement"), Phase::AfterStart, [](CommandContext& c) {
        const QString key = c.need(1, QStringLiteral("the item key"));
        const auto placement =
            itemPlacementFromName(c.need(2, QStringLiteral("bar, panel or off")));
        if (!placement)
            c.fail(QStringLiteral("placement takes bar, panel or off"));
        c.session.app().preferences().setPlacement(key, *placement);
        c.session.scheduler().runDue();
    });
    runner.addCommand(QStringLiteral("language"), Phase::AfterStart, [](CommandContext& c) {
        c.session.app().languageManager().apply(c.need(1, QStringLiteral("the language code")));
        c.session.scheduler().runDue();
    });
    // The simulated system's preferred language (default "en").
    runner.addCommand(QStringLiteral("locale"), Phase::BeforeStart, [](CommandContext& c) {
        if (!c.session.setSystemLanguages({c.need(1, QStringLiteral("the language tag"))}))
            c.fail(QStringLiteral("locale must come before anything reads a text"));
    });
}

} // namespace ravlin::sandbox
