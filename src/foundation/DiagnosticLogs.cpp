#include "DiagnosticLogs.h"

#include "Logging.h"

#include <QDir>
#include <QSaveFile>

namespace ravlin {

DiagnosticLogs::DiagnosticLogs(QString directory)
{
    setDirectory(directory);
}

void DiagnosticLogs::setDirectory(const QString& directory)
{
    m_directory = directory.isEmpty() ? defaultDirectory : directory;
}

QString DiagnosticLogs::path(const QString& fileName) const
{
    return QDir(m_directory).filePath(fileName);
}

bool DiagnosticLogs::write(const QString& fileName, const QString& text) const
{
    QDir().mkpath(m_directory);
    QSaveFile file(path(fileName));
    if (!file.open(QIODevice::WriteOnly)) {
        qCWarning(lcApp) << "cannot write the log" << file.fileName() << ":" << file.errorString();
        return false;
    }
    file.write(text.toUtf8());
    if (!file.commit()) {
        qCWarning(lcApp) << "cannot write the log" << file.fileName() << ":" << file.errorString();
        return false;
    }
    return true;
}

} // namespace ravlin
