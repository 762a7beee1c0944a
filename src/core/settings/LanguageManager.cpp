#include "LanguageManager.h"

#include "PrefKey.h"
#include "Preferences.h"
#include "foundation/DefaultsStore.h"
#include "foundation/Logging.h"
#include "foundation/ResourceBundle.h"

#include <QFileInfo>

namespace ravlin {

LanguageManager::LanguageManager(const Resources& resources, DefaultsStore& defaults,
                                 Preferences& preferences)
    : m_resources(resources), m_defaults(defaults), m_preferences(preferences),
      m_bundle(resources.mainBundle())
{}

LanguageManager::~LanguageManager() = default;

void LanguageManager::apply(const QString& code, bool persist)
{
    if (code.isEmpty()) {
        m_bundle = m_resources.mainBundle();
        m_defaults.remove(PrefKey::appleLanguages);
    } else if (auto bundle = m_resources.bundle(code)) {
        m_bundle = std::move(bundle);
        m_defaults.set(PrefKey::appleLanguages, PlistValue::fromStringList({code}));
    } else {
        // No folder for that code: texts from the main bundle, and the platform's
        // language list is deliberately left as it was.
        qCWarning(lcLanguage) << "no resources for language" << code << "- using the main bundle";
        m_bundle = m_resources.mainBundle();
    }
    m_activeCode = code;
    if (persist)
        m_preferences.setAppLanguage(code);
    Q_EMIT willChange();
}

QString LanguageManager::effectiveCode() const
{
    if (!m_activeCode.isEmpty() || !m_bundle)
        return m_activeCode;
    QString folder = QFileInfo(m_bundle->path()).fileName();
    return folder.endsWith(QStringLiteral(".lproj")) ? folder.chopped(6) : QString();
}

QLocale LanguageManager::locale() const
{
    const QString code = effectiveCode();
    return code.isEmpty() ? QLocale(QLocale::English) : QLocale(code);
}

QString LanguageManager::decimalPoint() const
{
    const QLocale l = locale();
    // Languages written with other digits would mix scripts: keep the Western point there.
    return l.zeroDigit() == u"0" ? l.decimalPoint() : QStringLiteral(".");
}

void LanguageManager::applyStored()
{
    apply(m_preferences.appLanguage(), false);
}

bool LanguageManager::isRTL() const
{
    return m_activeCode == u"ar" || m_activeCode == u"he";
}

QString LanguageManager::L(const QString& key) const
{
    return m_bundle ? m_bundle->localizedString(key) : key;
}

} // namespace ravlin
