// The Menu Bar tab's sections for items seen for the first time and for named layouts.
#include "MenuBarTab.h"

#include "PopupButton.h"
#include "SegmentedControl.h"
#include "SettingsActions.h"
#include "SettingsGroup.h"
#include "SettingsRow.h"
#include "core/app/AppDelegate.h"
#include "core/bar/LayoutName.h"
#include "core/settings/LanguageManager.h"
#include "core/settings/Preferences.h"

#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>

namespace ravlin {
namespace {

const QString layoutFilter = QStringLiteral("Ravlin layout (*.ravlinlayout *.json)");

} // namespace

void MenuBarTab::buildNewItems()
{
    const LanguageManager& lm = m_app.languageManager();
    SettingsGroup* group = addSection(lm.L(QStringLiteral("menubar.newItems")));
    auto* row = new SettingsRow(lm.L(QStringLiteral("menubar.newItems.title")),
                                lm.L(QStringLiteral("menubar.newItems.desc")));
    m_newItems = new SegmentedControl;
    m_newItems->setObjectName(QStringLiteral("newItems"));
    m_newItems->setAccessibleName(lm.L(QStringLiteral("menubar.newItems.title")));
    for (ItemPlacement p : {ItemPlacement::Bar, ItemPlacement::Panel, ItemPlacement::Off})
        m_newItems->addSegment(itemPlacementName(p),
                               lm.L(QStringLiteral("menubar.place.") + itemPlacementName(p)));
    connect(m_newItems, &SegmentedControl::chosen, this, [this](const QString& value) {
        if (const std::optional<ItemPlacement> p = itemPlacementFromName(value))
            m_actions.setNewItemPlacement(*p);
    });
    row->addTrailing(m_newItems);
    group->addRow(row);
}

PopupButton* MenuBarTab::layoutPopup(const QString& name, bool withOff)
{
    auto* popup = new PopupButton;
    popup->setObjectName(name);
    popup->setProperty("withOff", withOff);
    return popup;
}

void MenuBarTab::buildLayouts()
{
    const LanguageManager& lm = m_app.languageManager();
    SettingsGroup* group = addSection(lm.L(QStringLiteral("menubar.layouts")));
    m_layouts = group;

    auto* current = new SettingsRow(lm.L(QStringLiteral("menubar.layouts.current")), QString());
    m_layoutChoice = layoutPopup(QStringLiteral("layouts"), false);
    connect(m_layoutChoice, &QComboBox::activated, this, [this](int index) {
        m_actions.switchLayout(m_layoutChoice->itemData(index).toString());
    });
    current->addTrailing(m_layoutChoice);
    QPushButton* remove = makeButton(QStringLiteral("deleteLayout"),
                                     lm.L(QStringLiteral("menubar.layouts.delete")), current);
    connect(remove, &QPushButton::clicked, this, [this] {
        m_actions.deleteLayout(m_layoutChoice->currentData().toString());
        refreshLayouts();
    });
    current->addTrailing(remove);
    group->addRow(current);

    auto* save = new SettingsRow(lm.L(QStringLiteral("menubar.layouts.saveAs")), QString());
    m_saveRow = save;
    m_layoutName = new QLineEdit;
    m_layoutName->setObjectName(QStringLiteral("layoutName"));
    m_layoutName->setPlaceholderText(lm.L(QStringLiteral("menubar.layouts.placeholder")));
    // Longer names are refused whole, in words, rather than cut in the middle of a character.
    m_layoutName->setMaxLength(LayoutName::maxUnits);
    m_layoutName->setFixedWidth(150);
    save->addTrailing(m_layoutName);
    m_saveLayout = makeButton(QStringLiteral("saveLayout"),
                              lm.L(QStringLiteral("menubar.layouts.save")), save);
    connect(m_saveLayout, &QPushButton::clicked, this, &MenuBarTab::saveLayout);
    connect(m_layoutName, &QLineEdit::returnPressed, this, &MenuBarTab::saveLayout);
    connect(m_layoutName, &QLineEdit::textChanged, this, &MenuBarTab::layoutNameChanged);
    save->addTrailing(m_saveLayout);
    group->addRow(save);

    auto* file = new SettingsRow(lm.L(QStringLiteral("menubar.layouts.file")),
                                 lm.L(QStringLiteral("menubar.layouts.file.desc")));
    QPushButton* exportButton = makeButton(QStringLiteral("exportLayout"),
                                           lm.L(QStringLiteral("menubar.layouts.export")), file);
    connect(exportButton, &QPushButton::clicked, this, &MenuBarTab::exportLayout);
    QPushButton* importButton = makeButton(QStringLiteral("importLayout"),
                                           lm.L(QStringLiteral("menubar.layouts.import")), file);
    connect(importButton, &QPushButton::clicked, this, &MenuBarTab::importLayout);
    file->addTrailing(exportButton);
    file->addTrailing(importButton);
    group->addRow(file);

    const std::pair<QString, QString> occasions[] = {
        {QStringLiteral("layoutOnDisplay"), QStringLiteral("menubar.layouts.onDisplay")},
        {QStringLiteral("layoutOnBattery"), QStringLiteral("menubar.layouts.onBattery")}};
    for (const auto& [name, title] : occasions) {
        auto* row = new SettingsRow(lm.L(title), lm.L(QStringLiteral("menubar.layouts.auto.desc")));
        PopupButton* popup = layoutPopup(name, true);
        const bool display = name == u"layoutOnDisplay";
        connect(popup, &QComboBox::activated, this, [this, popup, display](int index) {
            const QString layout = popup->itemData(index).toString();
            if (display)
                m_actions.setLayoutOnDisplay(layout);
            else
                m_actions.setLayoutOnBattery(layout);
        });
        (display ? m_layoutOnDisplay : m_layoutOnBattery) = popup;
        row->addTrailing(popup);
        group->addRow(row);
    }
    refreshLayouts();
}

// Save waits for a name; a name already saved turns it into Replace, with a line that says
// so, and the user's press is the consent.
void MenuBarTab::layoutNameChanged()
{
    const LanguageManager& lm = m_app.languageManager();
    const QString name = m_layoutName->text().trimmed();
    const bool taken = !name.isEmpty() && m_actions.layoutNames().contains(name);
    m_saveLayout->setEnabled(!name.isEmpty());
    m_saveLayout->setText(taken ? lm.L(QStringLiteral("menubar.layouts.replace"))
                                : lm.L(QStringLiteral("menubar.layouts.save")));
    const bool noted = m_saveRow->hintLabel() && !m_saveRow->hintLabel()->isHidden();
    m_saveRow->setHint(taken ? lm.L(QStringLiteral("menubar.layouts.exists"), name) : QString(),
                       taken);
    if (noted != taken)
        Q_EMIT contentChanged();
}

void MenuBarTab::saveLayout()
{
    if (m_layoutName->text().trimmed().isEmpty())
        return;
    if (!m_actions.saveLayout(m_layoutName->text())) {
        // The name stays for another try, and the line says why nothing happened.
        m_saveRow->setHint(m_app.languageManager().L(QStringLiteral("menubar.layouts.saveFailed")),
                           true);
        Q_EMIT contentChanged();
        return;
    }
    m_layoutName->clear();
    refreshLayouts();
}

void MenuBarTab::focusLayoutName()
{
    if (!m_layoutName)
        return;
    for (QWidget* w = parentWidget(); w; w = w->parentWidget()) {
        if (auto* scroll = qobject_cast<QScrollArea*>(w)) {
            scroll->ensureWidgetVisible(m_layouts ? static_cast<QWidget*>(m_layouts) : m_layoutName,
                                        0, 12);
            scroll->ensureWidgetVisible(m_layoutName, 0, 12);
            break;
        }
    }
    m_layoutName->setFocus(Qt::OtherFocusReason);
}

void MenuBarTab::refreshLayouts()
{
    if (!m_layoutChoice)
        return;
    const LanguageManager& lm = m_app.languageManager();
    const QStringList names = m_actions.layoutNames();
    auto fill = [&](PopupButton* popup, const QString& chosen) {
        popup->clear();
        if (popup->property("withOff").toBool())
            popup->addItem(lm.L(QStringLiteral("menubar.layouts.off")), QString());
        else if (names.isEmpty())
            popup->addItem(QStringLiteral("—"), QString());
        for (const QString& name : names)
            popup->addItem(name, name);
        popup->setCurrentDataQuietly(chosen);
        popup->setEnabled(!names.isEmpty());
    };
    fill(m_layoutChoice, m_actions.activeLayout());
    fill(m_layoutOnDisplay, m_actions.layoutOnDisplay());
    fill(m_layoutOnBattery, m_actions.layoutOnBattery());
    if (QPushButton* remove = findChild<QPushButton*>(QStringLiteral("deleteLayout")))
        remove->setEnabled(!names.isEmpty());
    if (QPushButton* exportButton = findChild<QPushButton*>(QStringLiteral("exportLayout")))
        exportButton->setEnabled(!names.isEmpty());
    layoutNameChanged();
}

void MenuBarTab::exportLayout()
{
    const QString name = m_layoutChoice->currentData().toString();
    if (name.isEmpty())
        return;
    const QString path = QFileDialog::getSaveFileName(
        this, QString(), QDir::home().filePath(name + QStringLiteral(".ravlinlayout")),
        layoutFilter);
    m_actions.exportLayout(name, path);
}

void MenuBarTab::importLayout()
{
    const QString path =
        QFileDialog::getOpenFileName(this, QString(), QDir::homePath(), layoutFilter);
    if (!m_actions.importLayout(path).isEmpty())
        refreshLayouts();
}

} // namespace ravlin
