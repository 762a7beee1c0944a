#include "DiagnosticLogs.h"

#include "Logging.h"

#include <QDir>
#include "FileDescriptorWrite.h"

#include <QFile>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace ravlin {
namespace {

QString systemError()
{
    return QString::fromLocal8Bit(std::strerror(errno));
}

// Why the report may not take the place of what stands at `path`; empty when it may.
QString refusal(const QByteArray& path)
{
    struct stat info {};
    if (::lstat(path.constData(), &info) != 0)
        return errno == ENOENT ? QString() : systemError();
    if (S_ISLNK(info.st_mode))
        return QStringLiteral("it is a symbolic link");
    if (!S_ISREG(info.st_mode))
        return QStringLiteral("it is not a plain file");
    if (info.st_uid != ::geteuid())
        return QStringLiteral("it belongs to another user");
    return QString();
}


} // namespace

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

// The default folder is shared by every user, so the report goes to a fresh file of our own
// (O_EXCL: never one somebody prepared) that is then renamed over the old report. A rename
// replaces a link instead of writing through it, and in a sticky folder it cannot replace another
// user's file; the check before it is there to say so plainly.
bool DiagnosticLogs::write(const QString& fileName, const QString& text) const
{
    QDir().mkpath(m_directory);
    const QString target = path(fileName);
    const QByteArray targetName = QFile::encodeName(target);
    if (const QString why = refusal(targetName); !why.isEmpty()) {
        qCWarning(lcApp).noquote()
            << QStringLiteral("the log %1 is not written: %2").arg(target, why);
        return false;
    }
    QByteArray temporary = targetName + ".XXXXXX";
    const int fd = ::mkstemp(temporary.data());
    if (fd < 0) {
        qCWarning(lcApp).noquote()
            << QStringLiteral("cannot write the log %1: %2").arg(target, systemError());
        return false;
    }
    const bool written = writeAll(fd, text.toUtf8()) && ::fchmod(fd, 0644) == 0;
    const QString writeError = written ? QString() : systemError();
    ::close(fd);
    if (!written || ::rename(temporary.constData(), targetName.constData()) != 0) {
        const QString why = written ? systemError() : writeError;
        ::unlink(temporary.constData());
        qCWarning(lcApp).noquote()
            << QStringLiteral("cannot write the log %1: %2").arg(target, why);
        return false;
    }
    return true;
}

} // namespace ravlin
