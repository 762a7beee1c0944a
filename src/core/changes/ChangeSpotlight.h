#pragma once

#include "core/tiles/BarGroup.h"

#include <QHash>
#include <QSet>
#include <QString>

#include <deque>
#include <functional>
#include <vector>

namespace ravlin {

class Scheduler;
class StatusBarController;

// What Ravlin does when a watched item changes while the user cannot see it: shows it in the
// bar for a few seconds where the hiding technique can bring it into sight, or else puts it at
// the top of the panel, marked, until the user has looked. An item is shown at most once a
// minute and three times in ten minutes; an item that changes more often is marked instead.
class ChangeSpotlight {
public:
    static constexpr double showSeconds = 5.0;
    static constexpr double pause = 60.0;
    static constexpr int showsPerSpell = 3;
    static constexpr double spell = 600.0;

    struct Event {
        QString key;
        double at = 0;
        QString how; // "bar", "panel", "inSight" (nothing to do), "pause" (too soon again)
    };

    ChangeSpotlight(Scheduler& scheduler, StatusBarController& bar,
                    std::function<QString()> sectionTitle);

    void changed(const QString& key);
    // The panel's sections with the marked items taken out into one section in front.
    std::vector<BarGroup> arrange(std::vector<BarGroup> groups);
    // The panel closed: what it showed marked has been seen.
    void seen();

    QStringList marked() const;
    const std::vector<Event>& events() const { return m_events; }

private:
    bool mayShow(const QString& key) const;
    void note(const QString& key, const QString& how);

    Scheduler& m_scheduler;
    StatusBarController& m_bar;
    std::function<QString()> m_sectionTitle;
    QSet<QString> m_marked;
    QSet<QString> m_presented; // marked items the open panel shows
    QHash<QString, std::deque<double>> m_shows;
    std::vector<Event> m_events;
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};

} // namespace ravlin
