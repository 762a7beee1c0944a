#include "RuleEngine.h"

#include "RuleBook.h"
#include "RuleEffects.h"
#include "SituationWatch.h"
#include "foundation/DefaultsStore.h"
#include "foundation/Logging.h"

namespace ravlin {
namespace {

// What an earlier version remembered of the layout before an occasion switched.
const QString oldBeforeKey = QStringLiteral("ravlin.layoutBefore");

QString text(const PlistDict& d, const QString& key)
{
    return d.value(key).asString().value_or(QString());
}

} // namespace

RuleEngine::RuleEngine(RuleBook& book, SituationWatch& watch, RuleEffects& effects,
                       DefaultsStore& defaults, QObject* parent)
    : QObject(parent), m_book(book), m_watch(watch), m_effects(effects), m_defaults(defaults)
{
    connect(&m_book, &RuleBook::changed, this, [this] {
        if (m_started)
            evaluate(QStringLiteral("the rules changed"));
    });
}

void RuleEngine::start()
{
    m_started = true;
    // An occasion of an earlier version that had switched: its rule takes over from there.
    const QString before = m_defaults.stringForKey(oldBeforeKey).value_or(QString());
    if (!m_defaults.persistentValue(oldBeforeKey).isNull()) {
        if (!before.isEmpty() && m_defaults.persistentValue(stateKey).isNull()) {
            State state;
            state.layout = m_effects.activeLayout();
            state.layoutBefore = before;
            storeState(state);
        }
        m_defaults.remove(oldBeforeKey);
    }
    evaluate(QStringLiteral("the start"));
}

void RuleEngine::evaluate(const QString& why)
{
    if (!m_started)
        return;
    ++m_evaluations;
    const std::vector<Rule> rules = m_book.rules();
    m_watch.follow(RuleEvaluator::needs(rules));
    const RuleOutcome out = RuleEvaluator::outcome(rules, m_watch.now());
    const bool first = m_evaluations == 1;
    State state = loadState();
    const State was = state;
    applyLayout(out, state, why);
    applyStyle(out, state);
    applyItems(out, state);
    if (!first)
        revealForNewRules(out);
    const bool changedInForce = out.inForce != m_outcome.inForce;
    if (changedInForce)
        qCInfo(lcRules).noquote() << "rules in force:"
                                  << (out.inForce.isEmpty() ? QStringLiteral("none")
                                                            : out.inForce.join(QStringLiteral(", ")))
                                  << "-" << why;
    m_outcome = out;
    if (state.layout != was.layout || state.layoutBefore != was.layoutBefore ||
        state.style != was.style || state.styleBefore != was.styleBefore ||
        state.itemsBefore != was.itemsBefore)
        storeState(state);
    if (changedInForce)
        Q_EMIT inForceChanged();
}

void RuleEngine::applyLayout(const RuleOutcome& out, State& state, const QString& why)
{
    QString wanted = out.layout.value_or(QString());
    if (!wanted.isEmpty() && !m_effects.hasLayout(wanted)) {
        qCWarning(lcRules).noquote() << "a rule switches to the layout" << wanted
                                     << "which is not saved; the layout stays";
        wanted.clear();
    }
    if (wanted == state.layout)
        return;
    if (!wanted.isEmpty()) {
        if (state.layout.isEmpty())
            state.layoutBefore = m_effects.activeLayout();
        state.layout = wanted;
        if (m_effects.activeLayout() != wanted)
            m_effects.switchLayout(wanted, QStringLiteral("a rule (%1)").arg(why));
        return;
    }
    // No rule wants a layout any more: the one before comes back, unless the user chose
    // another meanwhile.
    const QString before = state.layoutBefore;
    const bool untouched = m_effects.activeLayout() == state.layout;
    state.layout.clear();
    state.layoutBefore.clear();
    if (untouched && !before.isEmpty() && m_effects.hasLayout(before))
        m_effects.switchLayout(before, QStringLiteral("no rule wants a layout (%1)").arg(why));
}

void RuleEngine::applyStyle(const RuleOutcome& out, State& state)
{
    const QString wanted = out.panelStyle.value_or(QString());
    if (wanted == state.style)
        return;
    if (!wanted.isEmpty()) {
        if (state.style.isEmpty())
            state.styleBefore = m_effects.panelStyle();
        if (m_effects.setPanelStyle(wanted))
            state.style = wanted;
        return;
    }
    const bool untouched = m_effects.panelStyle() == state.style;
    if (untouched && !state.styleBefore.isEmpty())
        m_effects.setPanelStyle(state.styleBefore);
    state.style.clear();
    state.styleBefore.clear();
}

void RuleEngine::applyItems(const RuleOutcome& out, State& state)
{
    for (const QString& key : out.shownItems) {
        if (state.itemsBefore.contains(key))
            continue;
        const ItemPlacement before = m_effects.placement(key);
        state.itemsBefore.insert(key, before);
        if (before != ItemPlacement::Bar)
            m_effects.place(key, ItemPlacement::Bar);
    }
    for (const QString& key : state.itemsBefore.keys()) {
        if (out.shownItems.contains(key))
            continue;
        const ItemPlacement before = state.itemsBefore.take(key);
        // Placed elsewhere meanwhile by the user: theirs stands.
        if (before != ItemPlacement::Bar && m_effects.placement(key) == ItemPlacement::Bar)
            m_effects.place(key, before);
    }
}

void RuleEngine::revealForNewRules(const RuleOutcome& out)
{
    int seconds = 0;
    for (const Rule& rule : m_book.rules()) {
        if (!out.inForce.contains(rule.id) || m_outcome.inForce.contains(rule.id))
            continue;
        for (const RuleAction& action : rule.actions)
            if (action.kind == RuleAction::Kind::Reveal)
                seconds = std::max(seconds, action.seconds);
    }
    if (seconds > 0)
        m_effects.revealFor(seconds);
}

RuleEngine::State RuleEngine::loadState() const
{
    State state;
    const std::optional<PlistDict> d = m_defaults.dictionaryForKey(stateKey);
    if (!d)
        return state;
    state.layout = text(*d, QStringLiteral("layout"));
    state.layoutBefore = text(*d, QStringLiteral("layoutBefore"));
    state.style = text(*d, QStringLiteral("panelStyle"));
    state.styleBefore = text(*d, QStringLiteral("panelStyleBefore"));
    const PlistValue items = d->value(QStringLiteral("itemsBefore"));
    if (const PlistDict* map = items.asDict())
        for (auto it = map->begin(); it != map->end(); ++it)
            if (const std::optional<ItemPlacement> p =
                    itemPlacementFromName(it.value().asString().value_or(QString())))
                state.itemsBefore.insert(it.key(), *p);
    return state;
}

void RuleEngine::storeState(const State& state)
{
    if (state.layout.isEmpty() && state.style.isEmpty() && state.itemsBefore.isEmpty()) {
        m_defaults.remove(stateKey);
        return;
    }
    PlistDict items;
    for (auto it = state.itemsBefore.begin(); it != state.itemsBefore.end(); ++it)
        items.insert(it.key(), itemPlacementName(it.value()));
    m_defaults.set(stateKey, PlistDict{{QStringLiteral("layout"), state.layout},
                                       {QStringLiteral("layoutBefore"), state.layoutBefore},
                                       {QStringLiteral("panelStyle"), state.style},
                                       {QStringLiteral("panelStyleBefore"), state.styleBefore},
                                       {QStringLiteral("itemsBefore"), items}});
}

} // namespace ravlin
