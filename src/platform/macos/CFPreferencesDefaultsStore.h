#pragma once

#include "foundation/DefaultsStore.h"

namespace ravlin {

// The application's defaults domain through CFPreferences (the same store NSUserDefaults uses).
class CFPreferencesDefaultsStore final : public DefaultsStore {
public:
    explicit CFPreferencesDefaultsStore(QString applicationID = QStringLiteral("de.vexa.Ravlin"));

    PlistValue persistentValue(const QString& key) const override;
    PlistDict persistentDomain() const override;
    void set(const QString& key, const PlistValue& value) override;
    void remove(const QString& key) override;
    // Where the preferences daemon keeps the domain of a non-sandboxed application.
    QString storagePath() const override;

private:
    QString m_applicationID;
};

} // namespace ravlin
