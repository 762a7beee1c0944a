#include "SettingsActions.h"

#include "core/app/AppDelegate.h"
#include "core/bar/StatusBarController.h"
#include "core/discovery/ScannerModel.h"
#include "foundation/Logging.h"
#include "core/settings/LanguageManager.h"
#include "core/settings/Preferences.h"
#include "platform/MenuBarSpacing.h"
#include "platform/Platform.h"
#include "platform/Workspace.h"

namespace ravlin {

bool SettingsActions::hidesWholeApplications() const
{
    const StatusBarController* bar = m_app.statusBar();
    return bar && bar->hiding().hidesWholeApplications();
}

void SettingsActions::place(const QString& key, ItemPlacement placement)
{
    if (key.isEmpty()) {
        qCWarning(lcUi) << "an item without a key cannot be placed";
        return;
    }
    if (StatusBarController* bar = m_app.statusBar())
        bar->placeItem(key, placement);
    else
        m_app.preferences().setPlacement(key, placement);
}

bool SettingsActions::canArrange() const
{
    return m_app.statusBar() != nullptr;
}

void SettingsActions::arrange()
{
    if (StatusBarController* bar = m_app.statusBar())
        bar->enterArrangeMode();
}

void SettingsActions::rescan()
{
    m_app.scannerModel().refreshMenuBarApps();
    if (StatusBarController* bar = m_app.statusBar())
        bar->rebuildFullCache();
}

bool SettingsActions::canChangeSpacing() const
{
    return m_app.platform().menuBarSpacing != nullptr;
}

bool SettingsActions::applyCompactSpacing()
{
    MenuBarSpacing* spacing = m_app.platform().menuBarSpacing.get();
    if (!spacing)
        return false;
    if (!spacing->apply(MenuBarSpacing::compactSpacing, MenuBarSpacing::compactPadding)) {
        qCWarning(lcUi) << "the system did not store the menu-bar item spacing";
        return false;
    }
    return true;
}

void SettingsActions::openControlCentreSettings()
{
    if (!m_app.platform().workspace || !m_app.platform().workspace->openURL(controlCentreURL))
        qCWarning(lcUi) << "the Control Center settings could not be opened";
}

void SettingsActions::pickLanguage(const QString& code)
{
    m_app.languageManager().apply(code);
}

} // namespace ravlin

namespace ravlin {

void SettingsActions::setNewItemPlacement(ItemPlacement placement)
{
    m_app.preferences().setNewItemPlacement(placement);
}

QStringList SettingsActions::layoutNames() const
{
    const StatusBarController* bar = m_app.statusBar();
    return bar ? bar->layouts().names() : QStringList();
}

QString SettingsActions::activeLayout() const
{
    const StatusBarController* bar = m_app.statusBar();
    return bar ? bar->layouts().active() : QString();
}

bool SettingsActions::saveLayout(const QString& name)
{
    StatusBarController* bar = m_app.statusBar();
    return bar && bar->saveLayout(name);
}

bool SettingsActions::switchLayout(const QString& name)
{
    StatusBarController* bar = m_app.statusBar();
    return bar && bar->switchLayout(name, QStringLiteral("the user's choice in the settings"));
}

bool SettingsActions::deleteLayout(const QString& name)
{
    StatusBarController* bar = m_app.statusBar();
    return bar && bar->deleteLayout(name);
}

bool SettingsActions::exportLayout(const QString& name, const QString& path)
{
    StatusBarController* bar = m_app.statusBar();
    return bar && !path.isEmpty() && bar->exportLayout(name, path);
}

QString SettingsActions::importLayout(const QString& path)
{
    StatusBarController* bar = m_app.statusBar();
    if (!bar || path.isEmpty())
        return QString();
    return bar->importLayout(path).value_or(QString());
}

QString SettingsActions::layoutOnDisplay() const
{
    const StatusBarController* bar = m_app.statusBar();
    return bar ? bar->layouts().forDisplayConnected() : QString();
}

QString SettingsActions::layoutOnBattery() const
{
    const StatusBarController* bar = m_app.statusBar();
    return bar ? bar->layouts().forBattery() : QString();
}

void SettingsActions::setLayoutOnDisplay(const QString& name)
{
    if (StatusBarController* bar = m_app.statusBar())
        bar->layouts().setForDisplayConnected(name);
}

void SettingsActions::setLayoutOnBattery(const QString& name)
{
    if (StatusBarController* bar = m_app.statusBar()) {
        bar->layouts().setForBattery(name);
        bar->armPowerWatch();
    }
}

} // namespace ravlin
