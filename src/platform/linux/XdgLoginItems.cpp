#include "XdgLoginItems.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QTextStream>

namespace ravlin {
namespace {

// Quotes a path for the Exec key of a desktop entry.
QString quoteExec(QString path)
{
    path.replace(u'\\', QStringLiteral("\\\\"))
        .replace(u'"', QStringLiteral("\\\""))
        .replace(u'`', QStringLiteral("\\`"))
        .replace(u'$', QStringLiteral("\\$"));
    return u'"' + path + u'"';
}

bool isHidden(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return false;
    QTextStream in(&file);
    bool inEntry = false;
    while (!in.atEnd()) {
        const QString line = in.readLine().trimmed();
        if (line.startsWith(u'['))
            inEntry = line == u"[Desktop Entry]";
        else if (inEntry && line.section(u'=', 0, 0).trimmed() == u"Hidden")
            return line.section(u'=', 1).trimmed().compare(u"true", Qt::CaseInsensitive) == 0;
    }
    return false;
}

} // namespace

XdgLoginItems::XdgLoginItems(QString executablePath, QString entryPath)
    : m_executable(std::move(executablePath)), m_entryPath(std::move(entryPath))
{}

QString XdgLoginItems::defaultEntryPath()
{
    QString base = qEnvironmentVariable("XDG_CONFIG_HOME");
    if (base.isEmpty() || !QDir::isAbsolutePath(base))
        base = QDir::homePath() + QStringLiteral("/.config");
    return base + QStringLiteral("/autostart/de.vexa.Ravlin.desktop");
}

LoginItemStatus XdgLoginItems::status()
{
    if (!QFileInfo(m_entryPath).isFile())
        return LoginItemStatus::NotRegistered;
    return isHidden(m_entryPath) ? LoginItemStatus::NotRegistered : LoginItemStatus::Enabled;
}

std::optional<QString> XdgLoginItems::registerItem()
{
    if (!QDir().mkpath(QFileInfo(m_entryPath).absolutePath()))
        return QStringLiteral("The folder for %1 could not be created.").arg(m_entryPath);
    QSaveFile file(m_entryPath);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text))
        return file.errorString();
    const QString entry = QStringLiteral("[Desktop Entry]\n"
                                         "Type=Application\n"
                                         "Name=Ravlin\n"
                                         "Comment=Keeps the menu bar tidy\n"
                                         "Exec=%1\n"
                                         "Terminal=false\n"
                                         "X-GNOME-Autostart-enabled=true\n")
                              .arg(quoteExec(m_executable));
    file.write(entry.toUtf8());
    if (!file.commit())
        return file.errorString();
    return std::nullopt;
}

std::optional<QString> XdgLoginItems::unregisterItem()
{
    QFile file(m_entryPath);
    if (file.exists() && !file.remove())
        return file.errorString();
    return std::nullopt;
}

} // namespace ravlin
