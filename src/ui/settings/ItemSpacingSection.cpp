#include "ItemSpacingSection.h"

#include "NumberField.h"
#include "SettingsActions.h"
#include "SettingsGroup.h"
#include "SettingsPage.h"
#include "SettingsRow.h"
#include "SettingsStyle.h"
#include "SpacingPreview.h"
#include "TextLabel.h"
#include "core/app/AppDelegate.h"
#include "core/app/AppRestarter.h"
#include "core/app/MenuBarServices.h"
#include "core/discovery/MenuBarSystem.h"
#include "core/discovery/ScannerModel.h"
#include "core/settings/ItemSpacing.h"
#include "core/settings/LanguageManager.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace ravlin {

ItemSpacingSection::ItemSpacingSection(AppDelegate& app, SettingsActions& actions,
                                       SettingsPage& page)
    : QObject(&page), m_app(app), m_actions(actions), m_page(page)
{
    build(page);
    refresh();
}

void ItemSpacingSection::build(SettingsPage& page)
{
    const LanguageManager& lm = m_app.languageManager();
    SettingsGroup* group = page.addSection(lm.L(QStringLiteral("menubar.space.title")));
    auto field = [&](const QString& name, const QString& title, const QString& description) {
        auto* row = new SettingsRow(title, description);
        auto* number = new NumberField(ItemSpacing::minimum, ItemSpacing::maximum);
        number->setObjectName(name);
        number->setAccessibleName(title);
        connect(number, &NumberField::valueChanged, this, [this] {
            m_edited = true;
            fieldsChanged();
        });
        row->addTrailing(number);
        group->addRow(row);
        return number;
    };
    m_spacing = field(QStringLiteral("itemSpacing"), lm.L(QStringLiteral("menubar.space.spacing")),
                      lm.L(QStringLiteral("menubar.space.desc")));
    m_padding = field(QStringLiteral("itemPadding"), lm.L(QStringLiteral("menubar.space.padding")),
                      lm.L(QStringLiteral("menubar.space.padding.desc")));
    group->addRow(previewRow());

    m_stateRow = new SettingsRow(QString(), QString());
    m_stateRow->titleLabel()->setObjectName(QStringLiteral("spacingState"));
    auto button = [&](SettingsRow* row, const QString& name, const QString& text,
                      void (ItemSpacingSection::*slot)()) {
        QPushButton* b = SettingsPage::makeButton(name, text, row);
        connect(b, &QPushButton::clicked, this, slot);
        row->addTrailing(b);
    };
    button(m_stateRow, QStringLiteral("spacingApply"), lm.L(QStringLiteral("menubar.space.apply")),
           &ItemSpacingSection::apply);
    group->addRow(m_stateRow);
    // The presets have a row of their own: beside the state and Apply, the three buttons are
    // wider than the window in many languages.
    auto* presets = new SettingsRow(QString(), QString());
    presets->setObjectName(QStringLiteral("spacingPresets"));
    presets->titleLabel()->hide();
    // "spacing" is the compact preset's name since the first versions had only that button.
    button(presets, QStringLiteral("spacing"), lm.L(QStringLiteral("menubar.space.button")),
           &ItemSpacingSection::compact);
    button(presets, QStringLiteral("spacingReset"), lm.L(QStringLiteral("menubar.space.reset")),
           &ItemSpacingSection::reset);
    group->addRow(presets);
    buildOffer(*group);

    QString note = lm.L(QStringLiteral("menubar.space.note"));
    if (!m_app.menuBar().system().capabilities().systemItemsFollowSpacing())
        note += u'\n' + lm.L(QStringLiteral("menubar.space.systemIgnores"));
    page.addNote(note);
}

QWidget* ItemSpacingSection::previewRow()
{
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(SettingsStyle::rowInset, 4, SettingsStyle::rowInset, 6);
    m_preview = new SpacingPreview(row);
    m_preview->setAccessibleName(
        m_app.languageManager().L(QStringLiteral("menubar.space.preview")));
    layout->addWidget(m_preview);
    return row;
}

