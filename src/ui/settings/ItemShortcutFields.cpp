#include "ItemShortcutFields.h"

#include "SettingsRow.h"
#include "ShortcutField.h"
#include "core/app/AppDelegate.h"
#include "core/app/GlobalShortcuts.h"
#include "core/discovery/ScannerModel.h"
#include "core/settings/ItemShortcuts.h"
#include "core/settings/LanguageManager.h"
#include "core/settings/Preferences.h"
#include "core/tiles/BarItem.h"

namespace ravlin {
namespace {

// Room for "⌃⌥⇧⌘F12" beside the row's placement control.
constexpr int fieldWidth = 112;

} // namespace

ShortcutField* ItemShortcutFields::add(SettingsRow* row, const QString& itemKey)
{
    const LanguageManager& lm = m_app.languageManager();
    auto* field = new ShortcutField({lm.L(QStringLiteral("shortcut.record")),
                                     lm.L(QStringLiteral("shortcut.recording")),
                                     lm.L(QStringLiteral("menubar.shortcut"))});
    field->setObjectName(QStringLiteral("shortcut:") + itemKey);
    field->setFieldWidth(fieldWidth);
    field->onRecorded = [this, itemKey](const std::optional<KeyChord>& chord) {
        recorded(itemKey, chord);
    };
    // While a field records, the chords it hears must not set off the shortcuts.
    field->onRecordingChanged = [this](bool recording) {
        if (m_app.shortcuts())
            m_app.shortcuts()->setSuspended(recording);
    };
    row->addTrailing(field);
    m_fields.insert(itemKey, Entry{field, row, QString()});
    field->setChord(m_app.preferences().itemShortcuts().value(itemKey));
    showProblem(itemKey);
    return field;
}

ShortcutField* ItemShortcutFields::field(const QString& itemKey) const
{
    return m_fields.value(itemKey).field;
}

void ItemShortcutFields::refresh()
{
    const QMap<QString, KeyChord> chords = m_app.preferences().itemShortcuts();
    for (auto it = m_fields.begin(); it != m_fields.end(); ++it) {
        if (!it.value().field)
            continue;
        const auto chord = chords.constFind(it.key());
        it.value().field->setChord(chord == chords.cend() ? std::nullopt
                                                          : std::optional(chord.value()));
        showProblem(it.key());
    }
}

// A refused chord is not stored: the row says why, and the old one stays.
void ItemShortcutFields::recorded(const QString& itemKey, const std::optional<KeyChord>& chord)
{
    Entry& entry = m_fields[itemKey];
    entry.refusal = chord ? refusalOf(itemKey, *chord) : QString();
    if (!entry.refusal.isEmpty()) {
        showProblem(itemKey);
        return;
    }
    m_app.preferences().setItemShortcut(itemKey, chord);
    // The system's answer came after the page was refreshed for the change.
    showProblem(itemKey);
}

QString ItemShortcutFields::refusalOf(const QString& itemKey, const KeyChord& chord) const
{
    const LanguageManager& lm = m_app.languageManager();
    const Preferences& p = m_app.preferences();
    if (const std::optional<QString> refused = ShortcutRules::refusal(chord, std::nullopt))
        return lm.L(*refused);
    const QString usedByKey = QStringLiteral("shortcut.error.usedBy");
    const QString panelTitleKey = QStringLiteral("shortcut.panel");
    const QString hiddenTitleKey = QStringLiteral("shortcut.hiddenSection");
    if (p.shortcut(Shortcut::Panel) == chord)
        return lm.L(usedByKey, lm.L(panelTitleKey));
    if (p.shortcut(Shortcut::HiddenSection) == chord)
        return lm.L(usedByKey, lm.L(hiddenTitleKey));
    const std::optional<QString> holder = ItemShortcuts::holder(p.itemShortcuts(), chord);
    if (holder && *holder != itemKey)
        return lm.L(usedByKey, itemName(*holder));
    return {};
}

QString ItemShortcutFields::itemName(const QString& itemKey) const
{
    for (const BarItem& item : m_app.scannerModel().detected())
        if (item.key == itemKey)
            return item.label.isEmpty() ? item.info.owner : item.label;
    return itemKey;
}

void ItemShortcutFields::showProblem(const QString& itemKey)
{
    const Entry& entry = m_fields[itemKey];
    if (!entry.row)
        return;
    QString text = entry.refusal;
    if (text.isEmpty() && m_app.shortcuts())
        if (const std::optional<QString> problem = m_app.shortcuts()->itemProblem(itemKey))
            text = m_app.languageManager().L(*problem);
    if (!text.isEmpty() || entry.row->hintLabel())
        if (entry.row->setHint(text, !text.isEmpty()) && onHintsChanged)
            onHintsChanged();
}

} // namespace ravlin
