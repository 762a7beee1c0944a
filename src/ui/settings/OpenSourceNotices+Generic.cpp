#include "OpenSourceNotices.h"

namespace ravlin {

const std::vector<OpenSourceNotice>& OpenSourceNotices::all()
{
    static const std::vector<OpenSourceNotice> notices = {
        {QStringLiteral("Qt 6"), QStringLiteral("The Qt Company Ltd."),
         QStringLiteral("GNU LGPL v3")},
        {QStringLiteral("libplist"), QStringLiteral("The libplist authors"),
         QStringLiteral("GNU LGPL v2.1")},
        {QStringLiteral("Material Design icon font"), QStringLiteral("The Material Design authors"),
         QStringLiteral("Apache License 2.0")},
        {QStringLiteral("Noto Sans fonts"), QStringLiteral("Google LLC and Adobe"),
         QStringLiteral("SIL Open Font License 1.1")},
    };
    return notices;
}

} // namespace ravlin
