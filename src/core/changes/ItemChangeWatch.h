#pragma once

#include "ItemLook.h"
#include "foundation/Scheduler.h"

#include <QHash>
#include <QObject>

#include <functional>
#include <memory>
#include <optional>

namespace ravlin {

class ItemLookReader;
class ScannerModel;
class WatchList;
class Workspace;

// Looks at the items the user wants to see when they change, at a bounded rate, and tells of
// each change. One timer, armed only while such an item is in the bar: with none, nothing runs.
// An item is looked at every two seconds at most, at most four in one round; one that changes at
// every look is busy (a clock with seconds, a graph) and is looked at ever more rarely, down to
// once a minute, and its changes are not told until it has been quiet for three looks.
class ItemChangeWatch : public QObject {
    Q_OBJECT
public:
    static constexpr double lookInterval = 2.0;
    static constexpr double longestInterval = 60.0;
    static constexpr int looksPerRound = 4;
    static constexpr int busyAfter = 3; // changes in a row; as many quiet looks end it

    struct Services {
        Scheduler& scheduler;
        const ScannerModel& scanner;
        Workspace& workspace;
        ItemLookReader& reader;
        const WatchList& list;
    };
    struct Watched {
        std::optional<ItemLook> last;
        double due = 0;
        double lastLook = -1; // when it was last looked at (-1: never)
        double interval = lookInterval;
        int changesInARow = 0;
        int quietInARow = 0;
        bool busy = false;
        int looks = 0;
        int changes = 0;
    };

    ItemChangeWatch(Services services, std::function<void(const QString& key)> changed);
    ~ItemChangeWatch() override;

    // Looks at the list and the bar again: which watched items are there now.
    void refresh();
    bool looking() const { return m_timer.isValid(); }
    std::optional<double> nextRoundIn() const;
    int looks() const { return m_looks; }
    const QHash<QString, Watched>& watched() const { return m_watched; }

private:
    void refreshSoon();
    void round();
    void lookAt(const QString& key, Watched& w);
    void arm();

    Services m_s;
    std::function<void(const QString&)> m_changed;
    QHash<QString, Watched> m_watched; // the watched items in the bar now
    Timer m_timer;
    double m_timerDue = 0;
    int m_looks = 0;
    bool m_refreshPending = false;
    std::shared_ptr<void> m_launchToken;
    std::shared_ptr<void> m_terminateToken;
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};

} // namespace ravlin