void ItemSpacingSection::buildOffer(SettingsGroup& group)
{
    const LanguageManager& lm = m_app.languageManager();
    m_offer = new SettingsRow(lm.L(QStringLiteral("menubar.space.restart.title")), QString());
    m_offer->setObjectName(QStringLiteral("spacingOffer"));
    m_restart = SettingsPage::makeButton(QStringLiteral("spacingRestart"),
                                         lm.L(QStringLiteral("menubar.space.restart")), m_offer);
    connect(m_restart, &QPushButton::clicked, this, &ItemSpacingSection::restartApps);
    QPushButton* later = SettingsPage::makeButton(
        QStringLiteral("spacingLater"), lm.L(QStringLiteral("menubar.space.later")), m_offer);
    connect(later, &QPushButton::clicked, this, &ItemSpacingSection::later);
    m_offer->addTrailing(m_restart);
    m_offer->addTrailing(later);
    group.addRow(m_offer);
    m_offer->hide(); // until a change was made
}

void ItemSpacingSection::refresh()
{
    if (!m_edited) {
        const ItemSpacing spacing = m_actions.itemSpacing();
        m_spacing->setValueQuietly(spacing.spacing());
        m_padding->setValueQuietly(spacing.padding());
    }
    fieldsChanged();
    showState();
}

void ItemSpacingSection::fieldsChanged()
{
    m_preview->setValues(m_spacing->value(), m_padding->value());
}

void ItemSpacingSection::showState()
{
    const LanguageManager& lm = m_app.languageManager();
    const SpacingValues stored = m_actions.itemSpacing().stored();
    const QString state =
        stored.isDefault()
            ? lm.L(QStringLiteral("menubar.space.state.default"))
            : lm.L(QStringLiteral("menubar.space.state"),
                   stored.spacing ? QString::number(*stored.spacing) : QStringLiteral("–"),
                   stored.padding ? QString::number(*stored.padding) : QStringLiteral("–"));
    if (auto* label = qobject_cast<TextLabel*>(m_stateRow->titleLabel()))
        label->setPlainText(state);
    else
        m_stateRow->titleLabel()->setText(state);
}

void ItemSpacingSection::apply()
{
    if (!m_actions.applySpacing(m_spacing->value(), m_padding->value()))
        return;
    m_edited = false;
    refresh();
    offerRestart();
}

void ItemSpacingSection::compact()
{
    m_spacing->setValueQuietly(ItemSpacing::compactSpacing);
    m_padding->setValueQuietly(ItemSpacing::compactPadding);
    apply();
}

void ItemSpacingSection::reset()
{
    if (!m_actions.resetSpacing())
        return;
    m_edited = false;
    refresh();
    offerRestart();
}

void ItemSpacingSection::offerRestart()
{
    const LanguageManager& lm = m_app.languageManager();
    const std::vector<RunningApplication> apps =
        m_actions.restarter().candidates(m_app.scannerModel().detected());
    QStringList names;
    for (const RunningApplication& app : apps)
        names.append(app.localizedName.value_or(app.bundleIdentifier.value_or(QString())));
    m_restart->setVisible(!apps.empty());
    m_offer->setHint(apps.empty() ? lm.L(QStringLiteral("menubar.space.restart.none"))
                                  : lm.L(QStringLiteral("menubar.space.restart.desc"),
                                         names.join(QStringLiteral(", "))),
                     true);
    m_offer->show();
    Q_EMIT m_page.contentChanged();
}

void ItemSpacingSection::restartApps()
{
    m_actions.restarter().restart(
        m_actions.restarter().candidates(m_app.scannerModel().detected()));
    later();
}

void ItemSpacingSection::later()
{
    m_offer->hide();
    Q_EMIT m_page.contentChanged();
}

} // namespace ravlin
