#include "CFPreferencesDefaultsStore.h"

#include "CFConvert.h"

#include <QDir>

namespace ravlin {

CFPreferencesDefaultsStore::CFPreferencesDefaultsStore(QString applicationID)
    : m_applicationID(std::move(applicationID))
{}

QString CFPreferencesDefaultsStore::storagePath() const
{
    return QDir::home().filePath(QStringLiteral("Library/Preferences/%1.plist").arg(m_applicationID));
}

PlistValue CFPreferencesDefaultsStore::persistentValue(const QString& key) const
{
    auto app = CFConvert::string(m_applicationID);
    CFRef<CFPropertyListRef> value(
        CFPreferencesCopyAppValue(CFConvert::string(key).get(), app.get()));
    return CFConvert::toPlist(value.get());
}

PlistDict CFPreferencesDefaultsStore::persistentDomain() const
{
    auto app = CFConvert::string(m_applicationID);
    CFRef<CFArrayRef> keys(
        CFPreferencesCopyKeyList(app.get(), kCFPreferencesCurrentUser, kCFPreferencesAnyHost));
    PlistDict domain;
    if (!keys)
        return domain;
    for (CFIndex i = 0, n = CFArrayGetCount(keys.get()); i < n; ++i) {
        auto key = CFStringRef(CFArrayGetValueAtIndex(keys.get(), i));
        const QString name = CFConvert::toQString(key);
        domain.insert(name, persistentValue(name));
    }
    return domain;
}

void CFPreferencesDefaultsStore::set(const QString& key, const PlistValue& value)
{
    auto app = CFConvert::string(m_applicationID);
    auto cfValue = CFConvert::fromPlist(value);
    CFPreferencesSetAppValue(CFConvert::string(key).get(), cfValue.get(), app.get());
    CFPreferencesAppSynchronize(app.get());
}

void CFPreferencesDefaultsStore::remove(const QString& key)
{
    auto app = CFConvert::string(m_applicationID);
    CFPreferencesSetAppValue(CFConvert::string(key).get(), nullptr, app.get());
    CFPreferencesAppSynchronize(app.get());
}

} // namespace ravlin
