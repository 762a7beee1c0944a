// Moments: an item shown in the bar for a few seconds (it changed while hidden), the hidden
// items shown for a while (a rule came into force). Both go the ways a user's reveal and an
// activation go, so that every hiding technique does its own part: separators shrink, the
// assessment mode lets the item's application in.
#include "StatusBarController.h"

#include "TilePanel.h"
#include "foundation/Logging.h"

#include <algorithm>

namespace ravlin {

bool StatusBarController::inSight(const QString& key) const
{
    const std::vector<BarEntry> entries = knownEntries(false);
    auto it = std::find_if(entries.begin(), entries.end(),
                           [&](const BarEntry& e) { return e.key == key; });
    return it != entries.end() && it->onScreen() && !hiddenBy(*it);
}

// Only while the bar rests: a reveal, the panel, arrange mode or an activation of the user's
// come first, and the moment does not take their place.
void StatusBarController::showForAMoment(const QString& key, double seconds,
                                         std::function<void(bool shown)> done)
{
    const std::vector<BarEntry> entries = knownEntries(false);
    auto it = std::find_if(entries.begin(), entries.end(),
                           [&](const BarEntry& e) { return e.key == key; });
    if (it == entries.end() || m_arranging || m_tileOpen || m_expanded || m_reaching) {
        done(false);
        return;
    }
    qCInfo(lcBar).noquote() << "showing" << key << "for" << seconds << "seconds: it changed";
    beginReveal();
    m_expanded = true;
    m_reaching = *it;
    std::weak_ptr<bool> alive = m_alive;
    m_hiding->bringIntoReach(hidingState(), [this, alive, key, seconds, done] {
        if (auto a = alive.lock(); !a || !*a)
            return;
        const bool ours = m_expanded && m_reaching && m_reaching->key == key;
        const bool shown = ours && inSight(key);
        done(shown);
        if (!ours)
            return;
        if (!shown) {
            ensureCollapsed();
            return;
        }
        m_momentTimer.invalidate();
        m_momentTimer = later(seconds, [this, key] {
            if (m_expanded && m_reaching && m_reaching->key == key && !m_revealCollapseMonitor)
                ensureCollapsed();
        });
    });
    updateChevron();
}

void StatusBarController::revealForAWhile(double seconds)
{
    if (m_arranging || m_tileOpen || m_expanded)
        return;
    showInBar();
    m_momentTimer.invalidate();
    m_momentTimer = later(seconds, [this] {
        if (m_expanded && !m_reaching && !m_revealCollapseMonitor)
            ensureCollapsed();
    });
}

void StatusBarController::panelSeen()
{
    if (m_panelExtras.seen)
        m_panelExtras.seen();
}

} // namespace ravlin
