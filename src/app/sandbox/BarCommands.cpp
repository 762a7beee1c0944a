// Sandbox commands and dump sections of the status items and their controller:
// engine, instance, hover, menu, hud, reopen; controller, statusItems, menu, hud, engine.
#include "SandboxCommands.h"
#include "SandboxSession.h"
#include "ScriptRunner.h"

#include "core/app/AppDelegate.h"
#include "core/bar/ArrangeGuide.h"
#include "core/bar/MenuBarHideEngine.h"
#include "core/bar/StatusBarController.h"
#include "core/settings/LanguageManager.h"
#include "platform/sim/SimAssessmentMode.h"
#include "platform/sim/SimDesktop.h"
#include "platform/sim/SimEventMonitors.h"
#include "platform/sim/SimStatusBar.h"

#include <QJsonArray>
#include <QJsonObject>

namespace ravlin::sandbox {
namespace {

using Phase = ScriptRunner::Phase;

void engineCommand(CommandContext& c)
{
    const QString what = c.need(1, QStringLiteral("available, unavailable or refuse"));
    using B = SimAssessmentMode::Behaviour;
    static const QMap<QString, B> behaviours{{QStringLiteral("available"), B::Available},
                                             {QStringLiteral("unavailable"), B::Unavailable},
                                             {QStringLiteral("refuse"), B::Refuse}};
    if (!behaviours.contains(what))
        c.fail(QStringLiteral("engine takes available, unavailable or refuse"));
    // Whether the framework exists is settled at start; whether it grants can change.
    if (c.session.started() &&
        (what == u"unavailable" || !c.session.assessmentMode().isAvailable()))
        c.fail(
            QStringLiteral("after start the engine can only switch between available and refuse"));
    c.session.assessmentMode().setBehaviour(behaviours.value(what));
}

void instanceCommand(CommandContext& c)
{
    if (c.word(1) != u"running")
        c.fail(QStringLiteral("instance knows only: instance running"));
    SimApp other;
    other.bundleId = SimDesktop::ownBundleId;
    other.name = SimDesktop::ownName;
    other.policy = ActivationPolicy::Accessory;
    c.session.desktop().addApp(other);
}

// hover TARGET / hover point X Y / hover near-main DX DY
void hoverCommand(CommandContext& c)
{
    SimDesktop& desktop = c.session.desktop();
    const QString target = c.need(1, QStringLiteral("the hover's target"));
    WindowServerPoint point;
    if (target == u"point") {
        point = {c.number(2, QStringLiteral("x")), c.number(3, QStringLiteral("y"))};
    } else if (target == u"near-main") {
        const SimStatusItem* main = c.session.statusBar().item(StatusBarController::mainName);
        const std::optional<WindowServerRect> f = main ? main->windowServerFrame() : std::nullopt;
        if (!f)
            c.fail(QStringLiteral("the main item is not in the bar"));
        const double dx = c.number(2, QStringLiteral("DX")),
                     dy = c.number(3, QStringLiteral("DY"));
        point.x = dx < 0 ? f->x + dx : dx > 0 ? f->maxX() + dx : f->x + f->width / 2;
        point.y = dy < 0 ? f->y + dy : dy > 0 ? f->maxY() + dy : f->y + f->height / 2;
    } else if (target.startsWith(QStringLiteral("item:"))) {
        const auto placed = desktop.placedByTitle(target.mid(5));
        if (!placed)
            c.fail(QStringLiteral("no item titled \"%1\" in the bar").arg(target.mid(5)));
        point = placed->frame.center();
    } else if (target == u"menus") {
        if (desktop.appMenusWidth() <= 0)
            c.fail(QStringLiteral("no menus stand in the menu bar (say menus WIDTH first)"));
        point = {desktop.appMenusWidth() / 2, desktop.mainScreen().menuBarHeight / 2};
    } else if (target == u"menubar" || target == u"desktop") {
        const SimScreen s = desktop.mainScreen();
        point = target == u"menubar" ? WindowServerPoint{8, s.menuBarHeight / 2}
                                     : WindowServerPoint{s.width / 2, s.height / 2};
    } else {
        c.fail(QStringLiteral("unknown hover target %1").arg(target));
    }
    desktop.setCursor(point);
    c.session.monitors().deliver(EventMonitors::MouseMoved);
    c.session.scheduler().runDue();
}

void menuCommand(CommandContext& c)
{
    SimStatusBar& bar = c.session.statusBar();
    const QString first = c.need(1, QStringLiteral("the entry's title or close"));
    if (first == u"close" && c.wordCount() == 2) {
        if (!bar.openMenu())
            c.fail(QStringLiteral("no menu is open"));
        bar.closeMenu();
        return;
    }
    // "menu point TITLE…": the pointer rests on an entry, and its submenu opens.
    const bool pointing = first == u"point" && c.wordCount() > 2;
    QStringList path;
    for (qsizetype i = pointing ? 2 : 1; i < c.wordCount(); ++i) {
        const QString w = c.word(i);
        path.append(w.startsWith(QStringLiteral("text:"))
                        ? c.session.app().languageManager().L(w.mid(5))
                        : w);
    }
    if (pointing) {
        if (!bar.point(path))
            c.fail(QStringLiteral("the open menu has no submenu %1")
                       .arg(path.join(QStringLiteral(" > "))));
        return;
    }
    switch (bar.choose(path)) {
    case SimStatusBar::Choice::NoMenu:
        c.fail(QStringLiteral("no menu is open"));
    case SimStatusBar::Choice::NoSuchEntry:
        c.fail(
            QStringLiteral("the open menu has no entry %1").arg(path.join(QStringLiteral(" > "))));
    case SimStatusBar::Choice::Done:
        break;
    }
    c.session.scheduler().runDue();
}

QJsonValue frameJson(const std::optional<ScreenRect>& f)
{
    if (!f)
        return QJsonValue();
    return QJsonArray{f->x, f->y, f->width, f->height};
}

QJsonValue controllerSection(SandboxSession& s, bool)
{
    const StatusBarController* c = s.hasApp() ? s.app().statusBar() : nullptr;
    if (!c)
        return QJsonValue();
    return QJsonObject{
        {QStringLiteral("usesEngine"), c->usesEngine()},
        {QStringLiteral("expanded"), c->expanded()},
        {QStringLiteral("revealingAlways"), c->revealingAlways()},
        {QStringLiteral("tileOpen"), c->tileOpen()},
        {QStringLiteral("arranging"), c->arranging()},
        {QStringLiteral("engineRevealed"), c->engineRevealed()},
        {QStringLiteral("buildingCache"), c->buildingCache()},
        {QStringLiteral("didFullBuild"), c->didFullBuild()},
        {QStringLiteral("lastBarSignature"), c->lastBarSignature()},
        {QStringLiteral("movedBySystem"), QJsonArray::fromStringList(c->movedBySystem())},
        {QStringLiteral("timers"),
         QJsonObject{{QStringLiteral("rehide"), c->rehideTimerArmed()},
                     {QStringLiteral("revealSafety"), c->revealSafetyTimerArmed()},
                     {QStringLiteral("watch"), c->watchTimerArmed()},
                     // Nothing retries a refused engine: separators take over from it.
                     {QStringLiteral("engineRetry"), false}}},
        {QStringLiteral("monitors"),
         QJsonObject{{QStringLiteral("hover"), c->hoverMonitorInstalled()},
                     {QStringLiteral("revealCollapse"), c->revealCollapseMonitorInstalled()}}},
    };
}

QJsonValue statusItemsSection(SandboxSession& s, bool)
{
    QJsonObject items;
    for (const SimStatusItem* item : s.statusBar().items()) {
        const std::optional<WindowServerRect> f = item->windowServerFrame();
        items.insert(
            item->autosaveName(),
            QJsonObject{{QStringLiteral("length"), item->length()},
                        {QStringLiteral("image"),
                         item->image().isEmpty() ? QJsonValue() : QJsonValue(item->image())},
                        {QStringLiteral("title"), item->title()},
                        {QStringLiteral("toolTip"), item->toolTip()},
                        {QStringLiteral("appearsDisabled"), item->appearsDisabled()},
                        {QStringLiteral("x"), f ? QJsonValue(f->x) : QJsonValue()},
                        {QStringLiteral("width"), f ? QJsonValue(f->width) : QJsonValue()},
                        {QStringLiteral("onScreen"), item->onScreen()}});
    }
    return items;
}

QJsonArray menuEntries(const std::vector<MenuEntry>& entries)
{
    QJsonArray list;
    for (const MenuEntry& e : entries) {
        list.append(QJsonObject{
            {QStringLiteral("title"), e.separator ? QJsonValue() : QJsonValue(e.title)},
            {QStringLiteral("separator"), e.separator},
            {QStringLiteral("checked"), e.checked},
            {QStringLiteral("keyEquivalent"),
             e.keyEquivalent.isEmpty() ? QJsonValue() : QJsonValue(e.keyEquivalent)},
            {QStringLiteral("shortcut"),
             e.keyEquivalent.isEmpty() ? QJsonValue() : QJsonValue(e.shownKeyEquivalent())},
            {QStringLiteral("submenu"),
             e.submenu.empty()
                 ? QJsonValue()
                 : QJsonValue(QJsonObject{{QStringLiteral("entries"), menuEntries(e.submenu)}})}});
    }
    return list;
}

QJsonValue menuSection(SandboxSession& s, bool)
{
    const std::optional<MenuModel>& menu = s.statusBar().openMenu();
    if (!menu)
        return QJsonValue();
    return QJsonObject{{QStringLiteral("entries"), menuEntries(menu->entries)},
                       {QStringLiteral("rtl"), menu->rightToLeft}};
}

QJsonValue hudSection(SandboxSession& s, bool)
{
    const ArrangeGuide* guide = s.arrangeGuide();
    if (!guide || !guide->isVisible())
        return QJsonValue();
    return QJsonObject{{QStringLiteral("visible"), true},
                       {QStringLiteral("frame"), frameJson(guide->frame())}};
}

QJsonValue engineSection(SandboxSession& s, bool)
{
    const MenuBarHideEngine& engine = s.app().hideEngine();
    QJsonArray items;
    for (int id : engine.lastAllowedSystemItems())
        items.append(id);
    QJsonValue error;
    if (const auto e = engine.lastError())
        error = QJsonObject{{QStringLiteral("domain"), e->domain},
                            {QStringLiteral("code"), e->code},
                            {QStringLiteral("description"), e->description}};
    return QJsonObject{{QStringLiteral("available"), engine.isAvailable()},
                       {QStringLiteral("state"), engine.stateName()},
                       {QStringLiteral("allowedBundleIDs"),
                        QJsonArray::fromStringList(engine.lastAllowedBundleIDs())},
                       {QStringLiteral("allowedSystemItems"), items},
                       {QStringLiteral("lastError"), error}};
}

} // namespace

void registerBarCommands(ScriptRunner& runner)
{
    runner.addCommand(QStringLiteral("engine"), Phase::Any, engineCommand);
    runner.addCommand(QStringLiteral("instance"), Phase::BeforeStart, instanceCommand);
    runner.addCommand(QStringLiteral("hover"), Phase::AfterStart, hoverCommand);
    runner.addCommand(QStringLiteral("menu"), Phase::AfterStart, menuCommand);
    runner.addCommand(QStringLiteral("hud"), Phase::AfterStart, [](CommandContext& c) {
        if (c.word(1) != u"done")
            c.fail(QStringLiteral("hud knows only: hud done"));
        if (!c.session.pressArrangeDone())
            c.fail(QStringLiteral("the arrange guide is not showing"));
        c.session.scheduler().runDue();
    });
    runner.addCommand(QStringLiteral("reopen"), Phase::AfterStart, [](CommandContext& c) {
        c.session.app().applicationShouldHandleReopen(false);
        c.session.scheduler().runDue();
    });
    // The full rebuild of the bar's cache, as the settings window's rescan asks for it.
    runner.addCommand(QStringLiteral("rescan"), Phase::AfterStart, [](CommandContext& c) {
        StatusBarController* controller = c.session.app().statusBar();
        if (!controller)
            c.fail(QStringLiteral("there is no status bar controller"));
        controller->rebuildFullCache();
        c.session.scheduler().runDue();
    });
    runner.addSection(QStringLiteral("controller"), controllerSection);
    runner.addSection(QStringLiteral("statusItems"), statusItemsSection);
    runner.addSection(QStringLiteral("menu"), menuSection);
    runner.addSection(QStringLiteral("hud"), hudSection);
    runner.addSection(QStringLiteral("engine"), engineSection);
}

} // namespace ravlin::sandbox
