// Setting up and acting on the simulated desktop: displays, applications, status
// items, permissions, launches, clicks and drags.

#include "SandboxCommands.h"
#include "SandboxSession.h"
#include "platform/sim/SimEventMonitors.h"
#include "ScriptRunner.h"

#include "platform/sim/SimAppearance.h"
#include "platform/sim/SimDesktop.h"
#include "platform/sim/SimWorkspace.h"

namespace ravlin::sandbox {
namespace {

using Phase = ScriptRunner::Phase;

double number(CommandContext& c, const QString& text, const QString& what)
{
    bool ok = false;
    const double value = text.toDouble(&ok);
    if (!ok)
        c.fail(QStringLiteral("%1 takes a number, not \"%2\"").arg(what, text));
    return value;
}

std::int64_t integer(CommandContext& c, const QString& text, const QString& what)
{
    bool ok = false;
    const qlonglong value = text.toLongLong(&ok);
    if (!ok)
        c.fail(QStringLiteral("%1 takes a whole number, not \"%2\"").arg(what, text));
    return value;
}

bool yesNo(CommandContext& c, const QString& text, const QString& what)
{
    if (text == u"yes" || text == u"on")
        return true;
    if (text == u"no" || text == u"off")
        return false;
    c.fail(QStringLiteral("%1 takes yes or no, not \"%2\"").arg(what, text));
}

void rejectUnknown(CommandContext& c, const QMap<QString, QString>& options,
                   const QStringList& known)
{
    for (auto it = options.cbegin(); it != options.cend(); ++it) {
        if (!known.contains(it.key()))
            c.fail(QStringLiteral("%1 does not know the option %2").arg(c.word(0), it.key()));
    }
}

// `screen W H [menubar=H]` adds a display (also while the application runs, as when a
// display is plugged in); `screen remove N` unplugs the display of that index (not the main one).
void screenCommand(CommandContext& c)
{
    if (c.word(1) == u"remove") {
        const std::int64_t index =
            integer(c, c.need(2, QStringLiteral("the display's index")), QStringLiteral("screen"));
        if (index < 1 || !c.session.desktop().removeScreen(std::size_t(index)))
            c.fail(QStringLiteral("there is no display %1 to remove (the main one, 0, stays)")
                       .arg(index));
        c.session.scheduler().runDue();
        return;
    }
    const auto options = c.options(3);
    rejectUnknown(c, options, {QStringLiteral("menubar"), QStringLiteral("notch")});
    SimScreen screen;
    screen.width = number(c, c.need(1, QStringLiteral("the width")), QStringLiteral("screen"));
    screen.height = number(c, c.need(2, QStringLiteral("the height")), QStringLiteral("screen"));
    if (options.contains(QStringLiteral("menubar")))
        screen.menuBarHeight =
            number(c, options.value(QStringLiteral("menubar")), QStringLiteral("menubar"));
    if (options.contains(QStringLiteral("notch")))
        screen.notch = number(c, options.value(QStringLiteral("notch")), QStringLiteral("notch"));
    if (screen.notch < 0 || screen.notch >= screen.width)
        c.fail(QStringLiteral("a notch is narrower than its screen"));
    if (screen.width <= 0 || screen.height <= screen.menuBarHeight)
        c.fail(QStringLiteral("a screen needs a positive size taller than its menu bar"));
    if (!c.session.started()) {
        c.session.desktop().addScreen(screen);
        return;
    }
    c.session.desktop().plugInScreen(screen);
    c.session.scheduler().runDue();
}

// appearance light|dark: the system switches its appearance; open windows follow.
void appearanceCommand(CommandContext& c)
{
    const QString mode = c.need(1, QStringLiteral("light or dark"));
    if (mode != u"light" && mode != u"dark")
        c.fail(QStringLiteral("appearance takes light or dark, not %1").arg(mode));
    static_cast<SimAppearance&>(*c.session.platform().appearance).setDark(mode == u"dark");
    c.session.scheduler().runDue();
}

// `wake`: the Mac wakes from sleep. `positions reset` / `positions shuffle SEED`: the
// system forgets where the items stood, or puts other applications' items in another order.
void wakeCommand(CommandContext& c)
{
    static_cast<SimWorkspace&>(*c.session.platform().workspace).wake();
    c.session.scheduler().runDue();
}

void positionsCommand(CommandContext& c)
{
    const QString what = c.need(1, QStringLiteral("reset or shuffle"));
    if (what == u"reset")
        c.session.desktop().resetPositions();
    else if (what == u"shuffle")
        c.session.desktop().shufflePositions(std::uint32_t(
            integer(c, c.need(2, QStringLiteral("a seed")), QStringLiteral("positions shuffle"))));
    else
        c.fail(QStringLiteral("positions takes reset or shuffle SEED, not %1").arg(what));
    c.session.scheduler().runDue();
}

// `system 15|26|27`: the menu bar of that macOS release.
void systemCommand(CommandContext& c)
{
    const std::int64_t generation =
        integer(c, c.need(1, QStringLiteral("15, 26 or 27")), QStringLiteral("system"));
    if (!c.session.desktop().setGeneration(int(generation)))
        c.fail(QStringLiteral("system takes 15, 26 or 27, not %1").arg(generation));
}

ActivationPolicy policy(CommandContext& c, const QString& text)
{
    if (text == u"regular")
        return ActivationPolicy::Regular;
    if (text == u"accessory")
        return ActivationPolicy::Accessory;
    if (text == u"prohibited")
        return ActivationPolicy::Prohibited;
    c.fail(QStringLiteral("policy takes regular, accessory or prohibited, not \"%1\"").arg(text));
}

void appCommand(CommandContext& c)
{
    SimApp app;
    app.bundleId = c.need(1, QStringLiteral("the bundle identifier"));
    app.name = c.need(2, QStringLiteral("the application's name"));
    if (app.bundleId == SimDesktop::ownBundleId)
        c.fail(QStringLiteral("%1 is this application itself").arg(app.bundleId));
    const auto options = c.options(3);
    rejectUnknown(c, options,
                  {QStringLiteral("pid"), QStringLiteral("policy"), QStringLiteral("running"),
                   QStringLiteral("hung")});
    const bool keepPid = options.contains(QStringLiteral("pid"));
    if (keepPid)
        app.pid =
            std::int32_t(integer(c, options.value(QStringLiteral("pid")), QStringLiteral("pid")));
    if (options.contains(QStringLiteral("policy")))
        app.policy = policy(c, options.value(QStringLiteral("policy")));
    if (options.contains(QStringLiteral("running")))
        app.running = yesNo(c, options.value(QStringLiteral("running")), QStringLiteral("running"));
    if (options.contains(QStringLiteral("hung")))
        app.hung = yesNo(c, options.value(QStringLiteral("hung")), QStringLiteral("hung"));
    c.session.desktop().addApp(app, keepPid);
}

void applyAXOptions(CommandContext& c, const QMap<QString, QString>& o, SimAXSpec& ax)
{
    if (o.contains(QStringLiteral("ax"))) {
        if (o.value(QStringLiteral("ax")) != u"none")
            c.fail(QStringLiteral("ax takes only none"));
        ax.present = false;
    }
    if (o.contains(QStringLiteral("ax.title")))
        ax.title = o.value(QStringLiteral("ax.title"));
    if (o.contains(QStringLiteral("ax.description")))
        ax.description = o.value(QStringLiteral("ax.description"));
    if (o.contains(QStringLiteral("ax.help")))
        ax.help = o.value(QStringLiteral("ax.help"));
    if (o.contains(QStringLiteral("ax.value")))
        ax.value = o.value(QStringLiteral("ax.value"));
    if (o.contains(QStringLiteral("ax.actions")))
        ax.actions = o.value(QStringLiteral("ax.actions")).split(u',', Qt::SkipEmptyParts);
    if (o.contains(QStringLiteral("ax.result")))
        ax.result =
            int(integer(c, o.value(QStringLiteral("ax.result")), QStringLiteral("ax.result")));
    if (o.contains(QStringLiteral("ax.depth")))
        ax.depth = int(integer(c, o.value(QStringLiteral("ax.depth")), QStringLiteral("ax.depth")));
    if (ax.depth < 0)
        c.fail(QStringLiteral("ax.depth cannot be negative"));
}

// `item … helper`: the item is made by a helper process of the application that has no bundle
// identifier of its own (one per application, running from the start).
QString helperOf(CommandContext& c, const QString& bundle)
{
    SimDesktop& desktop = c.session.desktop();
    const QString id = bundle + QStringLiteral("#helper");
    if (!desktop.app(id)) {
        const SimApp* parent = desktop.app(bundle);
        SimApp helper;
        helper.bundleId = id;
        helper.name = parent->name;
        helper.policy = ActivationPolicy::Prohibited;
        helper.reportsBundleId = false;
        helper.extras = SimExtras::No;
        desktop.addApp(helper);
    }
    return id;
}

void itemCommand(CommandContext& c)
{
    SimItem item;
    item.bundleId = c.need(1, QStringLiteral("the bundle identifier"));
    item.title = c.need(2, QStringLiteral("the item's title"));
    if (!c.session.desktop().app(item.bundleId))
        c.fail(
            QStringLiteral("unknown application %1: declare it with app first").arg(item.bundleId));
    const auto o = c.options(3);
    rejectUnknown(c, o,
                  {QStringLiteral("width"), QStringLiteral("height"), QStringLiteral("layer"),
                   QStringLiteral("owner"), QStringLiteral("fixed"), QStringLiteral("window"),
                   QStringLiteral("ax"), QStringLiteral("ax.title"),
                   QStringLiteral("ax.description"), QStringLiteral("ax.help"),
                   QStringLiteral("ax.actions"), QStringLiteral("ax.result"),
                   QStringLiteral("ax.depth"), QStringLiteral("helper"), QStringLiteral("ax.value"),
                   QStringLiteral("badge")});
    if (o.contains(QStringLiteral("width")))
        item.width = number(c, o.value(QStringLiteral("width")), QStringLiteral("width"));
    if (o.contains(QStringLiteral("height")))
        item.height = number(c, o.value(QStringLiteral("height")), QStringLiteral("height"));
    if (o.contains(QStringLiteral("layer")))
        item.layer = int(integer(c, o.value(QStringLiteral("layer")), QStringLiteral("layer")));
    if (o.contains(QStringLiteral("window")))
        item.window = integer(c, o.value(QStringLiteral("window")), QStringLiteral("window"));
    item.owner = o.value(QStringLiteral("owner"));
    item.fixed = o.contains(QStringLiteral("fixed"));
    if (o.contains(QStringLiteral("badge")))
        item.badge = int(integer(c, o.value(QStringLiteral("badge")), QStringLiteral("badge")));
    if (o.contains(QStringLiteral("helper")))
        item.bundleId = helperOf(c, item.bundleId);
    applyAXOptions(c, o, item.ax);
    if (item.window != 0 && c.session.desktop().item(item.window))
        c.fail(QStringLiteral("window %1 is taken").arg(item.window));
    c.session.desktop().addItem(item);
}

void extrasCommand(CommandContext& c)
{
    SimApp* app = c.session.desktop().app(c.need(1, QStringLiteral("the bundle identifier")));
    if (!app)
        c.fail(QStringLiteral("unknown application %1").arg(c.word(1)));
    app->extras = yesNo(c, c.need(2, QStringLiteral("yes or no")), QStringLiteral("extras"))
                      ? SimExtras::Yes
                      : SimExtras::No;
}

// The system's "Allow in the Menu Bar" list, which macOS 26 and later have; Ravlin's own
// items can be switched off there too.
void allowCommand(CommandContext& c)
{
    const QString bundle = c.need(1, QStringLiteral("the bundle identifier"));
    const bool on = yesNo(c, c.need(2, QStringLiteral("on or off")), QStringLiteral("allow"));
    SimDesktop& desktop = c.session.desktop();
    if (desktop.generation() < 26)
        c.fail(QStringLiteral("system %1 has no Allow in the Menu Bar list (system 26 and 27 have)")
                   .arg(desktop.generation()));
    if (!desktop.installedApp(bundle))
        c.fail(QStringLiteral("unknown application %1").arg(bundle));
    desktop.setAllowedInMenuBar(bundle, on);
}

void permissionCommand(CommandContext& c)
{
    const QString which = c.need(1, QStringLiteral("screen or accessibility"));
    const bool on = yesNo(c, c.need(2, QStringLiteral("on or off")), QStringLiteral("permission"));
    if (which == u"screen")
        c.session.desktop().screenRecording = on;
    else if (which == u"accessibility")
        c.session.desktop().accessibilityTrusted = on;
    else
        c.fail(QStringLiteral("permission knows screen and accessibility, not %1").arg(which));
}

void lifecycleCommand(CommandContext& c, bool launch)
{
    const QString bundle = c.need(1, QStringLiteral("the bundle identifier"));
    SimDesktop& desktop = c.session.desktop();
    if (!desktop.installedApp(bundle))
        c.fail(QStringLiteral("unknown application %1").arg(bundle));
    if (!(launch ? desktop.launch(bundle) : desktop.terminate(bundle)))
        c.fail(QStringLiteral("%1 is already %2").arg(bundle, launch ? u"running" : u"ended"));
    c.session.scheduler().runDue();
}

SimPlacedItem itemNamed(CommandContext& c, const QString& target)
{
    const QString title = target.mid(5);
    const std::optional<SimPlacedItem> placed = c.session.desktop().placedByTitle(title);
    if (!placed)
        c.fail(QStringLiteral("no item titled \"%1\" in the bar").arg(title));
    return *placed;
}

// An empty stretch of the menu bar: the middle of the gap between the front application's
// menus and the items (and the visible stretch of a collapsed separator, which takes clicks
// too), on the wider side of a notch that stands in it.
WindowServerPoint emptyMenuBarPoint(CommandContext& c)
{
    const SimDesktop& desktop = c.session.desktop();
    double left = desktop.mainScreen().width;
    for (const SimPlacedItem& p : desktop.bar()) {
        if (const auto visible = desktop.visibleStretch(p.item.window))
            left = std::min(left, visible->x);
    }
    double from = desktop.appMenusWidth();
    if (const std::optional<WindowServerRect> notch = desktop.notchFrame(0);
        notch && notch->x < left && notch->maxX() > from) {
        if (left - notch->maxX() >= notch->x - from)
            from = notch->maxX();
        else
            left = notch->x;
    }
    if (left - from < 2)
        c.fail(QStringLiteral("the menu bar has no empty part left"));
    return {(from + left) / 2, desktop.mainScreen().menuBarHeight / 2};
}

WindowServerPoint clickPoint(CommandContext& c, qsizetype& next)
{
    const QString target = c.need(1, QStringLiteral("the click's target"));
    next = 2;
    SimDesktop& desktop = c.session.desktop();
    if (target == u"point") {
        next = 4;
        return {number(c, c.need(2, QStringLiteral("x")), QStringLiteral("point")),
                number(c, c.need(3, QStringLiteral("y")), QStringLiteral("point"))};
    }
    if (target == u"menubar")
        return emptyMenuBarPoint(c);
    if (target == u"menus") {
        if (c.session.desktop().appMenusWidth() <= 0)
            c.fail(QStringLiteral("no menus stand in the menu bar (say menus WIDTH first)"));
        return {c.session.desktop().appMenusWidth() / 2,
                c.session.desktop().mainScreen().menuBarHeight / 2};
    }
    if (target == u"desktop") {
        const SimScreen s = desktop.mainScreen();
        return {s.width / 2, s.menuBarHeight + (s.height - s.menuBarHeight) / 2};
    }
    static const QMap<QString, QString> own{
        {QStringLiteral("main"), QStringLiteral("Ravlin.Main")},
        {QStringLiteral("hidden-separator"), QStringLiteral("Ravlin.HiddenSeparator")},
        {QStringLiteral("always-separator"), QStringLiteral("Ravlin.AlwaysHiddenSeparator")}};
    SimPlacedItem placed;
    if (own.contains(target))
        placed = itemNamed(c, QStringLiteral("item:") + own.value(target));
    else if (target.startsWith(QStringLiteral("item:")))
        placed = itemNamed(c, target);
    else
        c.fail(QStringLiteral("unknown click target %1").arg(target));
    // A person clicks what they see: the item, or the part of it left on screen.
    const std::optional<WindowServerRect> visible = desktop.visibleStretch(placed.item.window);
    if (!visible)
        c.fail(QStringLiteral("%1 is off screen; no click reaches it").arg(target));
    return visible->center();
}

void clickCommand(CommandContext& c)
{
    qsizetype next = 2;
    SimUserClick click;
    click.point = clickPoint(c, next);
    for (qsizetype i = next; i < c.wordCount(); ++i) {
        const QString w = c.word(i);
        if (w.startsWith(QStringLiteral("display="))) {
            // The same item in another display's menu bar.
            const std::int64_t display = integer(c, w.mid(8), QStringLiteral("display"));
            if (display < 0 || display >= std::int64_t(c.session.desktop().screens().size()))
                c.fail(QStringLiteral("there is no display %1").arg(display));
            click.point = c.session.desktop().onDisplay(click.point, std::size_t(display));
        } else if (w == u"left")
            click.button = MouseButton::Left;
        else if (w == u"right")
            click.button = MouseButton::Right;
        else if (w == u"ctrl")
            click.flags |= EventFlag::control;
        else if (w == u"cmd")
            click.flags |= EventFlag::command;
        else
            c.fail(QStringLiteral("click takes left, right, ctrl, cmd or display=N, not %1").arg(w));
    }
    c.session.desktop().userClick(click);
    c.session.scheduler().runDue();
}

void commandDragCommand(CommandContext& c)
{
    const QString target = c.need(1, QStringLiteral("item:\"TITLE\""));
    if (!target.startsWith(QStringLiteral("item:")) || c.word(2) != u"to")
        c.fail(QStringLiteral("cmd-drag takes item:\"TITLE\" to X"));
    const SimPlacedItem placed = itemNamed(c, target);
    const double x = number(c, c.need(3, QStringLiteral("x")), QStringLiteral("cmd-drag"));
    SimDesktop& desktop = c.session.desktop();
    // The person presses on the item with the command key held: the other applications'
    // monitors see that mouse-down, as on a Mac.
    const double y = desktop.mainScreen().menuBarHeight / 2;
    const bool commandHeld = desktop.hands().modifiers() & EventFlag::command;
    desktop.hands().holdModifiers(EventFlag::command);
    desktop.setCursor({placed.frame.x + placed.frame.width / 2, y});
    c.session.monitors().deliver(EventMonitors::LeftMouseDown);
    desktop.dragItem(placed.item.window, x);
    desktop.setCursor({x, y});
    if (!commandHeld)
        desktop.hands().releaseModifiers(EventFlag::command);
    c.session.scheduler().runDue();
}

} // namespace

void registerDesktopCommands(ScriptRunner& runner)
{
    runner.addCommand(QStringLiteral("screen"), Phase::Any, screenCommand);
    runner.addCommand(QStringLiteral("system"), Phase::BeforeStart, systemCommand);
    runner.addCommand(QStringLiteral("wake"), Phase::AfterStart, wakeCommand);
    runner.addCommand(QStringLiteral("appearance"), Phase::Any, appearanceCommand);
    runner.addCommand(QStringLiteral("positions"), Phase::Any, positionsCommand);
    runner.addCommand(QStringLiteral("app"), Phase::BeforeStart, appCommand);
    runner.addCommand(QStringLiteral("item"), Phase::BeforeStart, itemCommand);
    runner.addCommand(QStringLiteral("extras"), Phase::BeforeStart, extrasCommand);
    runner.addCommand(QStringLiteral("permission"), Phase::Any, permissionCommand);
    runner.addCommand(QStringLiteral("allow"), Phase::Any, allowCommand);
    runner.addCommand(QStringLiteral("launch"), Phase::AfterStart,
                      [](CommandContext& c) { lifecycleCommand(c, true); });
    runner.addCommand(QStringLiteral("terminate"), Phase::AfterStart,
                      [](CommandContext& c) { lifecycleCommand(c, false); });
    runner.addCommand(QStringLiteral("click"), Phase::AfterStart, clickCommand);
    runner.addCommand(QStringLiteral("cmd-drag"), Phase::AfterStart, commandDragCommand);
}

} // namespace ravlin::sandbox
