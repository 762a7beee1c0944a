#pragma once

#include <QString>

#include <optional>

namespace ravlin::MenuExtras {

// Where the menu bar's items are accessibility elements only, the system names its own
// items by identifiers of this form; where each item is a window of its own, the same
// items carry window titles instead. Both name the same item.
inline const QString identifierPrefix = QStringLiteral("com.apple.menuextra.");
// The system's own overflow menu (the « that holds items the bar has no room for).
inline const QString overflowIdentifier = QStringLiteral("com.apple.menuextra.overflow");

struct KnownItem {
    const char16_t* identifier;
    const char16_t* windowTitle;
    const char16_t* bundle; // the owner, for items whose window title says nothing
    int systemItem;         // the number the assessment mode allows it by; -1: none
};

// The system's items that both naming schemes know.
inline constexpr KnownItem knownItems[] = {
    {u"com.apple.menuextra.clock", u"Clock", u"com.apple.controlcenter", 2},
    {u"com.apple.menuextra.controlcenter", u"BentoBox-0", u"com.apple.controlcenter", 8},
    {u"com.apple.menuextra.wifi", u"WiFi", u"com.apple.controlcenter", 6},
    {u"com.apple.menuextra.bluetooth", u"Bluetooth", u"com.apple.controlcenter", 1},
    {u"com.apple.menuextra.battery", u"Battery", u"com.apple.controlcenter", 0},
    {u"com.apple.menuextra.sound", u"Sound", u"com.apple.controlcenter", 5},
    {u"com.apple.menuextra.now-playing", u"NowPlaying", u"com.apple.controlcenter", 10},
    {u"com.apple.menuextra.focusmode", u"FocusModes", u"com.apple.controlcenter", 9},
    {u"com.apple.menuextra.display", u"Display", u"com.apple.controlcenter", 3},
    {u"com.apple.menuextra.screenmirroring", u"ScreenMirroring", u"com.apple.controlcenter", 7},
    {u"com.apple.menuextra.spotlight", u"Item-0", u"com.apple.Spotlight", -1},
    {u"com.apple.menuextra.textinput", u"Item-0", u"com.apple.TextInputMenuAgent", -1},
    {u"com.apple.menuextra.siri", u"Item-0", u"com.apple.Siri", -1},
};

// The window title that the item with this identifier carries where items are windows.
inline std::optional<QString> windowTitleFor(const QString& identifier)
{
    for (const KnownItem& known : knownItems)
        if (identifier == QStringView(known.identifier))
            return QString::fromUtf16(known.windowTitle);
    return std::nullopt;
}

// The identifier of the system's item with this window title and owner, if it is known.
inline std::optional<QString> identifierFor(const QString& windowTitle, const QString& bundle)
{
    for (const KnownItem& known : knownItems)
        if (windowTitle == QStringView(known.windowTitle) && bundle == QStringView(known.bundle))
            return QString::fromUtf16(known.identifier);
    return std::nullopt;
}

// The number the assessment mode allows a system item by, from its window title and owner.
inline std::optional<int> systemItemNumber(const QString& windowTitle, const QString& bundle)
{
    for (const KnownItem& known : knownItems)
        if (known.systemItem >= 0 && windowTitle == QStringView(known.windowTitle) &&
            bundle == QStringView(known.bundle))
            return known.systemItem;
    return std::nullopt;
}

} // namespace ravlin::MenuExtras
