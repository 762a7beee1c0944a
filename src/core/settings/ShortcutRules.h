#pragma once

#include "KeyChord.h"

#include <QString>

#include <optional>

namespace ravlin {

// Which of the application's two global shortcuts.
enum class Shortcut { Panel, HiddenSection };

// Why a chord cannot be a global shortcut: a text key of the interface, or nothing
// when it can. Refused are chords the system keeps for itself, chords without a
// modifier other than Shift (they would swallow typing everywhere) and the chord
// the other shortcut already has.
class ShortcutRules {
public:
    static inline const QString noModifierKey = QStringLiteral("shortcut.error.noModifier");
    static inline const QString reservedKey = QStringLiteral("shortcut.error.reserved");
    static inline const QString sameAsOtherKey = QStringLiteral("shortcut.error.sameAsOther");
    // Not decided here: the system refused to register it (another application holds it).
    static inline const QString takenKey = QStringLiteral("shortcut.error.taken");

    static std::optional<QString> refusal(const KeyChord& chord,
                                          const std::optional<KeyChord>& other);
    static bool isReserved(const KeyChord& chord);
    // The chords a fresh installation starts with.
    static KeyChord defaultPanelChord();
};

} // namespace ravlin
