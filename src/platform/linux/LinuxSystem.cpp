#include "LinuxSystem.h"

namespace ravlin::LinuxSystem {

QStringList preferredLanguages()
{
    // The effective message locale: the first of LC_ALL, LC_MESSAGES, LANG that is set.
    QString locale;
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        locale = qEnvironmentVariable(name);
        if (!locale.isEmpty())
            break;
    }
    QStringList languages;
    const bool plainC =
        locale.isEmpty() || locale == u"C" || locale == u"POSIX" || locale.startsWith(u"C.");
    // LANGUAGE is a priority list that gettext honours unless the locale is C.
    if (!plainC) {
        const QStringList list = qEnvironmentVariable("LANGUAGE").split(u':', Qt::SkipEmptyParts);
        languages.append(list);
        languages.append(locale);
    }
    return languages;
}

} // namespace ravlin::LinuxSystem
