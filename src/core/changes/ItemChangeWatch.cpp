#include "ItemChangeWatch.h"

#include "ItemLookReader.h"
#include "WatchList.h"
#include "core/discovery/ScannerModel.h"
#include "foundation/Logging.h"
#include "platform/Workspace.h"

#include <QSet>

#include <algorithm>
#include <limits>
#include <tuple>

namespace ravlin {

ItemChangeWatch::ItemChangeWatch(Services services, std::function<void(const QString&)> changed)
    : m_s(services), m_changed(std::move(changed))
{
    connect(&m_s.list, &WatchList::changed, this, &ItemChangeWatch::refresh);
    // The scanner announces before its lists change: look once the change is done. An
    // application that quits takes its items with it at once.
    connect(&m_s.scanner, &ScannerModel::willChange, this, &ItemChangeWatch::refreshSoon);
    std::weak_ptr<bool> alive = m_alive;
    auto soon = [this, alive](const RunningApplication&) {
        if (auto a = alive.lock(); a && *a)
            refreshSoon();
    };
    m_launchToken = m_s.workspace.addObserver(WorkspaceNotification::DidLaunchApplication, soon);
    m_terminateToken =
        m_s.workspace.addObserver(WorkspaceNotification::DidTerminateApplication, soon);
}

void ItemChangeWatch::refreshSoon()
{
    if (m_refreshPending)
        return;
    m_refreshPending = true;
    std::weak_ptr<bool> alive = m_alive;
    m_s.scheduler.async([this, alive] {
        if (auto a = alive.lock(); !a || !*a)
            return;
        m_refreshPending = false;
        refresh();
    });
}

ItemChangeWatch::~ItemChangeWatch()
{
    *m_alive = false;
    m_timer.invalidate();
}

void ItemChangeWatch::refresh()
{
    const QSet<QString> wanted = m_s.list.keys();
    QSet<std::int32_t> running;
    for (const RunningApplication& app : m_s.workspace.runningApplications())
        running.insert(app.pid);
    QSet<QString> present;
    for (const BarItem& item : m_s.scanner.detected())
        if (wanted.contains(item.key) && (item.pid <= 0 || running.contains(item.pid)))
            present.insert(item.key);
    for (const QString& key : m_watched.keys())
        if (!present.contains(key)) {
            m_watched.remove(key);
            m_s.reader.forget(key);
        }
    const double now = m_s.scheduler.now();
    for (const QString& key : present)
        if (!m_watched.contains(key))
            m_watched.insert(key, Watched{std::nullopt, now + lookInterval});
    arm();
}

std::optional<double> ItemChangeWatch::nextRoundIn() const
{
    if (!m_timer.isValid())
        return std::nullopt;
    return m_timerDue - m_s.scheduler.now();
}

void ItemChangeWatch::arm()
{
    if (m_watched.isEmpty()) {
        m_timer.invalidate();
        m_timer = Timer();
        return;
    }
    double due = std::numeric_limits<double>::infinity();
    for (const Watched& w : std::as_const(m_watched))
        due = std::min(due, w.due);
    if (m_timer.isValid() && m_timerDue <= due)
        return;
    m_timer.invalidate();
    m_timerDue = std::max(due, m_s.scheduler.now());
    std::weak_ptr<bool> alive = m_alive;
    m_timer = m_s.scheduler.after(m_timerDue - m_s.scheduler.now(), [this, alive] {
        if (auto a = alive.lock(); a && *a)
            round();
    });
}

void ItemChangeWatch::round()
{
    m_timer = Timer();
    const double now = m_s.scheduler.now();
    // Due items in the order they were due; of those due at once, the one looked at longest
    // ago first, so that items left over from a full round come first in the next.
    std::vector<std::tuple<double, double, QString>> due;
    for (auto it = m_watched.cbegin(); it != m_watched.cend(); ++it)
        if (it->due <= now + 1e-9)
            due.emplace_back(it->due, it->lastLook, it.key());
    std::sort(due.begin(), due.end());
    if (due.size() > std::size_t(looksPerRound))
        due.resize(looksPerRound); // the rest are due still, and come first next round
    if (!due.empty())
        m_s.reader.beginRound();
    for (const auto& [when, last, key] : due)
        lookAt(key, m_watched[key]);
    // Those left over this round wait for the next, a look interval later.
    for (Watched& w : m_watched)
        w.due = std::max(w.due, now + (w.due <= now ? lookInterval : 0.0));
    arm();
}

void ItemChangeWatch::lookAt(const QString& key, Watched& w)
{
    const double now = m_s.scheduler.now();
    auto item = std::find_if(m_s.scanner.detected().begin(), m_s.scanner.detected().end(),
                             [&](const BarItem& i) { return i.key == key; });
    if (item == m_s.scanner.detected().end()) {
        w.due = now + lookInterval;
        return;
    }
    ++m_looks;
    ++w.looks;
    w.lastLook = now;
    const ItemLook look = m_s.reader.look(*item);
    const bool changed = w.last && w.last->changedIn(look);
    if (!look.isEmpty())
        w.last = look;
    if (changed) {
        ++w.changes;
        ++w.changesInARow;
        w.quietInARow = 0;
        if (w.changesInARow >= busyAfter && !w.busy) {
            w.busy = true;
            qCInfo(lcBar).noquote() << key << "changes all the time; looked at less often";
        }
        w.interval = w.busy ? std::min(w.interval * 2, longestInterval) : lookInterval;
    } else {
        w.changesInARow = 0;
        ++w.quietInARow;
        if (w.busy && w.quietInARow >= busyAfter)
            w.busy = false;
        // Quiet again: looked at more often step by step, as often as ever once it is calm.
        w.interval = w.busy ? std::max(w.interval / 2, lookInterval) : lookInterval;
    }
    w.due = now + w.interval;
    if (changed && !w.busy && m_changed)
        m_changed(key);
}

} // namespace ravlin
