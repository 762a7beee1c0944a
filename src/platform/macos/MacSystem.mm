#include "MacSystem.h"

#import <Foundation/Foundation.h>

namespace ravlin::MacSystem {

QStringList preferredLanguages()
{
    QStringList languages;
    for (NSString* language in NSLocale.preferredLanguages)
        languages.append(QString::fromNSString(language));
    return languages;
}

QString bundleIdentifier()
{
    NSString* identifier = NSBundle.mainBundle.bundleIdentifier;
    return identifier ? QString::fromNSString(identifier) : QString();
}

} // namespace ravlin::MacSystem
