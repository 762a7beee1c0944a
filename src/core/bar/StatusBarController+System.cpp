// What the running system's menu bar does with Ravlin's items, and what the panel says about
// where the items are that it cannot bring where the user wants them.
#include "StatusBarController.h"

#include "MenuBarDisplays.h"
#include "MenuBarHideEngine.h"

#include "core/discovery/MenuBarReader.h"
#include "core/discovery/MenuBarSystem.h"
#include "core/settings/LanguageManager.h"
#include "core/settings/PrefKey.h"
#include "core/settings/Preferences.h"
#include "foundation/DefaultsStore.h"
#include "foundation/Logging.h"
#include "platform/StatusBar.h"

namespace ravlin {

namespace {


} // namespace

void StatusBarController::lookAtSystem()
{
    m_s.system.detect(*m_mainItem, m_s.hideEngine.isAvailable());
    // What an earlier run learnt about the bar holds until the bar shows otherwise.
    if (!m_s.system.capabilities().longestItem &&
        m_s.preferences.defaults().boolForKey(PrefKey::barDropsLongItems))
        m_s.system.noteLongItemsDropped();
    if (m_hiding)
        chooseHiding();
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
    m_hiding->displaysChanged();
    updateChevron();
    restoreArrangement(QStringLiteral("a display change"));
}

void StatusBarController::verifyCollapse()
{
    m_hiding->verify();
}

} // namespace ravlin
