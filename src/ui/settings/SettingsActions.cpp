#include "SettingsActions.h"

#include "core/app/AppDelegate.h"
#include "core/app/AppRestarter.h"
#include "core/bar/StatusBarController.h"
#include "core/discovery/ScannerModel.h"
#include "core/rules/Rules.h"
#include "foundation/Logging.h"
#include "core/settings/LanguageManager.h"
#include "core/settings/Preferences.h"
#include "core/settings/ItemSpacing.h"
#include "platform/Platform.h"
#include "platform/Workspace.h"

namespace ravlin {

SettingsActions::SettingsActions(AppDelegate& app) : m_app(app) {}

SettingsActions::~SettingsActions() = default;

AppRestarter& SettingsActions::restarter()
{
    if (!m_restarter)
        m_restarter = std::make_unique<AppRestarter>(*m_app.platform().workspace, m_app.scheduler(),
                                                     m_app.platform().bundleIdentifier);
    return *m_restarter;
}

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

ItemSpacing SettingsActions::itemSpacing() const
{
    return ItemSpacing(m_app.platform().menuBarSpacing.get(), *m_app.platform().defaults);
}

bool SettingsActions::applySpacing(int spacing, int padding)
{
    return itemSpacing().apply(spacing, padding);
}

bool SettingsActions::resetSpacing()
{
    return itemSpacing().resetToDefault();
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

// The two rules that switch a layout when a display is connected or on battery, which earlier
// versions had as switches of their own.
QString SettingsActions::layoutOnDisplay() const
{
    const Rules* rules = m_app.rules();
    return rules ? rules->book().occasionLayout(RuleBook::displayRuleId) : QString();
}

QString SettingsActions::layoutOnBattery() const
{
    const Rules* rules = m_app.rules();
    return rules ? rules->book().occasionLayout(RuleBook::batteryRuleId) : QString();
}

void SettingsActions::setLayoutOnDisplay(const QString& name)
{
    if (Rules* rules = m_app.rules())
        rules->book().setOccasionLayout(RuleBook::displayRuleId, name);
}

void SettingsActions::setLayoutOnBattery(const QString& name)
{
    if (Rules* rules = m_app.rules())
        rules->book().setOccasionLayout(RuleBook::batteryRuleId, name);
}

} // namespace ravlin
