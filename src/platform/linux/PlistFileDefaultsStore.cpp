#include "PlistFileDefaultsStore.h"

#include "PlistCodec.h"
#include "foundation/Logging.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace ravlin {

PlistFileDefaultsStore::PlistFileDefaultsStore(QString path) : m_path(std::move(path))
{
    load(true);
}

QString PlistFileDefaultsStore::defaultPath()
{
    QString base = qEnvironmentVariable("XDG_CONFIG_HOME");
    if (base.isEmpty() || !QDir::isAbsolutePath(base))
        base = QDir::homePath() + QStringLiteral("/.config");
    return base + QStringLiteral("/ravlin/de.vexa.Ravlin.plist");
}

void PlistFileDefaultsStore::rememberFileStamp() const
{
    const QFileInfo info(m_path);
    m_stampTime = info.exists() ? info.lastModified() : QDateTime();
    m_stampSize = info.exists() ? info.size() : -1;
}

bool PlistFileDefaultsStore::load(bool atStart) const
{
    if (!QFileInfo::exists(m_path)) {
        if (atStart)
            m_values.clear();
        m_unreadable = false;
        rememberFileStamp();
        return true;
    }
    QString reason;
    const std::optional<QByteArray> bytes = readFile(&reason);
    rememberFileStamp();
    if (!bytes) {
        startHoldingBack(reason, atStart);
        return false;
    }
    if (m_unreadable) {
        qCWarning(lcDefaults).noquote()
            << QStringLiteral("the settings file %1 can be read again; Ravlin uses it").arg(m_path);
        m_unreadable = false;
    }
    if (bytes->trimmed().isEmpty()) {
        m_values.clear();
        return true;
    }
    QString error;
    QStringList warnings;
    const std::optional<PlistValue> root = PlistCodec::parse(*bytes, &error, &warnings);
    if (!root || !root->isDict()) {
        refuseCorrupt(root ? QStringLiteral("its top level is not a dictionary") : error, atStart);
        return false;
    }
    for (const QString& warning : warnings)
        qCWarning(lcDefaults).noquote()
            << QStringLiteral("the settings file %1: %2").arg(m_path, warning);
    m_values = *root->asDict();
    return true;
}

std::optional<QByteArray> PlistFileDefaultsStore::readFile(QString* reason) const
{
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly)) {
        *reason = file.errorString();
        return std::nullopt;
    }
    QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError) {
        *reason = file.errorString();
        return std::nullopt;
    }
    return bytes;
}

void PlistFileDefaultsStore::startHoldingBack(const QString& reason, bool atStart) const
{
    if (atStart)
        m_values.clear();
    if (m_unreadable)
        return; // said once
    m_unreadable = true;
    qCWarning(lcDefaults).noquote()
        << QStringLiteral("the settings file %1 cannot be read (%2). Ravlin %3 and leaves the file "
                          "as it is: nothing is saved until it can be read again or a setting is "
                          "changed; then the settings are saved in its place and the unreadable "
                          "file is kept beside it.")
               .arg(m_path, reason,
                    atStart ? QStringLiteral("runs on its defaults")
                            : QStringLiteral("keeps the settings it had"));
}

void PlistFileDefaultsStore::refuseCorrupt(const QString& reason, bool atStart) const
{
    const QString aside = moveAside(QStringLiteral("corrupt"));
    qCWarning(lcDefaults).noquote()
        << QStringLiteral(
               "the settings file %1 cannot be read (%2); it was moved to %3 and Ravlin %4")
               .arg(m_path, reason,
                    aside.isEmpty() ? QStringLiteral("(nowhere: it was left in place)") : aside,
                    atStart ? QStringLiteral("starts with its defaults")
                            : QStringLiteral("keeps the settings it had"));
    if (atStart)
        m_values.clear();
    else
        write(); // put the settings still held back on disk
    rememberFileStamp();
}

// `<file>.<kind>-<timestamp>`, with a number added when that name is taken; empty if the file
// could not be moved.
QString PlistFileDefaultsStore::moveAside(const QString& kind) const
{
    const QString stamp = QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss"));
    const QString base = m_path + u'.' + kind + u'-' + stamp;
    QString target = base;
    for (int n = 1; QFileInfo::exists(target) || QFileInfo(target).isSymLink(); ++n)
        target = base + u'-' + QString::number(n);
    if (std::rename(QFile::encodeName(m_path).constData(), QFile::encodeName(target).constData()) !=
        0) {
        qCWarning(lcDefaults).noquote()
            << QStringLiteral("cannot move the settings file %1 aside to %2: %3")
                   .arg(m_path, target, QString::fromLocal8Bit(std::strerror(errno)));
        return QString();
    }
    return target;
}

void PlistFileDefaultsStore::reloadIfChanged() const
{
    if (m_unreadable) {
        // Permissions change without touching size or time: try again at every read.
        load(false);
        return;
    }
    const QFileInfo info(m_path);
    const qint64 size = info.exists() ? info.size() : -1;
    const QDateTime time = info.exists() ? info.lastModified() : QDateTime();
    if (size == m_stampSize && time == m_stampTime)
        return;
    load(false);
}

PlistValue PlistFileDefaultsStore::persistentValue(const QString& key) const
{
    reloadIfChanged();
    return m_values.value(key);
}

PlistDict PlistFileDefaultsStore::persistentDomain() const
{
    reloadIfChanged();
    return m_values;
}

void PlistFileDefaultsStore::set(const QString& key, const PlistValue& value)
{
    reloadIfChanged();
    if (value.isNull())
        m_values.remove(key);
    else
        m_values.insert(key, value);
    write();
}

void PlistFileDefaultsStore::remove(const QString& key)
{
    reloadIfChanged();
    m_values.remove(key);
    write();
}

void PlistFileDefaultsStore::noteUserChange()
{
    if (!m_unreadable)
        return;
    const QString kept = moveAside(QStringLiteral("unreadable"));
    if (kept.isEmpty())
        return; // still held back; said when moving failed
    m_unreadable = false;
    qCWarning(lcDefaults).noquote()
        << QStringLiteral("a setting was changed while the settings file could not be read: the "
                          "unreadable file is kept as %1 and the settings are saved to %2")
               .arg(kept, m_path);
    write();
}

void PlistFileDefaultsStore::write() const
{
    if (m_unreadable)
        return; // never over a file that could not be read
    QDir().mkpath(QFileInfo(m_path).absolutePath());
    QSaveFile file(m_path);
    if (!file.open(QIODevice::WriteOnly) ||
        file.write(PlistCodec::encode(PlistValue(m_values))) < 0 || !file.commit()) {
        qCWarning(lcDefaults).noquote()
            << "cannot write the settings file" << m_path << ":" << file.errorString();
        return;
    }
    rememberFileStamp();
}

} // namespace ravlin
