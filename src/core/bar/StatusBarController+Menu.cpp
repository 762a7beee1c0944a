// The status menu of a right click or control-click, and its commands.
#include "StatusBarController.h"

#include "ArrangeGuide.h"
#include "TilePanel.h"
#include "core/app/SettingsPresenter.h"
#include "core/app/SoftwareUpdate.h"
#include "core/settings/LanguageManager.h"
#include "core/settings/Preferences.h"
#include "platform/ApplicationControl.h"
#include "platform/StatusBar.h"

namespace ravlin {
namespace {

MenuEntry entry(const QString& title, std::function<void()> action, const QString& key = QString())
{
    MenuEntry e;
    e.title = title;
    e.action = std::move(action);
    e.keyEquivalent = key;
    return e;
}

} // namespace

void StatusBarController::showMenu()
{
    MenuModel menu = buildMenu();
    menu.rightToLeft = m_s.language.isRTL();
    m_mainItem->popUpMenu(menu);
}

// Settings, about, the check for updates and quit close every menu.
void StatusBarController::appendApplicationEntries(std::vector<MenuEntry>& e)
{
    const LanguageManager& lm = m_s.language;
    e.push_back(entry(lm.L(QStringLiteral("menu.settings")), weakly([this] { menuSettings(); }),
                      QStringLiteral(",")));
    e.push_back(entry(lm.L(QStringLiteral("menu.about")), weakly([this] { menuAbout(); })));
    if (m_s.updates && m_s.updates->available())
        e.push_back(entry(lm.L(QStringLiteral("menu.checkForUpdates")),
                          weakly([this] { m_s.updates->checkNow(); })));
    e.push_back(MenuEntry::separatorEntry());
    e.push_back(entry(lm.L(QStringLiteral("menu.quit")), weakly([this] { menuQuit(); }),
                      QStringLiteral("q")));
}

MenuModel StatusBarController::buildMenu()
{
    const LanguageManager& lm = m_s.language;
    MenuModel menu;
    auto& e = menu.entries;
    e.push_back(entry(lm.L(m_expanded ? QStringLiteral("menu.hide") : QStringLiteral("menu.show")),
                      weakly([this] { menuToggle(); })));
    e.push_back(entry(lm.L(QStringLiteral("menu.arrange")), weakly([this] { menuArrange(); })));
    if (m_s.preferences.enableAlwaysHidden())
        e.push_back(
            entry(lm.L(QStringLiteral("menu.alwaysHidden")), weakly([this] { menuAlways(); })));
    e.push_back(MenuEntry::separatorEntry());
    MenuEntry design = entry(lm.L(QStringLiteral("menu.style")), {});
    const TileStyle current = m_s.preferences.tileStyle();
    for (TileStyle style : allTileStyles) {
        MenuEntry choice =
            entry(lm.L(tileStyleTitleKey(style)),
                  weakly([this, style] { menuPickStyle(tileStyleRawValue(style)); }));
        choice.checked = style == current;
        design.submenu.push_back(std::move(choice));
    }
    e.push_back(std::move(design));
    e.push_back(layoutsEntry());
    if (std::optional<MenuEntry> fresh = newItemsEntry())
        e.push_back(std::move(*fresh));
    e.push_back(MenuEntry::separatorEntry());
    appendApplicationEntries(e);
    return menu;
}

void StatusBarController::menuToggle()
{
    if (m_expanded) {
        refreshCache();
        ensureCollapsed();
    } else {
        showInBar();
    }
}

// The click that shows the hidden items in the bar rather than the panel: they go again
// after the auto-rehide interval, or with the next click.
void StatusBarController::toggleInBar()
{
    if (m_expanded) {
        menuToggle();
        return;
    }
    showInBar();
    scheduleRehideIfNeeded();
}

void StatusBarController::menuArrange()
{
    if (m_arranging)
        exitArrangeMode();
    else
        enterArrangeMode();
}

void StatusBarController::menuAlways()
{
    toggleAlwaysReveal();
}

void StatusBarController::menuPickStyle(const QString& rawStyle)
{
    const std::optional<TileStyle> style = tileStyleFromRawValue(rawStyle);
    if (!style)
        return;
    m_s.preferences.setTileStyle(*style);
    if (m_s.panel && m_s.panel->isVisible()) {
        closeTile();
        openTile();
    }
}

void StatusBarController::menuSettings()
{
    if (m_s.settings)
        m_s.settings->show(0);
}

void StatusBarController::menuAbout()
{
    if (m_s.settings)
        m_s.settings->show(3);
}

void StatusBarController::menuQuit()
{
    m_s.application.terminate();
}

// --- arrange mode --------------------------------------------------------------------

void StatusBarController::enterArrangeMode()
{
    if (m_arranging)
        return;
    closeTile();
    m_arranging = true;
    m_expanded = true;
    m_revealingAlways = true;
    m_rehideTimer.invalidate();
    applyLayout();
    // Right of the marker now is what was in sight: moved left of it, it goes to the panel.
    m_arrangeVisible = windowsRightOfHiddenSeparator();
    // The separator's arrow is then the application's one visible marker.
    m_mainItem->setLength(1.0);
    if (m_s.guide) {
        m_s.guide->onDone = weakly([this] { exitArrangeMode(); });
        m_s.guide->show(toggleScreenRect());
    }
}

void StatusBarController::exitArrangeMode()
{
    if (!m_arranging)
        return;
    storeArrangedPlacements();
    // What the user arranged by hand is where the user wants everything now.
    m_notWhereWanted.clear();
    m_movedBySystem.clear();
    // While the sections' markers still stand where the user left them.
    recordArrangement();
    m_arranging = false;
    if (m_s.guide)
        m_s.guide->hide();
    m_mainItem->setLength(normalLength);
    m_expanded = false;
    m_revealingAlways = false;
    applyLayout();
    // What the user arranged is the layout now; only items placed off still go.
    m_revealHidden.reset();
    m_arrangeVisible.clear();
    later(0.2, [this] {
        reHideEscapedItems();
        recordArrangement();
    });
    resumeBarCheck();
}

} // namespace ravlin
