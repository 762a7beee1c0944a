#include "GeneralTab.h"

#include "NumberField.h"
#include "PopupButton.h"
#include "SettingsActions.h"
#include "SettingsGroup.h"
#include "SettingsRow.h"
#include "SettingsStyle.h"
#include "ShortcutField.h"
#include "ToggleSwitch.h"
#include "core/app/AppDelegate.h"
#include "core/app/GlobalShortcuts.h"
#include "core/app/SoftwareUpdate.h"
#include "core/bar/StatusBarController.h"
#include "core/settings/ItemShortcuts.h"
#include "core/settings/LanguageManager.h"
#include "core/settings/Preferences.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QSpinBox>

namespace ravlin {
namespace {

constexpr int longestInterval = 3600;

} // namespace

GeneralTab::GeneralTab(AppDelegate& app, SettingsActions& actions, QWidget* parent)
    : SettingsPage(parent), m_app(app), m_actions(actions)
{
    buildStartup();
    buildHiding();
    buildPanel();
    buildShortcuts();
    buildGestures();
    buildUpdates();
    finish();
    refresh();
}

void GeneralTab::buildStartup()
{
    const LanguageManager& lm = m_app.languageManager();
    Preferences& p = m_app.preferences();
    SettingsGroup* group = addSection(lm.L(QStringLiteral("general.section.startup")));
    m_launchAtLogin = addSwitchRow(group, QStringLiteral("launchAtLogin"),
                                   lm.L(QStringLiteral("general.launchAtLogin")),
                                   lm.L(QStringLiteral("general.launchAtLogin.desc")));
    connect(m_launchAtLogin, &ToggleSwitch::toggled, this,
            [&p](bool on) { p.setLaunchAtLogin(on); });
}

void GeneralTab::buildHiding()
{
    const LanguageManager& lm = m_app.languageManager();
    Preferences& p = m_app.preferences();
    SettingsGroup* group = addSection(lm.L(QStringLiteral("general.section.hiding")));
    m_autoRehide = addSwitchRow(group, QStringLiteral("autoRehide"),
                                lm.L(QStringLiteral("general.autoRehide")),
                                lm.L(QStringLiteral("general.autoRehide.desc")));
    connect(m_autoRehide, &ToggleSwitch::toggled, this, [&p](bool on) { p.setAutoRehide(on); });

    m_intervalRow = new SettingsRow(lm.L(QStringLiteral("general.rehideAfter")), QString());
    m_intervalRow->addTrailing(intervalControl());
    group->addRow(m_intervalRow);

    m_alwaysHidden = addSwitchRow(group, QStringLiteral("enableAlwaysHidden"),
                                  lm.L(QStringLiteral("general.enableAlwaysHidden")),
                                  lm.L(QStringLiteral("general.enableAlwaysHidden.desc")));
    connect(m_alwaysHidden, &ToggleSwitch::toggled, this,
            [&p](bool on) { p.setEnableAlwaysHidden(on); });

    // Its title says it all: one line keeps the tab whole on a laptop's display.
    m_clickShowsInBar = addSwitchRow(group, QStringLiteral("clickShowsInBar"),
                                     lm.L(QStringLiteral("general.clickShowsInBar")), QString());
    connect(m_clickShowsInBar, &ToggleSwitch::toggled, this,
            [&p](bool on) { p.setClickShowsInBar(on); });

    m_revealOnHover = addSwitchRow(group, QStringLiteral("revealOnHover"),
                                   lm.L(QStringLiteral("general.revealOnHover")),
                                   lm.L(QStringLiteral("general.revealOnHover.desc")));
    connect(m_revealOnHover, &ToggleSwitch::toggled, this,
            [&p](bool on) { p.setRevealOnHover(on); });
}

QWidget* GeneralTab::intervalControl()
{
    auto* box = new QWidget;
    auto* line = new QHBoxLayout(box);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(6);
    m_interval = new NumberField(1, longestInterval, box);
    m_interval->setObjectName(QStringLiteral("rehideInterval"));
    m_interval->spinBox()->setAccessibleName(
        m_app.languageManager().L(QStringLiteral("general.rehideAfter")));
    line->addWidget(m_interval);
    line->addWidget(
        SettingsStyle::label(m_app.languageManager().L(QStringLiteral("general.seconds")),
                             SettingsStyle::bodyFont(), SettingsStyle::secondaryText(), box));
    Preferences& p = m_app.preferences();
    connect(m_interval, &NumberField::valueChanged, this,
            [&p](int seconds) { p.setRehideInterval(seconds); });
    return box;
}

void GeneralTab::buildPanel()
{
    const LanguageManager& lm = m_app.languageManager();
    Preferences& p = m_app.preferences();
    SettingsGroup* group = addSection(lm.L(QStringLiteral("general.section.panel")));
    m_systemTiles = addSwitchRow(group, QStringLiteral("showSystemTiles"),
                                 lm.L(QStringLiteral("general.showSystemTiles")),
                                 lm.L(QStringLiteral("general.showSystemTiles.desc")));
    connect(m_systemTiles, &ToggleSwitch::toggled, this,
            [&p](bool on) { p.setShowSystemTiles(on); });
    m_weather = addSwitchRow(group, QStringLiteral("showWeather"),
                             lm.L(QStringLiteral("general.showWeather")),
                             lm.L(QStringLiteral("general.showWeather.desc")));
    connect(m_weather, &ToggleSwitch::toggled, this, [&p](bool on) { p.setShowWeather(on); });

    auto* row = new SettingsRow(lm.L(QStringLiteral("general.tileStyle")),
                                lm.L(QStringLiteral("general.tileStyle.desc")));
    m_style = new PopupButton;
    m_style->setObjectName(QStringLiteral("tileStyle"));
    m_style->setAccessibleName(lm.L(QStringLiteral("general.tileStyle")));
    for (TileStyle style : allTileStyles)
        m_style->addItem(lm.L(tileStyleTitleKey(style)), tileStyleRawValue(style));
    connect(m_style, &PopupButton::currentIndexChanged, this, [this, &p](int index) {
        if (auto style = tileStyleFromRawValue(m_style->itemData(index).toString()))
            p.setTileStyle(*style);
    });
    row->addTrailing(m_style);
    group->addRow(row);
    // One line, as the click's switch: the keyboard shortcuts stay in sight on a laptop.
    m_barStatistics = addSwitchRow(group, QStringLiteral("barShowsStatistics"),
                                   lm.L(QStringLiteral("general.barStatistics")), QString());
    connect(m_barStatistics, &ToggleSwitch::toggled, this,
            [&p](bool on) { p.setBarShowsStatistics(on); });
}

void GeneralTab::buildShortcuts()
{
    const LanguageManager& lm = m_app.languageManager();
    SettingsGroup* group = addSection(lm.L(QStringLiteral("general.section.shortcuts")));
    const QString panelTitleKey = QStringLiteral("shortcut.panel");
    const QString hiddenTitleKey = QStringLiteral("shortcut.hiddenSection");
    addShortcutRow(group, Shortcut::Panel, QStringLiteral("panelShortcut"), panelTitleKey);
    addShortcutRow(group, Shortcut::HiddenSection, QStringLiteral("hiddenSectionShortcut"),
                   hiddenTitleKey);
}

void GeneralTab::addShortcutRow(SettingsGroup* group, Shortcut which, const QString& name,
                                const QString& titleKey)
{
    const LanguageManager& lm = m_app.languageManager();
    ShortcutRow& r = shortcutRow(which);
    r.row = new SettingsRow(lm.L(titleKey), lm.L(titleKey + QStringLiteral(".desc")));
    r.field = new ShortcutField({lm.L(QStringLiteral("shortcut.record")),
                                 lm.L(QStringLiteral("shortcut.recording")),
                                 lm.L(QStringLiteral("shortcut.none"))});
    r.field->setObjectName(name);
    r.field->onRecorded = [this, which](const std::optional<KeyChord>& chord) {
        recorded(which, chord);
    };
    // While a field records, the chords it hears must not set off the shortcuts.
    r.field->onRecordingChanged = [this](bool recording) {
        if (m_app.shortcuts())
            m_app.shortcuts()->setSuspended(recording);
    };
    r.row->addTrailing(r.field);
    group->addRow(r.row);
}

// Only a build with an updater offers its settings.
void GeneralTab::buildUpdates()
{
    SoftwareUpdate& updates = m_app.softwareUpdate();
    if (!updates.available())
        return;
    const LanguageManager& lm = m_app.languageManager();
    SettingsGroup* group = addSection(lm.L(QStringLiteral("general.section.updates")));
    m_autoUpdate = addSwitchRow(group, QStringLiteral("autoUpdate"),
                                lm.L(QStringLiteral("general.autoUpdate")),
                                lm.L(QStringLiteral("general.autoUpdate.desc")));
    connect(m_autoUpdate, &ToggleSwitch::toggled, this,
            [&updates](bool on) { updates.setAutomaticChecks(on); });

    auto* row = new SettingsRow(lm.L(QStringLiteral("general.updateChannel")),
                                lm.L(QStringLiteral("general.updateChannel.desc")));
    m_updateChannel = new PopupButton;
    m_updateChannel->setObjectName(QStringLiteral("updateChannel"));
    m_updateChannel->setAccessibleName(lm.L(QStringLiteral("general.updateChannel")));
    for (UpdateChannel channel : {UpdateChannel::Stable, UpdateChannel::Beta}) {
        const QString raw = updateChannelRawValue(channel);
        m_updateChannel->addItem(lm.L(QStringLiteral("general.updateChannel.") + raw), raw);
    }
    connect(m_updateChannel, &PopupButton::currentIndexChanged, this, [this, &updates](int index) {
        if (auto channel = updateChannelFromRawValue(m_updateChannel->itemData(index).toString()))
            updates.setChannel(*channel);
    });
    row->addTrailing(m_updateChannel);
    group->addRow(row);
}

// A chord the rules refuse is not stored: the row says why, and the old one stays.
void GeneralTab::recorded(Shortcut which, const std::optional<KeyChord>& chord)
{
    ShortcutRow& r = shortcutRow(which);
    r.refusal.clear();
    r.holder.clear();
    if (chord) {
        const Shortcut other =
            which == Shortcut::Panel ? Shortcut::HiddenSection : Shortcut::Panel;
        if (const std::optional<QString> refusal =
                ShortcutRules::refusal(*chord, m_app.preferences().shortcut(other))) {
            r.refusal = *refusal;
            showProblem(which);
            return;
        }
        // An item's shortcut keeps its chord.
        if (const std::optional<QString> item =
                ItemShortcuts::holder(m_app.preferences().itemShortcuts(), *chord)) {
            r.refusal = QStringLiteral("shortcut.error.usedBy");
            r.holder = m_app.statusBar() ? m_app.statusBar()->itemName(*item) : *item;
            showProblem(which);
            return;
        }
    }
    m_app.preferences().setShortcut(which, chord);
    // The system's answer came after the page was refreshed for the change.
    showProblem(which);
}

void GeneralTab::showProblem(Shortcut which)
{
    ShortcutRow& r = shortcutRow(which);
    QString key = r.refusal;
    if (key.isEmpty() && m_app.shortcuts())
        key = m_app.shortcuts()->problem(which).value_or(QString());
    const LanguageManager& lm = m_app.languageManager();
    const QString text = key.isEmpty()       ? QString()
                         : r.holder.isEmpty() ? lm.L(key)
                                              : lm.L(key, r.holder);
    if (r.row->setHint(text, !key.isEmpty()))
        Q_EMIT contentChanged();
}

void GeneralTab::refresh()
{
    const Preferences& p = m_app.preferences();
    m_launchAtLogin->setCheckedQuietly(p.launchAtLogin());
    m_autoRehide->setCheckedQuietly(p.autoRehide());
    m_interval->setValueQuietly(p.rehideInterval());
    m_intervalRow->setEnabled(p.autoRehide());
    m_alwaysHidden->setCheckedQuietly(p.enableAlwaysHidden());
    m_clickShowsInBar->setCheckedQuietly(p.clickShowsInBar());
    m_revealOnHover->setCheckedQuietly(p.revealOnHover());
    m_gestureClick->setCheckedQuietly(p.revealOnMenuBarClick());
    m_gestureScroll->setCheckedQuietly(p.revealOnMenuBarScroll());
    m_gestureHover->setCheckedQuietly(p.revealOnMenuBarHover());
    m_barStatistics->setCheckedQuietly(p.barShowsStatistics());
    m_systemTiles->setCheckedQuietly(p.showSystemTiles());
    m_weather->setCheckedQuietly(p.showWeather());
    m_style->setCurrentDataQuietly(tileStyleRawValue(p.tileStyle()));
    for (Shortcut which : {Shortcut::Panel, Shortcut::HiddenSection}) {
        shortcutRow(which).field->setChord(p.shortcut(which));
        showProblem(which);
    }
    if (m_autoUpdate) {
        const SoftwareUpdate& updates = m_app.softwareUpdate();
        m_autoUpdate->setCheckedQuietly(updates.automaticChecks());
        m_updateChannel->setCurrentDataQuietly(updateChannelRawValue(updates.channel()));
    }
}

// Reveal gestures on the menu bar, each off until chosen.
void GeneralTab::buildGestures()
{
    const LanguageManager& lm = m_app.languageManager();
    Preferences& p = m_app.preferences();
    SettingsGroup* group = addSection(lm.L(QStringLiteral("general.section.gestures")));
    m_gestureClick = addSwitchRow(group, QStringLiteral("revealOnMenuBarClick"),
                                  lm.L(QStringLiteral("general.gesture.click")),
                                  lm.L(QStringLiteral("general.gesture.click.desc")));
    connect(m_gestureClick, &ToggleSwitch::toggled, this,
            [&p](bool on) { p.setRevealOnMenuBarClick(on); });
    m_gestureScroll = addSwitchRow(group, QStringLiteral("revealOnMenuBarScroll"),
                                   lm.L(QStringLiteral("general.gesture.scroll")),
                                   lm.L(QStringLiteral("general.gesture.scroll.desc")));
    connect(m_gestureScroll, &ToggleSwitch::toggled, this,
            [&p](bool on) { p.setRevealOnMenuBarScroll(on); });
    m_gestureHover = addSwitchRow(group, QStringLiteral("revealOnMenuBarHover"),
                                  lm.L(QStringLiteral("general.gesture.hover")),
                                  lm.L(QStringLiteral("general.gesture.hover.desc")));
    connect(m_gestureHover, &ToggleSwitch::toggled, this,
            [&p](bool on) { p.setRevealOnMenuBarHover(on); });
}

} // namespace ravlin
