#pragma once

#include <QString>

namespace ravlin {

// Why the user cannot see an item of the bar.
enum class HiddenBy {
    Separator,       // left of the hidden section's separator
    AlwaysSeparator, // left of the always-hidden section's separator
    Engine,          // the assessment mode keeps it out of the bar
    Overflow,        // the bar has no room for it: it waits in the system's overflow menu
    Notch,           // the camera housing of a notched display covers it
};

inline QString hiddenByName(HiddenBy why)
{
    switch (why) {
    case HiddenBy::Separator:
        return QStringLiteral("separator");
    case HiddenBy::AlwaysSeparator:
        return QStringLiteral("alwaysSeparator");
    case HiddenBy::Engine:
        return QStringLiteral("engine");
    case HiddenBy::Overflow:
        return QStringLiteral("overflow");
    case HiddenBy::Notch:
        return QStringLiteral("notch");
    }
    return {};
}

} // namespace ravlin
