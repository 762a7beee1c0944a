#include "MenuBarTechniques.h"

#include "MenuBarCapabilities.h"

namespace ravlin {

MenuBarTechniques MenuBarTechniques::choose(const MenuBarCapabilities& capabilities,
                                            bool engineAvailable)
{
    MenuBarTechniques t;
    if (!capabilities.itemWindows)
        t.discovery = Discovery::AccessibilityTree;
    else if (!capabilities.windowOwnersAreReal)
        t.discovery = Discovery::WindowListWithAXOwners;
    // The assessment mode needs no span of separators and keeps the system's controls
    // visible: wherever it is there, it is the better technique.
    if (engineAvailable)
        t.hiding = Hiding::HideEngine;
    else if (capabilities.longestItem)
        t.hiding = Hiding::ShortSeparators;
    if (!capabilities.itemWindows) {
        t.activation = Activation::PressElement;
        t.pictures = Pictures::ApplicationIcons;
    }
    return t;
}

QString MenuBarTechniques::name(Discovery discovery)
{
    switch (discovery) {
    case Discovery::WindowList:
        return QStringLiteral("windowList");
    case Discovery::WindowListWithAXOwners:
        return QStringLiteral("windowListWithAccessibilityOwners");
    case Discovery::AccessibilityTree:
        return QStringLiteral("accessibilityTree");
    }
    return {};
}

QString MenuBarTechniques::name(Hiding hiding)
{
    switch (hiding) {
    case Hiding::HideEngine:
        return QStringLiteral("hideEngine");
    case Hiding::LongSeparators:
        return QStringLiteral("longSeparators");
    case Hiding::ShortSeparators:
        return QStringLiteral("shortSeparators");
    }
    return {};
}

QString MenuBarTechniques::name(Activation activation)
{
    switch (activation) {
    case Activation::MoveAndPress:
        return QStringLiteral("moveAndPress");
    case Activation::PressElement:
        return QStringLiteral("pressElement");
    }
    return {};
}

QString MenuBarTechniques::name(Pictures pictures)
{
    switch (pictures) {
    case Pictures::WindowCapture:
        return QStringLiteral("windowCapture");
    case Pictures::ApplicationIcons:
        return QStringLiteral("applicationIcons");
    }
    return {};
}

} // namespace ravlin
