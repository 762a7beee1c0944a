#pragma once

#include "PlistValue.h"

#include <optional>

namespace ravlin {

// The application's defaults domain: a persistent domain written through on
// every set, backed by a registration domain that only answers reads of keys
// the user never set. Typed reads convert the way the platform's user defaults do.
class DefaultsStore {
public:
    virtual ~DefaultsStore() = default;

    void registerDefaults(const PlistDict& defaults);
    const PlistDict& registrationDomain() const { return m_registered; }

    // Persistent value, else registered value, else null.
    PlistValue object(const QString& key) const;

    virtual PlistValue persistentValue(const QString& key) const = 0;
    virtual PlistDict persistentDomain() const = 0;
    virtual void set(const QString& key, const PlistValue& value) = 0;
    virtual void remove(const QString& key) = 0;
    // Called after a change the user made, as opposed to the program's own bookkeeping at start
    // (seeded positions, caches). A store holding back its writes may save at this moment.
    virtual void noteUserChange() {}
    // The file the values live in, where there is one: nothing else may be written over it.
    virtual QString storagePath() const { return QString(); }

    // Reads: booleans and integers also from numbers and from text ("YES", "true", "15").
    bool boolForKey(const QString& key) const;
    std::int64_t integerForKey(const QString& key) const;
    double doubleForKey(const QString& key) const;
    // Text, or a number's text form; absent for other types.
    std::optional<QString> stringForKey(const QString& key) const;
    // Absent unless the value is a list whose every element is text.
    std::optional<QStringList> stringArrayForKey(const QString& key) const;
    std::optional<PlistArray> arrayForKey(const QString& key) const;
    std::optional<PlistDict> dictionaryForKey(const QString& key) const;

    // The conversions themselves, for values read elsewhere.
    static bool toBool(const PlistValue& value);
    static std::int64_t toInteger(const PlistValue& value);
    static double toDouble(const PlistValue& value);

private:
    PlistDict m_registered;
};

// A defaults store that lives only in memory (tests, previews).
class InMemoryDefaultsStore final : public DefaultsStore {
public:
    PlistValue persistentValue(const QString& key) const override { return m_values.value(key); }
    PlistDict persistentDomain() const override { return m_values; }
    void set(const QString& key, const PlistValue& value) override;
    void remove(const QString& key) override { m_values.remove(key); }

private:
    PlistDict m_values;
};

} // namespace ravlin
