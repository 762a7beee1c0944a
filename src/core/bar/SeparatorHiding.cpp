#include "SeparatorHiding.h"

#include "BarWishes.h"
#include "SeparatorPositions.h"
#include "core/discovery/MenuBarReader.h"
#include "core/discovery/MenuBarSystem.h"
#include "foundation/DefaultsStore.h"
#include "foundation/Logging.h"
#include "platform/StatusBar.h"


namespace ravlin {
namespace {

QString positionKey(const QString& autosaveName)
{
    return QStringLiteral("NSStatusItem Preferred Position ") + autosaveName;
}

// An item that touches a separator still stands on its left: two points of slack.
bool standsLeftOf(const CaptureEngine::Raw& raw, const ScreenRect& separator)
{
    return raw.x + raw.w <= separator.x + 2.0;
}

} // namespace

SeparatorHiding::~SeparatorHiding() = default;

void SeparatorHiding::install()
{
    placeByArrangement();
    m_hiddenSep = makeSeparator(hiddenName, false);
    if (m_context.wishes.now().alwaysHiddenSection)
        m_alwaysSep = makeSeparator(alwaysName, true);
    fillSpans();
}

void SeparatorHiding::uninstall()
{
    m_hiddenSpan.clear();
    m_alwaysSpan.clear();
    m_alwaysSep.reset();
    m_hiddenSep.reset();
}

// The bar places an item by its remembered position, which is stale once other items moved
// past it: the separators go back between the items as the user arranged them. Before the
// first arrangement they take the places seeded for a first start.
void SeparatorHiding::placeByArrangement()
{
    const BarWishes::Now wishes = m_context.wishes.now();
    if (!wishes.arrangement && wishes.inBar.isEmpty())
        return;
    const std::vector<BarEntry> entries = m_context.entries();
    const SeparatorPositions positions =
        SeparatorPositions::forBar(entries, wishes, m_context.mainFrame());
    setPosition(hiddenName, positions.hidden);
    // The hidden separator, made first, stands right of the always-hidden one.
    if (wishes.alwaysHiddenSection)
        setPosition(alwaysName, positions.alwaysHidden + sepLength);
}

void SeparatorHiding::setPosition(const QString& autosaveName, double position)
{
    SeparatorPositions::store(m_context.defaults, autosaveName, position);
}

std::unique_ptr<StatusItem> SeparatorHiding::makeSeparator(const QString& autosaveName,
                                                           bool dimmed)
{
    auto item = m_context.statusBar.createItem(sepLength, autosaveName);
    item->setImage(QString(), true);
    item->setAppearsDisabled(dimmed);
    item->setAction(m_context.ownItemClicked);
    return item;
}

// Where other items cannot be moved, Ravlin's own separators go where the placements want
// the sections' borders, as far as the order of the bar allows.
void SeparatorHiding::placementsChanged()
{
    const std::optional<ScreenRect> separator = frameOf(m_hiddenSep.get());
    if (!separator || m_context.system.techniques().canMoveItems())
        return;
    const std::vector<BarEntry> entries = m_context.entries();
    QSet<QString> hiddenNow;
    for (const BarEntry& e : entries)
        if (e.inBar && !e.fixed && standsLeftOf(e.raw, *separator))
            hiddenNow.insert(e.key);
    const SeparatorPositions wanted =
        SeparatorPositions::forBar(entries, m_context.wishes.now(), m_context.mainFrame());
    if (wanted.leftOfHidden == hiddenNow)
        return;
    qCInfo(lcBar) << "other items cannot be moved here: the separators move to where the "
                     "placements want the sections to end";
    rebuild();
    apply(m_state);
    verify();
}

void SeparatorHiding::alwaysHiddenSectionChanged(bool on)
{
    if (!on) {
        m_alwaysSpan.clear();
        m_alwaysSep.reset();
        return;
    }
    if (m_alwaysSep || !m_hiddenSep)
        return;
    // Switched on, the section starts empty: its separator goes to the far end of the bar,
    // measured while every item stands where it would without separators, and the user drags
    // items past it.
    exposeAll();
    const std::vector<BarEntry> entries = m_context.entries();
    setPosition(alwaysName, SeparatorPositions::farLeft(
                                entries, SeparatorPositions::rightEnd(entries, m_context.mainFrame())));
    m_alwaysSep = makeSeparator(alwaysName, true);
    fillSpans();
    apply(m_state);
}

void SeparatorHiding::apply(const HidingState& state)
{
    m_state = state;
    if (!m_hiddenSep)
        return;
    const double collapsed = collapsedSeparatorLength();
    const bool hiddenOpen = state.hiddenShown || state.arranging;
    const bool alwaysOpen = state.alwaysShown || state.arranging;
    m_hiddenSep->setLength(hiddenOpen ? sepLength : collapsed);
    for (const auto& part : m_hiddenSpan)
        part->setLength(hiddenOpen ? 0 : collapsed);
    if (m_alwaysSep) {
        m_alwaysSep->setLength(alwaysOpen ? sepLength : collapsed);
        m_alwaysSep->setImage(QString(), true);
    }
    for (const auto& part : m_alwaysSpan)
        part->setLength(alwaysOpen ? 0 : collapsed);
    const QString arrow = QStringLiteral("arrow.left.and.right");
    m_hiddenSep->setImage(state.arranging && m_context.statusBar.symbolExists(arrow) ? arrow
                                                                                     : QString(),
                          true);
}

void SeparatorHiding::exposeAll()
{
    if (!m_hiddenSep)
        return;
    m_hiddenSep->setLength(1.0);
    if (m_alwaysSep)
        m_alwaysSep->setLength(1.0);
    for (const auto* span : {&m_hiddenSpan, &m_alwaysSpan})
        for (const auto& part : *span)
            part->setLength(0);
}

void SeparatorHiding::bringIntoReach(const HidingState& state, std::function<void()> ready)
{
    apply(state);
    exposeAll();
    ready();
}

std::optional<ScreenRect> SeparatorHiding::frameOf(const StatusItem* item) const
{
    if (!item)
        return std::nullopt;
    return m_context.reader.frameOf(*item);
}

// Where the sections that are hidden now begin: the separators that are collapsed.
SeparatorHiding::Borders SeparatorHiding::borders() const
{
    Borders b;
    if (!(m_state.alwaysShown || m_state.arranging))
        b.always = frameOf(m_alwaysSep.get());
    if (!(m_state.hiddenShown || m_state.arranging))
        b.hidden = frameOf(m_hiddenSep.get());
    return b;
}

std::optional<HiddenBy> SeparatorHiding::hiddenBy(const BarEntry& entry, const Borders& b)
{
    if (!entry.inBar || entry.onScreen())
        return std::nullopt;
    if (b.always && standsLeftOf(entry.raw, *b.always))
        return HiddenBy::AlwaysSeparator;
    if (b.hidden && standsLeftOf(entry.raw, *b.hidden))
        return HiddenBy::Separator;
    return std::nullopt;
}

std::optional<HiddenBy> SeparatorHiding::hiddenBy(const BarEntry& entry) const
{
    return hiddenBy(entry, borders());
}

std::vector<std::optional<HiddenBy>>
SeparatorHiding::hiddenBy(const std::vector<BarEntry>& entries) const
{
    const Borders b = borders();
    std::vector<std::optional<HiddenBy>> reasons;
    reasons.reserve(entries.size());
    for (const BarEntry& entry : entries)
        reasons.push_back(hiddenBy(entry, b));
    return reasons;
}

const StatusItem* SeparatorHiding::marker(BarArrangement::Section section) const
{
    switch (section) {
    case BarArrangement::Section::Hidden:
        return m_hiddenSep.get();
    case BarArrangement::Section::AlwaysHidden:
        return m_alwaysSep.get();
    case BarArrangement::Section::Visible:
        break;
    }
    return nullptr;
}

int SeparatorHiding::separatorCount() const
{
    return m_hiddenSep ? 1 + int(m_hiddenSpan.size()) : 0;
}

double SeparatorHiding::collapsedSeparatorLength() const
{
    return m_context.system.collapsedSeparatorLength(collapsedLength);
}

bool SeparatorHiding::separatorsKept() const
{
    auto kept = [this](const StatusItem* item) { return !item || m_context.reader.keeps(*item); };
    if (!kept(m_hiddenSep.get()) || !kept(m_alwaysSep.get()))
        return false;
    for (const auto* span : {&m_hiddenSpan, &m_alwaysSpan})
        for (const auto& item : *span)
            if (!kept(item.get()))
                return false;
    return true;
}

void SeparatorHiding::setHolds(bool holds)
{
    if (m_holds == holds)
        return;
    m_holds = holds;
    if (m_context.changed)
        m_context.changed();
}

// A collapse is real only while the bar keeps the separators.
void SeparatorHiding::verify()
{
    if (m_hiddenSep)
        verifyLength(m_hiddenSep->length());
}

// `length`: what the separator was when the bar may have dropped it.
void SeparatorHiding::verifyLength(double length)
{
    // A bar that shows none of Ravlin's items says nothing about the separators' length.
    if (m_context.ownItemsShown && !m_context.ownItemsShown())
        return;
    if (separatorsKept()) {
        setHolds(true);
        return;
    }
    setHolds(false);
    separatorDropped(length);
}

// A display of another width may have made the bar drop a separator at the length it had.
void SeparatorHiding::displaysChanged()
{
    if (!m_hiddenSep)
        return;
    const double was = m_hiddenSep->length();
    fillSpans();
    apply(m_state);
    verifyLength(was);
}

void SeparatorHiding::rebuild()
{
    const bool always = bool(m_alwaysSep);
    uninstall();
    placeByArrangement();
    m_hiddenSep = makeSeparator(hiddenName, false);
    if (always)
        m_alwaysSep = makeSeparator(alwaysName, true);
    fillSpans();
}

void SeparatorHiding::fillSpans()
{
    const int extra = itemsPerSeparator() - 1;
    fillSpan(m_hiddenSpan, hiddenName, m_hiddenSep ? extra : 0);
    fillSpan(m_alwaysSpan, alwaysName, m_alwaysSep ? extra : 0);
}

// The extra items stand beside their separator: they take its remembered position.
void SeparatorHiding::fillSpan(std::vector<std::unique_ptr<StatusItem>>& span,
                               const QString& separatorName, int wanted)
{
    while (int(span.size()) > wanted)
        span.pop_back();
    DefaultsStore& defaults = m_context.defaults;
    while (int(span.size()) < wanted) {
        const QString name = separatorName + u'.' + QString::number(span.size() + 2);
        defaults.set(positionKey(name), defaults.object(positionKey(separatorName)));
        auto item = m_context.statusBar.createItem(0, name);
        item->setImage(QString(), true);
        item->setAction(m_context.ownItemClicked);
        span.push_back(std::move(item));
    }
}

// --- long separators -------------------------------------------------------------------------

// The bar drops items as long as half a display: from now on separators stay shorter.
void LongSeparators::separatorDropped(double length)
{
    qCWarning(lcBar).noquote()
        << QStringLiteral("the menu bar dropped a separator %1 points long; shorter "
                          "separators hide the items instead")
               .arg(length);
    m_context.system.noteLongItemsDropped();
    uninstall();
    m_context.cannotGoOn(QStringLiteral("the menu bar drops long items"));
}

// --- short separators ------------------------------------------------------------------------

int ShortSeparators::itemsPerSeparator() const
{
    return m_context.system.separatorsToSpan(collapsedLength);
}

// Even a short one went: the limit follows the displays as they are now, and the separators
// are tried once more rather than forever.
void ShortSeparators::separatorDropped(double length)
{
    m_context.system.displaysChanged();
    m_context.system.noteLongItemsDropped();
    rebuild();
    apply(state());
    setHolds(separatorsKept());
    qCWarning(lcBar).noquote()
        << QStringLiteral("the menu bar dropped a separator %1 points long; %2")
               .arg(length)
               .arg(holds() ? QStringLiteral("separators of %1 points hide the items now")
                                  .arg(collapsedSeparatorLength())
                            : QStringLiteral("shorter ones were dropped too, so items stay "
                                             "in sight"));
}

} // namespace ravlin
