#pragma once

#include "foundation/DefaultsStore.h"

#include <QDateTime>

namespace ravlin {

// The defaults domain kept in an XML property list on disk. Every set rewrites
// the file atomically; changes made to the file by hand are picked up at the
// next read. A file that cannot be read is moved aside, never deleted.
class PlistFileDefaultsStore final : public DefaultsStore {
public:
    explicit PlistFileDefaultsStore(QString path);

    // $XDG_CONFIG_HOME/ravlin/de.vexa.Ravlin.plist (~/.config when unset).
    static QString defaultPath();

    QString path() const { return m_path; }

    PlistValue persistentValue(const QString& key) const override;
    PlistDict persistentDomain() const override;
    void set(const QString& key, const PlistValue& value) override;
    void remove(const QString& key) override;

private:
    void reloadIfChanged() const;
    bool load(bool atStart) const;
    QString moveAside() const;
    void write() const;
    void rememberFileStamp() const;

    QString m_path;
    mutable PlistDict m_values;
    mutable QDateTime m_stampTime;
    mutable qint64 m_stampSize = -1;
};

} // namespace ravlin
