#include "GeneralTab.h"

#include "NumberField.h"
#include "PopupButton.h"
#include "SettingsActions.h"
#include "SettingsGroup.h"
#include "SettingsRow.h"
#include "SettingsStyle.h"
#include "ToggleSwitch.h"
#include "core/app/AppDelegate.h"
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
    // The assessment mode hides without separators, so there is no second section to show.
    m_alwaysHidden->parentWidget()->setEnabled(!m_actions.usesEngine());

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
        m_style->addItem(tileStyleTitle(style), tileStyleRawValue(style));
    connect(m_style, &PopupButton::currentIndexChanged, this, [this, &p](int index) {
        if (auto style = tileStyleFromRawValue(m_style->itemData(index).toString()))
            p.setTileStyle(*style);
    });
    row->addTrailing(m_style);
    group->addRow(row);
}

void GeneralTab::refresh()
{
    const Preferences& p = m_app.preferences();
    m_launchAtLogin->setCheckedQuietly(p.launchAtLogin());
    m_autoRehide->setCheckedQuietly(p.autoRehide());
    m_interval->setValueQuietly(p.rehideInterval());
    m_intervalRow->setEnabled(p.autoRehide());
    m_alwaysHidden->setCheckedQuietly(p.enableAlwaysHidden());
    m_revealOnHover->setCheckedQuietly(p.revealOnHover());
    m_systemTiles->setCheckedQuietly(p.showSystemTiles());
    m_weather->setCheckedQuietly(p.showWeather());
    m_style->setCurrentDataQuietly(tileStyleRawValue(p.tileStyle()));
}

} // namespace ravlin
