#pragma once

#include <QString>

namespace ravlin {

struct MenuBarCapabilities;

// How Ravlin finds, hides, opens and pictures the bar's items on the system it runs on,
// chosen in one place from what the bar was seen to do.
struct MenuBarTechniques {
    enum class Discovery {
        WindowList,             // one window per item, owners as listed
        WindowListWithAXOwners, // one window per item, owners from the extras menu bars
        AccessibilityTree,      // items, frames and owners from the bar's accessibility tree
    };
    enum class Hiding {
        HideEngine,      // the assessment mode hides other applications' items
        LongSeparators,  // one separator far wider than any display pushes items off screen
        ShortSeparators, // separators under the longest item the bar keeps, spread over several
    };
    enum class Activation {
        MoveAndPress, // bring the item into view by a routed drag, press it or click it
        PressElement, // press the item's accessibility element where it stands
    };
    enum class Pictures {
        WindowCapture,    // a picture of the item's window
        ApplicationIcons, // the owner's icon, or the system item's symbol
    };

    Discovery discovery = Discovery::WindowList;
    Hiding hiding = Hiding::LongSeparators;
    Activation activation = Activation::MoveAndPress;
    Pictures pictures = Pictures::WindowCapture;

    static MenuBarTechniques choose(const MenuBarCapabilities& capabilities, bool engineAvailable);

    bool canMoveItems() const { return activation == Activation::MoveAndPress; }
    bool canCaptureItems() const { return pictures == Pictures::WindowCapture; }

    static QString name(Discovery discovery);
    static QString name(Hiding hiding);
    static QString name(Activation activation);
    static QString name(Pictures pictures);

    bool operator==(const MenuBarTechniques&) const = default;
};

} // namespace ravlin
