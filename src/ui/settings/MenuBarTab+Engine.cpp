// The menu-bar tab while the system's assessment mode does the hiding.
#include "MenuBarTab.h"

#include "ItemIcon.h"
#include "SettingsActions.h"
#include "SettingsGroup.h"
#include "SettingsRow.h"
#include "SettingsStyle.h"
#include "ToggleSwitch.h"
#include "core/app/AppDelegate.h"
#include "core/bar/MenuBarHideEngine.h"
#include "core/discovery/ScannerModel.h"
#include "core/settings/LanguageManager.h"
#include "core/settings/Preferences.h"

#include <QPushButton>

namespace ravlin {
namespace {

SettingsRow* switchRowWithIcon(SettingsGroup* group, const QString& name, const QString& title,
                               ItemIcon* icon, ToggleSwitch** made)
{
    auto* row = new SettingsRow(title, QString());
    row->setLeading(icon);
    auto* toggle = new ToggleSwitch;
    toggle->setObjectName(name);
    toggle->setAccessibleName(title);
    row->addTrailing(toggle);
    group->addRow(row);
    *made = toggle;
    return row;
}

} // namespace

void MenuBarTab::buildEngine()
{
    const LanguageManager& lm = m_app.languageManager();
    addText(lm.L(QStringLiteral("menubar.engine.help")));
    QPushButton* rescan =
        makeButton(QStringLiteral("rescan"), lm.L(QStringLiteral("menubar.engine.rescan")), this);
    connect(rescan, &QPushButton::clicked, this, [this] { m_actions.rescan(); });
    m_apps = addSection(lm.L(QStringLiteral("menubar.engine.apps")), rescan);
    fillApps();
    addNote(lm.L(QStringLiteral("menubar.engine.appsNote")));
    buildSystemItems();
    addNote(lm.L(QStringLiteral("menubar.engine.inputNote")));
}

void MenuBarTab::fillApps()
{
    m_apps->clear();
    m_appSwitches.clear();
    const std::vector<MenuBarApps::Entry>& apps = m_app.scannerModel().menuBarApps();
    if (apps.empty()) {
        m_apps->addMessageRow(m_app.languageManager().L(QStringLiteral("menubar.engine.empty")));
        return;
    }
    Preferences& p = m_app.preferences();
    for (const MenuBarApps::Entry& app : apps) {
        auto* icon = new ItemIcon;
        icon->setMonogram(app.name);
        ToggleSwitch* toggle = nullptr;
        switchRowWithIcon(m_apps, QStringLiteral("bundle:") + app.bundleID, app.name, icon, &toggle)
            ->setTitleIsName();
        connect(toggle, &ToggleSwitch::toggled, this,
                [&p, id = app.bundleID](bool hidden) { p.setBundle(id, hidden); });
        m_appSwitches.insert(app.bundleID, toggle);
    }
}

void MenuBarTab::buildSystemItems()
{
    const LanguageManager& lm = m_app.languageManager();
    Preferences& p = m_app.preferences();
    SettingsGroup* group = addSection(lm.L(QStringLiteral("menubar.engine.system")));
    for (const MenuBarHideEngine::SystemItem& item : MenuBarHideEngine::knownSystemItems()) {
        auto* icon = new ItemIcon;
        icon->setSymbol(item.symbol, SettingsStyle::symbolGrey());
        ToggleSwitch* toggle = nullptr;
        switchRowWithIcon(group, QStringLiteral("system:%1").arg(item.id), lm.L(item.labelKey),
                          icon, &toggle);
        connect(toggle, &ToggleSwitch::toggled, this,
                [&p, id = item.id](bool hidden) { p.setSystemItem(id, hidden); });
        m_systemSwitches.insert(item.id, toggle);
    }
    auto* search = new ItemIcon;
    search->setSymbol(QStringLiteral("magnifyingglass"), SettingsStyle::symbolGrey());
    switchRowWithIcon(group, QStringLiteral("hideSpotlight"),
                      lm.L(QStringLiteral("menubar.engine.spotlight")), search, &m_spotlight);
    connect(m_spotlight, &ToggleSwitch::toggled, this,
            [&p](bool hidden) { p.setHideSpotlight(hidden); });
}

} // namespace ravlin
