#include "MenuBarTab.h"

#include "ItemIcon.h"
#include "ItemSpacingSection.h"
#include "SegmentedControl.h"
#include "SettingsActions.h"
#include "SettingsGroup.h"
#include "SettingsRow.h"
#include "SettingsStyle.h"
#include "ToggleSwitch.h"
#include "WatchButton.h"
#include "core/app/AppDelegate.h"
#include "core/changes/WatchList.h"
#include "core/discovery/ScannerModel.h"
#include "foundation/Logging.h"
#include "foundation/Scheduler.h"
#include "core/settings/LanguageManager.h"
#include "core/settings/Preferences.h"
#include "core/tiles/BarItem.h"

#include <QPushButton>
#include <QVBoxLayout>

namespace ravlin {

MenuBarTab::MenuBarTab(AppDelegate& app, SettingsActions& actions, QWidget* parent)
    : SettingsPage(parent), m_app(app), m_actions(actions)
{
    m_itemShortcuts.onHintsChanged = [this] { Q_EMIT contentChanged(); };
    buildItems();
    buildNewItems();
    buildLayouts();
    finish();
    m_shownSignature = listSignature();
    connect(&app.scannerModel(), &ScannerModel::willChange, this, &MenuBarTab::scheduleReload);
    connect(&app.watchList(), &WatchList::changed, this, &MenuBarTab::refresh);
    refresh();
}

void MenuBarTab::buildItems()
{
    addText(m_app.languageManager().L(QStringLiteral("menubar.help.items")));
    auto* holder = new QWidget(this);
    m_listHolder = new QVBoxLayout(holder);
    m_listHolder->setContentsMargins(0, 0, 0, 0);
    addWidget(holder, 20);
    m_lists = new SettingsColumn(QMargins(0, 0, 0, 0), holder);
    fillItems(*m_lists);
    m_listHolder->addWidget(m_lists);
    buildTools();
}

void MenuBarTab::fillItems(SettingsColumn& column)
{
    const LanguageManager& lm = m_app.languageManager();
    std::vector<const BarItem*> apps, system;
    for (const BarItem& item : m_app.scannerModel().detected())
        (item.isApple ? system : apps).push_back(&item);

    SettingsGroup* detected = column.addSection(lm.L(QStringLiteral("menubar.detected")));
    if (apps.empty())
        detected->addMessageRow(lm.L(QStringLiteral("menubar.empty")));
    for (const BarItem* item : apps)
        detected->addRow(itemRow(*item));
    QString note = lm.L(QStringLiteral("menubar.selectHelp")) + u'\n' +
                   lm.L(QStringLiteral("menubar.watch.help")) + u'\n' +
                   lm.L(QStringLiteral("menubar.shortcutHelp")) + u'\n' +
                   lm.L(QStringLiteral("menubar.autoupdated"));
    if (m_actions.hidesWholeApplications())
        note += u'\n' + lm.L(QStringLiteral("menubar.wholeApps"));
    column.addNote(note);

    if (system.empty())
        return;
    SettingsGroup* group = column.addSection(lm.L(QStringLiteral("menubar.systemItems")));
    for (const BarItem* item : system)
        group->addRow(itemRow(*item));
}

QWidget* MenuBarTab::itemRow(const BarItem& item)
{
    const LanguageManager& lm = m_app.languageManager();
    const QString title = item.label.isEmpty() ? item.info.owner : item.label;
    auto* row = new SettingsRow(title, QString());
    row->setTitleIsName();
    auto* icon = new ItemIcon;
    if (item.image)
        icon->setImage(*item.image);
    else if (item.symbolName)
        icon->setSymbol(*item.symbolName, SettingsStyle::symbolGrey());
    else
        icon->setMonogram(title);
    row->setLeading(icon);

    auto* choice = new SegmentedControl;
    choice->setObjectName(QStringLiteral("place:") + item.key);
    choice->setAccessibleName(title);
    for (ItemPlacement p : {ItemPlacement::Bar, ItemPlacement::Panel, ItemPlacement::Off})
        choice->addSegment(itemPlacementName(p),
                           lm.L(QStringLiteral("menubar.place.") + itemPlacementName(p)));
    connect(choice, &SegmentedControl::chosen, this,
            [this, key = item.key](const QString& value) { choosePlacement(key, value); });
    auto* watch = new WatchButton;
    watch->setObjectName(QStringLiteral("watch:") + item.key);
    watch->setAccessibleName(lm.L(QStringLiteral("menubar.watch"), title));
    watch->setCheckedQuietly(m_app.watchList().contains(item.key));
    connect(watch, &WatchButton::toggled, this,
            [this, key = item.key](bool on) { m_app.watchList().set(key, on); });
    row->addTrailing(watch);
    m_watches.insert(item.key, watch);
    m_itemShortcuts.add(row, item.key);
    row->addTrailing(choice);
    m_placements.insert(item.key, choice);
    return row;
}

void MenuBarTab::choosePlacement(const QString& key, const QString& choice)
{
    const std::optional<ItemPlacement> placement = itemPlacementFromName(choice);
    if (!placement) {
        qCWarning(lcUi) << "unknown placement" << choice << "for" << key;
        return;
    }
    // Choosing where an item already is would only drag it about.
    if (*placement == m_app.preferences().placement(key))
        return;
    m_actions.place(key, *placement);
}

void MenuBarTab::buildTools()
{
    const LanguageManager& lm = m_app.languageManager();
    SettingsGroup* tools = addSection(QString());
    m_arrange = addButtonRow(tools, QStringLiteral("arrange"),
                             lm.L(QStringLiteral("menubar.arrange.title")),
                             lm.L(QStringLiteral("menubar.arrange.desc")),
                             lm.L(QStringLiteral("menubar.arrange.button")));
    connect(m_arrange, &QPushButton::clicked, this, [this] { m_actions.arrange(); });
    QPushButton* rescan = addButtonRow(
        tools, QStringLiteral("rescan"), lm.L(QStringLiteral("menubar.rescan")),
        lm.L(QStringLiteral("menubar.rescan.desc")), lm.L(QStringLiteral("menubar.engine.rescan")));
    connect(rescan, &QPushButton::clicked, this, [this] { m_actions.rescan(); });
    if (m_actions.canChangeSpacing())
        m_spacing = new ItemSpacingSection(m_app, m_actions, *this);
}

void MenuBarTab::refresh()
{
    const Preferences& p = m_app.preferences();
    for (auto it = m_placements.cbegin(); it != m_placements.cend(); ++it)
        it.value()->setValue(itemPlacementName(p.placement(it.key())));
    const QSet<QString> watched = m_app.watchList().keys();
    for (auto it = m_watches.cbegin(); it != m_watches.cend(); ++it)
        it.value()->setCheckedQuietly(watched.contains(it.key()));
    if (m_spacing)
        m_spacing->refresh();
    m_itemShortcuts.refresh();
    if (m_arrange)
        m_arrange->setEnabled(m_actions.canArrange());
    if (m_newItems)
        m_newItems->setValue(itemPlacementName(p.newItemPlacement()));
    refreshLayouts();
}

void MenuBarTab::activated() {}

void MenuBarTab::scheduleReload()
{
    if (m_reloadPending)
        return;
    m_reloadPending = true;
    m_app.scheduler().async([page = QPointer<MenuBarTab>(this)] {
        if (!page)
            return;
        page->m_reloadPending = false;
        page->reload();
    });
}

void MenuBarTab::reload()
{
    const QString signature = listSignature();
    if (signature == m_shownSignature) {
        refresh();
        return;
    }
    m_shownSignature = signature;
    m_placements.clear();
    m_watches.clear();
    m_itemShortcuts.clear();
    if (m_lists) {
        m_lists->hide();
        m_lists->setParent(nullptr);
        m_lists->deleteLater();
    }
    m_lists = new SettingsColumn(QMargins(0, 0, 0, 0));
    fillItems(*m_lists);
    m_listHolder->addWidget(m_lists);
    m_lists->show();
    refresh();
    Q_EMIT contentChanged();
}

QString MenuBarTab::listSignature() const
{
    QStringList parts;
    for (const BarItem& item : m_app.scannerModel().detected())
        parts << item.key + u'=' + item.label + (item.image ? u'+' : u'-') +
                     item.symbolName.value_or(QString());
    return parts.join(u'\n');
}

} // namespace ravlin
