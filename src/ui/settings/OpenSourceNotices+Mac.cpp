#include "OpenSourceNotices.h"

namespace ravlin {

const std::vector<OpenSourceNotice>& OpenSourceNotices::all()
{
    static const std::vector<OpenSourceNotice> notices = {
        {QStringLiteral("Qt 6"), QStringLiteral("The Qt Company Ltd."),
         QStringLiteral("GNU LGPL v3")},
        {QStringLiteral("Sparkle"), QStringLiteral("Andy Matuschak and the Sparkle Project contributors"),
         QStringLiteral("MIT License")},
    };
    return notices;
}

} // namespace ravlin
