// Sandbox commands of the menu bar's reveal gestures and of what stands in the bar: menus,
// scroll; the section gestures.
#include "SandboxCommands.h"
#include "SandboxSession.h"
#include "ScriptRunner.h"

#include "core/app/AppDelegate.h"
#include "core/bar/MenuBarGestures.h"
#include "foundation/Geometry.h"
#include "platform/Screens.h"
#include "platform/sim/SimDesktop.h"
#include "platform/sim/SimEventMonitors.h"

#include <QJsonObject>

namespace ravlin::sandbox {
namespace {

using Phase = ScriptRunner::Phase;

// menus WIDTH: the front application's menus take that much of every menu bar's left end.
void menusCommand(CommandContext& c)
{
    const double width = c.number(1, QStringLiteral("the menus' width"));
    if (width < 0)
        c.fail(QStringLiteral("the menus' width cannot be negative"));
    c.session.desktop().setAppMenusWidth(width);
}

WindowServerPoint scrollPoint(CommandContext& c, qsizetype& next)
{
    SimDesktop& desktop = c.session.desktop();
    const QString target = c.need(1, QStringLiteral("where the pointer scrolls"));
    next = 2;
    const SimScreen main = desktop.mainScreen();
    if (target == u"point") {
        next = 4;
        return {c.number(2, QStringLiteral("x")), c.number(3, QStringLiteral("y"))};
    }
    if (target == u"menubar")
        return {main.width * 0.4, main.menuBarHeight / 2};
    if (target == u"menus") {
        if (desktop.appMenusWidth() <= 0)
            c.fail(QStringLiteral("no menus stand in the menu bar (say menus WIDTH first)"));
        return {desktop.appMenusWidth() / 2, main.menuBarHeight / 2};
    }
    if (target == u"desktop")
        return {main.width / 2, main.menuBarHeight + (main.height - main.menuBarHeight) / 2};
    if (target.startsWith(QStringLiteral("item:"))) {
        const auto placed = desktop.placedByTitle(target.mid(5));
        if (!placed)
            c.fail(QStringLiteral("no item titled \"%1\" in the bar").arg(target.mid(5)));
        return placed->frame.center();
    }
    c.fail(QStringLiteral("unknown scroll target %1").arg(target));
}

// scroll TARGET up|down [trackpad] [natural]: a person scrolls there, a notch of the wheel or
// a swipe of two fingers (which glides on after the fingers leave); with natural scrolling the
// system reports the content's way, the opposite of the fingers'.
void scrollCommand(CommandContext& c)
{
    qsizetype next = 2;
    const WindowServerPoint point = scrollPoint(c, next);
    const QString way = c.need(next, QStringLiteral("up or down"));
    if (way != u"up" && way != u"down")
        c.fail(QStringLiteral("scroll goes up or down, not %1").arg(way));
    bool trackpad = false, natural = false;
    for (qsizetype i = next + 1; i < c.wordCount(); ++i) {
        if (c.word(i) == u"trackpad")
            trackpad = true;
        else if (c.word(i) == u"natural")
            natural = true;
        else
            c.fail(QStringLiteral("scroll takes trackpad or natural, not %1").arg(c.word(i)));
    }
    SimDesktop& desktop = c.session.desktop();
    desktop.setCursor(point);
    // What goes to Ravlin's own items reaches Ravlin itself, not the global monitors.
    const auto hit = desktop.itemAt(point);
    const bool own = hit && hit->item.own;
    const double fingers = way == u"up" ? 1 : -1;
    EventMonitors::Event event;
    event.kind = EventMonitors::ScrollWheel;
    event.precise = trackpad;
    event.inverted = natural;
    const double sign = natural ? -fingers : fingers;
    const int steps = trackpad ? 5 : 1;
    for (int i = 0; i < steps + (trackpad ? 3 : 0); ++i) {
        event.momentum = i >= steps;
        event.scrollDeltaY = sign * (trackpad ? (event.momentum ? 3.0 : 6.0) : 1.0);
        if (own)
            c.session.monitors().deliverOwn(event);
        else
            c.session.monitors().deliver(event);
        c.session.scheduler().advance(0.016);
    }
    c.session.scheduler().runDue();
}

QJsonValue gesturesSection(SandboxSession& s, bool)
{
    const MenuBarGestures* g = s.hasApp() ? s.app().gestures() : nullptr;
    const std::optional<SimDesktop::OpenMenu>& menu = s.desktop().openMenu();
    QJsonObject out{{QStringLiteral("openMenu"), menu ? QJsonValue(menu->owner) : QJsonValue()}};
    if (!g)
        return out;
    out.insert(QStringLiteral("click"), g->clickMonitorInstalled());
    out.insert(QStringLiteral("scroll"), g->scrollMonitorInstalled());
    out.insert(QStringLiteral("hover"), g->hoverMonitorInstalled());
    out.insert(QStringLiteral("hoverPending"), g->hoverPending());
    out.insert(QStringLiteral("menuOpen"), g->menuOpen());
    const double mainHeight = s.desktop().mainScreen().height;
    const ScreenPoint pointer = Geometry::toScreen(s.desktop().cursor(), mainHeight);
    out.insert(QStringLiteral("underPointer"), MenuBarGestures::spotName(g->spotAt(pointer)));
    return out;
}

} // namespace

void registerGestureCommands(ScriptRunner& runner)
{
    runner.addCommand(QStringLiteral("menus"), Phase::Any, menusCommand);
    runner.addCommand(QStringLiteral("scroll"), Phase::AfterStart, scrollCommand);
    runner.addSection(QStringLiteral("gestures"), gesturesSection);
}

} // namespace ravlin::sandbox
