#pragma once

#include "KeyChord.h"
#include "foundation/PlistValue.h"

#include <QMap>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

namespace ravlin {

// The shortcuts that open single menu-bar items, by the item's stable key, as the settings
// file keeps them: a dictionary from item key to chord text ("control+option+1"). Reading
// is strict, because the file may have been edited by hand: a value that is not a chord the
// rules accept, a chord the application's global shortcuts hold, or one a second item holds
// (the first key in order keeps it) is left out, and each is reported once.
class ItemShortcuts {
public:
    // Longer keys are not item keys; a file may hold anything.
    static constexpr int maxKeyLength = 512;
    // More shortcuts than anyone records; the rest of a huge dictionary is left unread.
    static constexpr int maxShortcuts = 256;

    using Report = std::function<void(const QString& itemKey, const QString& why)>;

    // The stored dictionary (anything else reads as none), given the global shortcuts' chords.
    static QMap<QString, KeyChord> decode(const PlistValue& stored,
                                          const std::vector<KeyChord>& taken,
                                          const Report& report = {});
    // The dictionary to store.
    static PlistValue encode(const QMap<QString, KeyChord>& shortcuts);
    // The key of the item that holds the chord, if any.
    static std::optional<QString> holder(const QMap<QString, KeyChord>& shortcuts,
                                         const KeyChord& chord);
};

} // namespace ravlin
