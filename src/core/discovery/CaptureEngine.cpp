#include "CaptureEngine.h"

#include "ItemCapture.h"
#include "ItemTitles.h"
#include "MenuBarReader.h"
#include "MenuBarScanner.h"
#include "MenuBarSystem.h"
#include "core/bar/MoveEngine.h"
#include "core/tiles/BarItemFactory.h"
#include "foundation/DiagnosticLogs.h"
#include "foundation/Scheduler.h"
#include "foundation/SelfTestText.h"
#include "platform/WindowServer.h"

#include <QSet>

#include <algorithm>

namespace ravlin {

namespace {

// Used when the main item has no window to measure from.
constexpr double fallbackReferenceX = 1200.0;
constexpr double stageOffset = 40.0;
constexpr double fallbackMenuBarY = 12.0;

std::vector<std::int64_t> windowNumbers(const std::vector<CaptureEngine::Raw>& raws)
{
    std::vector<std::int64_t> ids;
    for (const CaptureEngine::Raw& r : raws)
        ids.push_back(r.id);
    return ids;
}

} // namespace

CaptureEngine::CaptureEngine(const MenuBarReader& reader, const ItemCapture& capture,
                             MoveEngine& mover, BarItemFactory& factory, Scheduler& scheduler,
                             const DiagnosticLogs& logs)
    : m_reader(reader), m_capture(capture), m_mover(mover), m_factory(factory),
      m_scheduler(scheduler), m_logs(logs)
{}

std::vector<CaptureEngine::Raw> CaptureEngine::scanAll() const
{
    const auto windows = m_reader.statusWindows(WindowListOption::AllWindows);
    std::vector<Raw> raws;
    for (const StatusWindow& w : windows.value_or(std::vector<StatusWindow>{})) {
        if (!w.pid || !w.bounds)
            continue;
        // A status item is never taller than 40 points; zero-sized windows are placeholders.
        const WindowServerRect& b = *w.bounds;
        if (b.height <= 0 || b.height > MenuBarScanner::maxItemHeight || b.width <= 0 || w.isOwn())
            continue;
        raws.push_back({w.number, *w.pid, b.x, b.y, b.width, b.height, w.owner, w.name});
    }
    std::stable_sort(raws.begin(), raws.end(),
                     [](const Raw& a, const Raw& b) { return a.x < b.x; });
    return raws;
}

std::optional<CaptureEngine::Raw> CaptureEngine::current(std::uint32_t id) const
{
    for (const Raw& r : scanAll()) {
        if (r.id == id)
            return r;
    }
    return std::nullopt;
}

std::vector<BarItem> CaptureEngine::captureAll(double stageX, double menuBarY, double thresholdX)
{
    Q_UNUSED(thresholdX); // callers pass the hidden separator's x; only the self-test reports it
    std::vector<BarItem> result;
    QSet<QString> seen;
    auto add = [&](std::optional<BarItem> item) {
        if (!item || seen.contains(item->key))
            return;
        seen.insert(item->key);
        result.push_back(std::move(*item));
    };
    const bool canMove = !m_system || m_system->techniques().canMoveItems();
    for (const Raw& raw : scanAll()) {
        if (raw.name == ItemTitles::clock || raw.name == ItemTitles::controlCentre)
            continue;
        if (!canMove || m_capture.image(raw.id) || raw.name != ItemTitles::generic)
            add(m_factory.makeItem(raw.info()));
        else
            add(captureOffScreen(raw, stageX, menuBarY));
    }
    return result;
}

// An "Item-0" without an image lies off screen, pushed out by a separator. It is
// brought onto the stage, identified there, and put back where it was.
std::optional<BarItem> CaptureEngine::captureOffScreen(const Raw& raw, double stageX,
                                                       double menuBarY)
{
    if (!m_mover.move(raw.id, raw.pid, stageX, menuBarY))
        return std::nullopt; // the user is at work with the pointer: not captured this time
    m_scheduler.sleepBlocking(settleOnScreenSeconds);
    std::optional<BarItem> item;
    if (const std::optional<Raw> fresh = current(raw.id))
        item = m_factory.makeItem(fresh->info());
    // Left on the stage it would stand in view: it goes back as soon as the hands rest.
    m_mover.guard().waitUntilFree(putBackPatience);
    m_mover.move(raw.id, raw.pid, raw.x, menuBarY);
    m_scheduler.sleepBlocking(settleBackSeconds);
    return item;
}

CaptureEngine::Stage CaptureEngine::stageLeftOf(std::optional<double> mainItemLeftX) const
{
    const double reference = mainItemLeftX.value_or(fallbackReferenceX);
    double menuBarY = fallbackMenuBarY;
    for (const Raw& r : scanAll()) {
        if (r.x >= 0) {
            menuBarY = r.info().centerY();
            break;
        }
    }
    return {reference - stageOffset, menuBarY, reference};
}

QString CaptureEngine::runSelfTest(double stageX, double menuBarY, double thresholdX)
{
    using namespace SelfTestText;
    QString report =
        QStringLiteral("CaptureEngine self-test @ ") + date(m_scheduler.currentDate()) + u'\n';
    const std::vector<Raw> before = scanAll();
    report += QStringLiteral("  vorher: %1 Items, Reihenfolge-IDs: %2\n")
                  .arg(before.size())
                  .arg(numberList(windowNumbers(before)));

    const std::vector<BarItem> items = captureAll(stageX, menuBarY, thresholdX);
    m_scheduler.sleepBlocking(0.3);
    const std::vector<Raw> after = scanAll();

    QStringList labels;
    for (const BarItem& item : items)
        labels.append(item.label.isEmpty() ? item.info.owner : item.label);
    report +=
        QStringLiteral("  → %1 Items captured: %2\n").arg(items.size()).arg(quotedList(labels));
    report += QStringLiteral("  nachher: %1 Items, Reihenfolge-IDs: %2\n")
                  .arg(after.size())
                  .arg(numberList(windowNumbers(after)));
    report += windowNumbers(before) == windowNumbers(after)
                  ? QStringLiteral("  ✅ Reihenfolge erhalten\n")
                  : QStringLiteral("  ⚠️ Reihenfolge verändert!\n");
    m_logs.write(DiagnosticLogs::captureLog, report);
    return report;
}

} // namespace ravlin
