// What the running system's menu bar does with Ravlin's items, and the separators it
// takes to hide other items there: where the bar drops an item as long as half a display,
// a collapsed separator stays shorter and is spread over as many items as span the bar.
#include "StatusBarController.h"

#include "MenuBarDisplays.h"

#include "core/discovery/MenuBarReader.h"
#include "core/discovery/MenuBarSystem.h"
#include "core/settings/LanguageManager.h"
#include "core/settings/Preferences.h"
#include "foundation/DefaultsStore.h"
#include "foundation/Logging.h"
#include "platform/StatusBar.h"

namespace ravlin {

namespace {

QString positionKey(const QString& autosaveName)
{
    return QStringLiteral("NSStatusItem Preferred Position ") + autosaveName;
}

} // namespace

void StatusBarController::lookAtSystem()
{
    m_s.system.detect(*m_mainItem, m_usesEngine);
}

std::optional<ScreenRect> StatusBarController::frameOf(const StatusItem* item) const
{
    if (!item)
        return std::nullopt;
    return m_s.reader.frameOf(*item);
}

bool StatusBarController::mainItemShown() const
{
    const std::optional<ScreenRect> frame = frameOf(m_mainItem.get());
    if (!frame)
        return false;
    const ScreenPoint centre{frame->x + frame->width / 2, frame->y + frame->height / 2};
    for (const ScreenInfo& screen : m_s.screens.screens())
        if (screen.frame.contains(centre))
            return true;
    return false;
}

// Where separators stay short, items the bar has no room for wait in the system's
// overflow menu rather than off screen: the panel says where they are.
QString StatusBarController::panelFootnote() const
{
    if (!m_movedBySystem.isEmpty()) {
        QStringList names;
        for (const QString& key : m_movedBySystem)
            names.append(itemName(key));
        return m_s.language.L(m_s.system.techniques().canMoveItems()
                                  ? QStringLiteral("bar.movedNote")
                                  : QStringLiteral("bar.movedNote.arrange"),
                              names.join(QStringLiteral(", ")));
    }
    if (m_usesEngine ||
        m_s.system.techniques().hiding != MenuBarTechniques::Hiding::ShortSeparators)
        return {};
    return m_s.language.L(QStringLiteral("bar.overflowNote"));
}

// The one button of the note on moved items: put them back, or where nothing can be moved
// by Ravlin, open arrange mode so that the user can.
void StatusBarController::footnoteClicked()
{
    if (m_movedBySystem.isEmpty())
        return;
    closeTile();
    if (m_s.system.techniques().canMoveItems())
        restoreArrangement(QStringLiteral("the user's request"));
    else
        enterArrangeMode();
}

// The chevron is what the user clicks: never under the camera housing. The bar puts an item
// asked for the rightmost place right of everything else, so it is made anew there.
void StatusBarController::keepChevronClearOfNotch()
{
    const std::optional<ScreenRect> frame = frameOf(m_mainItem.get());
    if (!frame || MenuBarDisplays::rightOfNotch(*frame, m_s.screens.screens()))
        return;
    qCInfo(lcBar) << "Ravlin's icon stood under the notch; it goes to the right end of the bar";
    m_s.preferences.defaults().set(QStringLiteral("NSStatusItem Preferred Position ") + mainName,
                                   0);
    m_mainItem = m_s.statusBar.createItem(normalLength, mainName);
    configureToggleButton();
}

void StatusBarController::displaysChanged()
{
    qCInfo(lcBar) << "the displays changed; looking at the menu bar again";
    m_s.system.displaysChanged();
    lookAtSystem();
    keepChevronClearOfNotch();
    if (!m_usesEngine) {
        fillSpans();
        applyLayout();
        verifyCollapse();
        restoreArrangement(QStringLiteral("a display change"));
    }
    switchForDisplays();
}

double StatusBarController::collapsedSeparatorLength() const
{
    return m_s.system.collapsedSeparatorLength(collapsedLength);
}

bool StatusBarController::separatorsKept() const
{
    auto kept = [this](const StatusItem* item) { return !item || m_s.reader.keeps(*item); };
    if (!kept(m_hiddenSep.get()) || !kept(m_alwaysSep.get()))
        return false;
    for (const auto* span : {&m_hiddenSpan, &m_alwaysSpan})
        for (const auto& item : *span)
            if (!kept(item.get()))
                return false;
    return true;
}

// A collapse is real only while the bar keeps the separators. One the bar dropped hides
// nothing: the chevron says so, the separators come back shorter and are checked again.
void StatusBarController::verifyCollapse()
{
    // A bar that shows none of Ravlin's items says nothing about the separators' length.
    if (m_usesEngine || !m_hiddenSep || !mainItemShown())
        return;
    if (separatorsKept()) {
        if (!m_collapseHolds) {
            m_collapseHolds = true;
            updateChevron();
        }
        return;
    }
    const bool alreadyShort = m_s.system.capabilities().longestItem.has_value();
    qCWarning(lcBar).noquote()
        << QStringLiteral("the menu bar dropped a separator %1 points long; nothing is hidden")
               .arg(m_hiddenSep->length());
    m_collapseHolds = false;
    updateChevron();
    if (alreadyShort) {
        // Even the short ones went: leave them be rather than try forever.
        m_s.system.displaysChanged();
    }
    m_s.system.noteLongItemsDropped();
    rebuildSeparators();
    applyLayout();
    m_collapseHolds = separatorsKept();
    if (!m_collapseHolds)
        qCWarning(lcBar) << "the shorter separators were dropped too; items stay in sight";
    updateChevron();
}

void StatusBarController::rebuildSeparators()
{
    m_hiddenSpan.clear();
    m_alwaysSpan.clear();
    const bool always = bool(m_alwaysSep);
    m_alwaysSep.reset();
    m_hiddenSep = makeSeparator(hiddenName, false);
    if (always)
        addAlwaysSeparator();
    fillSpans();
}

void StatusBarController::fillSpans()
{
    const bool spread =
        m_s.system.techniques().hiding == MenuBarTechniques::Hiding::ShortSeparators;
    const int extra = spread ? m_s.system.separatorsToSpan(collapsedLength) - 1 : 0;
    fillSpan(m_hiddenSpan, hiddenName, m_hiddenSep ? extra : 0);
    fillSpan(m_alwaysSpan, alwaysName, m_alwaysSep ? extra : 0);
}

// The extra items stand beside their separator: they take its remembered position.
void StatusBarController::fillSpan(std::vector<std::unique_ptr<StatusItem>>& span,
                                   const QString& separatorName, int wanted)
{
    while (int(span.size()) > wanted)
        span.pop_back();
    DefaultsStore& defaults = m_s.preferences.defaults();
    while (int(span.size()) < wanted) {
        const QString name = separatorName + u'.' + QString::number(span.size() + 2);
        defaults.set(positionKey(name), defaults.object(positionKey(separatorName)));
        auto item = m_s.statusBar.createItem(0, name);
        item->setImage(QString(), true);
        item->setAction(weakly([this] { mainClicked(); }));
        span.push_back(std::move(item));
    }
}

} // namespace ravlin
