#pragma once

#include "core/settings/KeyChord.h"

#include <QHash>
#include <functional>
#include <QPointer>
#include <QString>

#include <optional>

namespace ravlin {

class AppDelegate;
class SettingsRow;
class ShortcutField;

// The Menu Bar tab's shortcut field in each item's row: recorded like the global shortcuts,
// a chord the rules refuse or that another shortcut holds is refused in words under the row
// (naming who holds it), and a chord the system refuses is shown as taken. A shortcut belongs
// to the item's key, so it follows the item across restarts, layouts and upgrades.
class ItemShortcutFields {
public:
    explicit ItemShortcutFields(AppDelegate& app) : m_app(app) {}

    // A field for the item's row, placed at its trailing end.
    ShortcutField* add(SettingsRow* row, const QString& itemKey);
    // The rows were made anew: the old fields are gone.
    void clear() { m_fields.clear(); }
    // Shows what the settings and the system say now.
    void refresh();
    ShortcutField* field(const QString& itemKey) const;
    // A refusal under a row came or went: the page must make room for it.
    std::function<void()> onHintsChanged;

private:
    struct Entry {
        QPointer<ShortcutField> field;
        QPointer<SettingsRow> row;
        QString refusal; // in words, until the next recording
    };
    void recorded(const QString& itemKey, const std::optional<KeyChord>& chord);
    // Why the chord may not open that item, in words; empty when it may.
    QString refusalOf(const QString& itemKey, const KeyChord& chord) const;
    QString itemName(const QString& itemKey) const;
    void showProblem(const QString& itemKey);

    AppDelegate& m_app;
    QHash<QString, Entry> m_fields;
};

} // namespace ravlin
