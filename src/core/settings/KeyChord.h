#pragma once

#include <QString>

#include <cstdint>
#include <optional>

namespace ravlin {

// A key with its modifiers, as a keyboard shortcut. The key is named the way the
// settings file stores it ("M", "5", "Space", "F5", ",", "Left"); the modifiers
// are the Mac's four. It converts to the system's hot-key codes (virtual key code
// and modifier mask) and to Qt's key events, with Qt's Mac convention: Qt's
// Control modifier is the Command key and its Meta modifier the Control key.
struct KeyChord {
    enum Modifier : unsigned { Command = 1, Option = 2, Control = 4, Shift = 8 };

    QString key;
    unsigned modifiers = 0;

    // Twice the longest chord ("control+option+command+shift+ForwardDelete", with blanks).
    static constexpr int maxTextLength = 100;

    // "control+option+command+M"; also "ctrl+alt+cmd+m" and "⌃⌥⌘M". Nothing for text
    // that names no known key, or more than one, and (with a log line) for text longer than
    // maxTextLength, which a settings file edited by hand may hold.
    static std::optional<KeyChord> parse(const QString& text);
    // The form the settings file keeps.
    QString storedText() const;
    // The form people read, in the system's order: "⌃⌥⇧⌘M".
    QString displayText() const;

    bool hasModifier(Modifier m) const { return (modifiers & m) != 0; }
    // The system's virtual key code and hot-key modifier mask.
    std::uint32_t virtualKeyCode() const;
    std::uint32_t hotKeyModifiers() const;
    // Qt's key and modifiers for the same press, and back.
    int qtKey() const;
    int qtModifiers() const;
    static std::optional<KeyChord> fromQt(int qtKey, int qtModifiers);
    // The text a press of the key alone types (empty for keys that type nothing).
    QString typedText() const;

    bool operator==(const KeyChord&) const = default;
};

} // namespace ravlin
