#include "EngineHiding.h"

#include "BarWishes.h"
#include "MenuBarHideEngine.h"
#include "SeparatorHiding.h"
#include "SeparatorPositions.h"
#include "foundation/Logging.h"
#include "platform/StatusBar.h"

#include <set>

namespace ravlin {

EngineHiding::EngineHiding(HidingContext& context) : HidingTechnique(context) {}

EngineHiding::~EngineHiding()
{
    *m_alive = false;
}

void EngineHiding::uninstall()
{
    removeMarkers();
    exposeAll();
}

// Shown now: what is placed in the bar always; what is placed in the panel while its section
// is shown; what is placed nowhere never. An activation shows its own item and nothing more.
std::optional<EngineHiding::AllowList> EngineHiding::allowListFor(const HidingState& state) const
{
    if (state.arranging)
        return std::nullopt;
    const BarWishes::Now wishes = m_context.wishes.now();
    const bool reaching = state.reaching.has_value();
    auto shows = [&](const BarEntry& e) {
        if (wishes.wantsInSight(e.key))
            return true;
        if (reaching || wishes.placement(e.key) == ItemPlacement::Off)
            return false;
        return state.alwaysShown || (state.hiddenShown && !wishes.inAlwaysHiddenSection(e.key));
    };
    QSet<QString> shown, hidden, known;
    std::set<std::int64_t> hiddenSystemItems;
    for (const BarEntry& e : m_context.entries()) {
        known.insert(e.bundleId);
        if (e.fixed)
            continue;
        const bool show = shows(e);
        if (e.systemItem) {
            if (!show)
                hiddenSystemItems.insert(*e.systemItem);
        } else if (!e.bundleId.isEmpty()) {
            (show ? shown : hidden).insert(e.bundleId);
        }
    }
    if (reaching) {
        const BarEntry& item = *state.reaching;
        if (item.systemItem)
            hiddenSystemItems.erase(*item.systemItem);
        else if (!item.bundleId.isEmpty())
            shown.insert(item.bundleId);
        else
            return std::nullopt; // no name to allow it by: only lifting the restriction reaches it
    }
    // An application whose items were never seen is let in until they are: where hiding takes
    // items out of the bar, that is the only way to see them, and to place them as the user
    // wants new items placed.
    if (m_context.applicationsWithItems)
        for (const QString& id : m_context.applicationsWithItems())
            if (!known.contains(id))
                shown.insert(id);
    AllowList list;
    list.bundles = shown;
    for (const QString& id : MenuBarHideEngine::spotlightBundleIDs())
        if (!hidden.contains(id) || shown.contains(id))
            list.bundles.insert(id);
    if (!m_context.ownBundleId.isEmpty())
        list.bundles.insert(m_context.ownBundleId);
    list.systemItems = MenuBarHideEngine::allowedSystemItems(hiddenSystemItems);
    return list;
}

void EngineHiding::apply(const HidingState& state)
{
    m_state = state;
    if (state.arranging) {
        placeMarkers();
        return;
    }
    removeMarkers();
    request(allowListFor(state), {});
}

void EngineHiding::exposeAll()
{
    m_released = ++m_generation;
    m_asked.reset();
    m_granted.reset();
    m_context.hideEngine.release();
    runWaiting();
}

void EngineHiding::bringIntoReach(const HidingState& state, std::function<void()> ready)
{
    m_state = state;
    removeMarkers();
    request(allowListFor(state), std::move(ready));
}

void EngineHiding::request(const std::optional<AllowList>& list, std::function<void()> then)
{
    if (then)
        m_waiting.push_back(std::move(then));
    if (!list) {
        exposeAll();
        return;
    }
    if (m_asked == list) {
        if (m_granted == list)
            runWaiting();
        return; // on its way: its answer runs what waits
    }
    m_asked = list;
    QStringList bundles(list->bundles.begin(), list->bundles.end());
    bundles.sort();
    const int generation = ++m_generation;
    std::weak_ptr<bool> alive = m_alive;
    m_context.hideEngine.restrict(
        bundles, list->systemItems,
        [this, alive, generation, asked = *list](std::optional<PlatformError> error) {
            if (auto a = alive.lock(); a && *a)
                answered(generation, asked, error ? &*error : nullptr);
        });
}

// The answers come in the order of the requests. One to an earlier request still says what
// holds until the last is granted; a release makes every earlier answer stale.
void EngineHiding::answered(int generation, const AllowList& list, const PlatformError* error)
{
    if (generation > m_generation || m_released > generation)
        return;
    const bool latest = generation == m_generation;
    if (error) {
        if (!latest)
            return; // the one asked for since may still be granted
        m_refused = true;
        m_asked.reset();
        m_granted.reset();
        qCWarning(lcBar).noquote() << "the hide engine refused:" << error->description;
        runWaiting();
        if (m_context.changed)
            m_context.changed();
        m_context.cannotGoOn(QStringLiteral("the hide engine refused"));
        return;
    }
    const bool changed = m_refused || m_granted != list;
    m_refused = false;
    m_granted = list;
    if (changed && m_context.changed)
        m_context.changed();
    if (latest)
        runWaiting();
}

void EngineHiding::runWaiting()
{
    std::vector<std::function<void()>> waiting = std::exchange(m_waiting, {});
    for (const auto& then : waiting)
        then();
}

bool EngineHiding::allows(const AllowList& list, const BarEntry& entry) const
{
    if (entry.fixed)
        return true;
    if (entry.systemItem)
        return std::find(list.systemItems.begin(), list.systemItems.end(), *entry.systemItem) !=
               list.systemItems.end();
    if (entry.bundleId.isEmpty())
        return false; // a process without a bundle identifier cannot be allowed by name
    return list.bundles.contains(entry.bundleId) ||
           MenuBarHideEngine::mandatoryBundleIDs().contains(entry.bundleId);
}

std::optional<HiddenBy> EngineHiding::hiddenBy(const BarEntry& entry) const
{
    if (!m_granted || allows(*m_granted, entry))
        return std::nullopt;
    return HiddenBy::Engine;
}

const StatusItem* EngineHiding::marker(BarArrangement::Section section) const
{
    switch (section) {
    case BarArrangement::Section::Hidden:
        return m_hiddenMarker.get();
    case BarArrangement::Section::AlwaysHidden:
        return m_alwaysMarker.get();
    case BarArrangement::Section::Visible:
        break;
    }
    return nullptr;
}

// Arrange mode: every item in the bar, and separators where the placements put the sections'
// borders, for the user to drag items across as with separators.
void EngineHiding::placeMarkers()
{
    exposeAll();
    if (m_hiddenMarker)
        return;
    const BarWishes::Now wishes = m_context.wishes.now();
    const std::vector<BarEntry> entries = m_context.entries();
    const SeparatorPositions positions = SeparatorPositions::forBar(entries, wishes, m_context.mainFrame());
    SeparatorPositions::store(m_context.defaults, SeparatorHiding::hiddenName, positions.hidden);
    m_hiddenMarker =
        m_context.statusBar.createItem(SeparatorHiding::sepLength, SeparatorHiding::hiddenName);
    const QString arrow = QStringLiteral("arrow.left.and.right");
    m_hiddenMarker->setImage(m_context.statusBar.symbolExists(arrow) ? arrow : QString(), true);
    m_hiddenMarker->setAction(m_context.ownItemClicked);
    if (!wishes.alwaysHiddenSection)
        return;
    SeparatorPositions::store(m_context.defaults, SeparatorHiding::alwaysName,
                              positions.alwaysHidden + SeparatorHiding::sepLength);
    m_alwaysMarker =
        m_context.statusBar.createItem(SeparatorHiding::sepLength, SeparatorHiding::alwaysName);
    m_alwaysMarker->setImage(QString(), true);
    m_alwaysMarker->setAppearsDisabled(true);
    m_alwaysMarker->setAction(m_context.ownItemClicked);
}

void EngineHiding::removeMarkers()
{
    m_alwaysMarker.reset();
    m_hiddenMarker.reset();
}

} // namespace ravlin
