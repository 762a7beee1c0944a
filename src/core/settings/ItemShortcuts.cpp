#include "ItemShortcuts.h"

#include "ShortcutRules.h"

#include <algorithm>

namespace ravlin {

QMap<QString, KeyChord> ItemShortcuts::decode(const PlistValue& stored,
                                              const std::vector<KeyChord>& taken,
                                              const Report& report)
{
    auto tell = [&](const QString& key, const QString& why) {
        if (report)
            report(key.left(80), why);
    };
    QMap<QString, KeyChord> shortcuts;
    const PlistDict* dict = stored.asDict();
    if (!dict) {
        if (!stored.isNull())
            tell(QString(), QStringLiteral("not a dictionary of item keys and chords"));
        return shortcuts;
    }
    int read = 0;
    for (auto it = dict->cbegin(); it != dict->cend(); ++it) {
        if (++read > maxShortcuts) {
            tell(QString(), QStringLiteral("more than %1 shortcuts; the rest is left out")
                                .arg(maxShortcuts));
            break;
        }
        const QString& key = it.key();
        if (key.isEmpty() || key.size() > maxKeyLength) {
            tell(key, QStringLiteral("not an item key"));
            continue;
        }
        const std::optional<QString> text = it.value().asString();
        const std::optional<KeyChord> chord = text ? KeyChord::parse(*text) : std::nullopt;
        if (!chord) {
            tell(key, text ? QStringLiteral("not a key chord") : QStringLiteral("not text"));
            continue;
        }
        if (const std::optional<QString> refused = ShortcutRules::refusal(*chord, std::nullopt)) {
            tell(key, QStringLiteral("not allowed (%1)").arg(*refused));
            continue;
        }
        if (std::find(taken.begin(), taken.end(), *chord) != taken.end()) {
            tell(key, QStringLiteral("a global shortcut's chord"));
            continue;
        }
        if (const std::optional<QString> first = holder(shortcuts, *chord)) {
            tell(key, QStringLiteral("the chord of %1 too").arg(first->left(80)));
            continue;
        }
        shortcuts.insert(key, *chord);
    }
    return shortcuts;
}

PlistValue ItemShortcuts::encode(const QMap<QString, KeyChord>& shortcuts)
{
    PlistDict dict;
    for (auto it = shortcuts.cbegin(); it != shortcuts.cend(); ++it)
        dict.insert(it.key(), it.value().storedText());
    return dict;
}

std::optional<QString> ItemShortcuts::holder(const QMap<QString, KeyChord>& shortcuts,
                                             const KeyChord& chord)
{
    for (auto it = shortcuts.cbegin(); it != shortcuts.cend(); ++it)
        if (it.value() == chord)
            return it.key();
    return std::nullopt;
}

} // namespace ravlin
