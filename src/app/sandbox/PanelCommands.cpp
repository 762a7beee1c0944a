// Sandbox commands and the dump section of the tile panel: tile click, tile drag,
// panel resign, screenshot; the section panel.
#include "SandboxCommands.h"
#include "SandboxSession.h"
#include "ScriptRunner.h"

#include "DesktopScene.h"
#include "core/app/AppDelegate.h"
#include "core/bar/StatusBarController.h"
#include "platform/WindowServer.h"
#include "platform/sim/SimDesktop.h"
#include "platform/sim/SimStatusBar.h"
#include "ui/DesktopRenderer.h"
#include "ui/RavlinBar.h"
#include "ui/RavlinBarAccessible.h"
#include "ui/welcome/WelcomeView.h"
#include "ui/welcome/WelcomeWindowController.h"
#include "ui/RavlinBarView.h"

#include <QAccessible>
#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>

namespace ravlin::sandbox {
namespace {

using Phase = ScriptRunner::Phase;

RavlinBarView& openPanel(CommandContext& c)
{
    RavlinBar* bar = c.session.tilePanel();
    if (!bar || !bar->isVisible() || !bar->view())
        c.fail(QStringLiteral("the tile panel is not open"));
    return *bar->view();
}

void tileCommand(CommandContext& c)
{
    const QString what = c.need(1, QStringLiteral("click or drag"));
    RavlinBarView& view = openPanel(c);
    if (what == u"click") {
        const QString key = c.need(2, QStringLiteral("the tile's key"));
        if (key == RavlinBarView::settingsKey || key == RavlinBarView::footnoteKey) {
            if (key == RavlinBarView::footnoteKey && view.footnote().isEmpty())
                c.fail(QStringLiteral("the open panel has no note under its tiles"));
            if (key == RavlinBarView::settingsKey && !view.isTileVisible(key))
                c.fail(QStringLiteral("the settings button is out of sight"));
            view.clickTile(key);
            c.session.scheduler().runDue();
            return;
        }
        if (!view.tile(key))
            c.fail(QStringLiteral("the open panel has no tile %1").arg(key));
        // A person can only click what is in sight.
        if (!view.isTileVisible(key))
            c.fail(QStringLiteral("the tile %1 is scrolled out of sight").arg(key));
        view.clickTile(key);
    } else if (what == u"drag") {
        const QString dragged = c.need(2, QStringLiteral("the dragged tile's key"));
        if (c.word(3) != u"onto")
            c.fail(QStringLiteral("tile drag takes KEY onto KEY"));
        const QString onto = c.need(4, QStringLiteral("the key of the tile dropped on"));
        for (const QString& key : {dragged, onto})
            if (!view.tile(key))
                c.fail(QStringLiteral("the open panel has no tile %1").arg(key));
        if (!view.dropTile(dragged, onto))
            c.fail(QStringLiteral("only item tiles can be dragged onto item tiles"));
    } else {
        c.fail(QStringLiteral("tile takes click or drag, not %1").arg(what));
    }
    c.session.scheduler().runDue();
}

void panelCommand(CommandContext& c)
{
    if (c.word(1) == u"scroll" && c.wordCount() == 3) {
        bool ok = false;
        const double delta = c.word(2).toDouble(&ok);
        if (!ok)
            c.fail(QStringLiteral("panel scroll takes a number of points, not %1").arg(c.word(2)));
        openPanel(c).scrollBy(delta);
    } else if (c.word(1) == u"press" && c.wordCount() == 3) {
        // A screen reader's press action on the entry of that tile.
        RavlinBarView& view = openPanel(c);
        QAccessibleInterface* list = QAccessible::queryAccessibleInterface(&view);
        const qsizetype index = RavlinBarAccessible::entryKeys(view).indexOf(c.word(2));
        QAccessibleInterface* entry = list && index >= 0 ? list->child(int(index)) : nullptr;
        if (!entry || !entry->actionInterface())
            c.fail(QStringLiteral("the open panel lists no tile %1").arg(c.word(2)));
        entry->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    } else if (c.word(1) == u"resign" && c.wordCount() == 2) {
        if (RavlinBar* bar = c.session.tilePanel())
            bar->resignKey();
    } else {
        c.fail(QStringLiteral("panel knows: panel resign, panel scroll DY, panel press KEY"));
    }
    c.session.scheduler().runDue();
}

// A window with some of the desktop around it, for a closer look.
QImage aroundWindow(const QWidget& window, const QImage& desktop)
{
    const double dpr = desktop.devicePixelRatio();
    const QRectF around = QRectF(window.geometry()).adjusted(-24, -30, 24, 30);
    const QRect pixels =
        QRectF(around.topLeft() * dpr, around.size() * dpr).toRect().intersected(desktop.rect());
    QImage cropped = desktop.copy(pixels);
    cropped.setDevicePixelRatio(dpr);
    return cropped;
}

void screenshotCommand(CommandContext& c)
{
    const QString path = c.need(1, QStringLiteral("the file to write"));
    const auto options = c.options(2);
    const QString region = options.value(QStringLiteral("region"), QStringLiteral("desktop"));
    if (region != u"desktop" && region != u"panel" && region != u"welcome")
        c.fail(QStringLiteral("screenshot takes region=desktop, region=panel or region=welcome"));
    const QFileInfo file(path);
    QDir().mkpath(file.absolutePath());
    QImage image = DesktopRenderer().render(desktopScene(c.session, true));
    if (region == u"panel") {
        RavlinBar* bar = c.session.tilePanel();
        if (!bar || !bar->isVisible())
            c.fail(QStringLiteral("screenshot region=panel needs the tile panel open"));
        image = aroundWindow(*bar->window(), image);
    } else if (region == u"welcome") {
        const WelcomeWindowController& welcome = c.session.welcomeWindow();
        if (!welcome.isVisible())
            c.fail(QStringLiteral("screenshot region=welcome needs the welcome window open"));
        image = aroundWindow(*welcome.view(), image);
    }
    if (!image.save(file.absoluteFilePath(), "PNG"))
        c.fail(QStringLiteral("cannot write the screenshot to %1").arg(path));
}

QJsonValue text(const QString& s)
{
    return s.isEmpty() ? QJsonValue() : QJsonValue(s);
}

QJsonObject tileJson(const RavlinBarView& view, const PanelTile& t)
{
    const QRectF r = view.tileRect(t.key).value_or(QRectF());
    return {{QStringLiteral("kind"), tileKindName(t.kind)},
            {QStringLiteral("key"), t.key},
            {QStringLiteral("label"), t.label},
            {QStringLiteral("subtitle"), text(t.subtitle)},
            {QStringLiteral("detail"), text(t.detail)},
            {QStringLiteral("symbol"), text(t.symbol)},
            {QStringLiteral("accent"), t.accent ? QJsonValue(t.accent->name()) : QJsonValue()},
            {QStringLiteral("x"), r.x()},
            {QStringLiteral("y"), r.y()},
            {QStringLiteral("w"), r.width()},
            {QStringLiteral("h"), r.height()},
            {QStringLiteral("visible"), view.isTileVisible(t.key)},
            {QStringLiteral("new"), t.isNew},
            {QStringLiteral("changed"), t.changed},
            {QStringLiteral("placedInBar"), t.placedInBar},
            {QStringLiteral("painted"), QJsonArray::fromStringList(view.paintedTexts(t.key))}};
}

QJsonArray sectionsJson(const RavlinBarView& view)
{
    QJsonArray sections;
    for (const PanelSection& section : view.sections()) {
        QJsonArray tiles;
        for (const PanelTile& t : section.tiles)
            tiles.append(tileJson(view, t));
        sections.append(QJsonObject{
            {QStringLiteral("title"), section.title ? QJsonValue(*section.title) : QJsonValue()},
            {QStringLiteral("tiles"), tiles}});
    }
    return sections;
}

// The panel as a screen reader reads it: its role and name, and each entry's.
QJsonObject accessibleJson(const RavlinBarView& view)
{
    QAccessibleInterface* list =
        QAccessible::queryAccessibleInterface(const_cast<RavlinBarView*>(&view));
    if (!list)
        return {};
    QJsonArray entries;
    for (int i = 0; i < list->childCount(); ++i) {
        QAccessibleInterface* entry = list->child(i);
        entries.append(QJsonObject{
            {QStringLiteral("role"), entry->role() == QAccessible::Button ? QStringLiteral("button")
                                                                          : QStringLiteral("listItem")},
            {QStringLiteral("name"), entry->text(QAccessible::Name)}});
    }
    return {{QStringLiteral("role"),
             list->role() == QAccessible::List ? QStringLiteral("list") : QStringLiteral("other")},
            {QStringLiteral("name"), list->text(QAccessible::Name)},
            {QStringLiteral("entries"), entries}};
}

// The keys of the item tiles the panel shows, sorted.
QJsonArray itemKeys(const RavlinBarView& view)
{
    QStringList keys;
    for (const PanelSection& section : view.sections())
        for (const PanelTile& t : section.tiles)
            if (t.kind == TileKind::Item)
                keys.append(t.key);
    keys.sort();
    return QJsonArray::fromStringList(keys);
}

// The gear where it stands in the panel's window (not in the scrolled content), and
// whether it is in sight.
QJsonValue settingsButtonJson(const RavlinBarView& view)
{
    const std::optional<QRectF> r = view.settingsRect();
    if (!r)
        return QJsonValue();
    const QRectF inView = view.toView(*r);
    return QJsonObject{{QStringLiteral("frame"),
                        QJsonArray{inView.x(), inView.y(), inView.width(), inView.height()}},
                       {QStringLiteral("visible"), view.isTileVisible(RavlinBarView::settingsKey)}};
}

QJsonValue panelSection(SandboxSession& s, bool)
{
    RavlinBar* bar = s.tilePanel();
    const std::optional<ScreenRect> f = bar ? bar->frame() : std::nullopt;
    if (!f || !bar->view())
        return QJsonValue();
    // The screen shows a frame of the window as it is now: what each tile really draws.
    if (bar->isVisible())
        bar->window()->grab();
    const RavlinBarView& view = *bar->view();
    return QJsonObject{
        {QStringLiteral("visible"), bar->isVisible()},
        {QStringLiteral("frame"), QJsonArray{f->x, f->y, f->width, f->height}},
        {QStringLiteral("style"), tileStyleRawValue(view.style())},
        {QStringLiteral("rtl"), view.isRightToLeft()},
        {QStringLiteral("appearance"),
         view.palette().dark ? QStringLiteral("dark") : QStringLiteral("light")},
        {QStringLiteral("fades"), bar->fadeCount()},
        {QStringLiteral("footnote"), text(view.footnote())},
        {QStringLiteral("scroll"), QJsonObject{{QStringLiteral("offset"), view.scrollOffset()},
                                               {QStringLiteral("maximum"), view.maximumScroll()}}},
        {QStringLiteral("sections"), sectionsJson(view)},
        {QStringLiteral("itemKeys"), itemKeys(view)},
        {QStringLiteral("search"), text(view.query())},
        {QStringLiteral("searchPainted"),
         QJsonArray::fromStringList(view.paintedTexts(QStringLiteral("search")))},
        {QStringLiteral("emptyNote"),
         view.panelLayout().emptyNote ? QJsonValue(view.emptyText()) : QJsonValue()},
        {QStringLiteral("focus"),
         view.focusedKey() ? QJsonValue(*view.focusedKey()) : QJsonValue()},
        {QStringLiteral("settingsButton"), settingsButtonJson(view)},
        {QStringLiteral("keyFocus"), bar->isVisible() && bar->window()->focusWidget() == &view},
        {QStringLiteral("accessible"), accessibleJson(view)}};
}

} // namespace

void registerPanelCommands(ScriptRunner& runner)
{
    runner.addCommand(QStringLiteral("tile"), Phase::AfterStart, tileCommand);
    runner.addCommand(QStringLiteral("panel"), Phase::AfterStart, panelCommand);
    runner.addCommand(QStringLiteral("screenshot"), Phase::Any, screenshotCommand);
    runner.addSection(QStringLiteral("panel"), panelSection);
}

} // namespace ravlin::sandbox
