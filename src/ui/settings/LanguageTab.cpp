#include "LanguageTab.h"

#include "PopupButton.h"
#include "SettingsActions.h"
#include "SettingsGroup.h"
#include "SettingsRow.h"
#include "core/app/AppDelegate.h"
#include "core/settings/LanguageManager.h"
#include "core/settings/Languages.h"

namespace ravlin {

LanguageTab::LanguageTab(AppDelegate& app, SettingsActions& actions, QWidget* parent)
    : SettingsPage(parent), m_app(app), m_actions(actions)
{
    const LanguageManager& lm = app.languageManager();
    SettingsGroup* group = addSection(QString());
    auto* row = new SettingsRow(lm.L(QStringLiteral("language.pick")),
                                lm.L(QStringLiteral("language.note")));
    m_picker = new PopupButton;
    m_picker->setObjectName(QStringLiteral("language"));
    m_picker->setAccessibleName(lm.L(QStringLiteral("language.pick")));
    m_picker->addItem(lm.L(QStringLiteral("language.system")), QString());
    for (const AppLanguage& language : Languages::all())
        m_picker->addItem(language.autonym, language.code);
    m_picker->setMaxVisibleItems(14);
    connect(m_picker, &PopupButton::currentIndexChanged, this,
            [this](int index) { m_actions.pickLanguage(m_picker->itemData(index).toString()); });
    row->addTrailing(m_picker);
    group->addRow(row);
    addNote(lm.L(QStringLiteral("language.restart")));
    finish();
    refresh();
}

void LanguageTab::refresh()
{
    m_picker->setCurrentDataQuietly(m_app.languageManager().activeCode());
}

} // namespace ravlin
