#include "ChangeSpotlight.h"

#include "core/bar/StatusBarController.h"
#include "foundation/Logging.h"
#include "foundation/Scheduler.h"

#include <algorithm>

namespace ravlin {
namespace {

// The record of what happened is for the sandbox and the log; it need not grow without end.
constexpr std::size_t maxEvents = 200;

} // namespace

ChangeSpotlight::ChangeSpotlight(Scheduler& scheduler, StatusBarController& bar,
                                 std::function<QString()> sectionTitle)
    : m_scheduler(scheduler), m_bar(bar), m_sectionTitle(std::move(sectionTitle))
{}

bool ChangeSpotlight::mayShow(const QString& key) const
{
    const std::deque<double> shows = m_shows.value(key);
    const double now = m_scheduler.now();
    if (!shows.empty() && now - shows.back() < pause)
        return false;
    const auto recent = std::count_if(shows.begin(), shows.end(),
                                      [&](double at) { return now - at < spell; });
    return recent < showsPerSpell;
}

void ChangeSpotlight::changed(const QString& key)
{
    if (m_bar.inSight(key)) {
        note(key, QStringLiteral("inSight"));
        return;
    }
    if (!mayShow(key)) {
        // Shown often lately: it waits in the panel instead of coming up again.
        m_marked.insert(key);
        note(key, QStringLiteral("pause"));
        return;
    }
    std::deque<double>& shows = m_shows[key];
    shows.push_back(m_scheduler.now());
    while (shows.size() > std::size_t(showsPerSpell))
        shows.pop_front();
    std::weak_ptr<bool> alive = m_alive;
    m_bar.showForAMoment(key, showSeconds, [this, alive, key](bool shown) {
        if (auto a = alive.lock(); !a || !*a)
            return;
        if (shown) {
            m_marked.remove(key);
            note(key, QStringLiteral("bar"));
            return;
        }
        qCInfo(lcBar).noquote() << key << "changed where it cannot be shown; the panel marks it";
        m_marked.insert(key);
        note(key, QStringLiteral("panel"));
    });
}

void ChangeSpotlight::note(const QString& key, const QString& how)
{
    m_events.push_back({key, m_scheduler.now(), how});
    if (m_events.size() > maxEvents)
        m_events.erase(m_events.begin());
}

std::vector<BarGroup> ChangeSpotlight::arrange(std::vector<BarGroup> groups)
{
    m_presented.clear();
    if (m_marked.isEmpty())
        return groups;
    BarGroup changed;
    changed.title = m_sectionTitle ? m_sectionTitle() : QString();
    for (BarGroup& group : groups) {
        auto moved = std::stable_partition(group.items.begin(), group.items.end(),
                                           [&](const BarItem& i) { return !m_marked.contains(i.key); });
        for (auto it = moved; it != group.items.end(); ++it) {
            it->changed = true;
            m_presented.insert(it->key);
            changed.items.push_back(std::move(*it));
        }
        group.items.erase(moved, group.items.end());
    }
    // A marked item the panel does not offer is in sight by now: its mark has done its work.
    m_marked = m_presented;
    if (changed.items.empty())
        return groups;
    std::erase_if(groups, [](const BarGroup& g) { return g.items.empty(); });
    groups.insert(groups.begin(), std::move(changed));
    return groups;
}

void ChangeSpotlight::seen()
{
    for (const QString& key : std::as_const(m_presented))
        m_marked.remove(key);
    m_presented.clear();
}

QStringList ChangeSpotlight::marked() const
{
    QStringList keys(m_marked.begin(), m_marked.end());
    keys.sort();
    return keys;
}

} // namespace ravlin
