#include "AboutTab.h"

#include "AppMark.h"
#include "ItemIcon.h"
#include "OpenSourceNotices.h"
#include "SettingsActions.h"
#include "SettingsButton.h"
#include "SettingsGroup.h"
#include "SettingsRow.h"
#include "SettingsStyle.h"
#include "TextLabel.h"
#include "core/app/AppDelegate.h"
#include "core/app/SoftwareUpdate.h"
#include "core/settings/LanguageManager.h"
#include "ui/Theme.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace ravlin {
namespace {

QLabel* centred(QLabel* label)
{
    label->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    return label;
}

} // namespace

AboutTab::AboutTab(AppDelegate& app, SettingsActions& actions, QWidget* parent)
    : SettingsPage(parent), m_app(app), m_actions(actions)
{
    buildHeader();
    buildNotices();
    buildControlCentre();
    finish();
}

void AboutTab::buildHeader()
{
    const LanguageManager& lm = m_app.languageManager();
    auto* header = new QWidget(this);
    auto* column = new QVBoxLayout(header);
    column->setContentsMargins(0, 2, 0, 0);
    column->setSpacing(2);
    column->addWidget(new AppMark(header), 0, Qt::AlignHCenter);
    column->addSpacing(6);
    QLabel* name = SettingsStyle::label(QStringLiteral("Ravlin"), Theme::font(20, QFont::DemiBold),
                                        SettingsStyle::primaryText(), header);
    name->setObjectName(QStringLiteral("name"));
    column->addWidget(centred(name));
    QLabel* tagline =
        SettingsStyle::label(lm.L(QStringLiteral("app.tagline")), SettingsStyle::bodyFont(),
                             SettingsStyle::secondaryText(), header, true);
    tagline->setObjectName(QStringLiteral("tagline"));
    column->addWidget(centred(tagline));
    column->addSpacing(2);
    QLabel* versionLine =
        SettingsStyle::label(lm.L(QStringLiteral("about.version"), version()),
                             SettingsStyle::captionFont(), SettingsStyle::secondaryText(), header);
    versionLine->setObjectName(QStringLiteral("version"));
    versionLine->setTextInteractionFlags(Qt::TextSelectableByMouse);
    column->addWidget(centred(versionLine));
    SoftwareUpdate& updates = m_app.softwareUpdate();
    if (updates.available()) {
        column->addSpacing(8);
        auto* check = new SettingsButton(SettingsButton::Kind::Push,
                                         lm.L(QStringLiteral("menu.checkForUpdates")), header);
        check->setObjectName(QStringLiteral("checkForUpdates"));
        connect(check, &QPushButton::clicked, this, [&updates] { updates.checkNow(); });
        column->addWidget(check, 0, Qt::AlignHCenter);
    }
    addWidget(header, 0);
}

void AboutTab::buildNotices()
{
    SettingsGroup* group =
        addSection(m_app.languageManager().L(QStringLiteral("about.opensource")));
    group->setObjectName(QStringLiteral("notices"));
    for (const OpenSourceNotice& notice : OpenSourceNotices::all()) {
        // Names, holders and licences are written in English whatever the interface's language.
        auto* row = new SettingsRow(notice.name, QStringLiteral("© ") + notice.holder);
        row->setTitleIsName();
        static_cast<TextLabel*>(row->descriptionLabel())->setFollowsWindowDirection(false);
        auto* licence = static_cast<TextLabel*>(SettingsStyle::label(
            notice.licence, SettingsStyle::captionFont(), SettingsStyle::secondaryText(), row));
        licence->setFollowsWindowDirection(false);
        licence->setObjectName(QStringLiteral("licence"));
        row->addTrailing(licence);
        group->addRow(row);
    }
}

void AboutTab::buildControlCentre()
{
    const LanguageManager& lm = m_app.languageManager();
    SettingsGroup* group = addSection(QString());
    auto* row = new SettingsRow(QString(), lm.L(QStringLiteral("about.controlCenter.desc")));
    auto* icon = new ItemIcon;
    icon->setSymbol(QStringLiteral("switch.2"), SettingsStyle::accent());
    row->setLeading(icon);
    // The title itself is the link, as the system's own panes write such links.
    auto* link =
        new SettingsButton(SettingsButton::Kind::Link, lm.L(QStringLiteral("about.controlCenter")));
    link->setObjectName(QStringLiteral("controlCenter"));
    connect(link, &QPushButton::clicked, this, [this] { m_actions.openControlCentreSettings(); });
    row->setTitleWidget(link);
    group->addRow(row);
}

} // namespace ravlin
