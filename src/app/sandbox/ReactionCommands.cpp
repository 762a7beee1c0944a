// Sandbox commands and dump sections of a menu bar that reacts: items that change over time
// (change, busy) and the items the user watches (watch); the Mac's situation (wifi, front,
// focus, timezone, until) and the rules (rule); the system's item spacing (spacing); what
// looks at the desktop cost (costs). The sections changes, rules, situation, spacing, costs.
#include "SandboxCommands.h"
#include "SandboxSession.h"
#include "ScriptRunner.h"

#include "core/app/AppDelegate.h"
#include "core/changes/ItemChanges.h"
#include "core/changes/WatchList.h"
#include "core/rules/Rules.h"
#include "core/settings/ItemSpacing.h"
#include "foundation/DefaultsStore.h"
#include "foundation/PlistJson.h"
#include "platform/sim/SimDesktop.h"
#include "platform/sim/SimMenuBarSpacing.h"
#include "platform/sim/SimSituation.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QTimeZone>

namespace ravlin::sandbox {
namespace {

using Phase = ScriptRunner::Phase;

SimItem& itemTitled(CommandContext& c, const QString& title)
{
    SimDesktop& desktop = c.session.desktop();
    const std::optional<SimPlacedItem> placed = desktop.placedByTitle(title);
    SimItem* item = placed ? desktop.item(placed->item.window) : nullptr;
    if (!item)
        c.fail(QStringLiteral("no item is titled %1").arg(title));
    return *item;
}

int wholeNumber(CommandContext& c, const QString& text, const QString& what, int low, int high)
{
    bool ok = false;
    const int n = text.toInt(&ok);
    if (!ok || n < low || n > high)
        c.fail(QStringLiteral("%1 takes a whole number from %2 to %3, not %4")
                   .arg(what)
                   .arg(low)
                   .arg(high)
                   .arg(text));
    return n;
}

double seconds(CommandContext& c, const QString& text, const QString& what)
{
    bool ok = false;
    const double s = text.toDouble(&ok);
    if (!ok || !(s > 0) || s > 86400)
        c.fail(QStringLiteral("%1 takes seconds above 0, not %2").arg(what, text));
    return s;
}

// `change "TITLE" [badge=N] [ax.title=…] [ax.description=…] [ax.value=…] [width=W]`
void changeCommand(CommandContext& c)
{
    SimItem& item = itemTitled(c, c.need(1, QStringLiteral("the item's title")));
    const auto o = c.options(2);
    for (auto it = o.begin(); it != o.end(); ++it) {
        if (it.key() == u"badge")
            item.badge = wholeNumber(c, it.value(), QStringLiteral("badge"), 0, 999);
        else if (it.key() == u"ax.title")
            item.ax.title = it.value();
        else if (it.key() == u"ax.description")
            item.ax.description = it.value();
        else if (it.key() == u"ax.value")
            item.ax.value = it.value();
        else if (it.key() == u"width")
            c.session.desktop().setItemWidth(item.window,
                                             wholeNumber(c, it.value(), QStringLiteral("width"), 1, 2000));
        else
            c.fail(QStringLiteral("change knows badge, ax.title, ax.description, ax.value and "
                                  "width, not %1")
                       .arg(it.key()));
    }
    c.session.scheduler().runDue();
}

// `busy "TITLE" every=SECONDS [what=badge|value]` / `busy "TITLE" off`
void busyCommand(CommandContext& c)
{
    SimItem& item = itemTitled(c, c.need(1, QStringLiteral("the item's title")));
    if (c.word(2) == u"off") {
        item.badge = c.session.desktop().badgeOf(item);
        item.ax.value = c.session.desktop().valueOf(item);
        item.busy = SimBusy{};
        return;
    }
    const auto o = c.options(2);
    if (!o.contains(QStringLiteral("every")))
        c.fail(QStringLiteral("busy needs every=SECONDS (or off)"));
    const QString what = o.value(QStringLiteral("what"), QStringLiteral("badge"));
    if (what != u"badge" && what != u"value")
        c.fail(QStringLiteral("busy changes the badge or the value, not %1").arg(what));
    item.busy = SimBusy{seconds(c, o.value(QStringLiteral("every")), QStringLiteral("every")),
                        c.session.scheduler().now(), what == u"value"};
}

void watchCommand(CommandContext& c)
{
    const QString key = c.need(1, QStringLiteral("the item key"));
    const QString on = c.need(2, QStringLiteral("on or off"));
    if (on != u"on" && on != u"off")
        c.fail(QStringLiteral("watch takes on or off, not %1").arg(on));
    c.session.app().watchList().set(key, on == u"on");
    c.session.scheduler().runDue();
}

std::optional<QString> nameOrNone(CommandContext& c, const QString& none)
{
    const QString word = c.need(1, QStringLiteral("a name or %1").arg(none));
    if (word == none)
        return std::nullopt;
    return word;
}

void wifiCommand(CommandContext& c)
{
    c.session.situation().setWifiNetwork(nameOrNone(c, QStringLiteral("off")));
    c.session.scheduler().runDue();
}

void frontCommand(CommandContext& c)
{
    c.session.situation().setFrontmost(nameOrNone(c, QStringLiteral("none")));
    c.session.scheduler().runDue();
}

void focusCommand(CommandContext& c)
{
    if (c.word(1) == u"unreadable")
        c.session.situation().setFocusUnreadable();
    else
        c.session.situation().setFocus(nameOrNone(c, QStringLiteral("off")));
    c.session.scheduler().runDue();
}

void timezoneCommand(CommandContext& c)
{
    const QByteArray id = c.need(1, QStringLiteral("a time zone such as Europe/Berlin")).toUtf8();
    const QTimeZone zone(id);
    if (!zone.isValid())
        c.fail(QStringLiteral("there is no time zone %1").arg(QString::fromUtf8(id)));
    c.session.situation().setTimeZone(zone);
    c.session.scheduler().runDue();
}

// `until HH:MM`: time passes until the clock of the simulated Mac shows that time.
void untilCommand(CommandContext& c)
{
    const std::optional<int> minute = minuteFromText(c.need(1, QStringLiteral("a time HH:MM")));
    if (!minute)
        c.fail(QStringLiteral("until takes a time HH:MM, not %1").arg(c.word(1)));
    VirtualScheduler& s = c.session.scheduler();
    const QDateTime now = s.currentDate().toTimeZone(c.session.situation().timeZone());
    QDateTime at(now.date(), QTime(*minute / 60, *minute % 60), now.timeZone());
    if (at <= now)
        at = at.addDays(1);
    s.advance(double(now.msecsTo(at)) / 1000.0);
}

RuleCondition conditionFrom(CommandContext& c, const QString& word)
{
    const qsizetype eq = word.indexOf(u'=');
    const QString name = eq < 0 ? word : word.left(eq);
    const QString value = eq < 0 ? QString() : word.mid(eq + 1);
    RuleCondition cond;
    if (name == u"display" || name == u"nodisplay") {
        cond.kind = RuleCondition::Kind::Display;
        cond.on = name == u"display";
    } else if (name == u"battery" || name == u"ac") {
        cond.kind = RuleCondition::Kind::Power;
        cond.on = name == u"battery";
    } else if (name == u"wifi" || name == u"app" || name == u"front") {
        if (value.isEmpty())
            c.fail(QStringLiteral("%1= needs a value").arg(name));
        cond.kind = name == u"wifi" ? RuleCondition::Kind::Wifi : RuleCondition::Kind::Application;
        cond.frontmost = name == u"front";
        cond.text = value;
    } else if (name == u"focus") {
        cond.kind = RuleCondition::Kind::Focus;
        cond.text = value;
    } else if (name == u"time") {
        const QStringList parts = value.split(u'-');
        const std::optional<int> from = parts.size() == 2 ? minuteFromText(parts[0]) : std::nullopt;
        const std::optional<int> to = parts.size() == 2 ? minuteFromText(parts[1]) : std::nullopt;
        if (!from || !to)
            c.fail(QStringLiteral("time= takes HH:MM-HH:MM, not %1").arg(value));
        cond.kind = RuleCondition::Kind::Time;
        cond.fromMinute = *from;
        cond.toMinute = *to;
    } else {
        c.fail(QStringLiteral("a condition is display, nodisplay, battery, ac, wifi=NAME, "
                              "app=BUNDLE, front=BUNDLE, focus[=NAME] or time=HH:MM-HH:MM, not %1")
                   .arg(word));
    }
    return cond;
}

RuleAction actionFrom(CommandContext& c, const QString& word)
{
    const qsizetype eq = word.indexOf(u'=');
    const QString name = eq < 0 ? word : word.left(eq);
    const QString value = eq < 0 ? QString() : word.mid(eq + 1);
    RuleAction action;
    if (value.isEmpty())
        c.fail(QStringLiteral("%1 needs a value: layout=NAME, show=KEY, reveal=SECONDS or "
                              "style=NAME")
                   .arg(word));
    if (name == u"layout") {
        action.kind = RuleAction::Kind::Layout;
        action.text = value;
    } else if (name == u"show") {
        action.kind = RuleAction::Kind::ShowItem;
        action.text = value;
    } else if (name == u"style") {
        action.kind = RuleAction::Kind::PanelStyle;
        action.text = value;
    } else if (name == u"reveal") {
        action.kind = RuleAction::Kind::Reveal;
        action.seconds = wholeNumber(c, value, QStringLiteral("reveal"), Rule::shortestReveal,
                                     Rule::longestReveal);
    } else {
        c.fail(QStringLiteral("an action is layout=NAME, show=KEY, reveal=SECONDS or style=NAME, "
                              "not %1")
                   .arg(word));
    }
    return action;
}

// `rule add ID [name="NAME"] when COND… then ACTION…`
Rule ruleFrom(CommandContext& c)
{
    Rule rule;
    rule.id = c.need(2, QStringLiteral("the rule's id"));
    qsizetype i = 3;
    if (c.word(i).startsWith(QStringLiteral("name=")))
        rule.name = c.word(i++).mid(5);
    if (c.word(i) != u"when")
        c.fail(QStringLiteral("rule add ID [name=NAME] when CONDITION… then ACTION…"));
    for (++i; i < c.wordCount() && c.word(i) != u"then"; ++i)
        rule.conditions.push_back(conditionFrom(c, c.word(i)));
    for (++i; i < c.wordCount(); ++i)
        rule.actions.push_back(actionFrom(c, c.word(i)));
    if (rule.conditions.empty() || rule.actions.empty())
        c.fail(QStringLiteral("a rule needs a condition after when and an action after then"));
    return rule;
}

void ruleCommand(CommandContext& c)
{
    Rules* rules = c.session.app().rules();
    if (!rules)
        c.fail(QStringLiteral("the application has no rules"));
    const QString verb = c.need(1, QStringLiteral("add, remove or enable"));
    std::vector<Rule> list = rules->book().rules();
    auto find = [&](const QString& id) {
        auto it = std::find_if(list.begin(), list.end(), [&](const Rule& r) { return r.id == id; });
        if (it == list.end())
            c.fail(QStringLiteral("there is no rule %1").arg(id));
        return it;
    };
    if (verb == u"add") {
        const Rule rule = ruleFrom(c);
        if (std::any_of(list.begin(), list.end(), [&](const Rule& r) { return r.id == rule.id; }))
            c.fail(QStringLiteral("there is a rule %1 already").arg(rule.id));
        list.push_back(rule);
    } else if (verb == u"remove") {
        list.erase(find(c.need(2, QStringLiteral("the rule's id"))));
    } else if (verb == u"enable") {
        const auto it = find(c.need(2, QStringLiteral("the rule's id")));
        it->enabled = c.need(3, QStringLiteral("on or off")) == u"on";
    } else {
        c.fail(QStringLiteral("rule takes add, remove or enable, not %1").arg(verb));
    }
    rules->book().setRules(list);
    c.session.scheduler().runDue();
}

// `spacing system SPACING PADDING` / `spacing system default` / `spacing refuse on|off`
void spacingCommand(CommandContext& c)
{
    SimMenuBarSpacing& spacing = c.session.menuBarSpacing();
    const QString verb = c.need(1, QStringLiteral("system or refuse"));
    if (verb == u"system") {
        if (c.need(2, QStringLiteral("SPACING PADDING or default")) == u"default") {
            spacing.setStored({});
            return;
        }
        spacing.setStored({wholeNumber(c, c.word(2), QStringLiteral("spacing"), -100, 100),
                           wholeNumber(c, c.need(3, QStringLiteral("PADDING")),
                                       QStringLiteral("padding"), -100, 100)});
    } else if (verb == u"refuse") {
        spacing.setRefuses(c.need(2, QStringLiteral("on or off")) == u"on");
    } else {
        c.fail(QStringLiteral("spacing takes system or refuse, not %1").arg(verb));
    }
}

void costsCommand(CommandContext& c)
{
    if (c.need(1, QStringLiteral("reset")) != u"reset")
        c.fail(QStringLiteral("costs takes reset"));
    c.session.desktop().resetCosts();
    c.session.resetFiredCount();
}

QJsonValue orNull(const std::optional<double>& value)
{
    return value ? QJsonValue(*value) : QJsonValue();
}

QJsonValue changesSection(SandboxSession& s, bool)
{
    if (!s.hasApp())
        return QJsonValue();
    QStringList watched = s.app().watchList().keys().values();
    watched.sort();
    QJsonObject section{{QStringLiteral("watched"), QJsonArray::fromStringList(watched)}};
    const ItemChanges* changes = s.app().itemChanges();
    if (!changes)
        return section;
    QJsonObject items;
    const auto& all = changes->watch().watched();
    for (auto it = all.begin(); it != all.end(); ++it)
        items.insert(it.key(), QJsonObject{{QStringLiteral("looks"), it->looks},
                                           {QStringLiteral("changes"), it->changes},
                                           {QStringLiteral("busy"), it->busy},
                                           {QStringLiteral("interval"), it->interval}});
    QJsonArray events;
    for (const ChangeSpotlight::Event& e : changes->spotlight().events())
        events.append(QJsonObject{{QStringLiteral("key"), e.key},
                                  {QStringLiteral("at"), e.at},
                                  {QStringLiteral("how"), e.how}});
    section.insert(QStringLiteral("looking"), changes->watch().looking());
    section.insert(QStringLiteral("nextRound"), orNull(changes->watch().nextRoundIn()));
    section.insert(QStringLiteral("looks"), changes->watch().looks());
    section.insert(QStringLiteral("items"), items);
    section.insert(QStringLiteral("marked"),
                   QJsonArray::fromStringList(changes->spotlight().marked()));
    section.insert(QStringLiteral("events"), events);
    return section;
}

QJsonValue rulesSection(SandboxSession& s, bool)
{
    const Rules* rules = s.hasApp() ? s.app().rules() : nullptr;
    if (!rules)
        return QJsonValue();
    const RuleOutcome& out = rules->engine().outcome();
    QJsonArray list;
    for (const Rule& rule : rules->book().rules())
        list.append(QJsonObject{{QStringLiteral("id"), rule.id},
                                {QStringLiteral("name"), rule.name},
                                {QStringLiteral("enabled"), rule.enabled},
                                {QStringLiteral("title"), rules->description().title(rule)},
                                {QStringLiteral("inForce"), out.inForce.contains(rule.id)}});
    const RuleNeeds& needs = rules->watch().following();
    QJsonArray boundaries;
    for (int minute : needs.boundaries)
        boundaries.append(minuteText(minute));
    auto text = [](const std::optional<QString>& t) { return t ? QJsonValue(*t) : QJsonValue(); };
    return QJsonObject{
        {QStringLiteral("list"), list},
        {QStringLiteral("inForce"), QJsonArray::fromStringList(out.inForce)},
        {QStringLiteral("layout"), text(out.layout)},
        {QStringLiteral("panelStyle"), text(out.panelStyle)},
        {QStringLiteral("shownItems"), QJsonArray::fromStringList(out.shownItems)},
        {QStringLiteral("evaluations"), rules->engine().evaluations()},
        {QStringLiteral("following"),
         QJsonObject{{QStringLiteral("displays"), needs.displays},
                     {QStringLiteral("power"), needs.power},
                     {QStringLiteral("wifi"), needs.wifi},
                     {QStringLiteral("applications"), needs.applications},
                     {QStringLiteral("frontmost"), needs.frontmost},
                     {QStringLiteral("focus"), needs.focus},
                     {QStringLiteral("boundaries"), boundaries}}},
        {QStringLiteral("nextBoundary"), orNull(rules->watch().nextBoundaryIn())},
        {QStringLiteral("line"), rules->inForceLine()},
    };
}

QJsonValue situationSection(SandboxSession& s, bool)
{
    SimSituation& situation = s.situation();
    auto text = [](const std::optional<QString>& t) { return t ? QJsonValue(*t) : QJsonValue(); };
    const QDateTime local = s.scheduler().currentDate().toTimeZone(situation.timeZone());
    return QJsonObject{{QStringLiteral("wifi"), text(situation.wifiNetworkName())},
                       {QStringLiteral("joined"), text(situation.joinedNetwork())},
                       {QStringLiteral("frontmost"), text(situation.frontmostApplication())},
                       {QStringLiteral("focus"), situation.focusReadable() ? text(situation.focus())
                                                                           : QJsonValue(QStringLiteral("unreadable"))},
                       {QStringLiteral("timeZone"), QString::fromUtf8(situation.timeZone().id())},
                       {QStringLiteral("localTime"), local.toString(QStringLiteral("HH:mm"))}};
}

QJsonValue spacingSection(SandboxSession& s, bool)
{
    const SpacingValues stored = s.menuBarSpacing().stored();
    auto number = [](const std::optional<int>& n) { return n ? QJsonValue(*n) : QJsonValue(); };
    QJsonObject section{
        {QStringLiteral("stored"),
         stored.isDefault() ? QJsonValue()
                            : QJsonValue(QJsonObject{{QStringLiteral("spacing"), number(stored.spacing)},
                                                     {QStringLiteral("padding"), number(stored.padding)}})},
        {QStringLiteral("writes"), s.menuBarSpacing().writes()},
        {QStringLiteral("record"), PlistJson::toJson(s.defaults().persistentValue(ItemSpacing::recordKey))},
    };
    if (s.hasApp())
        section.insert(QStringLiteral("changedByRavlin"),
                       ItemSpacing(&s.menuBarSpacing(), s.defaults()).changedByRavlin());
    return section;
}

QJsonValue costsSection(SandboxSession& s, bool)
{
    const SimCosts& costs = s.desktop().costs();
    QJsonObject ax;
    for (auto it = costs.axRequests.begin(); it != costs.axRequests.end(); ++it)
        ax.insert(it.key(), it.value());
    return QJsonObject{
        {QStringLiteral("axRequests"), ax},
        {QStringLiteral("agentRequests"), costs.axRequests.value(SimDesktop::agentBundleId)},
        {QStringLiteral("windowImages"), costs.windowImages},
        {QStringLiteral("windowLists"), costs.windowLists},
        {QStringLiteral("timerFirings"), double(s.firedCount())},
    };
}

} // namespace

void registerReactionCommands(ScriptRunner& runner)
{
    runner.addCommand(QStringLiteral("change"), Phase::Any, changeCommand);
    runner.addCommand(QStringLiteral("busy"), Phase::Any, busyCommand);
    runner.addCommand(QStringLiteral("watch"), Phase::AfterStart, watchCommand);
    runner.addCommand(QStringLiteral("wifi"), Phase::Any, wifiCommand);
    runner.addCommand(QStringLiteral("front"), Phase::Any, frontCommand);
    runner.addCommand(QStringLiteral("focus"), Phase::Any, focusCommand);
    runner.addCommand(QStringLiteral("timezone"), Phase::Any, timezoneCommand);
    runner.addCommand(QStringLiteral("until"), Phase::Any, untilCommand);
    runner.addCommand(QStringLiteral("rule"), Phase::AfterStart, ruleCommand);
    runner.addCommand(QStringLiteral("spacing"), Phase::Any, spacingCommand);
    runner.addCommand(QStringLiteral("costs"), Phase::Any, costsCommand);
    runner.addSection(QStringLiteral("changes"), changesSection);
    runner.addSection(QStringLiteral("rules"), rulesSection);
    runner.addSection(QStringLiteral("situation"), situationSection);
    runner.addSection(QStringLiteral("spacing"), spacingSection);
    runner.addSection(QStringLiteral("costs"), costsSection);
}

} // namespace ravlin::sandbox
