#include "MoveEngine.h"

#include "core/discovery/ItemTitles.h"
#include "core/discovery/MenuBarReader.h"
#include "core/discovery/MenuBarScanner.h"
#include "core/discovery/PermissionManager.h"
#include "foundation/DiagnosticLogs.h"
#include "foundation/Logging.h"
#include "foundation/Scheduler.h"
#include "foundation/SelfTestText.h"
#include "platform/Events.h"
#include "platform/WindowServer.h"

#include <algorithm>
#include <cmath>

namespace ravlin {

MoveEngine::MoveEngine(Events& events, const MenuBarReader& reader, Scheduler& scheduler,
                       const PermissionManager& permissions, const DiagnosticLogs& logs)
    : m_events(events), m_reader(reader), m_scheduler(scheduler), m_permissions(permissions),
      m_logs(logs), m_guard(events, scheduler)
{}

// The three window fields make the window server deliver the event to the item's
// window whatever its position says.
MouseEvent MoveEngine::routed(MouseEventType type, WindowServerPoint point, std::uint64_t flags,
                              std::uint32_t window, std::int32_t pid)
{
    MouseEvent event;
    event.type = type;
    event.location = point;
    event.button = MouseButton::Left;
    event.flags = flags;
    event.integerFields = {
        {EventField::targetProcessID, pid},
        {EventField::windowUnderMousePointer, window},
        {EventField::windowUnderMousePointerThatCanHandleThisEvent, window},
        {EventField::windowNumber, window},
    };
    return event;
}

bool MoveEngine::move(std::uint32_t windowID, std::int32_t pid, double toX, double menuBarY)
{
    const EventSource source = m_events.createCombinedSessionSource();
    if (!source) {
        qCWarning(lcBar) << "no event source; window" << windowID << "not moved";
        return false;
    }
    if (const std::optional<QString> busy = m_guard.busy()) {
        qCInfo(lcBar).noquote() << "window" << windowID << "is not moved now:" << *busy;
        return false;
    }
    const std::optional<WindowServerPoint> cursor = m_events.cursorPosition();
    if (!cursor) {
        qCWarning(lcBar) << "where the pointer stands cannot be read, so it could not be put back;"
                         << "window" << windowID << "not moved";
        return false;
    }
    // Press far outside every display: only the routing fields tie it to the item.
    if (!m_events.post(
            source,
            routed(MouseEventType::LeftMouseDown, parkingSpot, EventFlag::command, windowID, pid),
            EventTap::Session))
        qCWarning(lcBar) << "the command-mouse-down for window" << windowID << "could not be made";
    m_scheduler.sleepBlocking(pressSeconds);
    if (!m_events.post(source,
                       routed(MouseEventType::LeftMouseUp, {toX, menuBarY}, 0, windowID, pid),
                       EventTap::Session))
        qCWarning(lcBar) << "the mouse-up for window" << windowID << "could not be made";
    m_events.warpCursor(*cursor);
    return true;
}

std::vector<MoveEngine::Probe> MoveEngine::statusItems() const
{
    const auto windows = m_reader.statusWindows(WindowListOption::OnScreenOnly);
    std::vector<Probe> probes;
    for (const StatusWindow& w : windows.value_or(std::vector<StatusWindow>{})) {
        if (!w.bounds || w.bounds->height > MenuBarScanner::maxItemHeight || w.isOwn())
            continue;
        const WindowServerPoint centre = w.bounds->center();
        probes.push_back({w.number, w.pid.value_or(0), centre.x, centre.y, w.name});
    }
    return probes;
}

std::optional<MoveEngine::Probe> MoveEngine::find(std::uint32_t id) const
{
    for (const Probe& p : statusItems()) {
        if (p.id == id)
            return p;
    }
    return std::nullopt;
}

QString MoveEngine::runSelfTest()
{
    using SelfTestText::wholeNumber;
    QString report =
        QStringLiteral("MoveEngine self-test @ ") + SelfTestText::date(m_scheduler.currentDate()) +
        QStringLiteral("\n  AXIsProcessTrusted=") +
        (m_permissions.hasAccessibility() ? QStringLiteral("true") : QStringLiteral("false")) +
        u'\n';

    static const QStringList systemTitles{
        QStringLiteral("Clock"),         QStringLiteral("BentoBox-0"), QStringLiteral("Battery"),
        QStringLiteral("Bluetooth"),     QStringLiteral("WiFi"),       QStringLiteral("NowPlaying"),
        QStringLiteral("Control Center")};
    std::optional<Probe> target;
    for (const Probe& p : statusItems()) {
        // The second test cannot fail for "Item-0"; it stays as a guard should the title change.
        if (p.name != ItemTitles::generic || systemTitles.contains(p.name))
            continue;
        if (!target || p.x > target->x)
            target = p;
    }
    if (!target) {
        report += QStringLiteral("  no movable Item-0 found\n");
        m_logs.write(DiagnosticLogs::moveLog, report);
        return report;
    }
    report += QStringLiteral("  target id=%1 pid=%2 before x=%3 y=%4\n")
                  .arg(target->id)
                  .arg(target->pid)
                  .arg(wholeNumber(target->x), wholeNumber(target->y));

    move(target->id, target->pid, target->x - 55, target->y);
    m_scheduler.sleepBlocking(0.45);
    const std::optional<Probe> after = find(target->id);
    report += QStringLiteral("  after x=") +
              (after ? wholeNumber(after->x) : QStringLiteral("nil")) + QStringLiteral("  Δ=") +
              (after ? wholeNumber(after->x - target->x) : QStringLiteral("?")) + u'\n';

    const bool moved = after && std::fabs(after->x - target->x) > 8.0;
    if (!moved) {
        report += QStringLiteral("  ❌ nicht bewegt\n");
        m_logs.write(DiagnosticLogs::moveLog, report);
        return report;
    }
    report += QStringLiteral("  ✅ Item verschoben — Technik funktioniert auf diesem macOS!\n");
    move(target->id, target->pid, target->x, target->y);
    m_scheduler.sleepBlocking(0.3);
    const std::optional<Probe> back = find(target->id);
    report += QStringLiteral("  zurückgeschoben → x=") +
              (back ? wholeNumber(back->x) : QStringLiteral("nil")) + u'\n';
    m_logs.write(DiagnosticLogs::moveLog, report);
    return report;
}

} // namespace ravlin
