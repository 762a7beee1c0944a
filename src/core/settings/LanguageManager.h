#pragma once

#include "foundation/PrintfFormat.h"

#include <QLocale>
#include <QObject>
#include <QString>

#include <memory>

namespace ravlin {

class DefaultsStore;
class Preferences;
class ResourceBundle;
class Resources;

// Holds the interface language and the bundle texts are taken from. Every
// user-visible text goes through L(); a missing translation yields the key.
class LanguageManager : public QObject {
    Q_OBJECT
public:
    LanguageManager(const Resources& resources, DefaultsStore& defaults, Preferences& preferences);
    ~LanguageManager() override;

    void apply(const QString& code, bool persist = true);
    void applyStored();

    QString activeCode() const { return m_activeCode; }
    // The language texts come in now, also when the system's language was chosen ("" above).
    QString effectiveCode() const;
    bool isRTL() const;
    // The interface language's decimal point, for figures written in Western digits.
    QString decimalPoint() const;
    // The interface language's conventions for dates, times and numbers.
    QLocale locale() const;
    const ResourceBundle* bundle() const { return m_bundle.get(); }

    QString L(const QString& key) const;
    template <class... Args> QString L(const QString& key, const Args&... args) const
    {
        return formatPrintf(L(key), QVariantList{QVariant::fromValue(args)...});
    }

Q_SIGNALS:
    void willChange();

private:
    const Resources& m_resources;
    DefaultsStore& m_defaults;
    Preferences& m_preferences;
    QString m_activeCode;
    std::shared_ptr<ResourceBundle> m_bundle;
};

} // namespace ravlin
