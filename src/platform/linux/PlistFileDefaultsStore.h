#pragma once

#include "foundation/DefaultsStore.h"

#include <QDateTime>

namespace ravlin {

// The defaults domain kept in a property list on disk (XML or binary read, XML written). Every
// set rewrites the file atomically; changes made to the file by hand are picked up at the next
// read. The file is the user's and is never destroyed:
// - a file that is not a property list (or nests too deeply) is moved aside as
//   `….corrupt-<timestamp>`;
// - a file that exists but cannot be read (permissions) is never written over: the store runs on
//   what it holds in memory and writes nothing until the file can be read again, which it then
//   uses, or until the user changes a setting, when the unreadable file is moved aside as
//   `….unreadable-<timestamp>` and the settings are saved in its place.
class PlistFileDefaultsStore final : public DefaultsStore {
public:
    explicit PlistFileDefaultsStore(QString path);

    // $XDG_CONFIG_HOME/ravlin/de.vexa.Ravlin.plist (~/.config when unset).
    static QString defaultPath();

    QString path() const { return m_path; }
    QString storagePath() const override { return m_path; }
    // The file exists and could not be read the last time it was tried.
    bool isHoldingBack() const { return m_unreadable; }

    PlistValue persistentValue(const QString& key) const override;
    PlistDict persistentDomain() const override;
    void set(const QString& key, const PlistValue& value) override;
    void remove(const QString& key) override;
    void noteUserChange() override;

private:
    void reloadIfChanged() const;
    bool load(bool atStart) const;
    std::optional<QByteArray> readFile(QString* reason) const;
    void startHoldingBack(const QString& reason, bool atStart) const;
    void refuseCorrupt(const QString& reason, bool atStart) const;
    QString moveAside(const QString& kind) const;
    void write() const;
    void rememberFileStamp() const;

    QString m_path;
    mutable PlistDict m_values;
    mutable QDateTime m_stampTime;
    mutable qint64 m_stampSize = -1;
    mutable bool m_unreadable = false;
};

} // namespace ravlin
