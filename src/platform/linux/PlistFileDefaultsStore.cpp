#include "PlistFileDefaultsStore.h"

#include "PlistCodec.h"
#include "foundation/Logging.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

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
    QFile file(m_path);
    if (!file.exists()) {
        if (atStart)
            m_values.clear();
        rememberFileStamp();
        return true;
    }
    if (!file.open(QIODevice::ReadOnly)) {
        qCWarning(lcDefaults).noquote()
            << "cannot read the settings file" << m_path << ":" << file.errorString();
        rememberFileStamp();
        return false;
    }
    const QByteArray bytes = file.readAll();
    file.close();
    if (bytes.trimmed().isEmpty()) {
        m_values.clear();
        rememberFileStamp();
        return true;
    }
    QString error;
    const std::optional<PlistValue> root = PlistCodec::parse(bytes, &error);
    if (root && root->isDict()) {
        m_values = *root->asDict();
        rememberFileStamp();
        return true;
    }
    const QString aside = moveAside();
    qCWarning(lcDefaults).noquote()
        << QStringLiteral(
               "the settings file %1 cannot be read (%2); it was moved to %3 and Ravlin %4")
               .arg(m_path, root ? QStringLiteral("its top level is not a dictionary") : error,
                    aside,
                    atStart ? QStringLiteral("starts with its defaults")
                            : QStringLiteral("keeps the settings it had"));
    if (atStart)
        m_values.clear();
    else
        write(); // put the settings still held back on disk
    rememberFileStamp();
    return false;
}

QString PlistFileDefaultsStore::moveAside() const
{
    const QString stamp = QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss"));
    QString target = m_path + QStringLiteral(".corrupt-") + stamp;
    for (int n = 1; QFileInfo::exists(target); ++n)
        target = m_path + QStringLiteral(".corrupt-") + stamp + u'-' + QString::number(n);
    if (!QFile::rename(m_path, target)) {
        qCWarning(lcDefaults) << "cannot move the unreadable settings file aside to" << target;
        return QStringLiteral("(nowhere: it was left in place)");
    }
    return target;
}

void PlistFileDefaultsStore::reloadIfChanged() const
{
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

void PlistFileDefaultsStore::write() const
{
    QDir().mkpath(QFileInfo(m_path).absolutePath());
    QSaveFile file(m_path);
    if (!file.open(QIODevice::WriteOnly) ||
        file.write(PlistCodec::toXml(PlistValue(m_values))) < 0 || !file.commit()) {
        qCWarning(lcDefaults).noquote()
            << "cannot write the settings file" << m_path << ":" << file.errorString();
        return;
    }
    rememberFileStamp();
}

} // namespace ravlin
