// The dump sections of menu-bar discovery: the bar, what was posted and
// activated, the scanner's lists, the tile order and the self-test logs.

#include "SandboxCommands.h"
#include "ItemSight.h"
#include "SandboxSession.h"
#include "ScriptRunner.h"

#include "core/app/AppDelegate.h"
#include "core/app/MenuBarServices.h"
#include "core/bar/StatusBarController.h"
#include "core/discovery/MenuBarSystem.h"
#include "core/discovery/ScannerModel.h"
#include "core/settings/PrefKey.h"
#include "core/tiles/TileModel.h"
#include "foundation/DefaultsStore.h"
#include "foundation/DiagnosticLogs.h"
#include "foundation/PlistJson.h"
#include "platform/sim/SimDesktop.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonObject>

namespace ravlin::sandbox {
namespace {

QJsonValue barSection(SandboxSession& s, bool)
{
    QJsonArray bar;
    const ItemSights sights = itemSights(s);
    for (const SimPlacedItem& p : s.desktop().bar()) {
        const std::optional<ItemSight> sight =
            sights.contains({p.pid, p.item.title}) ? std::optional(sights.value({p.pid, p.item.title}))
                                                   : std::nullopt;
        bar.append(QJsonObject{
            {QStringLiteral("key"), sight && !sight->key.isEmpty() ? QJsonValue(sight->key)
                                                                   : QJsonValue()},
            {QStringLiteral("hiddenBy"), sight && sight->hiddenBy
                                             ? QJsonValue(hiddenByName(*sight->hiddenBy))
                                             : QJsonValue()},
            {QStringLiteral("window"), qint64(p.item.window)},
            {QStringLiteral("pid"), p.pid},
            {QStringLiteral("bundle"), p.item.bundleId},
            {QStringLiteral("owner"), p.item.owner},
            {QStringLiteral("title"), p.item.title},
            {QStringLiteral("x"), p.frame.x},
            {QStringLiteral("y"), p.frame.y},
            {QStringLiteral("width"), p.frame.width},
            {QStringLiteral("height"), p.frame.height},
            {QStringLiteral("onScreen"), p.onScreen},
            {QStringLiteral("inOverflow"), p.inOverflow},
            {QStringLiteral("behindNotch"), p.behindNotch},
        });
    }
    return bar;
}

// What the application found out about the menu bar and the techniques it chose.
QJsonValue systemSection(SandboxSession& s, bool)
{
    QJsonObject section{{QStringLiteral("generation"), s.desktop().generation()}};
    if (!s.hasApp() || !s.app().statusBar())
        return section;
    const MenuBarSystem& system = s.app().menuBar().system();
    const MenuBarCapabilities& c = system.capabilities();
    const MenuBarTechniques& t = system.techniques();
    section.insert(QStringLiteral("capabilities"),
                   QJsonObject{{QStringLiteral("itemWindows"), c.itemWindows},
                               {QStringLiteral("windowOwnersAreReal"), c.windowOwnersAreReal},
                               {QStringLiteral("longestItem"),
                                c.longestItem ? QJsonValue(*c.longestItem) : QJsonValue()},
                               {QStringLiteral("overflowMenu"), c.hasOverflowMenu()}});
    section.insert(
        QStringLiteral("techniques"),
        QJsonObject{{QStringLiteral("discovery"), MenuBarTechniques::name(t.discovery)},
                    {QStringLiteral("hiding"), MenuBarTechniques::name(t.hiding)},
                    {QStringLiteral("activation"), MenuBarTechniques::name(t.activation)},
                    {QStringLiteral("pictures"), MenuBarTechniques::name(t.pictures)}});
    section.insert(QStringLiteral("findings"), QJsonArray::fromStringList(c.findings));
    const StatusBarController& bar = *s.app().statusBar();
    section.insert(QStringLiteral("collapseHolds"), bar.collapseHolds());
    section.insert(QStringLiteral("separators"), bar.hiding().separatorCount());
    return section;
}

QJsonValue eventJson(const SimPostedEvent& posted)
{
    const MouseEvent& e = posted.event;
    const bool mouse = posted.kind == SimPostedEvent::Kind::Mouse;
    QJsonObject fields;
    for (const auto& [field, value] : e.integerFields)
        fields.insert(QString::number(field), qint64(value));
    return QJsonObject{
        {QStringLiteral("kind"), mouse ? QStringLiteral("mouse") : QStringLiteral("warp")},
        {QStringLiteral("type"), mouse ? QJsonValue(int(e.type)) : QJsonValue()},
        {QStringLiteral("x"), e.location.x},
        {QStringLiteral("y"), e.location.y},
        {QStringLiteral("flags"), mouse ? QJsonValue(qint64(e.flags)) : QJsonValue()},
        {QStringLiteral("tap"), !mouse ? QJsonValue()
                                : posted.tap == EventTap::HID
                                    ? QJsonValue(QStringLiteral("hid"))
                                    : QJsonValue(QStringLiteral("session"))},
        {QStringLiteral("fields"), fields},
    };
}

QJsonValue eventsSection(SandboxSession& s, bool consume)
{
    QJsonArray events;
    const std::vector<SimPostedEvent> posted =
        consume ? s.desktop().takeEvents() : s.desktop().events();
    for (const SimPostedEvent& e : posted)
        events.append(eventJson(e));
    return events;
}

QJsonValue activationsSection(SandboxSession& s, bool consume)
{
    QJsonArray activations;
    const std::vector<SimActivation> seen =
        consume ? s.desktop().takeActivations() : s.desktop().activations();
    for (const SimActivation& a : seen) {
        activations.append(QJsonObject{{QStringLiteral("bundle"), a.bundle},
                                       {QStringLiteral("title"), a.title},
                                       {QStringLiteral("how"), a.how}});
    }
    return activations;
}

QJsonValue openedSection(SandboxSession& s, bool consume)
{
    return QJsonArray::fromStringList(consume ? s.desktop().takeOpened() : s.desktop().opened());
}

QJsonValue scannerSection(SandboxSession& s, bool)
{
    const ScannerModel& model = s.app().scannerModel();
    QJsonArray items, detected, apps;
    for (const MenuBarItemInfo& info : model.items())
        items.append(info.name);
    for (const BarItem& item : model.detected())
        detected.append(item.key);
    for (const MenuBarApps::Entry& entry : model.menuBarApps())
        apps.append(QJsonObject{{QStringLiteral("bundleID"), entry.bundleID},
                                {QStringLiteral("name"), entry.name}});
    return QJsonObject{{QStringLiteral("items"), items},
                       {QStringLiteral("detected"), detected},
                       {QStringLiteral("menuBarApps"), apps}};
}

QJsonValue tilesSection(SandboxSession& s, bool)
{
    const TileModel& tiles = s.app().tileModel();
    const PlistValue cache = s.defaults().persistentValue(PrefKey::labelCache);
    return QJsonObject{
        {QStringLiteral("order"), QJsonArray::fromStringList(tiles.order())},
        {QStringLiteral("rev"), qint64(tiles.rev())},
        {QStringLiteral("labelCache"),
         cache.isNull() ? QJsonValue(QJsonObject()) : PlistJson::toJson(cache)},
    };
}

QJsonValue logsSection(SandboxSession& s, bool)
{
    const DiagnosticLogs& logs = s.app().diagnosticLogs();
    QJsonObject texts;
    for (const QString& name :
         {DiagnosticLogs::captureLog, DiagnosticLogs::moveLog, DiagnosticLogs::hideLog}) {
        QFile file(logs.path(name));
        if (file.open(QIODevice::ReadOnly))
            texts.insert(name, QString::fromUtf8(file.readAll()));
    }
    return texts;
}

} // namespace

void registerDiscoverySections(ScriptRunner& runner)
{
    runner.addSection(QStringLiteral("bar"), barSection);
    runner.addSection(QStringLiteral("system"), systemSection);
    runner.addSection(QStringLiteral("events"), eventsSection);
    runner.addSection(QStringLiteral("activations"), activationsSection);
    runner.addSection(QStringLiteral("opened"), openedSection);
    runner.addSection(QStringLiteral("scanner"), scannerSection);
    runner.addSection(QStringLiteral("tiles"), tilesSection);
    runner.addSection(QStringLiteral("logs"), logsSection);
}

} // namespace ravlin::sandbox
